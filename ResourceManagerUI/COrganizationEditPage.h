#pragma once

#include <GroupLogical/GroupRecords.h>
#include <GroupLogical/IGroupManager.h>
#include <common/CRequests.h>

#include <QWidget>

#include <memory>

namespace Ui {
class COrganizationEditPage;
}
namespace Common {
class CGroupManagerAdapter;
}

namespace ResourceManagerUI {

/// Adds an organisation or changes name and remark of one. On a refusal it stays open with the input.
/// User-interface thread.
class COrganizationEditPage : public QWidget
{
    Q_OBJECT

public:
    enum Mode : int
    {
        ModeAdd = 0,
        ModeModify = 1
    };

    explicit COrganizationEditPage(QWidget* pParent = nullptr);
    ~COrganizationEditPage() override;

    /// Borrowed; may be null, then every save is refused.
    void SetGroupManager(GroupLogical::IGroupManager* pManager);
    void BeginAdd(const GroupLogical::Organization_t& parent);
    void BeginModify(const GroupLogical::Organization_t& organization, const QString& sParentName);

Q_SIGNALS:
    /// The server took the change: the mode, and code and name of the organisation.
    void SignalAddOrModifyOrgComplete(int nMode, const QString& sCode, const QString& sName);
    /// Back to the list.
    void SignalFirstBtnClicked();

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    void Begin(Mode mode, const GroupLogical::Organization_t& record, const QString& sParentName);
    GroupLogical::Organization_t GetEdited() const;
    void OnOkClicked();
    void OnCancelClicked();
    void OnAnswer(const GroupLogical::IGroupManagerObserver::Param& param);
    void ShowFailure(int nErrorCode);
    void SetBusy(bool bBusy);

    std::unique_ptr<Ui::COrganizationEditPage> m_pUi;
    GroupLogical::IGroupManager* m_pManager = nullptr;
    Mode m_mode = ModeAdd;
    GroupLogical::Organization_t m_loaded;
    Common::CRequests<GroupLogical::IGroupManagerObserver::Param> m_requests;
    std::unique_ptr<Common::CGroupManagerAdapter> m_pAdapter;
};

} // namespace ResourceManagerUI
