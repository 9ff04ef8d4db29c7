#include "ServerFixture.h"

#include "services/DevicePages.h"
#include "services/TextRules.h"
#include "store/DatabasePool.h"

#include <algorithm>
#include <random>
#include <set>

namespace ServerTest {

using GroupLogical::DeviceInfo_t;
using GroupLogical::DevicePageRequest_t;
using TestSupport::DatabaseKind;

class DevicePageTest : public ServerFixture
{
protected:
    void SetUp() override
    {
        TestSupport::TestServerOptions options;
        options.bSeedDemo = true;
        Start(options);
        // Names and addresses that take the search and the order at their word.
        const std::vector<std::pair<QString, QString>> vecOdd{
            {QStringLiteral("100% Kamera_1"), QStringLiteral("9.8.7.6")},
            {QStringLiteral("\u00c4u\u00dferes Tor \"Nord\""), QStringLiteral("10.0.0.1")},
            {QStringLiteral("back\\slash"), QStringLiteral("fe80::1")},
            {QStringLiteral("\u95e8\u7981\u63a7\u5236"), QStringLiteral("GATE.example")}};
        qlonglong nId = 1000007;
        for (const auto& [sName, sAddress] : vecOdd) {
            const std::string sNameUtf8 = sName.toStdString();
            const std::string sAddressUtf8 = sAddress.toStdString();
            pServer->RunSql(
                QStringLiteral("UPDATE device SET name = ?, name_key = ?, address = ?, address_key = ?, "
                               "search_key = ? WHERE id = ?"),
                {sName, Platform::TextValue(Platform::FoldCase(sNameUtf8)), sAddress,
                    Platform::TextValue(Platform::AddressSortKey(sAddressUtf8)),
                    Platform::TextValue(Platform::DeviceSearchKey(sNameUtf8, sAddressUtf8)), nId});
            nId += 31;
        }
        pServer->RunSql(
            QStringLiteral("UPDATE device SET online_state = 1, offline_reason = 0 WHERE id % 3 = 0"));
        LoadModel();
    }

    void LoadModel()
    {
        vecAll = pClient->Get<wire::ExportDevice>(DevicePageRequest_t{}).vecDevices;
        for (const auto& organization : pClient->Get<wire::QueryOrganizations>().vecOrganizations)
            mapParents[organization.sCode] = organization.sParentCode;
    }

    bool IsBelow(std::string sCode, const std::string& sAncestor) const
    {
        while (!sCode.empty() && sCode != sAncestor)
            sCode = mapParents.at(sCode);
        return sCode == sAncestor;
    }

    /// The rows that a request selects, worked out one by one.
    std::vector<std::string> Expected(const DevicePageRequest_t& request) const
    {
        const std::string sText = Platform::FoldCase(Platform::PercentDecoded(request.sSearchText));
        std::vector<std::tuple<std::string, long long, std::string>> vecRows;
        for (const DeviceInfo_t& device : vecAll) {
            const bool bText = Platform::FoldCase(device.sName).find(sText) != std::string::npos
                || Platform::FoldCase(device.sIp).find(sText) != std::string::npos;
            if (!bText || (request.nCategory != 0 && device.nCategory != request.nCategory)
                || (request.nOnlineState >= 0 && device.nOnlineState != request.nOnlineState)
                || (!request.sOrgCode.empty() && !IsBelow(device.sOrgCode, request.sOrgCode)))
                continue;
            vecRows.emplace_back(request.nSortField == GroupLogical::SortByIp
                    ? Platform::AddressSortKey(device.sIp)
                    : Platform::FoldCase(device.sName),
                std::stoll(device.sDeviceId), device.sDeviceId);
        }
        std::sort(vecRows.begin(), vecRows.end());
        if (!request.bAscending)
            std::reverse(vecRows.begin(), vecRows.end());
        std::vector<std::string> vecIds;
        for (const auto& row : vecRows)
            vecIds.push_back(std::get<2>(row));
        return vecIds;
    }

    void Compare(DevicePageRequest_t request)
    {
        const std::vector<std::string> vecIds = Expected(request);
        const int nPages =
            std::max(1, (static_cast<int>(vecIds.size()) + request.nPageSize - 1) / request.nPageSize);
        std::mt19937 random(7);
        // Back and forth and in jumps: what was read before must not change what comes.
        std::vector<int> vecPages;
        for (int i = 1; i <= nPages + 1; ++i)
            vecPages.push_back(i);
        std::shuffle(vecPages.begin(), vecPages.end(), random);
        for (const int nPage : vecPages) {
            request.nPage = nPage;
            const auto page = pClient->Get<wire::QueryDevicePage>(request);
            const int nShown = std::min(nPage, nPages);
            ASSERT_EQ(page.nTotal, static_cast<int>(vecIds.size())) << nlohmann::json(request);
            ASSERT_EQ(page.nPage, nShown);
            std::vector<std::string> vecGot;
            for (const auto& device : page.vecDevices)
                vecGot.push_back(device.sDeviceId);
            const auto itFirst = vecIds.begin() + std::ptrdiff_t(nShown - 1) * request.nPageSize;
            const auto nLeft = std::min<std::ptrdiff_t>(request.nPageSize, vecIds.end() - itFirst);
            ASSERT_EQ(vecGot, std::vector<std::string>(itFirst, itFirst + nLeft)) << nlohmann::json(request);
        }
    }

