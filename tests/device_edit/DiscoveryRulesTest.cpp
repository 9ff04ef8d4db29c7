#include <ResourceManagerUI/Discovery/DiscoveryRules.h>

#include <gtest/gtest.h>

using namespace ResourceManagerUI;
using RemoteConfigLogical::SearchDeviceInfo_t;

namespace {

TEST(DiscoveryRules, RangeOfASearch)
{
    const struct
    {
        const char* pszStart;
        const char* pszEnd;
        const char* pszMessage;
        RangeFailure::Field field = RangeFailure::Both;
    } cases[] = {
        {"", "", ""},
        {"192.168.1.10", "", "IP address must be all empty or not empty!"},
        {"", "192.168.1.10", "IP address must be all empty or not empty!"},
        {"192.168.1.10", "192.168.1.9", "Start ip can not be larger than end ip!"},
        {"9.0.0.1", "10.0.0.1", "The range cannot hold more than 65536 addresses."},
        {"192.168.2.1", "192.168.10.1", ""},
        {"192.168.1", "192.168.1.9", "Please enter correct IP address.", RangeFailure::Start},
        {"192.168.1.9", "192.168.1.", "Please enter correct IP address.", RangeFailure::End},
        {"10.0.0.0", "10.0.255.255", ""},
        {"10.0.0.0", "10.1.0.0", "The range cannot hold more than 65536 addresses."},
        {"10.0.0.7", "10.0.0.7", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.pszStart) + " - " + c.pszEnd);
        const RangeFailure failure = CheckSearchRange(QLatin1String(c.pszStart), QLatin1String(c.pszEnd));
        EXPECT_EQ(failure.sMessage.toStdString(), c.pszMessage);
        EXPECT_EQ(failure.field, c.field);
    }
}

TEST(DiscoveryRules, SectionOfTheMachinesNetwork)
{
    const NetworkSection found = GetLocalNetworkSection(
        {QStringLiteral("127.0.0.1"), QStringLiteral("169.254.3.4"), QStringLiteral("172.16.5.77")});
    EXPECT_TRUE(found.bFound);
    EXPECT_EQ(found.sStart, QStringLiteral("172.16.5.0"));
    EXPECT_EQ(found.sEnd, QStringLiteral("172.16.5.255"));
    const NetworkSection guessed = GetLocalNetworkSection({QStringLiteral("127.0.0.1")});
    EXPECT_FALSE(guessed.bFound);
    EXPECT_EQ(guessed.sLocal, QStringLiteral("127.0.0.1"));
    EXPECT_EQ(guessed.sStart, QStringLiteral("192.168.1.1"));
    EXPECT_EQ(guessed.sEnd, QStringLiteral("192.168.1.255"));
}

TEST(DiscoveryRules, NamesOfFoundDevicesAreValidAndDifferent)
{
    RemoteConfigLogical::SearchDeviceInfoVec vecDevices(6);
    for (std::size_t n = 0; n < vecDevices.size(); ++n)
        vecDevices[n].sIp = "10.0.0." + std::to_string(n + 1);
    vecDevices[0].sName = "Gate";
    vecDevices[1].sName = "gate";
    vecDevices[2].sModel = "M<1>";
    vecDevices[4].sName = std::string(70, 'n');
    vecDevices[5].sName = std::string(60, 'n');
    const QStringList listNames = MakeDeviceNames(vecDevices);
    EXPECT_EQ(listNames.mid(0, 4),
        (QStringList{QStringLiteral("Gate"), QStringLiteral("gate 10.0.0.2"), QStringLiteral("M1 10.0.0.3"),
            QStringLiteral("10.0.0.4")}));
    EXPECT_EQ(listNames[5], QString(41, QLatin1Char('n')) + QStringLiteral(" 10.0.0.6"));
    for (const QString& sMessage : CheckDeviceNames(listNames))
        EXPECT_TRUE(sMessage.isEmpty()) << qPrintable(sMessage);

    EXPECT_EQ(
        CheckDeviceNames({QStringLiteral("A"), QStringLiteral("b/c"), QStringLiteral(" a "), QString()}),
        (QStringList{QStringLiteral("Another device of the list has this name."),
            QStringLiteral("Device name cannot contain special characters \\ / : * ? \" < > |."),
            QStringLiteral("Another device of the list has this name."),
            QStringLiteral("Device name cannot be empty!")}));
}

TEST(DiscoveryRules, RowOfAFoundDeviceLeavesOpenWhatIsUnknown)
{
    SearchDeviceInfo_t device;
    device.sIp = "10.0.0.5";
    device.nPort = 80;
    device.sModel = "M";
    device.sManufacturer = "Corvane";
    device.sSerialNumber = "SN5";
    device.sProtocol = "ONVIF";
    GroupLogical::ImportRow_t expected;
    expected.nLine = 3;
    expected.sName = "Gate";
    expected.sConnect = "1";
    expected.sAddress = "10.0.0.5";
    expected.sPort = "80";
    expected.sUserName = "admin";
    expected.sPassword = " p w";
    expected.sProtocol = "ONVIF";
    expected.sManufacturer = "Corvane";
    expected.sModel = "M";
    expected.sSerialNumber = "SN5";
    const auto make = [&] {
        return MakeImportRow(
            device, 3, QStringLiteral(" Gate "), QStringLiteral("admin "), QStringLiteral(" p w"));
    };
    EXPECT_EQ(make(), expected) << "the category is left to the platform";
    device.nCategory = 8;
    EXPECT_EQ(make().sCategory, "8");
}

