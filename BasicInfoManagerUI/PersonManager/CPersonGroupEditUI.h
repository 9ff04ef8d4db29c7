#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CPersonGroupEditUI;
}

namespace BasicInfoManagerUI {

/// Adds a person group, or changes name, remark and parent of one. On a refusal it stays open with the
/// input. Deletes itself when it is closed. User-interface thread.
class CPersonGroupEditUI : public QDialog
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
    using Param = AccessControlLogical::IDepartmentManagerObserver::Param;
    void SetUpFields();
    void ShowRecord();
    bool CheckFields();
    AccessControlLogical::Department_t GetEdited() const;
    void Save(bool bAddPerson);
    void OnAnswer(const Param& param, bool bAddPerson);
    void ShowFailure(int nErrorCode);
    void UpdateButtons();

    std::unique_ptr<Ui::CPersonGroupEditUI> m_pUi;
    AccessControlLogical::Department_t m_loaded; ///< without a code: a new group
    AccessControlLogical::Department_t m_baseline; ///< the same as the fields show it
    bool m_bSaving = false;
    Common::CSession m_session;
    Common::CCalls<AccessControlLogical::IDepartmentManagerObserver> m_calls;
};

} // namespace BasicInfoManagerUI
