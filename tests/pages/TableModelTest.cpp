#include <common/CRequests.h>
#include <common/CTableModel.h>
#include <tests/support/gui/PageDriver.h>

#include <gtest/gtest.h>

namespace {

struct Answer
{
    int nSequence = 0;
    int nErrorCode = 0;
};

Common::CTableModel::Row MakeRow(const QString& sId)
{
    return {Common::CTableModel::MakeItem(), Common::CTableModel::MakeItem(sId)};
}

} // namespace

TEST(TableModel, ChecksStayOnIdsThatAreStillThere)
{
    Common::CTableModel model({{QString(), true}, {QStringLiteral("Id"), true}}, 1, 0);
    model.SetRows({MakeRow(QStringLiteral("a")), MakeRow(QStringLiteral("b"))});
    model.SetAllChecked(true);
    model.SetRows({MakeRow(QStringLiteral("c")), MakeRow(QStringLiteral("b"))});
    EXPECT_EQ(model.GetCheckedIds(), QStringList{QStringLiteral("b")});
    EXPECT_EQ(model.GetCheckSummary(), Qt::PartiallyChecked);
    EXPECT_EQ(model.FindRow(QStringLiteral("b")), 1);
    EXPECT_EQ(model.FindRow(QStringLiteral("a")), -1);
}

TEST(Requests, EachNumberIsAnsweredOnceAndSupersededOnesNever)
{
    Common::CRequests<Answer> requests;
    QVector<int> vecAnswered;
    const auto handler = [&](const Answer& answer) { vecAnswered.append(answer.nSequence); };
    EXPECT_FALSE(requests.Add(0, 1, handler));
    EXPECT_FALSE(requests.Add(-3, 1, handler));
    EXPECT_FALSE(requests.HasKind(1));
    requests.Supersede(1, 1, handler);
    requests.Supersede(2, 1, handler);
    requests.Add(3, 2, handler);
    for (const int nSequence : {3, 2, 1, 2, 3, 99})
        requests.Answer({nSequence, 0});
    EXPECT_EQ(vecAnswered, (QVector<int>{3, 2}));
}

TEST(Requests, MissingAnswerEndsAsTimeOut)
{
    Common::CRequests<Answer> requests;
    requests.SetTimeOut(std::chrono::milliseconds(1));
    int nErrorCode = 0;
    requests.Add(5, 1, [&](const Answer& answer) { nErrorCode = answer.nErrorCode; });
    EXPECT_TRUE(PageDriver::WaitFor([&] { return nErrorCode == UICommonMdl::ErrorTimeOut; }));
    EXPECT_FALSE(requests.HasKind(1));
}
