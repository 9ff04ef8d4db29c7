#include "ServerFixture.h"

#include "services/SecretBox.h"

#include <QFile>

namespace ServerTest {

using namespace UICommonMdl;
using GroupLogical::DeviceAddInfo_t;

namespace {

DeviceAddInfo_t Camera(const std::string& sName = "Gate", const std::string& sIp = "10.1.2.3")
{
    DeviceAddInfo_t device;
    device.sName = sName;
    device.sIp = sIp;
    device.nPort = 37777;
    device.nCategory = 1;
    device.sOrgCode = "001";
    device.sManufacturer = "Other";
    device.sProtocol = "Private";
    device.sUserName = "admin";
    device.sPassword = "Door_3-open";
    return device;
}

} // namespace

class DeviceAddTest : public ServerFixture
{
protected:
    void SetUp() override { Start(); }
    std::string Add(const DeviceAddInfo_t& device)
    {
        return pClient->Get<wire::AddDevice>(device).vecAddedIds.at(0);
    }
};

TEST_P(DeviceAddTest, AWholeRecordComesBackWithoutItsSecretsAndOutlastsARestart)
{
    DeviceAddInfo_t device = Camera();
    device.nCategory = 45;
    device.sModel = "WC-16";
    device.sDeviceType = "video-wall-controller";
    device.sServerId = "1";
    device.nAccessDirection = 2;
    device.sSerialNumber = "AB.1:2-3_4";
    device.sSipId = "8001";
    device.sSipPassword = "sip-secret";
    device.sRemark = "second floor";
    device.nVideoChannels = 16;
    device.nAlarmInputs = 1;
    device.nAlarmOutputs = 2;
    device.nAccessChannels = 3;
    device.nDecodeChannels = 9;
    device.nLifts = 4;
    device.nLiftFloors = 40;
    device.nPosChannels = 5;
    device.bCombine = true;
    const std::string sId = Add(device);
    pServer->Restart();

    DeviceAddInfo_t expected = device;
    expected.sDeviceId = sId;
    expected.sPassword.clear();
    expected.sSipPassword.clear();
    expected.nVersion = 1;
    EXPECT_EQ(pClient->Get<wire::QueryDeviceDetail>({sId}), expected);

    const QString sSealed =
        pServer->QuerySql(QStringLiteral("SELECT password_sealed FROM device")).toString();
    const Platform::SecretBox box(pServer->DataDir() + QStringLiteral("/secret.key"));
    EXPECT_EQ(box.Open(sSealed.toStdString()), device.sPassword);
    EXPECT_EQ(QFile(pServer->DataDir() + QStringLiteral("/secret.key")).permissions()
            & (QFile::ReadGroup | QFile::ReadOther),
        0);
    const QString sLog = pServer
                             ->QuerySql(QStringLiteral("SELECT after_json FROM audit_log "
                                                       "WHERE operation = 'device/add'"))
                             .toString();
    EXPECT_TRUE(sLog.contains(QLatin1String("\"Gate\""))) << sLog.toStdString();
    EXPECT_FALSE(sLog.contains(QLatin1String("Door_3")) || sLog.contains(QLatin1String("sip-secret")));
}

TEST_P(DeviceAddTest, AFieldThatBreaksItsRuleIsNamedAndNothingIsAdded)
{
    struct Case
    {
        const char* szField;
        std::function<void(DeviceAddInfo_t&)> change;
        int nCode = ErrorInvalidInput;
    };
    const std::vector<Case> vecCases{
        {"sName", [](auto& d) { d.sName = "  "; }},
        {"sName", [](auto& d) { d.sName = std::string(GroupLogical::DeviceName.nMax + 1, 'n'); }},
        {"sName", [](auto& d) { d.sName = "A|B"; }},
        {"sIp", [](auto& d) { d.sIp = "256.1.1.1"; }},
        {"sIp", [](auto& d) { d.sIp = "gate.example"; }},
        {"sIpEnd",
            [](auto& d) {
                d.nAddMode = GroupLogical::AddBySegment;
                d.sIpStart = "10.0.0.5";
                d.sIpEnd = "10.0.1.9";
            }},
        {"sIpEnd",
            [](auto& d) {
                d.nAddMode = GroupLogical::AddBySegment;
                d.sIpStart = "10.0.0.9";
                d.sIpEnd = "10.0.0.9";
            }},
        {"sDomain", [](auto& d) { d.nAddMode = GroupLogical::AddByDomain; }},
        {"sSerialNumber", [](auto& d) { d.nAddMode = GroupLogical::AddByP2P; }},
        {"sSerialNumber",
            [](auto& d) {
                d.nAddMode = GroupLogical::AddByP2P;
                d.sSerialNumber = "A B";
            }},
        {"sRegisterId",
            [](auto& d) {
                d.nAddMode = GroupLogical::AddByRegister;
                d.sRegisterId.clear();
            }},
        {"nAddMode", [](auto& d) { d.nAddMode = 9; }},
        {"nPort", [](auto& d) { d.nPort = 0; }},
        {"nPort", [](auto& d) { d.nPort = 65536; }},
        {"sUserName", [](auto& d) { d.sUserName = ""; }},
        {"sUserName", [](auto& d) { d.sUserName = "a<b"; }},
        {"sPassword", [](auto& d) { d.sPassword = ""; }},
        {"sPassword", [](auto& d) { d.sPassword = "a(b)"; }},
        {"sProtocol", [](auto& d) { d.sProtocol = "Telegraph"; }},
        {"nCategory", [](auto& d) { d.nCategory = 99; }},
        {"sManufacturer", [](auto& d) { d.sManufacturer = "Nobody"; }},
        {"nVideoChannels", [](auto& d) { d.nVideoChannels = -1; }},
        {"nLedType", [](auto& d) { d.nLedType = 7; }},
        {"sOrgCode", [](auto& d) { d.sOrgCode = "404"; }, ErrorNotFound},
    };
    for (const Case& c : vecCases) {
        DeviceAddInfo_t device = Camera();
        c.change(device);
        const Reply reply = pClient->Call<wire::AddDevice>(device);
        EXPECT_EQ(reply.nCode, c.nCode) << c.szField;
        EXPECT_EQ(reply.sDetail, c.szField);
    }
    EXPECT_EQ(pServer->QuerySql(QStringLiteral("SELECT COUNT(*) FROM device")).toInt(), 0);
}

TEST_P(DeviceAddTest, WhatAnotherDeviceHasIsRefusedWithItsField)
{
    Add(Camera());
    DeviceAddInfo_t registering = Camera("Registering", "");
    registering.nAddMode = GroupLogical::AddByRegister;
    registering.sRegisterId = "R-1";
    Add(registering);
    DeviceAddInfo_t p2p = Camera("Cloud", "");
    p2p.nAddMode = GroupLogical::AddByP2P;
    p2p.sSerialNumber = "SN-1";
    Add(p2p);
    DeviceAddInfo_t domain = Camera("Domain", "");
    domain.nAddMode = GroupLogical::AddByDomain;
    domain.sDomain = "Gate.Example";
    const std::string sDomainId = Add(domain);

    const auto refused = [&](DeviceAddInfo_t device, const char* szName) {
        device.sName = szName;
        const Reply reply = pClient->Call<wire::AddDevice>(device);
        return std::pair(reply.nCode, reply.sDetail);
    };
    EXPECT_EQ(
        refused(Camera("x", "10.9.9.9"), "gATE"), std::pair(int(ErrorNameExists), std::string("sName")));
    EXPECT_EQ(refused(Camera(), "Other"), std::pair(int(ErrorAddressExists), std::string("sIp")));
    EXPECT_EQ(
        refused(registering, "Other"), std::pair(int(ErrorRegisterIdExists), std::string("sRegisterId")));
    EXPECT_EQ(refused(p2p, "Other"), std::pair(int(ErrorSerialNumberExists), std::string("sSerialNumber")));
    domain.sDomain = "gate.example";
    EXPECT_EQ(refused(domain, "Other"), std::pair(int(ErrorAddressExists), std::string("sDomain")));
    DeviceAddInfo_t otherPort = Camera("Other port");
    otherPort.nPort = 80;
    EXPECT_FALSE(Add(otherPort).empty());

    // A device does not stand in its own way when it is saved.
    DeviceAddInfo_t own = pClient->Get<wire::QueryDeviceDetail>({sDomainId});
    EXPECT_EQ(own.sDomain, "Gate.Example");
    own.sRemark = "x";
    EXPECT_EQ(pClient->Get<wire::ModifyDevice>(own).nVersion, 2);
}

TEST_P(DeviceAddTest, ASegmentAddsOneDeviceAnAddressAndTellsThoseThatAreThere)
{
    Add(Camera("Here", "10.0.0.7"));
    DeviceAddInfo_t device = Camera("Hall", "");
    device.nAddMode = GroupLogical::AddBySegment;
    device.sIpStart = "10.0.0.5";
    device.sIpEnd = "10.0.0.9";
    const auto answer = pClient->Get<wire::AddDevice>(device);
    EXPECT_EQ(answer.vecAddedIds.size(), 4U);
    ASSERT_EQ(answer.vecFailed.size(), 1U);
    EXPECT_EQ(answer.vecFailed[0].sId, "10.0.0.7");
    EXPECT_EQ(answer.vecFailed[0].nErrorCode, ErrorAddressExists);
    const auto added = pClient->Get<wire::QueryDeviceDetail>({answer.vecAddedIds[3]});
    EXPECT_EQ(added.sName, "Hall 10.0.0.9");
    EXPECT_EQ(added.sIp, "10.0.0.9");
    EXPECT_EQ(added.nAddMode, GroupLogical::AddByIp);
}

TEST_P(DeviceAddTest, OfTwoOperatorsTheSecondIsToldAndNothingIsOverwritten)
{
    const std::string sId = Add(Camera());
    DeviceAddInfo_t first = pClient->Get<wire::QueryDeviceDetail>({sId});
    DeviceAddInfo_t second = first;
    first.sName = "First";
    pClient->Get<wire::ModifyDevice>(first);
    second.sName = "Second";
    EXPECT_EQ(pClient->Call<wire::ModifyDevice>(second).nCode, ErrorVersionConflict);
    EXPECT_EQ(pClient->Get<wire::QueryDeviceDetail>({sId}).sName, "First");
}

TEST_P(DeviceAddTest, AnEmptyPasswordLeavesThePresentOneAndAnotherAddressIsNotProbedYet)
{
    const std::string sId = Add(Camera());
    pServer->RunSql(QStringLiteral("UPDATE device SET online_state = 1, offline_reason = 0"));
    const auto sealed = [this] {
        return pServer->QuerySql(QStringLiteral("SELECT password_sealed FROM device")).toString();
    };
    const QString sBefore = sealed();
    DeviceAddInfo_t device = pClient->Get<wire::QueryDeviceDetail>({sId});
    device = pClient->Get<wire::ModifyDevice>(device);
    EXPECT_EQ(sealed(), sBefore);
    EXPECT_EQ(pServer->QuerySql(QStringLiteral("SELECT online_state FROM device")).toInt(), 1);
    device.sPassword = "Another-1";
    device.sIp = "10.1.2.4";
    pClient->Get<wire::ModifyDevice>(device);
    EXPECT_NE(sealed(), sBefore);
    EXPECT_EQ(pServer->QuerySql(QStringLiteral("SELECT offline_reason FROM device")).toInt(),
        GroupLogical::ReasonNotProbed);
}

INSTANTIATE_TEST_SUITE_P(
    , DeviceAddTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest
