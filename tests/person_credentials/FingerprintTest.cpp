#include "CredentialFixture.h"

#include <Credentials/CFingerName.h>
#include <Credentials/CInputFinger.h>
#include <Credentials/CPersonAuthenticationInfo.h>
#include <Credentials/CReadFingerByDevice.h>
#include <UICommonMdl/ErrorCodes.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

using namespace BasicInfoManagerUI;
using namespace AccessControlLogical;
using UICommonMdl::ErrorCode;
namespace Simulation = FingerprintReader::Simulation;

namespace {

const std::string Template = QByteArray(810, 'x').toBase64().toStdString();

/// The operations of a fingerprint, in their order: how it is now, then what can be done.
enum Button : int
{
    Duress,
    NotDuress,
    Rename,
    Delete
};

class FingerprintSection : public CredentialFixture<CPersonAuthenticationInfo>
{
protected:
    void SetUp() override
    {
        m_host.site.ServeDevices();
        Simulation::SetFingerAtOnce();
        m_page.SetPerson({});
    }
    void Show(const std::vector<Fingerprint_t>& vecFingerprints)
    {
        Person_t person;
        person.vecFingerprints = vecFingerprints;
        m_page.SetPerson(person);
        PageDriver::Settle();
    }
    std::vector<Fingerprint_t> Fingerprints()
    {
        Person_t person;
        m_page.FillPerson(person);
        return person.vecFingerprints;
    }
    QTreeView* Table() { return m_driver.Find<QTreeView>(QStringLiteral("tableFingerprints")); }
    CInputFinger* Dialog() { return m_page.findChild<CInputFinger*>(); }
    void Open(int nType)
    {
        m_host.config.mapValues[QStringLiteral("AuthenFinger/type")] = nType;
        m_driver.Click(QStringLiteral("m_pBtnAddFingerprint"));
        PageDriver::Settle();
    }
    void Start() { m_driver.Click(QStringLiteral("m_pBtnStart")); }
    QString Tip() { return m_driver.Find<QLabel>(QStringLiteral("lbTip"))->text(); }
    /// Confirms the name that the dialog proposes, or another one.
    void Name(const char* pszName = nullptr)
    {
        ASSERT_TRUE(PageDriver::WaitFor([this] { return m_page.findChild<CFingerName*>() != nullptr; }));
        if (pszName)
            m_driver.Type(QStringLiteral("m_pEditFingerName"), QLatin1String(pszName));
        auto* const pDialog = m_page.findChild<CFingerName*>();
        QTest::mouseClick(
            pDialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
        PageDriver::Settle();
    }
    void AnswerCapture(const std::string& sData, int nErrorCode = ErrorCode::ErrorNone)
    {
        m_host.server.ReportLast<wire::CaptureFingerprint>(
            MakeEnd(wire::CapturedFingerprint{sData}, nErrorCode));
        PageDriver::Settle();
    }
};

TEST_F(FingerprintSection, UsbReaderEnrolsNamesAndStopsAtThree)
{
    Open(CInputFinger::ReaderNone);
    Start();
    EXPECT_EQ(VxGUI::VxNotification::CurrentText(Dialog()), "Please select a reader.");
    m_driver.Choose(QStringLiteral("m_pCmbFingerReaderType"), QStringLiteral("USB Fingerprint Reader"));
    EXPECT_EQ(m_host.config.mapValues[QStringLiteral("AuthenFinger/type")].toInt(), CInputFinger::ReaderUsb);
    Start();
    ASSERT_TRUE(PageDriver::WaitFor([this] { return Tip() == "Successfully collect!"; }));
    Name();
    for (const char* pszName : {"Thumb", "Little"}) {
        Open(CInputFinger::ReaderUsb);
        Start();
        Name(pszName);
    }
    m_driver.Click(QStringLiteral("m_pBtnAddFingerprint"));
    EXPECT_EQ(Notice(), "Add 3 fingerprints at most.");
    EXPECT_EQ(Dialog(), nullptr);
    const auto vecFingerprints = Fingerprints();
    ASSERT_EQ(vecFingerprints.size(), 3u);
    EXPECT_EQ(vecFingerprints[0].sName, "Finger 1");
    EXPECT_EQ(vecFingerprints[2].sName, "Little");
    EXPECT_NE(vecFingerprints[0].sTemplate, vecFingerprints[1].sTemplate);
    m_driver.Screenshot(QStringLiteral("fingerprints"));
}

TEST_F(FingerprintSection, FailuresOfTheUsbReaderAreToldHideAgainAndCanBeRetried)
{
    Simulation::SetPlugged(false);
    Open(CInputFinger::ReaderUsb);
    Start();
    ASSERT_TRUE(PageDriver::WaitFor([this] { return Tip() == "Failed to open reader."; }));
    ASSERT_TRUE(PageDriver::WaitFor([this] { return Tip().isEmpty(); }));
    Simulation::SetPlugged(true);
    Simulation::UnplugAtImage(2);
    Start();
    ASSERT_TRUE(PageDriver::WaitFor([this] { return Tip() == "Failed to collect fingerprint."; }));
    Simulation::SetPlugged(true);
    Start();
    Name();
    EXPECT_EQ(Fingerprints().size(), 1u);
}

TEST_F(FingerprintSection, DialogThatIsClosedInTheMiddleLeavesNothing)
{
    Simulation::SetNoFinger(1000);
    Open(CInputFinger::ReaderUsb);
    Start();
    QTest::keyClick(Dialog(), Qt::Key_Escape);
    PageDriver::Settle();
    Open(CInputFinger::ReaderUsb);
    Start();
    // Another person is shown under the open dialog.
    Show({{7, "Stored", false, {}}});
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_EQ(Fingerprints(), (std::vector<Fingerprint_t>{{7, "Stored", false, {}}}));
}

TEST_F(FingerprintSection, DeviceCapturesOnceAndLateCapturesAreDropped)
{
    Open(CInputFinger::ReaderDevice);
    auto* const pDevices = m_driver.Find<QComboBox>(QStringLiteral("m_pCmbFingerDevice"));
    EXPECT_EQ(pDevices->count(), 6) << "devices of other categories are offered";
    m_driver.Choose(QStringLiteral("m_pCmbFingerDevice"), QStringLiteral("Camera 4"));
    const std::pair<std::pair<std::string, int>, QString> failures[] = {
        {{"", ErrorCode::ErrorNone}, QStringLiteral("Failed to collect fingerprint")},
        {{"AAAA", ErrorCode::ErrorNone}, QStringLiteral("Failed to collect fingerprint")},
        {{"", ErrorCode::ErrorDeviceTimeOut}, QStringLiteral("Fingerprint collection timeout.")}};
    for (const auto& [answer, sTip] : failures) {
        Start();
        EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("m_pBtnStart")));
        AnswerCapture(answer.first, answer.second);
        EXPECT_EQ(Tip(), sTip);
    }
    EXPECT_EQ(m_host.server.LastRequest<wire::CaptureFingerprint>().sDeviceId, "1004");

