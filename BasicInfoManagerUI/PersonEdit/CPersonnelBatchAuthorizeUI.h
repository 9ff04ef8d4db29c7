#pragma once

#include <common/CCalls.h>
#include <common/CInputGuard.h>
#include <common/CSession.h>

#include <QWidget>

#include <memory>

namespace Ui {
class CPersonnelBatchAuthorizeUI;
}

namespace BasicInfoManagerUI {

/// The batch authorisation page: the same permissions for several persons. User-interface thread.
class CPersonnelBatchAuthorizeUI : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the page.
    explicit CPersonnelBatchAuthorizeUI(
        UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CPersonnelBatchAuthorizeUI() override;

    /// Starts anew with these persons; shown by the caller.
    void SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons);
    /// Permissions were chosen and are not saved.
    bool IsDirty() const;
    /// Goes back (SignalBack); asks first when something would be lost.
    void Leave();
    /// The page's name, for the button that opens it.
    static QString GetTitle();

Q_SIGNALS:
    /// The user is done: bAuthorized when permissions were changed, so that lists are old.
    void SignalBack(bool bAuthorized);
    /// The user wants to add permissions of that kind; the page opens its adders itself.
    void SignalAddAccessGroup();
    void SignalAddFaceLibrary();

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;

private:
    using Param = AccessControlLogical::IPersonManagerObserver::Param;

    void Close();
    void SetUpControls();
    void OnConnectionChanged(bool bConnected);
    void QueryChoices();
    void SetChoicesFailed(bool bFailed, int nErrorCode);
    /// What was chosen; the other fields are empty.
    AccessControlLogical::Person_t GetPermissions() const;
    void OnOkClicked();
    /// Sends the next persons of those that are left.
    void SendNext();
    void OnAuthorized(const Param& param, const std::vector<std::string>& vecSent);
    void Finish(int nErrorCode);
    void ShowFailures();
    void SetBusy(bool bBusy);
    void UpdateState();

    std::unique_ptr<Ui::CPersonnelBatchAuthorizeUI> m_pUi;
    std::vector<std::string> m_vecLeft; ///< persons that were not sent yet
    std::vector<AccessControlLogical::PersonFailure_t> m_vecFailed;
    std::vector<AccessControlLogical::PersonClash_t> m_vecClashes;
    int m_nTotal = 0; ///< persons of the run
    bool m_bBusy = false;
    bool m_bChoicesFailed = false;
    bool m_bAuthorized = false; ///< some persons have their permissions
    Common::CSession m_session;
    Common::CCalls<AccessControlLogical::IPersonManagerObserver> m_calls;
    Common::CInputGuard m_guard;
};

} // namespace BasicInfoManagerUI
