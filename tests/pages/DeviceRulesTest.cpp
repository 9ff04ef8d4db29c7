#include <GroupLogical/GroupRecords.h>
#include <ResourceManagerUI/CDeviceModel.h>
#include <ResourceManagerUI/DeviceRules.h>
#include <UICommonMdl/ErrorCodes.h>
#include <common/DeviceCategory.h>

#include <gtest/gtest.h>

using namespace ResourceManagerUI;

TEST(DeviceRules, CategoriesHaveTheirTexts)
{
    const std::map<int, const char*> texts = {{1, "Encoder"}, {2, "Decoder"}, {3, "Alarm Control Panel"},
        {4, "TV Wall"}, {5, "ANPR Device"}, {6, "Matrix"}, {7, "Intelligent Device"}, {8, "Access Control"},
        {16, "LED Device"}, {21, "Video Intercom"}, {34, "Emergency"}, {40, "POS"}, {43, "Radar"},
        {45, "VideoWall Control"}};
    for (int nCode = -1; nCode <= 60; ++nCode) {
        const auto it = texts.find(nCode);
        EXPECT_EQ(Common::GetCategoryText(nCode).toStdString(), it == texts.end() ? "" : it->second) << nCode;
    }
    EXPECT_EQ(Common::GetCategoryFilterText(50), QStringLiteral("Lift Controller"));
    EXPECT_EQ(Common::GetAccessDirectionText(2), QStringLiteral("Pull"));
    EXPECT_EQ(Common::GetAccessDirectionText(4), QString());
}

TEST(DeviceRules, RequestFollowsTheQuery)
{
    DeviceQuery query;
    query.nPage = 0;
    query.sSearchText = QString::fromUtf8("Tür 1/2%");
    GroupLogical::DevicePageRequest_t request = BuildPageRequest(query);
    EXPECT_EQ(request.nPage, 1);
    EXPECT_FALSE(request.bAscending);
    EXPECT_EQ(request.nSortField, GroupLogical::SortByIp);
    EXPECT_EQ(request.nOnlineState, -1);
    EXPECT_EQ(request.sSearchText, "T%C3%BCr%201%2F2%25");

    query.nSortColumn = ColumnOrganization;
    query.sortOrder = Qt::AscendingOrder;
    query.sSearchText.clear();
    request = BuildPageRequest(query);
    EXPECT_TRUE(request.bAscending);
    EXPECT_EQ(request.nSortField, GroupLogical::SortByName);
    EXPECT_EQ(request.sSearchText, "");
}

TEST(DeviceRules, DeleteFailuresSayWhy)
{
    struct
    {
        int nErrorCode;
        const char* pszText;
    } const cases[] = {
        {UICommonMdl::ErrorDeviceUsedByRecordPlan, "Door Used by record plan, you cannot delete!"},
        {UICommonMdl::ErrorDeviceUsedByAlarmScheme, "Door Used by alarm scheme, you cannot delete!"},
        {UICommonMdl::ErrorDeviceExtractingLogs,
            "The platform is extracting device logs. Please delete later."},
        {UICommonMdl::ErrorDeviceExtractingPersons,
            "The platform is extracting device person information. Please delete later."},
        {UICommonMdl::ErrorDeviceGettingRecordings,
            "The platform is getting device recordings. Please delete later."},
        {UICommonMdl::ErrorDeviceUpdating, "The platform is updating device. Please delete later."},
        {UICommonMdl::ErrorNone, "Unknown error"},
        {987654, "Unknown error"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(GetDeleteFailureText({"7", "Door", test.nErrorCode, {}}).toStdString(), test.pszText);
}

TEST(DeviceRules, ReferencesStandUnderTheirLabels)
{
    const QStringList listLines = GetReferenceLines({{"7", GroupLogical::RefVideoBind, "Lobby"},
        {"7", GroupLogical::RefDoorGroup, "Night"}, {"7", GroupLogical::RefDoorGroup, "Day"}});
    const QStringList listExpected = {QStringLiteral("Door Group Config:"), QStringLiteral("    Night"),
        QStringLiteral("    Day"), QStringLiteral("Video Bind Config:"), QStringLiteral("    Lobby")};
    EXPECT_EQ(listLines, listExpected);
}
