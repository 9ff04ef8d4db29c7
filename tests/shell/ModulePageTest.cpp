#include <common/CModulePage.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>

#include <QLabel>
#include <QTabBar>
#include <QToolButton>

#include <gtest/gtest.h>

#include <memory>

namespace {

using Common::CModulePage;

constexpr const char* Rights[] = {"001001", "001002", "002003"};

/// A made-up module with the pages "One", "Two" and "Three", each behind a right of its own.
class ModulePage : public testing::TestWithParam<CModulePage::Look>
{
protected:
    void Open()
    {
        const auto make = [this](UICommonMdl::CInterfaceSetManager*, QWidget* pParent) {
            ++m_nMade;
            return new QLabel(QStringLiteral("Page"), pParent);
        };
        QVector<Common::ModuleEntry> vecEntries;
        for (int i = 0; i < 3; ++i)
            vecEntries.append({Rights[i], m_listNames[i], m_listNames[i], make});
        m_pPage = std::make_unique<CModulePage>(&m_host.interfaceSet,
            CModulePage::Description{
                QStringLiteral("CMadeUp"), QString(), QStringLiteral("Made up"), GetParam()},
            vecEntries);
        m_pDriver = std::make_unique<PageDriver>(*m_pPage);
    }
    void TearDown() override
    {
        m_pDriver.reset();
        m_pPage.reset();
    }

    void SetMissing(const std::set<std::string>& setMissing)
    {
        m_host.SetMissingRights(setMissing);
        PageDriver::Settle();
    }
    void Choose(int nEntry)
    {
        if (GetParam() == CModulePage::Look::Strip) {
            m_pDriver->Click(QStringLiteral("btn") + m_listNames[nEntry]);
            return;
        }
        auto* const pTabs = m_pPage->findChild<QTabBar*>(QStringLiteral("tabPages"));
        QTest::mouseClick(pTabs, Qt::LeftButton, Qt::NoModifier, pTabs->tabRect(nEntry).center());
    }
    /// The page that is seen, and the entries that are offered with the chosen one marked: "Two: One *Two".
    QString Seen() const
    {
        QString sSeen;
        for (const QString& sName : m_listNames + QStringList{QStringLiteral("NoRight")}) {
            if (m_pDriver->IsShown(QStringLiteral("page") + sName))
                sSeen += sName;
        }
        sSeen += QLatin1Char(':');
        const auto* const pTabs = m_pPage->findChild<QTabBar*>(QStringLiteral("tabPages"));
        for (int i = 0; i < m_listNames.size(); ++i) {
            const auto* const pButton =
                m_pPage->findChild<QToolButton*>(QStringLiteral("btn") + m_listNames[i]);
            if (pTabs ? !pTabs->isVisible() || !pTabs->isTabVisible(i) : !pButton->isVisible())
                continue;
            const bool bChosen = pTabs ? pTabs->currentIndex() == i : pButton->isChecked();
            sSeen += (bChosen ? QStringLiteral(" *") : QStringLiteral(" ")) + m_listNames[i];
        }
        return sSeen;
    }

    const QStringList m_listNames{QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")};
    FakeHost m_host;
    int m_nMade = 0;
    std::unique_ptr<CModulePage> m_pPage;
    std::unique_ptr<PageDriver> m_pDriver;
};

TEST_P(ModulePage, ShowsTheChosenOneOfThoseThatTheUserHasTheRightTo)
{
    m_host.SetMissingRights({Rights[0]});
    Open();
    EXPECT_EQ(Seen(), QStringLiteral("Two: *Two Three"));
    Choose(2);
    EXPECT_EQ(Seen(), QStringLiteral("Three: Two *Three"));
    SetMissing({});
    EXPECT_EQ(Seen(), QStringLiteral("Three: One Two *Three")) << "more to choose from moves nobody away";
    Choose(0);
    EXPECT_EQ(Seen(), QStringLiteral("One: *One Two Three"));
    EXPECT_EQ(m_nMade, 3);
}

TEST_P(ModulePage, AnEntryThatIsTakenAwayGivesItsPlaceToTheNext)
{
    Open();
    Choose(1);
    SetMissing({Rights[1]});
    EXPECT_EQ(Seen(), QStringLiteral("Three: One *Three"));
    SetMissing({Rights[1], Rights[2]});
    EXPECT_EQ(Seen(), QStringLiteral("One: *One"));
    SetMissing({Rights[0], Rights[1], Rights[2]});
    EXPECT_EQ(Seen(), QStringLiteral("NoRight:"));
    SetMissing({Rights[0]});
    EXPECT_EQ(Seen(), QStringLiteral("Two: *Two Three"));
    EXPECT_EQ(m_nMade, 3) << "a page is kept";
}

TEST_P(ModulePage, NothingIsMadeBeforeItIsShownNorAfterTheEnd)
{
    Open();
    EXPECT_EQ(m_nMade, 1);
    m_pPage->UninitUI();
    Choose(1);
    EXPECT_EQ(m_nMade, 1);
}

INSTANTIATE_TEST_SUITE_P(Looks, ModulePage,
    testing::Values(CModulePage::Look::Strip, CModulePage::Look::Tabs),
    [](const testing::TestParamInfo<CModulePage::Look>& info) {
        return std::string(info.param == CModulePage::Look::Strip ? "Strip" : "Tabs");
    });

} // namespace
