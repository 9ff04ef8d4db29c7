#pragma once

#include <AccessControlLogical/IAccessControlManager.h>
#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <common/CRequests.h>
#include <common/IConfigPage.h>
#include <common/ObserverAdapters.h>

#include <QTimer>
#include <QWidget>

#include <memory>

class QAbstractButton;
namespace Ui {
class CPersonManagerCtrl;
}
namespace UICommonMdl {
class CDepartmentModel;
class CInterfaceSetManager;
class ILocalConfig;
} // namespace UICommonMdl

namespace BasicInfoManagerUI {

class CBatchIssueCard;
class CPersonGroupEditUI;
class CPersonnelBatchAuthorizeUI;
class CPersonnelInfoUI;

/// The person page: tree of person groups, paged list of persons, and the operations on them.
/// User-interface thread; the observer callbacks come on threads of the host.
class CPersonManagerCtrl : public QWidget,
                           public Common::IConfigPage,
                           private AccessControlLogical::IPersonManagerObserver,
                           private AccessControlLogical::IDepartmentManagerObserver
{
    Q_OBJECT

public:
    using PersonParam = AccessControlLogical::IPersonManagerObserver::Param;
    using DepartmentParam = AccessControlLogical::IDepartmentManagerObserver::Param;

    /// pInterfaceSet is borrowed and outlives the page. A manager that it lacks leaves its part of the page
    /// in the failed state.
    explicit CPersonManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CPersonManagerCtrl() override;

    bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) override;
    /// Ends all registrations; the page asks for nothing any more.
    void UninitUI() override;

Q_SIGNALS:
    void SignalNotifyPersonManagerState(const AccessControlLogical::IPersonManagerObserver::Param& param);
    void SignalNotifyDepartmentManagerState(
        const AccessControlLogical::IDepartmentManagerObserver::Param& param);
    void SgnFirstQueryPersonList();
    /// The connection was lost or is back.
    void SignalConnected(bool bConnected);

protected:
    void showEvent(QShowEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    void OnNotifyPersonManagerState(const PersonParam& param) override;
    void OnNotifyDepartmentManagerState(const DepartmentParam& param) override;

    // Building the page.
    void SetUpTree();
    void SetUpToolBar();
    void SetUpList();
    void SetUpPages();
    void SetUpShortcuts();
    void SetUpObservers();
    void RestoreLayout();

    // Answers and pushes, on the user-interface thread.
    void OnPersonState(const PersonParam& param);
    void OnDepartmentState(const DepartmentParam& param);
    void OnSystemState(const RemoteConfigLogical::ISystemConfigObserver::Param& param);
    void SetConnected(bool bConnected);
    void OnQueryTimer();
    void QueryLater(bool bDepartments);

    // Queries.
    void OnFirsQueryPersonList();
    void QueryAll();
    void QueryDepartments();
    void OnDepartmentModelFinish();
    void ShowTreeState(int nErrorCode);
    void QueryFirstPage();
    void QueryCurrentPage();
    void OnPersonList(const PersonParam& param);
    void ShowListState(int nErrorCode);
    AccessControlLogical::PersonPageRequest_t MakeRequest() const;

    // Person groups.
    QString GetGroupCode() const;
    void OnGroupChanged();
    void OnBtnAddOrgClicked();
    void OnBtnModifyOrgClicked();
    void OnBtnDelOrgClicked();
    void OpenGroupEditor(CPersonGroupEditUI* pDialog);
    void OnGroupSaved(const QString& sCode, bool bAddPerson);
    void OnGroupDeleted(const QString& sParentCode, int nErrorCode);

    // Persons.
    void OnOperation(int nRole, const QString& sPersonId);
    void OnBtnAbnormalClicked(const QString& sPersonId, const QString& sPersonName);
    void OnBtnDelClicked();
    void OnDeleteAllClicked();
    void DeletePersons(const QStringList& listIds);
    /// Waits for what was sent for several persons, shows what failed and queries the list again.
    void SendBatch(int nSequence, const QString& sFailure);
    void MovePersons(const QStringList& listIds, const QWidget* pBelow);
    void OnMoveConfirmed(const QStringList& listIds, const QString& sGroupCode);
    void ReissuePerson(const QString& sPersonId);
    void ShowHistory(const QString& sPersonId);
    void ShowQrCode(const QString& sPersonId);
    /// The checked persons; tells when there is none.
    QStringList GetCheckedIds();
    void UpdateButtons();

    // The pages over the list.
    void OnBtnAddClicked();
    void OnBtnBatchIssueCardClicked();
    void OnBtnBatchAuthorizeClicked();
    void ShowPage(QWidget* pPage);
    void ShowList();
    bool IsPageDirty() const;
    void LeavePage();

    void ShowFailure(const QString& sPrefix, int nErrorCode);
    void ShowSelectGroup();

    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    AccessControlLogical::IAccessControlManager* m_pManager;
    RemoteConfigLogical::IRemoteConfigManager* m_pRemoteManager;
    UICommonMdl::ILocalConfig* m_pLocalConfig;
    UICommonMdl::CDepartmentModel* m_pDepartments;
    std::unique_ptr<Ui::CPersonManagerCtrl> m_pUi;
    CPersonnelInfoUI* m_pEditor = nullptr;
    CBatchIssueCard* m_pIssueCard = nullptr;
    CPersonnelBatchAuthorizeUI* m_pAuthorize = nullptr;

    QString m_sSearchKey;
    QString m_sSelectAfterQuery; ///< group to select once the tree shows it
    bool m_bConnected = true;
    bool m_bReleased = false; ///< Uninit was called

    Common::CRequests<PersonParam> m_requests;
    Common::CRequests<DepartmentParam> m_departmentRequests;
    Common::CRequests<PersonParam> m_reissues; ///< devices take their time
    QTimer m_queryTimer; ///< gathers pushes into one query
    bool m_bDepartmentsStale = false;

    Common::CSystemConfigAdapter m_systemAdapter;
    Common::CObserverRegistration<AccessControlLogical::IAccessControlManager,
        AccessControlLogical::IPersonManagerObserver>
        m_personRegistration;
    Common::CObserverRegistration<AccessControlLogical::IAccessControlManager,
        AccessControlLogical::IDepartmentManagerObserver>
        m_departmentRegistration;
};

} // namespace BasicInfoManagerUI
