#include "ListTestModel.h"

#include <common/CListStatus.h>
#include <tests/support/gui/PageDriver.h>

#include <QLabel>

#include <gtest/gtest.h>

namespace {

void Check(ListTestModel& model, const QStringList& listIds, Qt::CheckState state = Qt::Checked)
{
    for (const QString& sId : listIds)
        model.setData(model.index(model.FindRow(sId), ListTestModel::ColumnCheck), state, Qt::CheckStateRole);
}

QStringList Ids(std::initializer_list<int> ids)
{
    QStringList listIds;
    for (const int nId : ids)
        listIds.append(QString::number(nId));
    return listIds;
}

/// Pages of three rows whose checks are kept.
class ListChecks : public testing::Test
{
protected:
    void SetUp() override
    {
        m_model.KeepChecks(ListTestModel::ColumnName);
        m_model.Fill(1, 3);
    }

    ListTestModel m_model;
};

} // namespace

TEST_F(ListChecks, OutlastAPageTurnAndTellWhatTheyAreCalled)
{
    Check(m_model, Ids({1, 3}));
    m_model.Fill(4, 3);
    EXPECT_EQ(m_model.GetCheckSummary(), Qt::Unchecked) << "the box in the header is about this page";
    Check(m_model, Ids({5}));
    EXPECT_EQ(m_model.GetCheckedIds(), Ids({5, 1, 3})) << "this page first";
    EXPECT_EQ(m_model.GetCheckSummary(), Qt::PartiallyChecked);
    EXPECT_EQ(m_model.GetLabel(QStringLiteral("3")), QStringLiteral("Device 3"));
    EXPECT_EQ(m_model.GetLabel(QStringLiteral("99")), QStringLiteral("99"));
    EXPECT_EQ(m_model.GetChecked().last().vData.toInt(), 30);

    m_model.Fill(1, 3);
    EXPECT_EQ(m_model.GetCheckedIds(), Ids({1, 3, 5}));
    Check(m_model, Ids({1}), Qt::Unchecked);
    m_model.Fill(4, 3);
    EXPECT_EQ(m_model.GetCheckedIds(), Ids({5, 3})) << "what is unchecked does not come back";
    m_model.SetRows({});
    EXPECT_EQ(m_model.GetCheckedCount(), 2) << "an empty answer to a filter takes nothing away";
}

TEST_F(ListChecks, CheckAllIsAboutTheRowsOfThisPageThatCanBeChecked)
{
    Check(m_model, Ids({2}));
    m_model.Fill(-1, 4);
    m_model.SetAllChecked(true);
    EXPECT_EQ(m_model.GetCheckedIds(), Ids({1, 2}));
    EXPECT_EQ(m_model.GetCheckSummary(), Qt::Checked);
    m_model.SetAllChecked(false);
    EXPECT_EQ(m_model.GetCheckedCount(), 0);

    m_model.Fill(1, 3);
    Check(m_model, Ids({3}));
    m_model.Fill(1, 2);
    m_model.SetAllChecked(true);
    m_model.SetAllChecked(false);
    EXPECT_EQ(m_model.GetCheckedIds(), Ids({3})) << "that of another page stays";
}

TEST_F(ListChecks, DeletedOnesAreForgottenOnEveryPage)
{
    m_model.SetAllChecked(true);
    m_model.Fill(3, 3);
    Check(m_model, Ids({4}));
    m_model.ForgetIds(Ids({1, 4, 77}));
    EXPECT_EQ(m_model.GetCheckedIds(), Ids({3, 2}));
    EXPECT_EQ(m_model.index(m_model.FindRow(QStringLiteral("4")), ListTestModel::ColumnCheck)
                  .data(Qt::CheckStateRole),
        Qt::Unchecked);
}

TEST_F(ListChecks, ARowThatLosesItsBoxIsNotCheckedAnyMore)
{
    Check(m_model, Ids({1, 2}));
    m_model.SetRows({{ListTestModel::MakeItem(), ListTestModel::MakeItem(), ListTestModel::MakeItem(),
                        ListTestModel::MakeItem(), ListTestModel::MakeItem(),
                        ListTestModel::MakeItem(QStringLiteral("1"))}},
        {QStringLiteral("1")});
    EXPECT_EQ(m_model.GetCheckedIds(), Ids({2}));
}

TEST_F(ListChecks, AListThatIsNotPagedForgetsWhatIsGone)
{
    ListTestModel model;
    model.Fill(1, 2);
    model.SetAllChecked(true);
    model.Fill(2, 2);
    EXPECT_EQ(model.GetCheckedIds(), Ids({2}));
}

TEST_F(ListChecks, TheLineBelowCountsThemAndClearsThem)
{
    Common::CListStatus status;
    status.SetTotalText(QStringLiteral("Devices: %1"));
    status.Follow(&m_model);
    status.SetTotal(3412);
    PageDriver driver(status, {400, 30});
    EXPECT_EQ(driver.Find<QLabel>(QStringLiteral("lbStatus"))->text(), QStringLiteral("Devices: 3,412"));
    EXPECT_FALSE(driver.IsShown(QStringLiteral("btnClearChecks")));
    m_model.SetAllChecked(true);
    m_model.Fill(4, 3);
    Check(m_model, Ids({4}));
    EXPECT_EQ(driver.Find<QLabel>(QStringLiteral("lbChecked"))->text(), QStringLiteral("4 checked"));
    driver.Click(QStringLiteral("btnClearChecks"));
    EXPECT_EQ(m_model.GetCheckedCount(), 0);
    EXPECT_FALSE(driver.IsShown(QStringLiteral("lbChecked")));
}
