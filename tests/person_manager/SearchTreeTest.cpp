#include <UICommonMdl/CDepartmentModelManager.h>
#include <common/CSearchTreeView.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>

#include <QElapsedTimer>
#include <QScrollBar>
#include <QSortFilterProxyModel>

#include <gtest/gtest.h>

using AccessControlLogical::Department_t;

namespace {

std::vector<Department_t> MakeGroups(int nBranches, int nLeaves)
{
    std::vector<Department_t> vecGroups{{"001", "", "Root", "", 1}};
    for (int b = 0; b < nBranches; ++b) {
        const std::string sBranch = "b" + std::to_string(b);
        vecGroups.push_back({sBranch, "001", "Branch " + std::to_string(b), "", 1});
        for (int n = 0; n < nLeaves; ++n)
            vecGroups.push_back({sBranch + "-" + std::to_string(n), sBranch,
                "Leaf " + std::to_string(b) + " of " + std::to_string(n), "", 1});
    }
    return vecGroups;
}

std::vector<Department_t> MakeDeepGroups(int nChains)
{
    std::vector<Department_t> vecGroups{{"001", "", "Root", "", 1}};
    for (int c = 0; c < nChains; ++c) {
        std::string sParent = "001";
        for (int nLevel = 2; nLevel <= 10; ++nLevel) {
            const std::string sCode = "c" + std::to_string(c) + "-" + std::to_string(nLevel);
            vecGroups.push_back({sCode, sParent, "Group " + std::to_string(c * 10 + nLevel), "", 1});
            sParent = sCode;
        }
    }
    return vecGroups;
}

class SearchTree : public testing::Test
{
protected:
    void SetUp() override
    {
        m_model.SetDepartments(MakeGroups(20, 10));
        m_tree.SetTreeModel(&m_model);
        m_tree.resize(240, 300);
        m_tree.show();
        QObject::connect(
            &m_tree, &Common::CSearchTreeView::SignalCurrentIndexChanged, &m_tree, [this] { ++m_nChanges; });
    }
    QModelIndex Find(const char* pszCode) { return m_tree.FindCode(QLatin1String(pszCode)); }
    void FillAgain(const std::vector<Department_t>& vecGroups)
    {
        m_model.SetDepartments(vecGroups);
        m_tree.Restore();
    }

    /// Types in the tree, and in one over Qt's own recursive filter.
    void CompareTyping(const char* pszProperty)
    {
        QSortFilterProxyModel reference;
        reference.setRecursiveFilteringEnabled(true);
        reference.setFilterCaseSensitivity(Qt::CaseInsensitive);
        reference.setSourceModel(&m_model);
        QTreeView referenceView;
        referenceView.setUniformRowHeights(true);
        referenceView.setModel(&reference);
        referenceView.resize(240, 300);
        referenceView.show();
        referenceView.expandAll();
        const auto measure = [](const std::function<void(const QString&)>& type) {
            qint64 nBest = std::numeric_limits<qint64>::max();
            for (int n = 0; n < 3; ++n) {
                QElapsedTimer clock;
                clock.start();
                for (const char* pszText : {"7", "77", "777", "77", "7", ""})
                    type(QLatin1String(pszText));
                nBest = qMin(nBest, clock.nsecsElapsed());
            }
            return nBest;
        };
        const qint64 nReference = measure([&](const QString& sText) {
            reference.setFilterFixedString(sText);
            referenceView.expandAll();
        });
        const qint64 nOurs = measure([&](const QString& sText) { m_tree.SetFilter(sText); });
        RecordProperty(pszProperty, std::to_string(nOurs * 100 / nReference));
        EXPECT_LT(nOurs, nReference * 3 / 2) << nOurs / 1000 << " us against " << nReference / 1000;
    }

    UICommonMdl::CDepartmentModel m_model;
    Common::CSearchTreeView m_tree;
    int m_nChanges = 0;
};

} // namespace

