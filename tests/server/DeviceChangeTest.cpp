#include "ServerFixture.h"

#include "store/DatabasePool.h"

namespace ServerTest {

using namespace UICommonMdl;
using GroupLogical::DeleteForced;
using GroupLogical::DeleteNormal;

class DeviceChangeTest : public ServerFixture
{
protected:
    void SetUp() override
    {
        TestSupport::TestServerOptions options;
        options.bSeedDemo = true;
        Start(options);
        pServer->RunSql(QStringLiteral("DELETE FROM device_reference"));
        pServer->RunSql(QStringLiteral("DELETE FROM device_task"));
    }
    bool Exists(const std::string& sId) { return pClient->Call<wire::QueryDeviceDetail>({sId}).nCode == 0; }
    int Count(const char* szTable)
    {
        return pServer->QuerySql(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(szTable)))
            .toInt();
    }
};

TEST_P(DeviceChangeTest, WhatKeepsADeviceIsToldAndForcedDeletionTakesReferencesAlong)
{
    struct Case
    {
        std::vector<int> vecReferences;
        int nTask;
        int nNormal;
        int nForced;
    };
    const std::vector<Case> vecCases{
        {{}, 0, 0, 0},
        {{GroupLogical::RefRecordPlan}, 0, ErrorDeviceUsedByRecordPlan, 0},
        {{GroupLogical::RefAlarmScheme}, 0, ErrorDeviceUsedByAlarmScheme, 0},
        {{GroupLogical::RefAlarmScheme, GroupLogical::RefRecordPlan}, 0, ErrorDeviceUsedByRecordPlan, 0},
        {{GroupLogical::RefDoorGroup}, 0, ErrorReferenced, 0},
        {{}, 1, ErrorDeviceExtractingLogs, ErrorDeviceExtractingLogs},
        {{}, 2, ErrorDeviceExtractingPersons, ErrorDeviceExtractingPersons},
        {{}, 3, ErrorDeviceGettingRecordings, ErrorDeviceGettingRecordings},
        {{GroupLogical::RefRecordPlan}, 4, ErrorDeviceUpdating, ErrorDeviceUpdating},
    };
    std::vector<std::string> vecIds;
    for (std::size_t i = 0; i < vecCases.size(); ++i) {
        vecIds.push_back(std::to_string(1000101 + i));
        const auto nId = qlonglong(1000101 + i);
        for (const int nKind : vecCases[i].vecReferences)
            pServer->RunSql(
                QStringLiteral(
                    "INSERT INTO device_reference (device_id, kind, name) VALUES (?, ?, 'Plan X')"),
                {nId, nKind});
        if (vecCases[i].nTask != 0)
            pServer->RunSql(QStringLiteral("INSERT INTO device_task (device_id, kind) VALUES (?, ?)"),
                {nId, vecCases[i].nTask});
    }
    for (const int nMode : {DeleteNormal, DeleteForced}) {
        std::vector<std::string> vecLeft;
        for (const std::string& sId : vecIds)
            if (Exists(sId))
                vecLeft.push_back(sId);
        std::map<std::string, GroupLogical::FailedItem_t> mapFailed;
        for (const auto& failed : pClient->Get<wire::DeleteDevice>({vecLeft, nMode}).vecFailed)
            mapFailed[failed.sId] = failed;
        for (const std::string& sId : vecLeft) {
            const Case& c = vecCases[std::stoul(sId) - 1000101];
            const int nExpected = nMode == DeleteNormal ? c.nNormal : c.nForced;
            EXPECT_EQ(mapFailed[sId].nErrorCode, nExpected) << sId << " mode " << nMode;
            EXPECT_EQ(Exists(sId), nExpected != 0) << sId;
            EXPECT_EQ(mapFailed[sId].sName.empty(), nExpected == 0) << sId;
        }
    }
    EXPECT_EQ(Count("device_reference"), 1) << "only the references of the device that stayed are left";
}

