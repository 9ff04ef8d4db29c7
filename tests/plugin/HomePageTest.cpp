#include "PluginFixture.h"

#include "PageDriver.h"

#include <UICommonMdl/CBasePanel.h>

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QToolButton>

#include <gmock/gmock.h>

namespace {

/// The home page as a user sees it: per block, whether it shows and the titles of its tabs.
struct SeenGroups
{
    QStringList listBasic, listApplication, listSystem;
    bool operator==(const SeenGroups&) const = default;
};

void PrintTo(const SeenGroups& seen, std::ostream* pStream)
{
    for (const QStringList& list : {seen.listBasic, seen.listApplication, seen.listSystem})
        *pStream << '[' << list.join(QLatin1Char('|')).toStdString() << ']';
}

class HomePageTest : public PluginFixture
{
protected:
    QWidget* Show()
    {
        QWidget* pHome = HomePage();
        m_pParent->resize(1000, 700);
        pHome->resize(1000, 700);
        m_pParent->show();
        return pHome;
    }

    QStringList TitlesOf(const char* pszBlock, const char* pszPanel)
    {
        auto* pBlock = HomePage()->findChild<QWidget*>(QLatin1String(pszBlock));
        QStringList listTitles;
        for (const QToolButton* pButton :
            HomePage()->findChild<QWidget*>(QLatin1String(pszPanel))->findChildren<QToolButton*>()) {
            if (!pButton->isHidden())
                listTitles << pButton->text().replace(QLatin1Char('\n'), QLatin1Char(' '));
        }
        EXPECT_EQ(pBlock->isVisibleTo(HomePage()), !listTitles.isEmpty()) << pszBlock;
        return listTitles;
    }

    SeenGroups Seen()
    {
        return {TitlesOf("wgtBasic", "m_pBasicPanel"), TitlesOf("wgtApplication", "m_pApplicationPanel"),
            TitlesOf("wgtSystem", "m_pSystemPanel")};
    }

    static QStringList Titles(const char* pszTitles)
    {
        return QString::fromLatin1(pszTitles).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    }
};

} // namespace

TEST_F(HomePageTest, ShowsTheEntriesThatTheUserMayOpenInTheirGroups)
{
    m_rights.Allow({0, 1, 2, 4, 6, 7, 9, 10, 11, 12, 13, 14, 15, 16, 17});
    PageDriver(*Show(), {1000, 700}).Screenshot(QStringLiteral("home"));
    EXPECT_EQ(Seen(),
        (SeenGroups{Titles("Device|User|Storage"),
            Titles("Event|Map|Person and Vehicle Info|Watch List|Access Control|Video "
                   "Intercom|Attendance|Visitor|"
                   "Entrance and Exit"),
            Titles("System Deployment|System Parameters|Backup and Restore")}));
    EXPECT_EQ(HomePage()->findChild<QLabel*>(QStringLiteral("lbBasic"))->text(),
        QStringLiteral("Basic Configuration"));
    EXPECT_EQ(HomePage()->findChild<QLabel*>(QStringLiteral("lbApplication"))->text(),
        QStringLiteral("Applications Configuration"));
    EXPECT_EQ(HomePage()->findChild<QLabel*>(QStringLiteral("lbSystem"))->text(),
        QStringLiteral("System Configuration"));
}

TEST_F(HomePageTest, FollowsEveryChangeOfRights)
{
    struct
    {
        std::vector<unsigned int> vecIds;
        SeenGroups expected;
    } const steps[] = {
        {{}, {}},
        {{7, 0}, {Titles("Device"), {}, Titles("Backup and Restore")}},
        {{16, 2, 1}, {Titles("Storage|User"), Titles("Visitor"), {}}},
        // Numbers without an entry, between the groups and at their ends, are left out.
        {{3, 5, 8, 18, 99, 6}, {{}, {}, Titles("System Parameters")}},
        {{9, 17}, {{}, Titles("Event|Entrance and Exit"), {}}},
    };
    m_rights.Allow({4});
    Show();
    EXPECT_EQ(Seen(), (SeenGroups{{}, {}, Titles("System Deployment")}));
    for (const auto& step : steps) {
        m_rights.Allow(step.vecIds);
        EXPECT_TRUE(Send(7));
        EXPECT_EQ(Seen(), step.expected);
    }
}

