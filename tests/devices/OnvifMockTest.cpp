// The ONVIF driver against a device that others wrote: onvif-mock/run starts it and sets the variables.
// Skipped without it.

#include <server/devices/DiscoverySweep.h>
#include <server/devices/OnvifDriver.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

namespace DevicesTest {

namespace {

constexpr int SweepMs = 1000;

/// Asks for computers, as other programs do; notes who answers.
class CuriousDriver : public Platform::OnvifDriver
{
public:
    std::string DiscoveryProbe() const override
    {
        std::string sProbe = OnvifDriver::DiscoveryProbe();
        const std::string sTypes = "<d:Types>dn:NetworkVideoTransmitter";
        return sProbe.replace(sProbe.find(sTypes), sTypes.size(),
            "<d:Types xmlns:wsdp=\"http://schemas.xmlsoap.org/ws/2006/02/devprof\">wsdp:Device");
    }
    std::vector<RemoteConfigLogical::SearchDeviceInfo_t> ReadReply(
        std::string_view datagram, const std::string& sFrom) const override
    {
        senders.insert(sFrom);
        return OnvifDriver::ReadReply(datagram, sFrom);
    }
    mutable std::set<std::string> senders;
};

class OnvifMock : public testing::Test
{
protected:
    void SetUp() override
    {
        const char* const szMock = std::getenv("ONVIF_MOCK");
        if (!szMock)
            GTEST_SKIP() << "ONVIF_MOCK is not set";
        const std::string sMock = szMock;
        access.sAddress = sMock.substr(0, sMock.find(':'));
        access.nPort = std::stoi(sMock.substr(sMock.find(':') + 1));
        access.sUserName = "admin";
        access.sPassword = "secret";
    }
    RemoteConfigLogical::SearchDeviceInfoVec Sweep(const std::string& sStart, const std::string& sEnd)
    {
        RemoteConfigLogical::SearchDeviceInfoVec vecFound;
        Platform::DiscoverySweep(SweepMs).Run(
            {&driver}, sStart, sEnd, [&](const auto& device) { vecFound.push_back(device); }, {});
        return vecFound;
    }

    Platform::OnvifDriver driver;
    Platform::DeviceAccess access;
};

} // namespace

TEST_F(OnvifMock, IsFoundByItsAddressAndByTheGroup)
{
    for (const std::string& sAddress : {access.sAddress, std::string()}) {
        const auto vecFound = Sweep(sAddress, sAddress);
        ASSERT_EQ(vecFound.size(), 1U) << "by " << (sAddress.empty() ? "the group" : sAddress);
        EXPECT_EQ(vecFound[0].sIp, access.sAddress);
        EXPECT_EQ(vecFound[0].nPort, access.nPort);
        EXPECT_EQ(vecFound[0].sName, "PREDATOR");
        EXPECT_EQ(vecFound[0].sModel, "HD_PREDATOR");
    }
}

TEST_F(OnvifMock, TellsWhatItIs)
{
    const auto identity = driver.Identify(access);
    EXPECT_EQ(identity.sManufacturer, "Mockup Manufacturer");
    EXPECT_EQ(identity.sModel, "Mockup Model");
    EXPECT_EQ(identity.sFirmware, "Mockup_15_14_13");
    EXPECT_EQ(identity.sSerialNumber, "00000000");
    EXPECT_EQ(identity.sMac, "28:57:be:65:7d:d5");
    const auto counts = driver.Channels(access);
    EXPECT_EQ(counts.nVideo, 1);
    EXPECT_EQ(counts.nAlarmInputs, 1);
    EXPECT_EQ(counts.nAlarmOutputs, 1);
}

TEST_F(OnvifMock, TakesSettings)
{
    EXPECT_NO_THROW(driver.SetPassword(access, "other"));
    EXPECT_NO_THROW(driver.SetTimeZone(access, {"Europe/Berlin", 60, true, {3, 5, 7, 2}, {10, 5, 7, 3}}));
    EXPECT_NO_THROW(driver.SetAddress(access, {"192.168.68.112", "255.255.255.0", "192.168.68.1"}));
    EXPECT_NO_THROW(driver.Initialize(access, {}));
}

TEST(OtherResponder, IsNotListed)
{
    const char* const szOther = std::getenv("OTHER_RESPONDER");
    if (!szOther)
        GTEST_SKIP() << "OTHER_RESPONDER is not set";
    CuriousDriver curious;
    Platform::DiscoverySweep(SweepMs).Run(
        {&curious}, {}, {}, [&](const auto& device) { ADD_FAILURE() << device.sIp; }, {});
    EXPECT_EQ(curious.senders.count(szOther), 1U) << "it did not answer";
}

} // namespace DevicesTest
