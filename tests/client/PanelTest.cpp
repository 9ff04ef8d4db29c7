#include "PageDriver.h"

#include <UICommonMdl/CBasePanel.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/CPluginPanel.h>
#include <VxPluginAPI/IAbstractWidget.h>
#include <tests/support/fakes/FakeHost.h>

#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

using UICommonMdl::CBasePanel;
using UICommonMdl::CInterfaceSetManager;
using UICommonMdl::MenuRightEntry;
using UICommonMdl::PanelTabItem;

/// An entry that tells what happens to it.
class Entry : public VxPluginAPI::IAbstractWidget
{
public:
    Entry(std::string sName, QStringList& listLog, bool bTakesMessages = false)
        : m_sName(std::move(sName))
        , m_listLog(listLog)
        , m_bTakesMessages(bTakesMessages)
    {
    }
    ~Entry() override { Log("destroyed"); }

    std::string GetWidgetRight() override { return "001001"; }
    std::string GetWidgetName() override { return m_sName; }
    QWidget* GetWidget(QWidget*) override { return nullptr; }
    void UninitUI() override { Log("uninit"); }
    QString GetWidgetTitle(const QString&, int) override { return QStringLiteral("Title"); }
    QString GetWidgetIcon() override { return {}; }
    QString GetWidgetTip() override { return {}; }
    QString GetWidgetTitle(const QString&) override { return QStringLiteral("Title"); }
    QVariant GetWidgetProperty() override { return {}; }
    bool OnMsg(int nMsg, QVariant*, void*) override
    {
        Log("message") += QString::number(nMsg);
        return m_bTakesMessages;
    }

private:
    QString& Log(const char* pszWhat)
    {
        m_listLog.append(QString::fromStdString(m_sName) + QLatin1Char(' ') + QLatin1String(pszWhat));
        return m_listLog.last();
    }

    std::string m_sName;
    QStringList& m_listLog;
    bool m_bTakesMessages;
};

/// A source of a user manager alone, with a user of that name.
class Source : public VxPluginAPI::IAbstractResourceManager
{
public:
    explicit Source(const std::string& sUser)
    {
        m_host.session.sUserName = sUser;
        m_host.session.vecMenuRights = {{"001001", "devices", 0}, {"001003", "storage", 2}};
        m_host.ApplySession();
    }
    VxPluginAPI::IManager* FindManager(const std::string& sInterfaceId) override
    {
        return sInterfaceId == UserLogical::IUserManager::InterfaceId ? m_host.FindManager(sInterfaceId)
                                                                      : nullptr;
    }

private:
    FakeHost m_host;
};

class BasePanel : public testing::Test
{
protected:
    void Add(unsigned int nId, Entry* pEntry)
    {
        m_pPanel->AddWidgetByRight(m_pPanel.get(), nId, pEntry, m_vecRights, m_vecItems);
    }

    Source m_source{"operator"};
    CInterfaceSetManager m_interfaces;
    QStringList m_listLog;
    QVector<PanelTabItem> m_vecItems;
    QVector<MenuRightEntry> m_vecRights = {{"devices", 0}, {"storage", 2}};
    std::unique_ptr<CBasePanel> m_pPanel =
        std::make_unique<CBasePanel>(&m_interfaces, QStringLiteral("Panel"));
};

TEST_F(BasePanel, KeepsAllowedEntriesAndDestroysTheOthers)
{
    Add(0, new Entry("devices", m_listLog));
    Add(1, new Entry("users", m_listLog));
    Add(2, nullptr);
    EXPECT_EQ(m_listLog, QStringList{QStringLiteral("users destroyed")});
    ASSERT_EQ(m_vecItems.size(), 1);
    EXPECT_EQ(m_vecItems.first().sWidgetName, QStringLiteral("devices"));
    EXPECT_EQ(m_vecItems.first().sPluginId, QStringLiteral("Panel"));
    EXPECT_TRUE(m_pPanel->CreateAbstractWidget(std::string("devices")));
    EXPECT_FALSE(m_pPanel->CreateAbstractWidget(MenuRightEntry{"users", 1}));

    m_pPanel.reset();
    EXPECT_EQ(m_listLog.last(), QStringLiteral("devices destroyed"));
    EXPECT_EQ(m_listLog.size(), 2);
}