TEST_F(HomePageTest, KeepsAnOpenedPageOverChangesOfRights)
{
    m_rights.Allow({9});
    Show();
    auto* pEntry = Ui()->GetAbstractWidget("EventConfigWidget");
    QWidget page;
    QWidget* pOpened = pEntry->GetWidget(&page);
    m_rights.Allow({0});
    Send(7);
    m_rights.Allow({9, 0});
    Send(7);
    EXPECT_EQ(Ui()->GetAbstractWidget("EventConfigWidget"), pEntry);
    EXPECT_EQ(pEntry->GetWidget(nullptr), pOpened);
    EXPECT_EQ(Seen(), (SeenGroups{Titles("Device"), Titles("Event"), {}}));
}

TEST_F(HomePageTest, ChoosingATabAsksTheClientForItsPage)
{
    m_rights.Allow({7, 10});
    Show();
    std::vector<std::string> vecOpened;
    QObject::connect(qobject_cast<UICommonMdl::CBasePanel*>(HomePage()),
        &UICommonMdl::CBasePanel::SignalOpenWidget, m_pParent.get(),
        [&](VxPluginAPI::IAbstractWidget* pEntry) { vecOpened.push_back(pEntry->GetWidgetName()); });
    for (auto* pButton : HomePage()->findChildren<QToolButton*>())
        pButton->click();
    EXPECT_THAT(vecOpened, testing::UnorderedElementsAre("EmapConfigUI", "BackupRestoreWidget"));
}

TEST_F(HomePageTest, AutoResizeSharesTheWidthAndSwitchesOff)
{
    m_rights.Allow({0, 1, 2});
    QWidget* pHome = Show();
    QApplication::processEvents();
    const auto widest = [&] {
        int nWidth = 0;
        for (const auto* pButton : pHome->findChildren<QToolButton*>())
            nWidth = qMax(nWidth, pButton->width());
        return nWidth;
    };
    const int nNatural = widest();
    EXPECT_TRUE(Send(36, true));
    EXPECT_GT(widest(), nNatural);
    EXPECT_TRUE(Send(36, false));
    pHome->resize(1010, 700);
    QApplication::processEvents();
    EXPECT_EQ(widest(), nNatural);
}

TEST_F(HomePageTest, AMissingStyleSheetLeavesThePresentOne)
{
    m_rights.Allow({0});
    QWidget* pHome = Show();
    EXPECT_EQ(pHome->objectName(), QStringLiteral("CConfigManagerCtrl"));
    const QString sStyleSheet = pHome->styleSheet();
    EXPECT_TRUE(
        sStyleSheet.contains(QStringLiteral("wgtBasic")) || sStyleSheet.contains(QStringLiteral("lbBasic")));
    pHome->setObjectName(QStringLiteral("renamed"));
    m_pParent->hide();
    m_pParent->show();
    EXPECT_EQ(pHome->objectName(), QStringLiteral("CConfigManagerCtrl"));
    EXPECT_EQ(pHome->styleSheet(), sStyleSheet);
}

TEST_F(HomePageTest, EntriesAreToldApartAndHaveTheirPictures)
{
    m_rights.Allow({0, 1, 2, 4, 6, 7, 9, 10, 11, 12, 13, 14, 15, 16, 17});
    HomePage();
    std::set<std::string> setRights;
    std::set<QString> setTitles;
    std::set<QString> setIcons;
    for (const auto& right : m_rights.session.vecMenuRights) {
        auto* const pEntry = Ui()->GetAbstractWidget(right.sWidgetName);
        ASSERT_TRUE(pEntry) << right.sWidgetName;
        SCOPED_TRACE(right.sWidgetName);
        m_rights.SetMissingRights({});
        EXPECT_EQ(pEntry->GetWidgetTitle(QString()), pEntry->GetWidgetTitle());
        EXPECT_TRUE(setRights.insert(pEntry->GetWidgetRight()).second);
        EXPECT_TRUE(setTitles.insert(pEntry->GetWidgetTitle()).second);
        EXPECT_TRUE(setIcons.insert(pEntry->GetWidgetIcon()).second);
        EXPECT_TRUE(QFileInfo::exists(pEntry->GetWidgetIcon())) << qPrintable(pEntry->GetWidgetIcon());
        m_rights.SetMissingRights({pEntry->GetWidgetRight()});
        EXPECT_TRUE(QFileInfo::exists(pEntry->GetWidgetIcon())) << qPrintable(pEntry->GetWidgetIcon());
    }
}
