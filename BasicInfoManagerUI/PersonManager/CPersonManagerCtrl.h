#pragma once

#include <common/CListPage.h>

class QCheckBox;
class QLabel;

namespace VxGUI {
class VxSearchBox;
}

namespace BasicInfoManagerUI {

class CBatchIssueCard;
class CPersonGroupPane;
class CPersonnelBatchAuthorizeUI;
class CPersonnelInfoUI;
class CPersonnelListView;

/// The person page: tree of person groups, paged list of persons, and the operations on them.
/// User-interface thread.
class CPersonManagerCtrl : public Common::CListPage
{
    Q_OBJECT

public:
    using Param = AccessControlLogical::IPersonManagerObserver::Param;

    /// pInterfaceSet is borrowed and outlives the page's work. A manager that it lacks leaves its part of the
    /// page in the failed state.
    explicit CPersonManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);

Q_SIGNALS:
    void SgnFirstQueryPersonList();

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    /// Persons that are deleted or moved, in pieces of what the server takes at once.
    struct Batch
    {
        QStringList listLeft; ///< not yet sent
        QString sGroupCode; ///< where they move; empty: they are deleted
        QString sFailure; ///< begins the message of a failure
        QVector<Common::Failure> vecFailures;
    };

    void Query() override;
    void QueryAll() override;
    bool IsFiltered() const override { return !m_sSearchKey.isEmpty(); }
    bool CanClearFilters() const override { return true; }
    void ClearFilters() override;
    void OnConnectionChanged(bool bConnected) override;
    void ApplyRights() override;

    // Building the page.
    QWidget* MakeTitle();
    void SetUpGroups();
    void SetUpToolBar();
    void AddDeleteAction(const QVector<Common::Need>& vecNeeds);
    void SetUpSearch();
    void SetUpPages();

    void OnFirsQueryPersonList() { Start(); }
    void ShowGroupName();
    void OnGroupSaved(const QString& sCode, bool bAddPerson);
    /// Nobody of that group is checked any more, except those.
    void ForgetGroup(const QString& sGroupCode, bool bSubGroups, const QStringList& listLeft = {});

    // Persons.
    void OnOperation(int nRole, const QString& sPersonId);
    void OnBtnAbnormalClicked(const QString& sPersonId);
    void OnBtnDelClicked();
    void OnDeleteAllClicked();
    void OnAllDeleted(const Param& param, const QString& sGroupCode, bool bSubGroups);
    void DeletePersons(const QStringList& listIds);
    void MovePersons(const QStringList& listIds);
    void OnMoveConfirmed(const QStringList& listIds, const QString& sGroupCode);
    void SendNext(const Batch& batch);
    void OnBatchAnswer(const Param& param, const QStringList& listSent, Batch batch);
    /// The end of a batch: the list anew, and what failed.
    void ShowOutcome(const QString& sFailure, const QVector<Common::Failure>& vecFailures, int nErrorCode);
    void ReissuePerson(const QString& sPersonId);
    void ShowHistory(const QString& sPersonId);
    void ShowQrCode(const QString& sPersonId);

    // The pages over the list.
    void OnBtnAddClicked();
    void OnBtnBatchIssueCardClicked();
    void OnBtnBatchAuthorizeClicked();
    void OnPageDone(bool bChanged);
    void LeavePage();

    CPersonGroupPane* m_pGroups;
    CPersonnelListView* m_pList;
    QLabel* m_pGroupName;
    QCheckBox* m_pSubGroups;
    VxGUI::VxSearchBox* m_pSearch;
    CPersonnelInfoUI* m_pEditor;
    CBatchIssueCard* m_pIssueCard;
    CPersonnelBatchAuthorizeUI* m_pAuthorize;

    QString m_sSearchKey;
    bool m_bGroupsStale = false; ///< the next query asks for the tree too
    Common::CCalls<AccessControlLogical::IPersonManagerObserver> m_calls;
    Common::CCalls<AccessControlLogical::IPersonManagerObserver> m_reissueCalls; ///< devices take their time
    Common::CCalls<AccessControlLogical::IDepartmentManagerObserver> m_groupPushes;
};

} // namespace BasicInfoManagerUI
