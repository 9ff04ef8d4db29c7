#include <PersonEdit/CPersonnelInfoUI.h>
#include <tests/support/fakes/FakeHost.h>

#include <gtest/gtest.h>

TEST(PersonEditor, CanBeMade)
{
    FakeHost host;
    const BasicInfoManagerUI::CPersonnelInfoUI page(&host.interfaceSet);
    EXPECT_FALSE(page.isVisible());
}
