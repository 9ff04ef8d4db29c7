#pragma once

#include <UserLogical/UserRecords.h>

#include <QFrame>

class QCheckBox;
class QLabel;
namespace VxGUI {
class VxSearchBox;
}

namespace PlatformConfigUI {

class CRolePopTableView;

/// The roles to choose from, popping up with a search field. What is checked counts at once. Deletes itself
/// when it is closed. User-interface thread.
class CRoleSelectPopView : public QFrame
{
    Q_OBJECT

public:
    explicit CRoleSelectPopView(QWidget* pParent);

    void SetRoles(const std::vector<UserLogical::Role_t>& vecRoles, const QStringList& listChosenIds);
    /// Shows it below that widget, kept on the screen.
    void PopUp(const QWidget* pBelow);

Q_SIGNALS:
    void SignalChosenChanged(const QStringList& listIds);

private:
    void UpdateState();
    void OnSelectAll(bool bChecked);

    VxGUI::VxSearchBox* m_pSearch;
    QCheckBox* m_pSelectAll;
    CRolePopTableView* m_pTable;
    QLabel* m_pNothing;
};

} // namespace PlatformConfigUI