TEST_F(SearchTree, ATreeThatIsFilledAnewLooksAsBefore)
{
    m_tree.expand(Find("b7"));
    m_tree.SelectCode(QStringLiteral("b7-3"));
    m_tree.verticalScrollBar()->setValue(6);
    m_nChanges = 0;
    FillAgain(MakeGroups(21, 10));
    EXPECT_TRUE(m_tree.isExpanded(Find("b7")));
    EXPECT_FALSE(m_tree.isExpanded(Find("b8")));
    EXPECT_EQ(m_tree.currentIndex(), Find("b7-3"));
    EXPECT_EQ(m_tree.verticalScrollBar()->value(), 6);
    EXPECT_EQ(m_nChanges, 0) << "nobody chose anything";

    FillAgain(MakeGroups(5, 10));
    EXPECT_EQ(m_tree.GetCurrentCode(), QString());
    EXPECT_EQ(m_nChanges, 1);
}

TEST_F(SearchTree, SearchKeepsTheChoiceThatItHides)
{
    m_tree.expand(Find("b2"));
    m_tree.SelectCode(QStringLiteral("b2-1"));
    m_nChanges = 0;
    m_tree.SetFilter(QStringLiteral(" leaf 4 OF 3 "));
    EXPECT_TRUE(Find("b4-3").isValid());
    EXPECT_TRUE(m_tree.isExpanded(Find("b4"))) << "the way to a match is open";
    EXPECT_FALSE(Find("b2").isValid());
    EXPECT_EQ(m_tree.GetCurrentCode(), QStringLiteral("b2-1"));
    FillAgain(MakeGroups(20, 10));
    EXPECT_TRUE(m_tree.isExpanded(Find("b4")));

    m_tree.SetFilter(QString());
    EXPECT_EQ(m_tree.currentIndex(), Find("b2-1"));
    EXPECT_TRUE(m_tree.isExpanded(Find("b2")));
    EXPECT_FALSE(m_tree.isExpanded(Find("b4"))) << "opened by the search alone";
    EXPECT_EQ(m_nChanges, 0);
}

TEST_F(SearchTree, WhereOneMustBeCurrentTheRootTakesThePlaceOfOneThatIsGone)
{
    m_tree.SetAlwaysCurrent(true);
    m_tree.SelectCode(QStringLiteral("b19"));
    FillAgain(MakeGroups(5, 1));
    EXPECT_EQ(m_tree.GetCurrentCode(), QStringLiteral("001"));
    EXPECT_EQ(m_nChanges, 2);
}

TEST_F(SearchTree, GreyedNodesCannotBeChosen)
{
    m_tree.SetChoiceRule([](const QModelIndex& node) {
        return UICommonMdl::CCodeTreeModel::GetCode(node) != QStringLiteral("b0");
    });
    QTest::mouseClick(m_tree.viewport(), Qt::LeftButton, {}, m_tree.visualRect(Find("b0")).center());
    EXPECT_EQ(m_tree.GetCurrentCode(), QString());
    QTest::mouseClick(m_tree.viewport(), Qt::LeftButton, {}, m_tree.visualRect(Find("b1")).center());
    EXPECT_EQ(m_tree.GetCurrentCode(), QStringLiteral("b1"));
}

TEST_F(SearchTree, TypingInAWideOrDeepTreeCostsNoMoreThanTheFilterItself)
{
    for (const bool bDeep : {false, true}) {
        SCOPED_TRACE(bDeep ? "deep" : "wide");
        FillAgain(bDeep ? MakeDeepGroups(120) : MakeGroups(1, 2000));
        CompareTyping(bDeep ? "ratio_deep" : "ratio_wide");
    }
}

TEST(DepartmentModels, AnswersOfAManagerThatCountsNoLongerAreDropped)
{
    using UICommonMdl::CDepartmentModelManager;
    const auto* const pModel = CDepartmentModelManager::Instance()->GetDepartmentModel();
    FakeHost first;
    first.site.ServePersons();
    first.access.QueryDepartmentTree();
    FakeHost second;
    PageDriver::Settle();
    EXPECT_EQ(pModel->rowCount(), 0);
    second.site.ServePersons();
    second.access.QueryDepartmentTree();
    PageDriver::Settle();
    EXPECT_EQ(pModel->rowCount(), 1);
}
