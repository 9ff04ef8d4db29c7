#pragma once

#include <QFrame>

namespace Common {
class CTreeChoice;
}

namespace BasicInfoManagerUI {

/// The tree of person groups that pops up to choose where persons move. Deletes itself when it is closed.
/// User-interface thread.
class CMovePersonTree : public QFrame
{
    Q_OBJECT

public:
    explicit CMovePersonTree(QWidget* pParent);

    /// Shows it below that widget, kept on the screen.
    void PopUp(const QWidget* pBelow);

Q_SIGNALS:
    /// The choice is confirmed; the code is empty when no group is chosen, and the tree stays open then.
    void SignalOkClicked(const QString& sGroupCode);
    void SignalCancelClicked();

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    void OnOk();
    void OnCancel();

    Common::CTreeChoice* m_pChoice;
};

} // namespace BasicInfoManagerUI
