#include "RolePageFixture.h"

#include <Trv/QSkin.h>

#include <QApplication>
#include <QDir>

using namespace RolePageTest;

namespace {

/// The page and its dialogs in each skin: rules that Qt cannot read warn, buttons that are cut are found.
class RoleLooks : public Fixture, public testing::WithParamInterface<const char*>
{
protected:
    void SetUp() override
    {
        Fixture::SetUp();
        UseSkin(QLatin1String(GetParam()));
    }
    void TearDown() override
    {
        Fixture::TearDown();
        UseSkin(m_sBefore);
    }
    static void UseSkin(const QString& sSkin)
    {
        ASSERT_TRUE(Trv::SetSkin(sSkin));
        QString sSheet;
        ASSERT_TRUE(Trv::loadStyleSheet(Trv::GetSkinPath(QStringLiteral("Client.qss"), QString()), sSheet));
        qApp->setStyleSheet(sSheet);
    }
    static void Save(QWidget* pWidget, const char* pszName)
    {
        PageDriver::Settle();
        for (const auto* const pButton : pWidget->findChildren<QPushButton*>()) {
            EXPECT_TRUE(!pButton->isVisible() || pButton->width() >= pButton->minimumSizeHint().width())
                << qPrintable(pButton->objectName());
        }
        const QString sFolder = qEnvironmentVariable("PRODUCT_SCREENSHOT_DIR");
        if (sFolder.isEmpty())
            return;
        const auto sFile = QStringLiteral("%1/%2-%3.png");
        EXPECT_TRUE(QDir().mkpath(sFolder)
            && pWidget->grab().save(sFile.arg(sFolder, QLatin1String(pszName), QLatin1String(GetParam()))));
    }

    QString m_sBefore = Trv::GetSkin();
};

TEST_P(RoleLooks, PageAndDialog)
{
    Open();
    Check("2");
    Save(m_pPage.get(), "page");
    DoubleClick("2");
    Save(Dialog(), "modify-menu");
    ShowTab(1);
    Save(Dialog(), "modify-func");
    ShowTab(2);
    Expand("North");
    Expand("Gate");
    ClickBox("treeDevice", "Lobby");
    Save(Dialog(), "modify-device");
    Type("editSearchDevice", QStringLiteral("zzz"));
    Type("editRoleName", QStringLiteral("Gu<ard"));
    Connect(false);
    Save(Dialog(), "modify-errors");
    Connect(true);
}

TEST_P(RoleLooks, DetailsAndStates)
{
    Open();
    ClickRowButton("1", 2);
    Save(Dialog(), "details-menu");
    ShowTab(2);
    Save(Dialog(), "details-device");
    Users().FailAlways("QueryRoleInfo", UICommonMdl::ErrorTimeOut);
    Dialog()->BeginDetails(QStringLiteral("2"), true);
    Save(Dialog(), "details-failed");
    Users().FailAlways("QueryRoleList", UICommonMdl::ErrorNoRight);
    m_host.user.setMissing = {"001002002"};
    Open();
    Save(m_pPage.get(), "page-no-right");
}

INSTANTIATE_TEST_SUITE_P(Skins, RoleLooks, testing::Values("light", "dark"));

} // namespace