    Dialog()->SetCaptureTimeOut(std::chrono::milliseconds(1));
    Start();
    ASSERT_TRUE(PageDriver::WaitFor([this] { return m_driver.IsUsable(QStringLiteral("m_pBtnStart")); }));
    EXPECT_EQ(Tip(), "Fingerprint collection timeout.");
    const FakeCall late = m_host.server.Last<wire::CaptureFingerprint>();
    Dialog()->SetCaptureTimeOut(std::chrono::seconds(30));
    Start();
    m_host.server.Report(late, MakeEnd(wire::CapturedFingerprint{Template}));
    PageDriver::Settle();
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("m_pBtnStart"))) << "the late capture ended the new one";
    AnswerCapture(Template);
    Name();
    EXPECT_EQ(Fingerprints().front().sTemplate, Template);

    m_host.server.Refuse<wire::CaptureFingerprint>();
    Open(CInputFinger::ReaderDevice);
    Start();
    EXPECT_EQ(Tip(), "Failed to collect fingerprint: The request could not be sent to the server.");
}

TEST_F(FingerprintSection, LostConnectionEndsADeviceCaptureAndKeepsTheUsbReader)
{
    Open(CInputFinger::ReaderDevice);
    Start();
    m_page.SetConnected(false);
    EXPECT_EQ(Tip(), "The connection to the server is lost.");
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("m_pBtnStart")));
    m_driver.Choose(QStringLiteral("m_pCmbFingerReaderType"), QStringLiteral("USB Fingerprint Reader"));
    EXPECT_TRUE(m_driver.IsUsable(QStringLiteral("m_pBtnStart")));
    m_driver.Choose(QStringLiteral("m_pCmbFingerReaderType"), QStringLiteral("Access Control Device"));
    m_page.SetConnected(true);
    EXPECT_TRUE(m_driver.IsUsable(QStringLiteral("m_pBtnStart")));
}

TEST_F(FingerprintSection, DevicesThatCannotBeQueriedAreToldAndAskedForAgain)
{
    m_host.server.FailAlways<wire::QueryDevicePage>(ErrorCode::ErrorNoRight);
    Open(CInputFinger::ReaderDevice);
    EXPECT_TRUE(m_driver.Find<QLabel>(QStringLiteral("lbDeviceState"))
                    ->text()
                    .startsWith(QLatin1String("Failed to query devices: ")));
    m_host.server.AnswerAlways<wire::QueryDevicePage>({});
    m_driver.Click(QStringLiteral("btnRefreshDevices"));
    PageDriver::Settle();
    EXPECT_EQ(
        m_driver.Find<QLabel>(QStringLiteral("lbDeviceState"))->text(), "There is no access control device.");
    Start();
    EXPECT_EQ(VxGUI::VxNotification::CurrentText(Dialog()), "Please select a reader.");
}

