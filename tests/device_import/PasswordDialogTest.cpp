#include "DialogFixture.h"

#include <DeviceSettings/CBulkResetPassword.h>
#include <UICommonMdl/ErrorCodes.h>
#include <VxGUI/VxLineEdit.h>
#include <common/CPasswordStrength.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

using namespace ResourceManagerUI;
using namespace RemoteConfigLogical;

namespace {

class PasswordDialog : public DialogFixture<CBulkResetPassword>
{
protected:
    void SetUp() override
    {
        m_pDialog = new CBulkResetPassword(
            &m_host.interfaceSet, {QStringLiteral("1001"), QStringLiteral("1002")}, &m_window);
        QObject::connect(m_pDialog, &CBulkResetPassword::SignalShowNotify, &m_window,
            [this](const QString& sText) { m_listNotices << sText; });
        m_pDialog->open();
        PageDriver::Settle();
    }
    void Fill(const char* pszOld, const char* pszNew, const char* pszConfirm)
    {
        m_driver.Type(QStringLiteral("m_leInputOldPwd"), QLatin1String(pszOld));
        m_driver.Type(QStringLiteral("m_leInputPwd"), QLatin1String(pszNew));
        m_driver.Type(QStringLiteral("m_leConfirmPwd"), QLatin1String(pszConfirm));
    }
    void Report(bool bFinal, const ModifyDevicePasswordResultInfoVec& vecResults, int nErrorCode = 0)
    {
        m_host.server.ReportLast<wire::ModifyDevicePassword>(MakeReport(vecResults, bFinal, nErrorCode));
        PageDriver::Settle();
    }
    /// The devices, the old and the new password of the last request.
    QString LastSent()
    {
        const auto request = m_host.server.LastRequest<wire::ModifyDevicePassword>();
        std::string sSent;
        for (const std::string& sId : request.vecDeviceIds)
            sSent += sId + ' ';
        return QString::fromStdString(sSent + request.sOldPassword + ' ' + request.sNewPassword);
    }
    int Requests() { return m_host.server.Count<wire::ModifyDevicePassword>(); }
    QString Field(const char* pszName) { return TextOf<VxGUI::VxLineEdit>(pszName); }
};

TEST_F(PasswordDialog, FirstFailureStopsAndStandsUnderItsField)
{
    const struct
    {
        const char* pszOld;
        const char* pszNew;
        const char* pszConfirm;
        const char* pszField;
        const char* pszHint;
    } cases[] = {{"", "Secret#1", "Secret#1", "m_leInputOldPwd", "Please enter old password"},
        {"", "", "", "m_leInputOldPwd", "Please enter old password"},
        {"old", "", "", "m_leInputPwd", "Please enter a new password."},
        {"old", "Secret#1", "", "m_leConfirmPwd", "Please enter confirm password."},
        {"old", "Secret#1", "secret#1", "m_leConfirmPwd", "The passwords do not match."}};
    for (const auto& testCase : cases) {
        Fill(testCase.pszOld, testCase.pszNew, testCase.pszConfirm);
        ClickOk();
        int nHints = 0;
        for (const auto* const pField : m_pDialog->findChildren<VxGUI::VxLineEdit*>())
            nHints += pField->GetErrorHint().isEmpty() ? 0 : 1;
        EXPECT_EQ(nHints, 1);
        EXPECT_EQ(m_driver.Find<VxGUI::VxLineEdit>(QLatin1String(testCase.pszField))->GetErrorHint(),
            QLatin1String(testCase.pszHint));
    }
    EXPECT_EQ(Requests(), 0);
    Screenshot("password-refused");
}

TEST_F(PasswordDialog, FieldsTakeSixteenCharactersAndNewOnesPrintableAscii)
{
    for (const char* const pszField : {"m_leInputOldPwd", "m_leInputPwd", "m_leConfirmPwd"}) {
        m_driver.Type(QLatin1String(pszField), QStringLiteral("0123456789abcdefG"));
        EXPECT_EQ(Field(pszField), QStringLiteral("0123456789abcdef"));
    }
    m_driver.Type(QStringLiteral("m_leInputPwd"), QStringLiteral("a "));
    QLineEdit* const pEdit = m_driver.Find<VxGUI::VxLineEdit>(QStringLiteral("m_leInputPwd"))->GetLineEdit();
    QTest::sendKeyEvent(QTest::Click, pEdit, Qt::Key_Eacute, QString(QChar(0xE9)), Qt::NoModifier);
    QTest::keyClicks(pEdit, QStringLiteral("~b"));
    EXPECT_EQ(Field("m_leInputPwd"), QStringLiteral("a ~b"));
    EXPECT_EQ(m_pDialog->findChild<QLabel*>(QStringLiteral("lbStrength"))->text(), QStringLiteral("Weak"));
}

TEST_F(PasswordDialog, ClosesWhenEveryDeviceIsDone)
{
    Fill("old", "Secret#1", "Secret#1");
    m_driver.Key(QStringLiteral("m_leInputOldPwd"), Qt::Key_Return);
    EXPECT_EQ(Requests(), 0) << "Enter goes to the next field first";
    m_driver.Key(QStringLiteral("m_leConfirmPwd"), Qt::Key_Return);
    EXPECT_EQ(LastSent(), QStringLiteral("1001 1002 old Secret#1"));
    Report(false, {{"1001", "Gate", 0, {}}});
    EXPECT_EQ(TextOf<QLabel>("lbProgress"), QStringLiteral("1 of 2 devices are done."));
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("m_leInputPwd")));
    Screenshot("password-running");
    Report(true, {{"1002", "Yard", 0, {}}});
    EXPECT_FALSE(m_pDialog);
    EXPECT_EQ(m_listNotices.size(), 1);
}

