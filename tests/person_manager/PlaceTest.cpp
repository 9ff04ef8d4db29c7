#include <PersonManager/CPersonManagerCtrl.h>
#include <tests/support/fakes/FakeHost.h>

#include <gtest/gtest.h>

TEST(PersonPage, CanBeMade)
{
    FakeHost host;
    const BasicInfoManagerUI::CPersonManagerCtrl page(&host.interfaceSet);
    EXPECT_FALSE(page.isVisible());
}