    std::vector<DeviceInfo_t> vecAll;
    std::map<std::string, std::string> mapParents;
};

TEST_P(DevicePageTest, EveryFilterAndOrderGivesTheRowsThatItShould)
{
    std::string sBuilding;
    for (const auto& organization : pClient->Get<wire::QueryOrganizations>().vecOrganizations)
        if (organization.sName == "Assembly Plant")
            sBuilding = organization.sCode;
    const std::vector<std::string> vecTexts{"", "tower", "TOWER%20one", "127.20.2", "%25", "_1", "%25_", "\\",
        "\"nord", "%c3%a4u%c3%9f", "%E9%97%A8", "%E9%97%A8%E7%A6%81%E6%8E%A7", "a", "no such device",
        "gate.EX", "%00%0A"};
    for (const int nSortField : {1, 2})
        for (const bool bAscending : {true, false})
            for (const std::string& sText : vecTexts) {
                DevicePageRequest_t request;
                request.nPageSize = 23;
                request.nSortField = nSortField;
                request.bAscending = bAscending;
                request.sSearchText = sText == "%00%0A" ? "" : sText;
                ASSERT_NO_FATAL_FAILURE(Compare(request));
                request.sOrgCode = sBuilding;
                ASSERT_NO_FATAL_FAILURE(Compare(request));
                request.nCategory = 1;
                request.nOnlineState = 0;
                ASSERT_NO_FATAL_FAILURE(Compare(request));
            }
}

TEST_P(DevicePageTest, WhatWasCountedBeforeAChangeIsCountedAgainAfterIt)
{
    DevicePageRequest_t request;
    request.nOnlineState = GroupLogical::StateOnline;
    ASSERT_NO_FATAL_FAILURE(Compare(request));
    const int nBefore = pClient->Get<wire::QueryDevicePage>(request).nTotal;

    pClient->Get<wire::DeleteDevice>({{"1000002"}, GroupLogical::DeleteForced});
    pServer->RunSql(
        QStringLiteral("UPDATE device SET online_state = 0 WHERE id IN (1000002, 1000005, 1000008)"));
    LoadModel();
    ASSERT_NO_FATAL_FAILURE(Compare(request));
    EXPECT_LT(pClient->Get<wire::QueryDevicePage>(request).nTotal, nBefore);
}

TEST_P(DevicePageTest, RequestsOutOfRangeAreRefusedByTheFieldsName)
{
    const std::vector<std::pair<std::string, std::string>> vecCases{{R"({"nPage":0})", "nPage"},
        {R"({"nPageSize":0})", "nPageSize"}, {R"({"nPageSize":1001})", "nPageSize"},
        {R"({"nSortField":3})", "nSortField"}, {R"({"nOnlineState":2})", "nOnlineState"},
        {R"({"nCategory":-1})", "nCategory"}};
    for (const auto& [sBody, sField] : vecCases) {
        const Reply reply = pClient->Post("device/page", sBody);
        EXPECT_EQ(reply.nCode, UICommonMdl::ErrorInvalidInput) << sBody;
        EXPECT_EQ(reply.sDetail, sField);
    }
}

TEST_P(DevicePageTest, SearchesUseAnIndex)
{
    DevicePageRequest_t request;
    request.sSearchText = "tower";
    std::string sPlan;
    pServer->Server().Pool().WriteBare([&](Platform::Database& database) {
        auto [sSql, values] =
            Platform::DevicePages::FirstPageStatement(database, Platform::DeviceScope::All(), request);
        if (!database.IsPostgres()) {
            Platform::Rows rows = database.Run(QLatin1String("EXPLAIN QUERY PLAN ") + sSql, values);
            while (rows.Next())
                sPlan += rows.Text(3) + '\n';
            return;
        }
        // EXPLAIN cannot be prepared by itself. With few rows other plans are as good: only the search is
        // left.
        sSql.replace(QLatin1String("ORDER BY d.address_key, d.id"), QLatin1String("ORDER BY d.remark"));
        for (const QVariant& value : values)
            sSql.replace(
                sSql.indexOf(QLatin1Char('?')), 1, QLatin1Char('\'') + value.toString() + QLatin1Char('\''));
        database.Execute(QStringLiteral("SET enable_seqscan = off"));
        database.Execute(QStringLiteral("SET enable_indexscan = off"));
        database.Execute(
            QStringLiteral("CREATE FUNCTION plan_of(text) RETURNS SETOF text LANGUAGE plpgsql AS "
                           "'BEGIN RETURN QUERY EXECUTE ''EXPLAIN '' || $1; END'"));
        Platform::Rows rows = database.Run(QStringLiteral("SELECT * FROM plan_of(?)"), {sSql});
        while (rows.Next())
            sPlan += rows.Text(0) + '\n';
    });
    EXPECT_THAT(sPlan, testing::HasSubstr("device_search")) << sPlan;
}

INSTANTIATE_TEST_SUITE_P(
    , DevicePageTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest
