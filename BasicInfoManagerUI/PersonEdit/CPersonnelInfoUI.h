#pragma once

#include <common/CCalls.h>
#include <common/CEditor.h>
#include <common/CSession.h>

#include <QPointer>
#include <QWidget>

#include <memory>

namespace Ui {
class CPersonnelInfoUI;
}

namespace BasicInfoManagerUI {

class CAccessControlInfo;
class CCredentialsSection;
class CExtractPersonDlg;
class CFaceComparisonInfo;
class CLiftControlInfo;
class CPersonBasicInfo;
class CPersonSection;
class CResidentInfo;

/// The person editor: adds, edits and shows one person. User-interface thread.
class CPersonnelInfoUI : public QWidget, private Common::IRecordForm<AccessControlLogical::Person_t>
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the editor.
    explicit CPersonnelInfoUI(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CPersonnelInfoUI() override;

    /// Each starts anew and asks for what it needs; shown by the caller. An answer to an earlier one is
    /// dropped.
    void AddPerson(const QString& sGroupCode);
    void EditPerson(const QString& sPersonId);
    void ShowPerson(const QString& sPersonId);

    /// Something was entered and is not saved.
    bool IsDirty() const { return m_editor.IsDirty(); }
    /// Goes back (SignalBack); asks first when something would be lost.
    void Leave();

Q_SIGNALS:
    /// The user is done with the editor.
    void SignalBack();
    /// A person was added or modified, so that lists are old. The editor may stay open for the next one.
    void SignalPersonSaved(const QString& sPersonId);

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;

private:
    using Param = AccessControlLogical::IPersonManagerObserver::Param;
    using Person = AccessControlLogical::Person_t;

    // Building the page.
    void SetUpSections();
    void AddSection(CPersonSection* pSection);
    void SetUpButtons();
    void SetUpEditor();
    void SetUpShortcuts();

    // What is shown.
    void Begin();
    void BeginNewPerson(const std::string& sGroupCode);
    /// Makes the fields editable, or not.
    void ShowPurpose();
    void ShowFields(const Person& person);
    void UpdateState();
    void OnChanged();

    // What it asks for.
    void OnConnectionChanged(bool bConnected);
    void Load(Common::CEditorBase::Purpose purpose, const QString& sPersonId);
    void QueryChoices();
    void QueryPermissionChoices();
    void QueryResidence();
    void SetChoicesFailed(const QString& sPermissions, const QString& sResidence);
    void OnExtractClicked();

    // Saving and leaving.
    void OnOkClicked(bool bContinue);
    void ShowClashes();
    void ScrollToFocus();
    void ShowRecord(const Person& record) override;
    Person GetEdited() const override;
    bool CheckInput() override;
    void Send(const Person& record, bool bNew) override;
    void Fetch(const Person& record, bool bNew) override;
    void OnSaved(const Person& record) override;
    bool ShowRefusal(int nErrorCode, const std::string& sDetail) override;
    std::pair<int, std::string> GetTaken() const override;

    std::unique_ptr<Ui::CPersonnelInfoUI> m_pUi;
    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    CPersonBasicInfo* m_pBasic = nullptr;
    CCredentialsSection* m_pCredentials = nullptr;
    CAccessControlInfo* m_pAccess = nullptr;
    CLiftControlInfo* m_pLift = nullptr;
    CFaceComparisonInfo* m_pFace = nullptr;
    CResidentInfo* m_pResident = nullptr;
    std::vector<CPersonSection*> m_vecSections; ///< in their order
    QPointer<CExtractPersonDlg> m_pExtract;
    bool m_bContinue = false; ///< once saved, the next person is added
    std::vector<AccessControlLogical::PersonClash_t> m_vecClashes; ///< of the last save
    QString m_sChoicesFailed; ///< empty: the choices came or are on their way
    QString m_sResidenceFailed;
    Common::CSession m_session;
    Common::CCalls<AccessControlLogical::IPersonManagerObserver> m_calls;
    Common::CEditor<Person> m_editor;
};

} // namespace BasicInfoManagerUI