TEST_F(FingerprintSection, StoredFingerprintsAreRenamedMarkedAndDeletedWithoutTheirTemplate)
{
    Show({{7, "Left", false, {}}, {8, "Right", true, {}}});
    PressRowButton(Table(), QStringLiteral("Left"), Rename);
    for (const char* pszBad : {"", "Right"}) {
        Name(pszBad);
        EXPECT_EQ(HintOf("m_pEditFingerName"),
            *pszBad ? "Fingerprint name is repeated." : "Fingerprint name can not be empty.");
    }
    Name("Thumb");
    PressRowButton(Table(), QStringLiteral("Thumb"), NotDuress);
    PressRowButton(Table(), QStringLiteral("Right"), Duress);
    EXPECT_EQ(Fingerprints(), (std::vector<Fingerprint_t>{{7, "Thumb", true, {}}, {8, "Right", false, {}}}));
    m_dialogs.AnswerNext(false);
    PressRowButton(Table(), QStringLiteral("Thumb"), Delete);
    m_dialogs.AnswerNext(true);
    PressRowButton(Table(), QStringLiteral("Thumb"), Delete);
    EXPECT_EQ(Fingerprints(), (std::vector<Fingerprint_t>{{8, "Right", false, {}}}));
    m_page.SetReadOnly(true);
    EXPECT_FALSE(m_driver.IsShown(QStringLiteral("m_pBtnAddFingerprint")));
    PressRowButton(Table(), QStringLiteral("Right"), NotDuress);
    EXPECT_FALSE(Fingerprints().front().bDuress);
}

class UnlockPassword : public CredentialFixture<CPersonAuthenticationInfo>
{
protected:
    std::pair<bool, std::string> Password()
    {
        Person_t person;
        m_page.FillPerson(person);
        return {person.bUnlockPassword, person.sUnlockPassword};
    }
};

TEST_F(UnlockPassword, SixDigitsAreTakenFewerKeepTheFocus)
{
    m_driver.Type(QStringLiteral("m_pEditAddPassword"), QStringLiteral("12a345"));
    m_driver.Click(QStringLiteral("m_pBtnAddPassword"));
    EXPECT_EQ(HintOf("m_pEditAddPassword"), "The passoword must be a 6-digit number.");
    EXPECT_EQ(m_page.CheckInput(), "The passoword must be a 6-digit number.");
    EXPECT_TRUE(
        m_driver.Find<VxGUI::VxLineEdit>(QStringLiteral("m_pEditAddPassword"))->GetLineEdit()->hasFocus());
    EXPECT_EQ(Password(), std::pair(false, std::string()));
    m_driver.Type(QStringLiteral("m_pEditAddPassword"), QStringLiteral("0123456"));
    EXPECT_EQ(m_page.CheckInput(), QString());
    EXPECT_EQ(Password(), std::pair(true, std::string("012345")));
}

TEST_F(UnlockPassword, StoredOneIsKeptReplacedOrDeleted)
{
    Person_t person;
    person.bUnlockPassword = true;
    m_page.SetPerson(person);
    m_driver.Click(QStringLiteral("m_pBtnEditPassword"));
    m_driver.Type(QStringLiteral("m_pEditNewPassword"), QStringLiteral("65"));
    m_driver.Key(QStringLiteral("m_pEditNewPassword"), Qt::Key_Escape);
    EXPECT_EQ(Password(), std::pair(true, std::string()));
    m_driver.Click(QStringLiteral("m_pBtnEditPassword"));
    m_driver.Type(QStringLiteral("m_pEditNewPassword"), QStringLiteral("654321"));
    m_driver.Key(QStringLiteral("m_pEditNewPassword"), Qt::Key_Return);
    EXPECT_EQ(Password(), std::pair(true, std::string("654321")));
    m_dialogs.AnswerNext(true);
    m_driver.Click(QStringLiteral("m_pBtnDeletePassword"));
    EXPECT_EQ(Password(), std::pair(false, std::string()));
    m_page.SetPerson(person);
    m_page.SetReadOnly(true);
    EXPECT_FALSE(m_driver.IsShown(QStringLiteral("m_pBtnEditPassword")));
    EXPECT_FALSE(m_driver.IsShown(QStringLiteral("m_pBtnDeletePassword")));
}

} // namespace
