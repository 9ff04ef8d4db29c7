#include <common/CTableModel.h>
#include <tests/support/gui/PageDriver.h>

#include <gtest/gtest.h>

namespace {

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
