#include "DeviceFormFixture.h"

#include <QInputMethodEvent>
#include <QSpinBox>

using namespace ResourceManagerUI;

class DeviceForm : public DeviceFormFixture
{
protected:
    static Device MakeDevice()
    {
        Device device;
        device.sDeviceId = "1001";
        device.sName = "Gate camera";
        device.sIp = "10.0.0.9";
        device.nPort = 8000;
        device.nCategory = 1;
        device.sModel = "M1";
        device.sOrgCode = "001001001";
        device.sManufacturer = "Corvane";
        device.sProtocol = "ONVIF";
        device.sDeviceType = "nvr";
        device.sSeries = "rack";
        device.sServerId = "s2";
        device.nAccessDirection = 2;
        device.sUserName = "operator";
        device.sRemark = "kept";
        device.sSerialNumber = "SN9";
        device.nVideoChannels = 16;
        device.nAlarmInputs = 4;
        device.nVersion = 12;
        return device;
    }
};

TEST_F(DeviceForm, AddsACameraByKeysFromDefaults)
{
    OpenAdd();
    m_pDriver->Screenshot(QStringLiteral("device-form-login"));
    EXPECT_EQ(Content("editDevPort"), "37777");
    EXPECT_EQ(Content("editUserName"), "admin");
    EXPECT_EQ(Choice("cmbGroupName"), "North") << "the organisation that the list shows is proposed";
    EXPECT_EQ(Choices("cmbDevCategory").front(), "Encoder");
    EXPECT_EQ(Choices("cmbDevCategory").back(), "Lift Controller");
    FillLogin();
    Choose("cmbServer", "Media server 2");
    m_pDriver->Key(QStringLiteral("editPassWord"), Qt::Key_Return);
    ASSERT_TRUE(IsShown("editDevName"));
    EXPECT_TRUE(HasFocus("editDevName"));
    Type("editDevName", "Gate camera");
    Choose("cmbDeviceType", "IP camera");
    EXPECT_EQ(Choices("cmbSeries"), (std::vector<std::string>{"-", "Dome"})) << "those of the type";
    Choose("cmbSeries", "Dome");
    m_pDriver->Find<QSpinBox>(QStringLiteral("spbVideo"))->setValue(2);
    m_pDriver->Screenshot(QStringLiteral("device-form-device"));
    m_pDriver->Key(QStringLiteral("editDevName"), Qt::Key_Return);
    ASSERT_EQ(Count<wire::AddDevice>(), 1);
    Device expected;
    expected.sName = "Gate camera";
    expected.sIp = "10.0.0.9";
    expected.nPort = 37777;
    expected.nCategory = 1;
    expected.sOrgCode = "001001";
    expected.sManufacturer = "Other";
    expected.sProtocol = "Private";
    expected.sDeviceType = "ipc";
    expected.sSeries = "dome";
    expected.sServerId = "s2";
    expected.sUserName = "admin";
    expected.sPassword = "Field-2024";
    expected.nVideoChannels = 2;
    EXPECT_EQ(Sent<wire::AddDevice>(), expected);
    EXPECT_FALSE(IsUsable("btnFinish")) << "one request at a time";
    Fail<wire::AddDevice>(UICommonMdl::ErrorNone);
    EXPECT_EQ(m_nComplete, 1);
    EXPECT_FALSE(m_pForm->IsDirty());
}