TEST(DiscoveryRules, DevicePassword)
{
    const struct
    {
        const char* pszPassword;
        bool bValid;
    } cases[] = {
        {"", false},
        {"abc1234", false},
        {"abcdefgh", false},
        {"abcd1234", true},
        {"Abcd1234", true},
        {"abcdef123456", true},
        {"Abcdef123456", true},
        {"Abc!1234", true},
        {"Abcdefgh12345678", true},
        {"Abcdefgh123456789", false},
        {"Abcd 1234", false},
        {"Abcd,1234", false},
        {"Abcd(1234", false},
        {"Abcd\xC3\xA4 1234", false},
    };
    for (const auto& c : cases) {
        const QString sPassword = QString::fromUtf8(c.pszPassword);
        EXPECT_EQ(CheckDevicePassword(sPassword).isEmpty(), c.bValid) << c.pszPassword;
    }
    EXPECT_TRUE(CheckContact(QString()).isEmpty());
    EXPECT_TRUE(CheckContact(QStringLiteral("a.b@example.org")).isEmpty());
    EXPECT_FALSE(CheckContact(QStringLiteral("a.b@example")).isEmpty());
}

TEST(DiscoveryRules, MaskIsLeadingOnesWithRoomForHosts)
{
    for (const char* pszMask : {"255.255.255.0", "255.255.255.252", "128.0.0.0"})
        EXPECT_TRUE(IsMask(QLatin1String(pszMask))) << pszMask;
    for (const char* pszMask :
        {"", "0.0.0.0", "255.255.255.255", "255.255.255.254", "255.0.255.0", "255.255.0", "0.0.0.255"})
        EXPECT_FALSE(IsMask(QLatin1String(pszMask))) << pszMask;
}

TEST(DiscoveryRules, PlanOfNewAddresses)
{
    const struct
    {
        const char* pszStart;
        const char* pszMask;
        const char* pszGateway;
        PlanFailure::Field field;
        const char* pszMessage;
    } cases[] = {
        {"10.0.0.20", "255.255.255.0", "", PlanFailure::Address, ""},
        {"10.0.0.20", "255.255.255.0", "10.0.0.1", PlanFailure::Address, ""},
        {"", "255.255.255.0", "", PlanFailure::Address, "IP can not be empty!"},
        {"10.0.0", "255.255.255.0", "", PlanFailure::Address, "IP address is illegal."},
        {"10.0.0.20", "255.255.0.1", "", PlanFailure::Mask, "Please enter a correct subnet mask."},
        {"10.0.0.253", "255.255.255.0", "", PlanFailure::Address,
            "The address 10.0.0.255 cannot be used in this network."},
        {"10.0.0.0", "255.255.255.0", "", PlanFailure::Address,
            "The address 10.0.0.0 cannot be used in this network."},
        {"10.0.0.253", "255.255.0.0", "", PlanFailure::Address, ""},
        {"10.0.0.5", "255.255.255.0", "", PlanFailure::Address,
            "The address 10.0.0.7 is used by another device."},
        {"10.0.0.100", "255.255.255.0", "", PlanFailure::Address, ""},
        {"10.0.0.99", "255.255.255.0", "", PlanFailure::Address,
            "The address 10.0.0.100 is used by another device."},
        {"10.0.0.20", "255.255.255.0", "10.0.1.1", PlanFailure::Gateway,
            "The gateway must be an address of the same network."},
        {"10.0.0.20", "255.255.255.0", "10.0.0.21", PlanFailure::Gateway,
            "The gateway cannot be one of the new addresses."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.pszStart) + ' ' + c.pszMask + ' ' + c.pszGateway);
        AddressPlan plan;
        plan.listAddresses = CountAddresses(QLatin1String(c.pszStart), 3);
        if (plan.listAddresses.isEmpty())
            plan.listAddresses = QStringList{QLatin1String(c.pszStart)};
        plan.listCurrent = QStringList{
            QStringLiteral("10.0.0.100"), QStringLiteral("10.0.0.101"), QStringLiteral("10.0.0.102")};
        plan.sMask = QLatin1String(c.pszMask);
        plan.sGateway = QLatin1String(c.pszGateway);
        plan.setUsed = {QStringLiteral("10.0.0.7")};
        const PlanFailure failure = CheckAddressPlan(plan);
        EXPECT_EQ(failure.sMessage.toStdString(), c.pszMessage);
        EXPECT_EQ(failure.field, c.field);
    }
}

} // namespace