TEST_F(PasswordDialog, FailedDevicesAreListedAndTriedAgainAlone)
{
    Fill("old", "Secret#1", "Secret#1");
    ClickOk();
    Report(false, {{"1001", "Gate", 0, {}}});
    Report(true, {{"1002", "Yard", UICommonMdl::ErrorDevicePassword, {}}});
    ASSERT_TRUE(m_pDialog);
    auto* const pList = m_driver.Find<QListWidget>(QStringLiteral("listFailed"));
    ASSERT_EQ(pList->count(), 1);
    EXPECT_EQ(pList->item(0)->text(),
        QStringLiteral("Device Yard: The device does not accept the user name and password."));
    EXPECT_TRUE(m_driver.IsShown(QStringLiteral("lbFailed")));
    Screenshot("password-failed");
    m_driver.Type(QStringLiteral("m_leInputOldPwd"), QStringLiteral("other"));
    ClickOk();
    EXPECT_EQ(LastSent(), QStringLiteral("1002 other Secret#1"));
    Report(true, {{"1002", "Yard", 0, {}}});
    EXPECT_FALSE(m_pDialog);
}

TEST_F(PasswordDialog, FailureOfTheWholeIsToldAndReleasesTheDialog)
{
    Fill("old", "Secret#1", "Secret#1");
    ClickOk();
    Report(true, {}, UICommonMdl::ErrorNoRight);
    EXPECT_EQ(m_listNotices.last(),
        QStringLiteral("Failed to modify device password: You do not have the right to do this."));
    m_host.server.Refuse<wire::ModifyDevicePassword>();
    ClickOk();
    PageDriver::Settle();
    EXPECT_EQ(m_listNotices.last(),
        QStringLiteral("Failed to modify device password: The request could not be sent to the server."));
    EXPECT_TRUE(m_driver.IsUsable(QStringLiteral("m_leInputOldPwd")));
    Connect(false);
    EXPECT_FALSE(Ok()->isEnabled());
    EXPECT_TRUE(m_driver.IsShown(QStringLiteral("lbConnection")));
    Connect(true);
    EXPECT_TRUE(Ok()->isEnabled());
}

TEST_F(PasswordDialog, ClosingInTheMiddleAsksAndLateAnswersAreDropped)
{
    Fill("old", "Secret#1", "Secret#1");
    ClickOk();
    m_dialogs.AnswerNext(false);
    m_pDialog->reject();
    EXPECT_TRUE(m_pDialog->isVisible());
    m_dialogs.AnswerNext(true);
    m_pDialog->reject();
    Report(true, {}, UICommonMdl::ErrorTimeOut);
    EXPECT_FALSE(m_pDialog);
    EXPECT_TRUE(m_listNotices.isEmpty());
}

TEST(PasswordStrengthRule, GoesByLengthKindsAndFame)
{
    const std::pair<const char*, Common::PasswordStrength> cases[] = {{"", Common::PasswordStrength::None},
        {"Ab#1", Common::PasswordStrength::Weak}, {"onlyletters", Common::PasswordStrength::Weak},
        {"password1", Common::PasswordStrength::Weak}, {"gr8planet", Common::PasswordStrength::Medium},
        {"Gr8planetsky", Common::PasswordStrength::Strong}, {"Gr8#plane", Common::PasswordStrength::Strong}};
    for (const auto& [pszPassword, strength] : cases)
        EXPECT_EQ(Common::GetPasswordStrength(QLatin1String(pszPassword)), strength) << pszPassword;
}

} // namespace
