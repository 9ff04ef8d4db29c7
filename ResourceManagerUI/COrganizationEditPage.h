#pragma once

#include <common/CCalls.h>

#include <QWidget>

#include <memory>

namespace Ui {
class COrganizationEditPage;
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

    /// pInterfaceSet is borrowed.
    explicit COrganizationEditPage(
        const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~COrganizationEditPage() override;

    void BeginAdd(const GroupLogical::Organization_t& parent);
    void BeginModify(const GroupLogical::Organization_t& organization, const QString& sParentName);
    /// Whether the input differs from what the editor began with.
    bool IsDirty() const;

Q_SIGNALS:
    /// The server took the change: the mode, and code and name of the organisation.
    void SignalAddOrModifyOrgComplete(int nMode, const QString& sCode, const QString& sName);
    /// Back to the list.
    void SignalBack();

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    using Calls = Common::CCalls<GroupLogical::IGroupManagerObserver>;
    using Param = Calls::Param;
    void Begin(Mode mode, const GroupLogical::Organization_t& record, const QString& sParentName);
    GroupLogical::Organization_t GetEdited() const;
    void OnOkClicked();
    void OnCancelClicked();
    void OnSaved(const GroupLogical::Organization_t& edited, const Param& param);
    void ShowFailure(int nErrorCode);
    void QueryTheirs();
    void OnTheirs(const Param& param);
    void SetBusy(bool bBusy);

    std::unique_ptr<Ui::COrganizationEditPage> m_pUi;
    Mode m_mode = ModeAdd;
    GroupLogical::Organization_t m_loaded; ///< as the server has it
    GroupLogical::Organization_t m_baseline; ///< the same as the fields show it
    Calls m_calls;
};

} // namespace ResourceManagerUI