TEST_P(DeviceChangeTest, ABatchDoesWhatItCanAndListsTheRest)
{
    const std::string sTarget = AddOrganization("001", "Depot").sCode;
    const auto moved =
        pClient->Get<wire::MoveDevice>({{"1000001", "77", "01000002", "abc", "1000001", "1000003"}, sTarget});
    ASSERT_EQ(moved.vecFailed.size(), 3U);
    for (const auto& failed : moved.vecFailed)
        EXPECT_EQ(failed.nErrorCode, ErrorNotFound) << failed.sId;
    EXPECT_EQ(pClient->Get<wire::QueryDeviceDetail>({"1000001"}).sOrgCode, sTarget);
    EXPECT_EQ(pClient->Get<wire::QueryDeviceDetail>({"1000001"}).nVersion, 2)
        << "moved once though named twice";
    EXPECT_NE(pClient->Get<wire::QueryDeviceDetail>({"1000002"}).sOrgCode, sTarget);

    EXPECT_EQ(pClient->Call<wire::MoveDevice>({{"1000004"}, "none"}).nCode, ErrorNotFound);
    const std::vector<std::string> vecTooMany(1001, "1000004");
    EXPECT_EQ(pClient->Call<wire::DeleteDevice>({vecTooMany, DeleteNormal}).nCode, ErrorInvalidInput);
    EXPECT_EQ(pClient->Call<wire::DeleteDevice>({{"1000004"}, 7}).nCode, ErrorInvalidInput);
    EXPECT_TRUE(Exists("1000004"));
}

TEST_P(DeviceChangeTest, AFaultInTheMiddleOfABatchLeavesNothingHalfDone)
{
    const int nDevices = Count("device");
    const int nAudit = Count("audit_log");
    // The third device cannot be deleted by the database itself.
    pServer->Server().Pool().WriteBare([](Platform::Database& database) {
        database.Execute(QStringLiteral("CREATE TABLE hold (device_id BIGINT REFERENCES device (id))"));
    });
    pServer->RunSql(QStringLiteral("INSERT INTO hold (device_id) VALUES (1000003)"));
    EXPECT_EQ(pClient->Call<wire::DeleteDevice>({{"1000001", "1000002", "1000003"}, DeleteForced}).nCode,
        ErrorInternal);
    EXPECT_EQ(Count("device"), nDevices);
    EXPECT_EQ(Count("audit_log"), nAudit);
}

TEST_P(DeviceChangeTest, ChangesAreLoggedWithWhoAndWhat)
{
    pClient->Get<wire::DeleteDevice>({{"1000009"}, DeleteNormal});
    const QString sWhere =
        QStringLiteral(" FROM audit_log WHERE operation = 'device/delete' AND object_id = '1000009'");
    EXPECT_EQ(
        pServer->QuerySql(QStringLiteral("SELECT account_name") + sWhere).toString().toStdString(), "system");
    EXPECT_EQ(pServer->QuerySql(QStringLiteral("SELECT client_address") + sWhere).toString().toStdString(),
        "127.0.0.1");
    EXPECT_THAT(pServer->QuerySql(QStringLiteral("SELECT before_json") + sWhere).toString().toStdString(),
        testing::HasSubstr(R"("sDeviceId":"1000009")"));
}

TEST_P(DeviceChangeTest, TheDemonstrationShowsEveryKindOfObstacleAndEveryCategory)
{
    TestSupport::TestServerOptions options;
    options.bSeedDemo = true;
    Start(options);
    EXPECT_EQ(Count("device"), 300);
    EXPECT_NEAR(Count("organization"), 60, 5);
    EXPECT_EQ(pClient->Get<wire::QueryDeviceTypes>().vecTypes,
        (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 16, 21, 34, 40, 43, 45, 50}));
    EXPECT_EQ(
        pServer->QuerySql(QStringLiteral("SELECT COUNT(DISTINCT kind) FROM device_reference")).toInt(), 16);
    EXPECT_EQ(pServer->QuerySql(QStringLiteral("SELECT COUNT(DISTINCT kind) FROM device_task")).toInt(), 4);
}

INSTANTIATE_TEST_SUITE_P(
    , DeviceChangeTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest
