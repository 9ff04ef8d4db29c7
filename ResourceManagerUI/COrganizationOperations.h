#pragma once

#include <common/CCalls.h>

namespace Common {
class CPage;
}

namespace ResourceManagerUI {

class COrganizationEditPage;
class COrganizationTreeCtrl;

/// The organisations of the device page: fills the tree and does what the tree and the editor ask for.
/// User-interface thread.
class COrganizationOperations : public QObject
{
    Q_OBJECT

public:
    /// The page owns all of them.
    COrganizationOperations(
        Common::CPage* pPage, COrganizationTreeCtrl* pTree, COrganizationEditPage* pEditor);

    /// Asks for the tree.
    void Query();
    bool IsQuerying() const;

Q_SIGNALS:
    /// The answer to Query has come; what it brought is shown by the tree.
    void SignalQueried();
    /// The editor is about to begin: it is to be shown.
    void SignalOpenEditor();
    /// The editor is done.
    void SignalCloseEditor();

private:
    using Param = GroupLogical::IGroupManagerObserver::Param;
    void OnTree(const Param& param);
    void OnAddOrg(const QString& sParentCode);
    void OnEditOrg(const QString& sCode);
    void OnDeleteOrg(const QString& sCode);
    void OnMoveOrg(const QString& sCode, const QString& sNewParentCode);
    void OnAddOrModifyOrgComplete(int nMode, const QString& sCode);

    Common::CPage* m_pPage;
    COrganizationTreeCtrl* m_pTree;
    COrganizationEditPage* m_pEditor;
    QString m_sSelectAfterQuery; ///< organisation to select once the tree shows it
    Common::CCalls<GroupLogical::IGroupManagerObserver> m_calls;
};

} // namespace ResourceManagerUI
