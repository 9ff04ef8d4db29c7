#include "PluginFixture.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QPointer>
#include <QProcess>
#include <QRegularExpression>

#include <cstring>

using VxPluginAPI::IAbstractUI;
using VxPluginAPI::IAbstractWidget;
using VxPluginAPI::IClientUIPluginAPI;

TEST(PluginLibrary, ExportsItsTwoEntryPointsOnly)
{
    QProcess nm;
    nm.start(QStringLiteral("nm"),
        {QStringLiteral("-D"), QStringLiteral("--defined-only"), QStringLiteral("--format=posix"),
            qEnvironmentVariable("PRODUCT_BINARY_DIR")
                + QStringLiteral("/lib/plugins/libConfigManagerPlugin.so")});
    ASSERT_TRUE(nm.waitForFinished());
    QStringList listNames;
    for (const QString& sLine :
        QString::fromLatin1(nm.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        listNames << sLine.section(QLatin1Char(' '), 0, 0);
    listNames.sort();
    EXPECT_EQ(listNames,
        (QStringList{QStringLiteral("qt_plugin_instance"), QStringLiteral("qt_plugin_query_metadata")}));
}

TEST_F(PluginFixture, MetadataNamesTheClassAndTheKey)
{
    const QJsonObject metaData = m_loader.metaData();
    EXPECT_EQ(metaData[QStringLiteral("IID")].toString(),
        QStringLiteral("org.qt-project.Qt.QStyleFactoryInterface"));
    EXPECT_EQ(metaData[QStringLiteral("className")].toString(), QStringLiteral("CConfigManagerUIPlugin"));
    const QJsonObject keys = metaData[QStringLiteral("MetaData")].toObject();
    EXPECT_EQ(keys.keys(), QStringList{QStringLiteral("Keys")});
    EXPECT_EQ(keys[QStringLiteral("Keys")].toArray(), QJsonArray{QString::fromLatin1(PluginName)});
}

TEST_F(PluginFixture, MetacastAnswersTheObjectAndTheInterface)
{
    QObject* pObject = m_loader.instance();
    EXPECT_EQ(pObject->qt_metacast("ConfigManagerPlugin::CConfigManagerUIPlugin"), pObject);
    EXPECT_EQ(pObject->qt_metacast("VxPluginAPI::IClientUIPluginAPI"), m_pPlugin);
    EXPECT_EQ(pObject->qt_metacast("com.VxPluginAPI.IClientUIPluginAPI(1.0)"), m_pPlugin);
    EXPECT_EQ(pObject->qt_metacast("QObject"), pObject);
    EXPECT_EQ(pObject->qt_metacast("com.VxPluginAPI.IClientUIPluginAPI(2.0)"), nullptr);
}

namespace {

/// Place of a virtual operation, the destructor being slot 0. In the Itanium C++ ABI a pointer to a virtual
/// member is its offset in the table plus one, and the destructor takes two places.
template <class Member>
std::size_t SlotOf(Member member)
{
    std::uintptr_t nValue = 0;
    std::memcpy(&nValue, &member, sizeof nValue);
    return (nValue - 1) / sizeof(void*) - 1;
}

} // namespace

TEST(PluginInterfaces, OperationsStandInTheirSlots)
{
    const std::vector<std::size_t> plugin = {SlotOf(&IClientUIPluginAPI::GetPluginName),
        SlotOf(&IClientUIPluginAPI::GetPluginRight), SlotOf(&IClientUIPluginAPI::AddAbstractResourceManager),
        SlotOf(&IClientUIPluginAPI::Init), SlotOf(&IClientUIPluginAPI::Start),
        SlotOf(&IClientUIPluginAPI::Stop), SlotOf(&IClientUIPluginAPI::CreateUI),
        SlotOf(&IClientUIPluginAPI::UninitPlugin), SlotOf(&IClientUIPluginAPI::GetAbstractUI)};
    EXPECT_EQ(plugin, (std::vector<std::size_t>{1, 2, 3, 4, 5, 6, 7, 8, 9}));

    const std::vector<std::size_t> ui = {
        SlotOf(&IAbstractUI::GetAbstractWidget), SlotOf(&IAbstractUI::FindAbstractWidget)};
    EXPECT_EQ(ui, (std::vector<std::size_t>{1, 2}));

    using TitleWithFlag = QString (IAbstractWidget::*)(const QString&, int);
    using Title = QString (IAbstractWidget::*)(const QString&);
    const std::vector<std::size_t> widget = {SlotOf(&IAbstractWidget::GetWidgetRight),
        SlotOf(&IAbstractWidget::GetWidgetName), SlotOf(&IAbstractWidget::GetWidget),
        SlotOf(&IAbstractWidget::UninitUI), SlotOf(TitleWithFlag(&IAbstractWidget::GetWidgetTitle)),
        SlotOf(&IAbstractWidget::GetWidgetIcon), SlotOf(&IAbstractWidget::GetWidgetTip),
        SlotOf(Title(&IAbstractWidget::GetWidgetTitle)), SlotOf(&IAbstractWidget::GetWidgetProperty),
        SlotOf(&IAbstractWidget::OnMsg)};
    EXPECT_EQ(widget, (std::vector<std::size_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(PluginFixture, UserInterfaceIsCreatedOnceAndOnDemand)
{
    EXPECT_EQ(m_pPlugin->GetAbstractUI(), nullptr);
    m_pPlugin->CreateUI();
    IAbstractUI* pUi = m_pPlugin->GetAbstractUI();
    ASSERT_TRUE(pUi);
    m_pPlugin->CreateUI();
    EXPECT_EQ(m_pPlugin->GetAbstractUI(), pUi);
}

TEST_F(PluginFixture, OnlyTheExactNameMakesTheTopLevelWidget)
{
    EXPECT_EQ(Ui()->FindAbstractWidget(PluginName), nullptr);
    EXPECT_EQ(Ui()->GetAbstractWidget("ResourceManagerWidget"), nullptr);
    for (const char* const pszName :
        {"", "configmanagerplugin", "ConfigManagerPlugin-System", "ConfigManagerPlugi"})
        EXPECT_EQ(Ui()->GetAbstractWidget(pszName), nullptr) << pszName;
    EXPECT_EQ(Ui()->FindAbstractWidget(PluginName), nullptr);

    IAbstractWidget* pTopLevel = Ui()->GetAbstractWidget(PluginName);
    ASSERT_TRUE(pTopLevel);
    EXPECT_EQ(Ui()->GetAbstractWidget(PluginName), pTopLevel);
    EXPECT_EQ(Ui()->FindAbstractWidget(PluginName), pTopLevel);
    EXPECT_EQ(pTopLevel->GetWidgetName(), PluginName);
    EXPECT_EQ(pTopLevel->GetWidgetRight(), "Default Right");
    EXPECT_FALSE(pTopLevel->GetWidgetProperty().isValid());
}

TEST_F(PluginFixture, PagesAreFoundByNameWhileTheHomePageLives)
{
    m_rights.Allow({0, 7});
    TopLevel();
    EXPECT_EQ(Ui()->GetAbstractWidget("ResourceManagerWidget"), nullptr) << "there is no home page yet";
    HomePage();
    IAbstractWidget* pDevices = Ui()->GetAbstractWidget("ResourceManagerWidget");
    ASSERT_TRUE(pDevices);
    EXPECT_EQ(pDevices->GetWidgetRight(), "001001");
    EXPECT_EQ(Ui()->FindAbstractWidget("BackupRestoreWidget")->GetWidgetTitle(),
        QStringLiteral("Backup and Restore"));
    EXPECT_EQ(Ui()->GetAbstractWidget("UserManagerWidget"), nullptr) << "the user may not open it";
    m_pParent.reset();
    EXPECT_EQ(Ui()->GetAbstractWidget("ResourceManagerWidget"), nullptr);
}

TEST_F(PluginFixture, HomePageBelongsToItsParentAndComesBack)
{
    QPointer<QWidget> pFirst = HomePage();
    EXPECT_EQ(pFirst->parentWidget(), m_pParent.get());
    QWidget other;
    EXPECT_EQ(TopLevel()->GetWidget(&other), pFirst);

    m_pParent = std::make_unique<QWidget>();
    EXPECT_TRUE(pFirst.isNull());
    EXPECT_TRUE(Send(7));
    EXPECT_TRUE(Send(36, true));
    EXPECT_TRUE(m_pParent->findChildren<QWidget*>().isEmpty()) << "a message alone builds no page";

    QWidget* pSecond = HomePage();
    ASSERT_TRUE(pSecond);
    EXPECT_EQ(pSecond->parentWidget(), m_pParent.get());
}

TEST_F(PluginFixture, UninitialisingReleasesEverythingOnce)
{
    QPointer<QWidget> pHome = HomePage();
    EXPECT_FALSE(m_pPlugin->AddAbstractResourceManager(&m_rights)) << "the same source is not added twice";
    m_pPlugin->UninitPlugin();
    EXPECT_EQ(m_pPlugin->GetAbstractUI(), nullptr);
    EXPECT_FALSE(m_pPlugin->AddAbstractResourceManager(&m_rights));
    EXPECT_FALSE(pHome.isNull()) << "the page is its parent's";
    m_pPlugin->UninitPlugin();
    m_pParent.reset();
}
