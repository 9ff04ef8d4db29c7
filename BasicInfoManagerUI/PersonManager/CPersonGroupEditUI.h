#pragma once

#include <common/CCalls.h>
#include <common/CEditor.h>
#include <common/CFormBinding.h>
#include <common/CSession.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CPersonGroupEditUI;
}

namespace BasicInfoManagerUI {

/// Adds a person group, or changes name, remark and parent of one. On a refusal it stays open with the
/// input. Deletes itself when it is closed. User-interface thread.
class CPersonGroupEditUI : public QDialog, private Common::IRecordForm<AccessControlLogical::Department_t>
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    CPersonGroupEditUI(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent);
    ~CPersonGroupEditUI() override;

    void BeginAdd(const QString& sParentCode);
    void BeginModify(const AccessControlLogical::Department_t& department);

    void accept() override;
    /// Asks first when something was changed.
    void reject() override;

Q_SIGNALS:
    /// The server took the change; bAddPerson: a person is to be added to the group next.
    void SignalGroupSaved(const QString& sCode, bool bAddPerson);

private:
    using Department = AccessControlLogical::Department_t;
    using Param = AccessControlLogical::IDepartmentManagerObserver::Param;
    void SetUpFields();
    void SetUpEditor();
    void SetUpButtons();
    void Save(bool bAddPerson);
    bool IsRoot() const;

    void ShowRecord(const Department& record) override;
    Department GetEdited() const override;
    bool CheckInput() override;
    void Send(const Department& record, bool bNew) override;
    void Fetch(const Department& record, bool bNew) override;
    void OnSaved(const Department& record) override;
    bool ShowRefusal(int nErrorCode, const std::string& sDetail) override;

    std::unique_ptr<Ui::CPersonGroupEditUI> m_pUi;
    bool m_bAddPerson = false; ///< a person is added next
    Common::CSession m_session;
    Common::CCalls<AccessControlLogical::IDepartmentManagerObserver> m_calls;
    Common::CEditor<Department> m_editor;
    Common::CFormBinding<Department> m_fields;
};

} // namespace BasicInfoManagerUI
