#include <ResourceManagerUI/DeviceEdit/DeviceFormRules.h>

#include <gtest/gtest.h>

using namespace ResourceManagerUI;
using GroupLogical::DeviceAddInfo_t;

namespace {

QString Long(int nLength)
{
    return QString(nLength, QLatin1Char('a'));
}

TEST(DeviceFormRules, FirstFailingCheckOfAFieldIsTold)
{
    const QString sLongBad = Long(60) + QLatin1Char('<');
    const struct
    {
        DeviceField field;
        QString sText;
        const char* pszMessage;
    } cases[] = {
        {DeviceField::DeviceName, QStringLiteral("  "), "Device name cannot be empty!"},
        {DeviceField::DeviceName, sLongBad,
            "Device name cannot contain special characters \\ / : * ? \" < > |."},
        {DeviceField::DeviceName, Long(51), "The device name cannot exceed 50 characters."},
        {DeviceField::DeviceName, Long(50), ""},
        {DeviceField::Domain, QString(), "Domain name can not be null."},
        {DeviceField::Domain, sLongBad, "The domain name cannot exceed 50 characters."},
        {DeviceField::Domain, QStringLiteral("a>b"), "Special characters < and > are not allowed."},
        {DeviceField::SerialNumber, QString(), "SN can not be empty!"},
        {DeviceField::SerialNumber, Long(50), "The sn cannot exceed 49 characters."},
        {DeviceField::SerialNumber, QStringLiteral("7A:01_b-2.C"), ""},
        {DeviceField::RegisterId, Long(51), "The register id cannot exceed 50 characters."},
        {DeviceField::Port, QString(), "Device's port can not be empty!"},
        {DeviceField::Port, QStringLiteral("65536"), "Port no. cannot be over 65535"},
        {DeviceField::Port, QStringLiteral("0"), "Port no. cannot be over 65535"},
        {DeviceField::Port, QStringLiteral("65535"), ""},
        {DeviceField::UserName, QString(), "Please enter user name."},
        {DeviceField::UserName, sLongBad, "Special characters < and > are not allowed."},
        {DeviceField::UserName, Long(51), "The user name cannot exceed 50 characters."},
        {DeviceField::Password, QString(), "Please enter password."},
        {DeviceField::Password, Long(60) + QStringLiteral(","),
            "Special characters including , ( ) are not allowed."},
        {DeviceField::Password, QStringLiteral("a(b"), "Special characters including , ( ) are not allowed."},
        {DeviceField::Password, Long(51), "The password cannot exceed 50 characters."},
        {DeviceField::Password, QStringLiteral("<a>"), ""},
        {DeviceField::Model, Long(51), "The device model cannot exceed 50 characters."},
        {DeviceField::Model, QString(), ""},
        {DeviceField::Ip, QString(), "IP can not be empty!"},
        {DeviceField::Ip, QStringLiteral("10.0.0"), "IP address is illegal."},
        {DeviceField::Ip, QStringLiteral("10.0.0.256"), "IP address is illegal."},
        {DeviceField::Ip, QStringLiteral("10.0.0.255"), ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CheckField(c.field, c.sText).toStdString(), c.pszMessage) << qPrintable(c.sText);
}

TEST(DeviceFormRules, SegmentIsCheckedInItsOrder)
{
    const struct
    {
        const char* pszStart;
        const char* pszEnd;
        bool bEnd;
        const char* pszMessage;
    } cases[] = {
        {"", "", false, "Please enter start IP."},
        {"x", "", true, "Please enter end IP."},
        {"10.0.0", "10.0.0.9", false, "Invalid start IP."},
        {"10.0.0.5", "10.0.1.9", true,
            "The first three parts of the end IP must be the same as that of the start IP."},
        {"10.0.0.5", "10.0.1", true,
            "The first three parts of the end IP must be the same as that of the start IP."},
        {"10.0.0.9", "10.0.0.9", true, "End IP cannot be smaller than or equal to start IP."},
        {"10.0.0.9", "10.0.0.10", true, ""},
        {"10.0.0.10", "10.0.0.9", true, "End IP cannot be smaller than or equal to start IP."},
        {"10.0.0.9", "10.0.0.300", true, "Invalid end IP."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.pszStart) + " - " + c.pszEnd);
        const SegmentFailure failure = CheckSegment(QLatin1String(c.pszStart), QLatin1String(c.pszEnd));
        EXPECT_EQ(failure.sMessage.toStdString(), c.pszMessage);
        if (!failure.sMessage.isEmpty()) {
            EXPECT_EQ(failure.bEnd, c.bEnd);
        }
    }
    EXPECT_EQ(GetSegmentSize(QStringLiteral("10.0.0.9"), QStringLiteral("10.0.0.12")), 4);
    EXPECT_EQ(GetSegmentNameRule(QStringLiteral("10.0.0.12")).nMax, 40);
}

TEST(DeviceFormRules, RecordHoldsWhatItsModeHasAndNothingElse)
{
    DeviceAddInfo_t form;
    form.sIp = "10.0.0.1";
    form.sSerialNumber = "SN1";
    form.sIpStart = "10.0.0.2";
    form.sIpEnd = "10.0.0.3";
    form.sDomain = "cam.example";
    form.sRegisterId = "R1";
    form.nPort = 37777;
    const struct
    {
        int nMode;
        const char* pszTexts; ///< address, serial number, start, end, domain, register ID
        int nPort;
    } cases[] = {
        {GroupLogical::AddByIp, "10.0.0.1|||||", 37777},
        {GroupLogical::AddBySegment, "||10.0.0.2|10.0.0.3||", 37777},
        {GroupLogical::AddByDomain, "||||cam.example|", 37777},
        {GroupLogical::AddByRegister, "|||||R1", 0},
        {GroupLogical::AddByP2P, "|SN1||||", 0},
    };
    for (const auto& c : cases) {
        form.nAddMode = c.nMode;
        const DeviceAddInfo_t record = BuildRecord(form, {});
        EXPECT_EQ(record.sIp + '|' + record.sSerialNumber + '|' + record.sIpStart + '|' + record.sIpEnd + '|'
                + record.sDomain + '|' + record.sRegisterId,
            c.pszTexts);
        EXPECT_EQ(record.nPort, c.nPort);
    }
}

TEST(DeviceFormRules, HiddenCountsStayWithTheirCategoryAndGoWithAnother)
{
    DeviceAddInfo_t loaded;
    loaded.sDeviceId = "1001";
    loaded.nVersion = 7;
    loaded.sRemark = "by the gate";
    loaded.nCategory = 8;
    loaded.nVideoChannels = 3;
    loaded.nAccessChannels = 4;
    loaded.nAccessDirection = 3;
    DeviceAddInfo_t form;
    form.nCategory = 8;
    form.nVideoChannels = 99;
    form.nAccessChannels = 2;
    const DeviceAddInfo_t same = BuildRecord(form, loaded);
    EXPECT_EQ(same.nVideoChannels, 3) << "a controller's form has no such row";
    EXPECT_EQ(same.nAccessChannels, 2);
    EXPECT_EQ(same.nAccessDirection, 3);
    EXPECT_EQ(same.sRemark, "by the gate");
    EXPECT_EQ(same.nVersion, 7);
    form.nCategory = 1;
    const DeviceAddInfo_t other = BuildRecord(form, loaded);
    EXPECT_EQ(other.nVideoChannels, 99);
    EXPECT_EQ(other.nAccessChannels, 0);
}

} // namespace
