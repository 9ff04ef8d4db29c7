#pragma once

#include <common/CPage.h>

#include <memory>

class QAbstractButton;
namespace Ui {
class CPersonManagerCtrl;
}
namespace UICommonMdl {
class CDepartmentModel;
class ILocalConfig;
} // namespace UICommonMdl

namespace BasicInfoManagerUI {

class CBatchIssueCard;
class CPersonGroupEditUI;
class CPersonnelBatchAuthorizeUI;
class CPersonnelInfoUI;

/// The person page: tree of person groups, paged list of persons, and the operations on them.
/// User-interface thread.
class CPersonManagerCtrl : public Common::CPage
{
    Q_OBJECT

public:
    using PersonParam = AccessControlLogical::IPersonManagerObserver::Param;
    using DepartmentParam = AccessControlLogical::IDepartmentManagerObserver::Param;

    /// pInterfaceSet is borrowed and outlives the page. A manager that it lacks leaves its part of the page
    /// in the failed state.
    explicit CPersonManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CPersonManagerCtrl() override;

Q_SIGNALS:
    void SgnFirstQueryPersonList();

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    void OnConnectionChanged(bool bConnected) override;
    void OnRightsChanged() override;

    // Building the page.
    void SetUpTree();
    void SetUpToolBar();
    void SetUpList();
    void SetUpPages();
    void SetUpShortcuts();
    void SetUpObservers();
    void RestoreLayout();

    // Pushes.
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
    /// What was sent for several persons is answered: shows what failed and queries the list again.
    void OnBatchAnswer(const PersonParam& param, const QString& sFailure);
    void MovePersons(const QStringList& listIds, const QWidget* pBelow);
    void OnMoveConfirmed(const QStringList& listIds, const QString& sGroupCode);
    void ReissuePerson(const QString& sPersonId);
    void ShowHistory(const QString& sPersonId);
    void ShowQrCode(const QString& sPersonId);
    /// The checked persons; tells when there is none.
    QStringList GetCheckedIds();
    void UpdateButtons();
    bool MayChange() const;

    // The pages over the list.
    void OnBtnAddClicked();
    void OnBtnBatchIssueCardClicked();
    void OnBtnBatchAuthorizeClicked();
    void ShowPage(QWidget* pPage);
    void ShowList();
    bool IsPageDirty() const;
    void LeavePage();

    void ShowSelectGroup();

    UICommonMdl::ILocalConfig* m_pLocalConfig;
    UICommonMdl::CDepartmentModel* m_pDepartments;
    std::unique_ptr<Ui::CPersonManagerCtrl> m_pUi;
    CPersonnelInfoUI* m_pEditor = nullptr;
    CBatchIssueCard* m_pIssueCard = nullptr;
    CPersonnelBatchAuthorizeUI* m_pAuthorize = nullptr;

    QString m_sSearchKey;
    QString m_sSelectAfterQuery; ///< group to select once the tree shows it
    Common::CCalls<AccessControlLogical::IPersonManagerObserver> m_calls;
    Common::CCalls<AccessControlLogical::IPersonManagerObserver> m_reissueCalls; ///< devices take their time
    Common::CCalls<AccessControlLogical::IDepartmentManagerObserver> m_groupCalls;
    QTimer m_queryTimer; ///< gathers pushes into one query
    bool m_bDepartmentsStale = false;
};

} // namespace BasicInfoManagerUI
