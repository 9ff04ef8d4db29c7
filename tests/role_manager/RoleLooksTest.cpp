#include "RolePageFixture.h"

#include <tests/support/gui/Look.h>

using namespace RolePageTest;

namespace {

class RoleLooks : public Fixture, public testing::WithParamInterface<Look>
{
protected:
    void OpenPage()
    {
        Open();
        m_pPage->window()->resize(m_look.Scaled({1100, 640}));
        PageDriver::Settle();
    }
    void ExpectReadable(QWidget* pWidget, const char* pszName) { m_look.ExpectReadable(*pWidget, pszName); }

    LookScope m_look{GetParam()};
};

TEST_P(RoleLooks, PageAndDialog)
{
    OpenPage();
    Check("2");
    ExpectReadable(m_pPage.get(), "page");
    m_look.ExpectFocusSeen(*m_pPage);
    DoubleClick("2");
    Dialog()->resize(m_look.Scaled(Dialog()->size()));
    ExpectReadable(Dialog(), "modify-menu");
    m_look.ExpectFocusSeen(*Dialog());
    ShowTab(1);
    ExpectReadable(Dialog(), "modify-func");
    ShowTab(2);
    Expand("North");
    Expand("Gate");
    ClickBox("treeDevice", "Lobby");
    ExpectReadable(Dialog(), "modify-device");
    Type("editSearchDevice", QStringLiteral("zzz"));
    Type("editRoleName", QStringLiteral("Gu<ard"));
    Connect(false);
    ExpectReadable(Dialog(), "modify-errors");
    Connect(true);
}

TEST_P(RoleLooks, DetailsAndStates)
{
    OpenPage();
    ClickRowButton("1", 2);
    ExpectReadable(Dialog(), "details-menu");
    ShowTab(2);
    ExpectReadable(Dialog(), "details-device");
    Users().FailAlways<wire::QueryRoleInfo>(UICommonMdl::ErrorTimeOut);
    Dialog()->BeginDetails(QStringLiteral("2"), true);
    ExpectReadable(Dialog(), "details-failed");
    Users().FailAlways<wire::QueryRoleList>(UICommonMdl::ErrorNoRight);
    m_host.SetMissingRights({"001002002"});
    OpenPage();
    ExpectReadable(m_pPage.get(), "page-no-right");
}

INSTANTIATE_TEST_SUITE_P(Every, RoleLooks, EveryLook, NameOf);

} // namespace