TEST_F(BasePanel, MessagesReachEveryEntryAlsoAfterOneTookIt)
{
    m_pPanel->KeepWidget(new Entry("a", m_listLog, true));
    m_pPanel->KeepWidget(new Entry("b", m_listLog));
    EXPECT_TRUE(m_pPanel->OnMsg(7, nullptr, nullptr));
    m_pPanel->UninitUI();
    EXPECT_EQ(m_listLog.join(QLatin1Char(',')), QStringLiteral("a message7,b message7,a uninit,b uninit"));
    m_pPanel = std::make_unique<CBasePanel>(&m_interfaces, QStringLiteral("Panel"));
    m_pPanel->KeepWidget(new Entry("b", m_listLog));
    EXPECT_FALSE(m_pPanel->OnMsg(7, nullptr, nullptr));
    m_pPanel.reset();
}

TEST_F(BasePanel, RightsAreThoseOfTheSignedInUser)
{
    QVector<MenuRightEntry> vecRights = {{"left over", 99}};
    m_pPanel->GetMenuRight(vecRights);
    EXPECT_TRUE(vecRights.isEmpty());
    m_interfaces.AddAbstractResourceManager(&m_source);
    m_pPanel->UpdateMenuRight(vecRights);
    ASSERT_EQ(vecRights.size(), 2);
    EXPECT_EQ(vecRights[1].sName, "storage");
    EXPECT_EQ(vecRights[1].nEntryId, 2U);
}

TEST_F(BasePanel, ClickOnATabOpensItsEntry)
{
    // Panels lie deeper than the page, in blocks of its form.
    auto* pBlock = new QWidget(m_pPanel.get());
    auto* pTabs = new UICommonMdl::CPluginPanel(pBlock);
    (new QVBoxLayout(m_pPanel.get()))->addWidget(pBlock);
    (new QVBoxLayout(pBlock))->addWidget(pTabs);
    Add(2, new Entry("storage", m_listLog));
    Add(0, new Entry("devices", m_listLog));
    m_vecItems.append({QIcon(), QStringLiteral("Panel"), QStringLiteral("unknown"), QString(), 0});
    pTabs->AddPanelTab(m_vecItems);
    std::vector<VxPluginAPI::IAbstractWidget*> vecOpened;
    QObject::connect(m_pPanel.get(), &CBasePanel::SignalOpenWidget, m_pPanel.get(),
        [&vecOpened](VxPluginAPI::IAbstractWidget* pEntry) { vecOpened.push_back(pEntry); });
    {
        PageDriver driver(*m_pPanel, {700, 300});
        driver.Click(QStringLiteral("devices"));
        driver.Click(QStringLiteral("unknown"));
    }
    ASSERT_EQ(vecOpened.size(), 1U);
    EXPECT_EQ(vecOpened.front(), m_pPanel->CreateAbstractWidget(std::string("devices")));
    m_pPanel.reset();
}

TEST(InterfaceSet, FirstSourceAnswersAndNoneIsAddedTwice)
{
    Source first("first");
    Source second("second");
    CInterfaceSetManager interfaces;
    EXPECT_FALSE(interfaces.GetUserManager());
    EXPECT_FALSE(interfaces.AddAbstractResourceManager(nullptr));
    EXPECT_TRUE(interfaces.AddAbstractResourceManager(&first));
    EXPECT_TRUE(interfaces.AddAbstractResourceManager(&second));
    EXPECT_FALSE(interfaces.AddAbstractResourceManager(&first));
    ASSERT_TRUE(interfaces.GetUserManager());
    EXPECT_EQ(interfaces.GetUserManager()->GetUserName(), "first");
    EXPECT_FALSE(interfaces.GetGroupManager());
}

} // namespace
