#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace Common {

/// Says on a form what becomes of a save whose answer is late or did not come; hidden otherwise. Its look
/// stands in the client's style sheet, once. User-interface thread.
class CSaveNotice : public QFrame
{
    Q_OBJECT

public:
    explicit CSaveNotice(QWidget* pParent = nullptr);

    /// An empty text hides it. bLookAgain: with a button that asks for another look.
    void SetText(const QString& sText, bool bLookAgain = false);

Q_SIGNALS:
    void SignalLookAgain();

private:
    QLabel* m_pText;
    QPushButton* m_pLookAgain;
};

} // namespace Common
