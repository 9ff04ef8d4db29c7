#include <GroupLogical/GroupRecords.h>
#include <ResourceManagerUI/DeviceRules.h>
#include <UICommonMdl/ErrorCodes.h>
#include <common/DeviceCategory.h>

#include <QSet>

#include <gtest/gtest.h>

using namespace ResourceManagerUI;

TEST(DeviceRules, CodesHaveTextsOfTheirOwnAndUnknownOnesNone)
{
    const struct
    {
        QString (*text)(int);
        std::vector<int> vecUnknown;
    } tables[] = {{&Common::GetCategoryText, {-1, 0, 9, Common::CategoryLiftController}},
        {&Common::GetCategoryFilterText, {-1, 9}}, {&Common::GetAccessDirectionText, {-1, 4}},
        {&Common::GetOfflineReasonText, {-1, GroupLogical::ReasonNone, 99}}};
    for (const auto& table : tables) {
        QSet<QString> setTexts;
        for (int nCode = -1; nCode < 100; ++nCode) {
            const QString sText = table.text(nCode);
            EXPECT_FALSE(setTexts.contains(sText)) << nCode << ' ' << qPrintable(sText);
            if (!sText.isEmpty())
                setTexts.insert(sText);
        }
        EXPECT_GT(setTexts.size(), 1);
        for (const int nCode : table.vecUnknown)
            EXPECT_EQ(table.text(nCode), QString()) << nCode;
    }
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

    query.nSortField = GroupLogical::SortByName;
    query.sortOrder = Qt::AscendingOrder;
    query.sSearchText.clear();
    request = BuildPageRequest(query);
    EXPECT_TRUE(request.bAscending);
    EXPECT_EQ(request.nSortField, GroupLogical::SortByName);
    EXPECT_EQ(request.sSearchText, "");
}

TEST(DeviceRules, DeleteFailuresSayWhy)
{
    const auto text = [](int nErrorCode) { return GetDeleteFailureText({"7", "Door", nErrorCode, {}}); };
    EXPECT_EQ(text(UICommonMdl::ErrorNone), text(987654)) << "no reason is known";
    QSet<QString> setTexts{text(987654)};
    for (int nCode = UICommonMdl::ErrorDeviceUsedByRecordPlan; nCode <= UICommonMdl::ErrorDeviceUpdating;
         ++nCode) {
        EXPECT_FALSE(setTexts.contains(text(nCode))) << nCode << ' ' << qPrintable(text(nCode));
        setTexts.insert(text(nCode));
    }
    EXPECT_TRUE(text(UICommonMdl::ErrorDeviceUsedByAlarmScheme).contains(QStringLiteral("Door")));
}

TEST(DeviceRules, ReferencesStandUnderTheirLabels)
{
    const QStringList listLines = GetReferenceLines({{"7", GroupLogical::RefVideoBind, "Lobby"},
        {"7", GroupLogical::RefDoorGroup, "Night"}, {"7", GroupLogical::RefDoorGroup, "Day"}});
    const QStringList listExpected = {QStringLiteral("Door Group Config:"), QStringLiteral("    Night"),
        QStringLiteral("    Day"), QStringLiteral("Video Bind Config:"), QStringLiteral("    Lobby")};
    EXPECT_EQ(listLines, listExpected);
}
