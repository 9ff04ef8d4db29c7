#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace Common {

class CTableModel;

/// The line below a list: how many there are ("Devices: 3,412") and, while something is checked, how many of
/// them ("37 checked") with a button that unchecks them, on whatever page they are. User-interface thread.
class CListStatus : public QWidget
{
    Q_OBJECT

public:
    explicit CListStatus(QWidget* pParent = nullptr);

    /// The count, with %1 for it; translated ("Devices: %1").
    void SetTotalText(const QString& sPattern);
    void SetTotal(int nTotal);
    /// Tells what is checked in that model; borrowed.
    void Follow(CTableModel* pModel);

private:
    void Update();

    CTableModel* m_pModel = nullptr;
    QString m_sPattern;
    int m_nTotal = 0;
    QLabel* m_pTotal;
    QLabel* m_pChecked;
    QPushButton* m_pClear;
};

} // namespace Common
