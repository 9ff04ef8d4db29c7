#pragma once

#include <common/CCalls.h>
#include <common/CEditor.h>
#include <common/CFormBinding.h>
#include <common/CSession.h>

#include <QWidget>

#include <memory>

namespace Ui {
class COrganizationEditPage;
}

namespace ResourceManagerUI {

/// Adds an organisation or changes name and remark of one. On a refusal it stays open with the input.
/// User-interface thread.
class COrganizationEditPage : public QWidget, private Common::IRecordForm<GroupLogical::Organization_t>
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

Q_SIGNALS:
    /// The server took the change: the mode, and code and name of the organisation.
    void SignalAddOrModifyOrgComplete(int nMode, const QString& sCode, const QString& sName);
    /// Back to the list.
    void SignalBack();

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    using Organization = GroupLogical::Organization_t;
    using Calls = Common::CCalls<GroupLogical::IGroupManagerObserver>;
    using Param = Calls::Param;
    void SetUpFields();
    void SetUpEditor();
    void ShowParent(const QString& sName);

    void ShowRecord(const Organization& record) override;
    Organization GetEdited() const override;
    bool CheckInput() override;
    void Send(const Organization& record, bool bNew) override;
    void Fetch(const Organization& record, bool bNew) override;
    void OnSaved(const Organization& record) override;

    std::unique_ptr<Ui::COrganizationEditPage> m_pUi;
    Common::CSession m_session;
    Calls m_calls;
    Common::CEditor<Organization> m_editor;
    Common::CFormBinding<Organization> m_fields;
};

} // namespace ResourceManagerUI