TEST_F(DeviceForm, ModeShowsItsRowsAndClearsTheOthers)
{
    OpenAdd();
    Type("editTxtIP", "10.0.0.9");
    const struct
    {
        const char* pszMode;
        std::vector<const char*> vecShown;
    } cases[] = {
        {"IP Segment", {"editIPStart", "editIPEnd", "editDevPort"}},
        {"Domain Name", {"editTxtDomin", "editDevPort"}},
        {"Auto Register", {"editTxtRegitId"}},
        {"P2P", {"editTxtIP"}},
        {"IP Address", {"editTxtIP", "editDevPort"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszMode);
        Choose("cmbRegister", c.pszMode);
        for (const char* pszField :
            {"editTxtIP", "editIPStart", "editIPEnd", "editTxtDomin", "editTxtRegitId", "editDevPort"}) {
            const bool bShown = std::find_if(c.vecShown.begin(), c.vecShown.end(), [&](const char* pszName) {
                return std::string(pszName) == pszField;
            }) != c.vecShown.end();
            EXPECT_EQ(IsShown(pszField), bShown) << pszField;
            const bool bPort = std::string(pszField) == "editDevPort" && bShown;
            EXPECT_EQ(Content(pszField), bPort ? "37777" : "") << pszField;
            if (bShown && !bPort)
                Type(pszField, "1");
        }
        const bool bSerial = std::string(c.pszMode) == "P2P";
        EXPECT_EQ(m_pDriver->Find<QLabel>(QStringLiteral("lbEditTxtIP"))->text(),
            bSerial ? QStringLiteral("SN:") : QStringLiteral("IP Address:"));
    }
}

TEST_F(DeviceForm, PortFollowsTheProtocolAndTheModeResetsIt)
{
    OpenAdd();
    Choose("cmbProtocal", "ONVIF");
    EXPECT_EQ(Content("editDevPort"), "80");
    Choose("cmbRegister", "Domain Name");
    EXPECT_EQ(Content("editDevPort"), "37777");
    Type("editDevPort", "554");
    Choose("cmbProtocal", "Private");
    EXPECT_EQ(Content("editDevPort"), "37777") << "every change of protocol begins anew";
}

TEST_F(DeviceForm, FieldsTakeOnlyWhatTheyMay)
{
    OpenAdd();
    Type("editDevPort", "");
    Type("editDevPort", "0");
    EXPECT_EQ(Content("editDevPort"), "");
    Type("editDevPort", "65536");
    EXPECT_EQ(Content("editDevPort"), "6553");
    EXPECT_EQ(Hint("editDevPort"), "Port no. cannot be over 65535");
    Type("editTxtIP", "10.0.300.1x");
    EXPECT_EQ(Content("editTxtIP"), "10.0.30.1") << "a part above 255 does not go on";
    Type("editPassWord", "a,b");
    EXPECT_EQ(Hint("editPassWord"), "Special characters including , ( ) are not allowed.") << "live";

    QInputMethodEvent composed(QStringLiteral("1"), {});
    composed.setCommitString(QStringLiteral("7"));
    for (const char* pszField : {"editTxtIP", "editIPStart", "editIPEnd"}) {
        QLineEdit* pEdit = Field(pszField)->GetLineEdit();
        EXPECT_FALSE(pEdit->testAttribute(Qt::WA_InputMethodEnabled));
        const QString sBefore = pEdit->text();
        QCoreApplication::sendEvent(pEdit, &composed);
        EXPECT_EQ(pEdit->text(), sBefore) << pszField;
    }
}

TEST_F(DeviceForm, FailingChecksKeepTheStepAndTheFirstHasTheFocus)
{
    OpenAdd();
    Type("editUserName", "");
    m_pDriver->Key(QStringLiteral("editTxtIP"), Qt::Key_Return);
    EXPECT_EQ(Hint("editTxtIP"), "IP can not be empty!");
    EXPECT_EQ(Hint("editUserName"), "Please enter user name.");
    EXPECT_EQ(Hint("editPassWord"), "Please enter password.");
    EXPECT_TRUE(HasFocus("editTxtIP"));
    m_pDriver->Screenshot(QStringLiteral("device-form-hints"));
    FillLogin();
    Type("editUserName", "admin");
    Choose("cmbRegister", "IP Segment");
    Type("editIPStart", "10.0.0.5");
    Type("editIPEnd", "10.0.1.9");
    Click("btnNext");
    EXPECT_EQ(
        Hint("editIPEnd"), "The first three parts of the end IP must be the same as that of the start IP.");
    EXPECT_TRUE(HasFocus("editIPEnd"));
    Type("editIPEnd", "10.0.0.9");
    Click("btnNext");
    ASSERT_TRUE(IsShown("editDevName"));
    Click("btnFinish");
    EXPECT_EQ(Hint("editDevName"), "Device name cannot be empty!");
    Type("editDevName", "A name of forty-eight characters, which is long.");
    Click("btnFinish");
    EXPECT_EQ(Hint("editDevName"), "The device name cannot exceed 41 characters.")
        << "each device of the segment gets its address appended";
    EXPECT_EQ(Count<wire::AddDevice>(), 0);
}

TEST_F(DeviceForm, CategoryDecidesTheRowsOfTheSecondStep)
{
    OpenAdd();
    FillLogin();
    const struct
    {
        const char* pszCategory;
        std::set<std::string> setShown;
    } cases[] = {
        {"Encoder", {"spbVideo", "spbAlarmInput", "spbAlarmOutput", "cmbDirection"}},
        {"Decoder", {"spbDecode", "chkCombine"}},
        {"Alarm Control Panel", {"spbAlarmInput", "spbAlarmOutput"}},
        {"Access Control", {"spbAccess", "spbAlarmInput", "spbAlarmOutput"}},
        {"LED Device", {"cmbLedSize"}},
        {"Video Intercom",
            {"spbVideo", "spbAccess", "spbAlarmInput", "spbAlarmOutput", "editSipID", "editSipPassword"}},
        {"POS", {"spbPos"}},
        {"VideoWall Control", {"spbVideo", "spbDecode", "cmbDirection", "editSipID", "editSipPassword"}},
        {"Lift Controller", {"spbLift", "spbLiftFloor"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszCategory);
        Choose("cmbDevCategory", c.pszCategory);
        Click("btnNext");
        std::set<std::string> setShown;
        for (const char* pszName : {"spbVideo", "spbAlarmInput", "spbAlarmOutput", "spbAccess", "spbDecode",
                 "spbLift", "spbLiftFloor", "spbPos", "chkCombine", "cmbLedSize", "cmbDirection", "editSipID",
                 "editSipPassword"}) {
            if (IsShown(pszName))
                setShown.insert(pszName);
        }
        EXPECT_EQ(setShown, c.setShown);
        const bool bZone = std::string(c.pszCategory) == "Alarm Control Panel";
        EXPECT_EQ(m_pDriver->Find<QLabel>(QStringLiteral("lbSpbAlarmInput"))->text(),
            bZone ? QStringLiteral("Zone:") : QStringLiteral("Alarm Input Channel:"));
        if (std::string(c.pszCategory) == "VideoWall Control") {
            EXPECT_EQ(Choices("cmbDirection"), (std::vector<std::string>{"Direct", "Pull"}));
            PageDriver::Settle();
            m_pDriver->Screenshot(QStringLiteral("device-form-wall"));
        }
        Click("btnPrevious");
    }
    Choose("cmbDevCategory", "LED Device");
    Click("btnNext");
    Type("editDevName", "Sign");
    Choose("cmbLedSize", "Guide screen");
    Click("btnFinish");
    ASSERT_EQ(Count<wire::AddDevice>(), 1);
    EXPECT_EQ(Sent<wire::AddDevice>().nLedType, 1404);
}

TEST_F(DeviceForm, RefusalComesUpUnderItsField)
{
    OpenAdd();
    FillAndFinish();
    Fail<wire::AddDevice>(UICommonMdl::ErrorAddressExists, "sIp");
    EXPECT_TRUE(HasFocus("editTxtIP")) << "the step that has the field comes up";
    EXPECT_EQ(Hint("editTxtIP"),
        UICommonMdl::CErrorCode::GetErroCodeInfor(UICommonMdl::ErrorAddressExists).toStdString());
    Type("editTxtIP", "10.0.0.10");
    Click("btnNext");
    Click("btnFinish");
    Fail<wire::AddDevice>(UICommonMdl::ErrorNameExists, "sName");
    EXPECT_TRUE(HasFocus("editDevName"));
    EXPECT_EQ(Hint("editDevName"), "The name exists already.");
    EXPECT_EQ(LastNotice(), "");

    Type("editDevName", "Gate camera 2");
    Click("btnFinish");
    Fail<wire::AddDevice>(UICommonMdl::ErrorNotSent);
    EXPECT_EQ(LastNotice(), "Failed to add device: The request could not be sent to the server.");
    EXPECT_EQ(Content("editDevName"), "Gate camera 2") << "the input stays";
    EXPECT_EQ(m_nComplete, 0);
}

TEST_F(DeviceForm, SegmentTellsWhatWasRefused)
{
    OpenAdd();
    Choose("cmbRegister", "IP Segment");
    Type("editIPStart", "10.0.0.5");
    Type("editIPEnd", "10.0.0.7");
    Type("editPassWord", "Field-2024");
    Click("btnNext");
    Type("editDevName", "Hall");
    Click("btnFinish");
    using Failures = std::vector<GroupLogical::FailedItem_t>;
    const Failures vecAll{{"10.0.0.5", "", UICommonMdl::ErrorAddressExists, ""},
        {"10.0.0.6", "", UICommonMdl::ErrorNameExists, ""},
        {"10.0.0.7", "", UICommonMdl::ErrorNameExists, ""}};
    Refuse(vecAll);
    EXPECT_EQ(m_nComplete, 0) << "none was added";
    EXPECT_TRUE(m_dialogs.LastText().startsWith(
        QStringLiteral("Failed to add device\nResult of failure is shown below:\n10.0.0.5: ")));
    Click("btnFinish");
    Refuse({vecAll[1]});
    EXPECT_EQ(m_nComplete, 1);
    EXPECT_EQ(m_dialogs.LastText(),
        QStringLiteral("2 of 3 devices were added.\nResult of failure is shown below:\n10.0.0.6: The name "
                       "exists already."));
}

TEST_F(DeviceForm, EditsARecordAndKeepsWhatItDoesNotShow)
{
    const Device device = MakeDevice();
    OpenEdit(device);
    EXPECT_EQ(Choices("cmbRegister"),
        (std::vector<std::string>{"IP Address", "Domain Name", "Auto Register", "P2P"}));
    EXPECT_EQ(Content("editDevPort"), "8000");
    EXPECT_EQ(Choice("cmbGroupName"), "Tower");
    EXPECT_FALSE(Field("editPassWord")->placeholderText().isEmpty());
    EXPECT_FALSE(m_pForm->IsDirty());
    Click("btnNext");
    Click("btnFinish");
    ASSERT_EQ(Count<wire::ModifyDevice>(), 1);
    EXPECT_EQ(Sent<wire::ModifyDevice>(), device) << "nothing was changed, the empty password least";
    Fail<wire::ModifyDevice>(UICommonMdl::ErrorDeviceUpdating);
    EXPECT_TRUE(QString::fromStdString(LastNotice()).startsWith(QStringLiteral("Failed to modify device: ")));
    Type("editDevName", "Yard camera");
    EXPECT_TRUE(m_pForm->IsDirty());
    Click("btnPrevious");
    Type("editPassWord", "new-Secret1");
    Click("btnNext");
    Click("btnFinish");
    Device changed = device;
    changed.sName = "Yard camera";
    changed.sPassword = "new-Secret1";
    EXPECT_EQ(Sent<wire::ModifyDevice>(), changed);
}

TEST_F(DeviceForm, EditKeepsAnAddressAndChoicesThatNoListHolds)
{
    Device device = MakeDevice();
    device.sIp = "2001:db8::9";
    device.sProtocol = "Old protocol";
    device.nCategory = 77;
    device.sDeviceType = "";
    device.sSeries = "";
    device.nAccessDirection = 0;
    OpenEdit(device);
    Click("btnNext");
    Click("btnFinish");
    ASSERT_EQ(Count<wire::ModifyDevice>(), 1);
    EXPECT_EQ(Sent<wire::ModifyDevice>(), device);
}

TEST_F(DeviceForm, DetailThatFailsIsToldAndCanBeAskedForAgain)
{
    m_host.server.FailAlways<wire::QueryDeviceDetail>(UICommonMdl::ErrorNotFound);
    Open();
    m_pForm->StartEdit(QStringLiteral("1001"), m_host.site.vecOrganizations);
    PageDriver::Settle();
    EXPECT_FALSE(IsShown("btnNext"));
    EXPECT_EQ(m_pDriver->Find<QLabel>(QStringLiteral("lbStateText"))->text(),
        QStringLiteral("It does not exist any more."));
    m_host.server.AnswerAlways<wire::QueryDeviceDetail>(MakeDevice());
    Click("btnStateAction");
    PageDriver::Settle();
    EXPECT_EQ(Content("editTxtIP"), "10.0.0.9");
}

TEST_F(DeviceForm, LateAnswersOfAnotherDeviceAreDropped)
{
    Open();
    m_pForm->StartEdit(QStringLiteral("1001"), m_host.site.vecOrganizations);
    const FakeCall late = m_host.server.Last<wire::QueryDeviceDetail>();
    m_pForm->StartAdd(m_host.site.vecOrganizations, QString());
    m_host.server.Answer<wire::QueryDeviceDetail>(late, MakeDevice());
    PageDriver::Settle();
    EXPECT_EQ(Content("editTxtIP"), "");
    EXPECT_EQ(m_pForm->windowTitle(), QStringLiteral("Add Device"));
    m_host.server.Hold<wire::GetDictionary>();
    OpenAdd();
    Close();
    m_host.server.AnswerLast<wire::GetDictionary>();
}

TEST_F(DeviceForm, ListsThatFailAreToldAndAskedForAgain)
{
    m_host.server.FailAlways<wire::GetDictionary>(UICommonMdl::ErrorDatabaseBusy);
    m_host.server.FailAlways<wire::QueryVideoServers>(UICommonMdl::ErrorDatabaseBusy);
    OpenAdd();
    EXPECT_EQ(LastNotice(), "Failed to query dictionary. The database is busy. Please try again.")
        << "without servers the platform chooses";
    FillLogin();
    Click("btnNext");
    EXPECT_FALSE(IsShown("editDevName")) << "without a protocol there is no device";
    PageDriver::Settle();
    m_host.server.AnswerAlways<wire::GetDictionary>(MakeDictionary());
    m_pDriver->Screenshot(QStringLiteral("device-form-lists-failed"));
    Click("btnChoicesAgain");
    PageDriver::Settle();
    EXPECT_FALSE(IsShown("btnChoicesAgain"));
    Click("btnNext");
    EXPECT_TRUE(IsShown("editDevName"));
}

TEST_F(DeviceForm, LeavingAsksOnlyWhenSomethingWasChanged)
{
    OpenAdd();
    Click("btnDevAddCancel");
    EXPECT_EQ(m_nBack, 1) << "nothing was changed";
    m_pForm->StartAdd(m_host.site.vecOrganizations, QString());
    PageDriver::Settle();
    Type("editTxtIP", "10.0.0.9");
    m_dialogs.AnswerNext(false);
    m_pDriver->Key(QStringLiteral("editTxtIP"), Qt::Key_Escape);
    EXPECT_EQ(m_dialogs.Shown().last(), QStringLiteral("Prompt: Are you sure to cancel?"));
    EXPECT_EQ(m_nBack, 1);
    m_dialogs.AnswerNext(true);
    Click("btnDevAddBack");
    EXPECT_EQ(m_nBack, 2);
}

TEST_F(DeviceForm, LostConnectionKeepsTheInput)
{
    OpenAdd();
    Type("editTxtIP", "10.0.0.9");
    m_host.PushConnected(false);
    PageDriver::Settle();
    EXPECT_FALSE(IsUsable("editTxtIP"));
    EXPECT_FALSE(IsUsable("btnNext"));
    m_host.PushConnected(true);
    PageDriver::Settle();
    EXPECT_TRUE(IsUsable("btnNext"));
    EXPECT_EQ(Content("editTxtIP"), "10.0.0.9");
}
