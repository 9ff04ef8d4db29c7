#include "PageDriver.h"

#include <UICommonMdl/CNumberPageCtrl.h>

#include <QLineEdit>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

class PageBar : public testing::Test
{
protected:
    PageBar()
    {
        m_bar.SetPageSize(20);
        m_bar.SetTotalCount(95);
    }

    /// Page numbers that were asked for since the last call.
    QVector<int> Asked()
    {
        QVector<int> vecPages;
        while (!m_pages.isEmpty())
            vecPages.append(m_pages.takeFirst().first().toInt());
        return vecPages;
    }
    void GoTo(const QString& sPage)
    {
        m_driver.Type(QStringLiteral("edtPage"), sPage);
        m_driver.Key(QStringLiteral("edtPage"), Qt::Key_Return);
    }

    UICommonMdl::CNumberPageCtrl m_bar;
    PageDriver m_driver{m_bar, {700, 40}};
    QSignalSpy m_pages{&m_bar, &UICommonMdl::CNumberPageCtrl::SignalCurrentPageChanged};
    QSignalSpy m_sizes{&m_bar, &UICommonMdl::CNumberPageCtrl::SignalPageSizeChanged};
};

TEST_F(PageBar, ButtonsWalkToTheEndsAndStopThere)
{
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("btnFirstPage")));
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("btnPreviousPage")));
    m_driver.Click(QStringLiteral("btnNextPage"));
    m_driver.Click(QStringLiteral("btnLastPage"));
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("btnNextPage")));
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("btnLastPage")));
    m_driver.Click(QStringLiteral("btnPreviousPage"));
    m_driver.Click(QStringLiteral("btnFirstPage"));
    EXPECT_EQ(Asked(), QVector<int>({2, 5, 4, 1}));
}

TEST_F(PageBar, TypedPageIsHeldWithinThePagesAndAskedForOnce)
{
    const struct
    {
        QString sTyped;
        QVector<int> vecAsked;
        int nPage;
    } cases[] = {{QStringLiteral("3"), {3}, 3}, {QStringLiteral("3"), {}, 3}, {QStringLiteral("99"), {5}, 5},
        {QStringLiteral("9999999"), {}, 5}, {QStringLiteral("0"), {1}, 1}, {QStringLiteral("-2"), {2}, 2}};
    for (const auto& typed : cases) {
        SCOPED_TRACE(qPrintable(typed.sTyped));
        GoTo(typed.sTyped);
        EXPECT_EQ(Asked(), typed.vecAsked);
        EXPECT_EQ(m_bar.GetCurrentPage(), typed.nPage);
        EXPECT_EQ(m_driver.Find<QLineEdit>(QStringLiteral("edtPage"))->text(), QString::number(typed.nPage));
    }
}

TEST_F(PageBar, ShrinkingListMovesToItsLastPageWithoutAsking)
{
    m_bar.SetCurrentPage(5);
    m_bar.SetTotalCount(40);
    EXPECT_EQ(m_bar.GetCurrentPage(), 2);
    m_bar.SetTotalCount(0);
    EXPECT_EQ(m_bar.GetCurrentPage(), 0);
    EXPECT_EQ(m_bar.GetPageCount(), 0);
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("btnNextPage")));
    EXPECT_FALSE(m_driver.IsUsable(QStringLiteral("edtPage")));
    m_bar.SetTotalCount(21);
    EXPECT_EQ(m_bar.GetCurrentPage(), 1);
    EXPECT_EQ(m_bar.GetPageCount(), 2);
    EXPECT_EQ(Asked(), QVector<int>());
}

TEST_F(PageBar, ChosenPageSizeStartsAtTheFirstPageAndIsTheOnlySignal)
{
    m_driver.Click(QStringLiteral("btnLastPage"));
    Asked();
    m_driver.Choose(QStringLiteral("cmbPageSize"), QStringLiteral("50 / page"));
    ASSERT_EQ(m_sizes.size(), 1);
    EXPECT_EQ(m_sizes.first().first().toInt(), 50);
    EXPECT_EQ(m_bar.GetCurrentPage(), 1);
    EXPECT_EQ(m_bar.GetPageCount(), 2);
    EXPECT_EQ(Asked(), QVector<int>());
}

TEST_F(PageBar, PageSizeOfTheProgramIsSilentAndOneOfTheOffered)
{
    m_bar.SetCurrentPage(5);
    m_bar.SetPageSize(33);
    EXPECT_EQ(m_bar.GetPageSize(), 20);
    m_bar.SetPageSize(100);
    EXPECT_EQ(m_bar.GetPageSize(), 100);
    EXPECT_EQ(m_bar.GetCurrentPage(), 1);
    EXPECT_EQ(m_sizes.size(), 0);
    EXPECT_EQ(Asked(), QVector<int>());
}

} // namespace
