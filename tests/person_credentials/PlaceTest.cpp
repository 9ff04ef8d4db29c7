#include <Credentials/CBatchIssueCard.h>
#include <tests/support/fakes/FakeHost.h>

#include <gtest/gtest.h>

TEST(IssueCard, CanBeMade)
{
    FakeHost host;
    const BasicInfoManagerUI::CBatchIssueCard page(&host.interfaceSet);
    EXPECT_FALSE(page.isVisible());
}
