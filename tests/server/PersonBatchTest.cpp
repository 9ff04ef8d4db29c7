#include "PersonFixture.h"

namespace ServerTest {

using namespace UICommonMdl;
using namespace AccessControlLogical;

class PersonBatchTest : public PersonFixture
{
protected:
    void SetUp() override
    {
        Start();
        sEast = AddGroup("001", "East");
        sTeam = AddGroup(sEast, "Team");
        Person_t bob = Make("30", "Bob Stone", sTeam);
        bob.vecPlates = {"KX-77", "ZZ 9"};
        bob.vecCards = {{"AA"}};
        Add(bob);
        Add(Make("9", "unused"), ErrorInvalidInput);
        Add(Make("200", "Ann Stone"));
        Add(Make("111222333444", "Cyn", sEast));
    }
    using PersonFixture::Add;
    void Add(const Person_t& person, int nCode)
    {
        EXPECT_EQ(pClient->Call<wire::AddPerson>(person).nCode, nCode);
    }

    std::string sEast;
    std::string sTeam;
};

TEST_P(PersonBatchTest, PagesFollowTheNumbersOfTheIds)
{
    using testing::ElementsAre;
    EXPECT_THAT(Ids("", true), ElementsAre("30", "200", "111222333444"));
    EXPECT_THAT(Ids("001", false), ElementsAre("200"));
    EXPECT_THAT(Ids(sEast, false), ElementsAre("111222333444"));
    EXPECT_THAT(Ids(sEast, true), ElementsAre("30", "111222333444"));
    EXPECT_THAT(Ids("", true, "", 2, 2), ElementsAre("111222333444"));
    const auto beyond = Page("", true, "", 9, 2);
    EXPECT_EQ(beyond.nPage, 2);
    EXPECT_EQ(beyond.nTotal, 3);
    EXPECT_EQ(pClient->Call<wire::QueryPersonList>({"", true, "", 1, 1001}).nCode, ErrorInvalidInput);
    const auto row = Page(sTeam, false).vecPersons.at(0);
    EXPECT_EQ(row.nCards, 1);
    EXPECT_EQ(row.sPlates, "KX-77,ZZ 9");
    EXPECT_EQ(row.sGroupName, "Team");
}

TEST_P(PersonBatchTest, TheSearchFindsPartsOfIdNameAndPlateOnly)
{
    using testing::ElementsAre;
    const std::pair<const char*, std::vector<std::string>> cases[] = {{"stone", {"30", "200"}},
        {"STONE", {"30", "200"}}, {"222333", {"111222333444"}}, {"kx-7", {"30"}}, {"z 9", {"30"}},
        {"cy", {"111222333444"}}, {"0", {"30", "200"}}, {"%", {}}, {"_", {}}, {"\"", {}}, {"stone\nkx", {}},
        {"AA", {}}};
    for (const auto& [szText, vecIds] : cases)
        EXPECT_EQ(Ids("", true, szText), vecIds) << szText;
    EXPECT_THAT(Ids(sEast, true, "stone"), ElementsAre("30"));
    // What is searched for follows the record.
    Person_t bob = Detail("30");
    bob.vecPlates = {"NEW-1"};
    bob.sName = "Rob Rock";
    pClient->Get<wire::ModifyPerson>(bob);
    EXPECT_THAT(Ids("", true, "kx-77"), testing::IsEmpty());
    EXPECT_THAT(Ids("", true, "new-1"), ElementsAre("30"));
    EXPECT_THAT(Ids("", true, "rob rock"), ElementsAre("30"));
}

TEST_P(PersonBatchTest, EveryPageOfManyPersonsIsThereOnceInAnyOrderOfTurning)
{
    TestSupport::TestServerOptions options;
    options.nSeedPersons = 1234;
    Start(options);
    for (const bool bSubGroups : {true, false})
        for (const std::string& sGroup : {std::string("001"), std::string("1001"), std::string("1002")}) {
            const int nTotal = Page(sGroup, bSubGroups).nTotal;
            std::set<std::string> all;
            const int nPages = (nTotal + 49) / 50;
            for (int nStep = 0; nStep < nPages; ++nStep) {
                // From both ends to the middle.
                const int nPage = nStep % 2 == 0 ? 1 + nStep / 2 : nPages - nStep / 2;
                for (const std::string& sId : Ids(sGroup, bSubGroups, "", nPage, 50))
                    EXPECT_TRUE(all.insert(sId).second) << sId;
            }
            EXPECT_EQ(int(all.size()), nTotal) << sGroup;
            EXPECT_EQ(nTotal > 0, sGroup != "001" || bSubGroups);
        }
}

TEST_P(PersonBatchTest, MovingDeletingAndAuthorisingListWhoIsGone)
{
    auto failed = pClient->Get<wire::MovePersons>({{"30", "77", "200"}, sEast}).vecFailed;
    ASSERT_EQ(failed.size(), 1U);
    EXPECT_EQ(failed[0].sPersonId, "77");
    EXPECT_EQ(failed[0].nErrorCode, ErrorNotFound);
    EXPECT_EQ(Ids(sEast, false).size(), 3U);
    EXPECT_EQ(pClient->Call<wire::MovePersons>({{"30"}, "none"}).nCode, ErrorNotFound);
    pServer->RunSql(QStringLiteral("INSERT INTO access_group (id, name) VALUES (1, 'Day'), (2, 'Night')"));
    pClient->Get<wire::AuthorizePersons>({{"30", "200"}, {"1"}, {}});
    EXPECT_THAT(pClient->Get<wire::AuthorizePersons>({{"30"}, {"2"}, {}}).vecFailed, testing::IsEmpty());
    EXPECT_THAT(Detail("30").vecAccessGroups, testing::ElementsAre("2")) << "overwritten";
    EXPECT_THAT(Detail("200").vecAccessGroups, testing::ElementsAre("1"));
    EXPECT_EQ(pClient->Call<wire::AuthorizePersons>({{"30", "200"}, {"9"}, {}}).nCode, ErrorNotFound);
    EXPECT_THAT(Detail("30").vecAccessGroups, testing::ElementsAre("2"))
        << "nothing of a refused batch stays";
    pClient->Get<wire::DeletePersons>({{"30", "77"}});
    EXPECT_EQ(pClient->Call<wire::QueryPersonDetail>({"30"}).nCode, ErrorNotFound);
    EXPECT_EQ(
        pClient->Call<wire::DeletePersons>({std::vector<std::string>(PersonBatchLimit + 1, "30")}).nCode,
        ErrorInvalidInput);
}

TEST_P(PersonBatchTest, DeleteAllKeepsToTheGroupUnlessItsSubGroupsAreMeant)
{
    pClient->Get<wire::DeleteAllPersons>({sEast, false});
    EXPECT_THAT(Ids("", true), testing::ElementsAre("30", "200"));
    pClient->Get<wire::DeleteAllPersons>({sEast, true});
    EXPECT_THAT(Ids("", true), testing::ElementsAre("200"));
    EXPECT_EQ(pClient->Call<wire::DeleteAllPersons>({"none", true}).nCode, ErrorNotFound);
}

TEST_P(PersonBatchTest, CardsAreIssuedAllOrNone)
{
    using C = PersonClash_t;
    const Reply clash =
        pClient->Call<wire::IssueCards>({{{"200", "bb"}, {"200", "aa"}, {"111222333444", "BB"}}, 0, 0});
    EXPECT_EQ(clash.nCode, ErrorPersonDuplicate);
    EXPECT_THAT(
        wire::ClashesOf(clash.sDetail), testing::ElementsAre(C{ClashCardNo, "AA"}, C{ClashCardNo, "BB"}));
    EXPECT_TRUE(Detail("200").vecCards.empty());
    pClient->Get<wire::IssueCards>({{{"200", "bb"}, {"30", "cc"}}, 1700000000, 1800000000});
    EXPECT_THAT(Detail("30").vecCards, testing::ElementsAre(Card_t{"AA"}, Card_t{"CC"}));
    EXPECT_EQ(Detail("200").nValidTo, 1800000000);
    pClient->Get<wire::IssueCards>({{{"200", "BB"}, {"30", "dd"}}, 0, 0});
    EXPECT_THAT(Detail("200").vecCards, testing::ElementsAre(Card_t{"BB"})) << "it has it already";
    EXPECT_EQ(Detail("200").nValidTo, 1800000000);
    pClient->Get<wire::IssueCards>({{{"200", "BB"}}, 1700000000, 1900000000});
    EXPECT_EQ(Detail("200").nValidTo, 1900000000);
    EXPECT_EQ(Detail("30").vecCards.size(), 3U);
    const std::pair<wire::IssueCardsRequest, int> refused[] = {{{{{"200", "xy"}}, 0, 0}, ErrorInvalidInput},
        {{{{"200", ""}}, 0, 0}, ErrorInvalidInput}, {{{{"201", "dd"}}, 0, 0}, ErrorNotFound},
        {{{{"200", "dd"}}, 5, 4}, ErrorInvalidInput}, {{{}, 0, 0}, ErrorInvalidInput}};
    for (const auto& [request, nCode] : refused)
        EXPECT_EQ(pClient->Call<wire::IssueCards>(request).nCode, nCode);
    EXPECT_EQ(Detail("200").vecCards.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(
    , PersonBatchTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest
