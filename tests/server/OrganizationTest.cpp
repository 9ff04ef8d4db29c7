#include "ServerFixture.h"

#include "services/SessionService.h"

namespace ServerTest {

using namespace UICommonMdl;
using GroupLogical::Organization_t;

class OrganizationTest : public ServerFixture
{
protected:
    void SetUp() override { Start(); }

    Reply Add(const std::string& sParent, const std::string& sName, const std::string& sRemark = {})
    {
        Organization_t organization;
        organization.sParentCode = sParent;
        organization.sName = sName;
        organization.sRemark = sRemark;
        return pClient->Call<wire::AddOrganization>(organization);
    }

    /// A chain below the root; answers the codes from top to bottom.
    std::vector<std::string> AddChain(int nLength, const std::string& sName)
    {
        std::vector<std::string> vecCodes;
        for (int i = 0; i < nLength; ++i)
            vecCodes.push_back(
                AddOrganization(i == 0 ? "001" : vecCodes.back(), sName + std::to_string(i)).sCode);
        return vecCodes;
    }

    /// The kept ancestors have to be those that the parents give.
    void CheckAncestors()
    {
        std::map<std::string, std::string> mapParents;
        for (const auto& organization : pClient->Get<wire::QueryOrganizations>().vecOrganizations) {
            EXPECT_TRUE(organization.sParentCode.empty() || mapParents.count(organization.sParentCode) == 1)
                << "parents come before children";
            mapParents[organization.sCode] = organization.sParentCode;
        }
        int nPairs = 0;
        for (const auto& [sCode, sParent] : mapParents) {
            int nDistance = 0;
            for (std::string sAncestor = sCode; !sAncestor.empty();
                 sAncestor = mapParents[sAncestor], ++nDistance, ++nPairs)
                EXPECT_EQ(
                    pServer
                        ->QuerySql(
                            QStringLiteral(
                                "SELECT distance FROM organization_ancestor WHERE code = ? AND ancestor = ?"),
                            {QString::fromStdString(sCode), QString::fromStdString(sAncestor)})
                        .toString(),
                    QString::number(nDistance));
        }
        EXPECT_EQ(
            pServer->QuerySql(QStringLiteral("SELECT COUNT(*) FROM organization_ancestor")).toInt(), nPairs);
    }
};

TEST_P(OrganizationTest, NamesAndRemarksKeepTheirRules)
{
    AddOrganization("001", "North");
    struct Case
    {
        std::string sParent;
        std::string sName;
        std::string sRemark;
        int nCode;
    };
    std::string sFull;
    for (int i = 0; i < GroupLogical::OrganizationName.nMax; ++i)
        sFull += "\U0001F6AA";
    const auto remark = [](int nMore) {
        return std::string(std::size_t(GroupLogical::OrganizationRemark.nMax + nMore), 'r');
    };
    const std::vector<Case> vecCases{
        {"001", "", "", ErrorInvalidInput},
        {"001", "   ", "", ErrorInvalidInput},
        {"001", "a<b", "", ErrorInvalidInput},
        {"001", "a\nb", "", ErrorInvalidInput},
        {"001", sFull + "x", "", ErrorInvalidInput},
        {"001", sFull, "", 0},
        {"001", "South", remark(1), ErrorInvalidInput},
        {"001", "South", remark(0), 0},
        {"001", " NORTH ", "", ErrorNameExists},
        {"none", "West", "", ErrorNotFound},
    };
    for (const Case& c : vecCases)
        EXPECT_EQ(Add(c.sParent, c.sName, c.sRemark).nCode, c.nCode) << c.sName << '/' << c.sRemark.size();
}

TEST_P(OrganizationTest, TheTreeKeepsItsDepthWhateverWay)
{
    const int nLimit = Platform::SessionService::OrganizationLevelLimit;
    EXPECT_EQ(pClient->Get<wire::GetSession>().nOrganizationLevelLimit, nLimit);
    const auto vecDeep = AddChain(nLimit - 1, "d");
    EXPECT_EQ(Add(vecDeep.back(), "too deep").nCode, ErrorOrganizationDepth);
    const auto vecShort = AddChain(2, "s");
    EXPECT_EQ(pClient->Call<wire::MoveOrganization>({vecShort[0], vecDeep[std::size_t(nLimit) - 3]}).nCode,
        ErrorOrganizationDepth);
    EXPECT_EQ(
        pClient->Call<wire::MoveOrganization>({vecShort[0], vecDeep[std::size_t(nLimit) - 4]}).nCode, 0);
    CheckAncestors();
}

TEST_P(OrganizationTest, MovesTakeTheSubTreeAlongAndRefuseWhatCannotBe)
{
    const auto vecA = AddChain(3, "a");
    const auto vecB = AddChain(2, "b");
    AddOrganization(vecB[0], "A1");
    EXPECT_EQ(pClient->Call<wire::MoveOrganization>({"001", vecA[0]}).nCode, ErrorOrganizationRoot);
    EXPECT_EQ(pClient->Call<wire::MoveOrganization>({vecA[0], vecA[2]}).nCode, ErrorOrganizationCycle);
    EXPECT_EQ(pClient->Call<wire::MoveOrganization>({vecA[0], vecA[0]}).nCode, ErrorOrganizationCycle);
    EXPECT_EQ(pClient->Call<wire::MoveOrganization>({vecA[1], vecB[0]}).nCode, ErrorNameExists);
    EXPECT_EQ(pClient->Call<wire::MoveOrganization>({vecA[0], "none"}).nCode, ErrorNotFound);
    EXPECT_EQ(pClient->Call<wire::MoveOrganization>({vecA[1], vecB[1]}).nCode, 0);
    CheckAncestors();
    EXPECT_EQ(pClient->Call<wire::MoveOrganization>({vecA[1], "001"}).nCode, 0);
    CheckAncestors();
}

TEST_P(OrganizationTest, OnlyWhatHoldsNoDeviceIsDeleted)
{
    const auto vecCodes = AddChain(3, "c");
    pServer->RunSql(
        QStringLiteral("INSERT INTO device (id, name, name_key, address, address_key, port, search_key, "
                       "category, model, org_code, manufacturer, protocol) "
                       "VALUES (1, 'x', 'x', '', '~', 0, 'x', 1, '', ?, '', '')"),
        {QString::fromStdString(vecCodes[2])});
    EXPECT_EQ(pClient->Call<wire::DeleteOrganization>({"001"}).nCode, ErrorOrganizationRoot);
    EXPECT_EQ(pClient->Call<wire::DeleteOrganization>({vecCodes[0]}).nCode, ErrorOrganizationNotEmpty);
    EXPECT_EQ(pClient->Get<wire::QueryOrganizations>().vecOrganizations.size(), 4U);
    pServer->RunSql(QStringLiteral("DELETE FROM device"));
    EXPECT_EQ(pClient->Call<wire::DeleteOrganization>({vecCodes[0]}).nCode, 0);
    EXPECT_EQ(pClient->Get<wire::QueryOrganizations>().vecOrganizations.size(), 1U);
    CheckAncestors();
    EXPECT_GT(std::stoi(AddOrganization("001", "c0").sCode), std::stoi(vecCodes[2]))
        << "codes are not used again";
}

TEST_P(OrganizationTest, OfTwoClientsThatEditOneOrganizationTheLaterIsTold)
{
    const Organization_t read = AddOrganization("001", "Gate");
    ApiClient other(pServer->Url());
    other.SignIn("system", TestSupport::TestServer::AdminPassword());
    Organization_t mine = read;
    mine.sRemark = "mine";
    Organization_t theirs = read;
    theirs.sName = "Gatehouse";
    EXPECT_EQ(other.Get<wire::ModifyOrganization>(theirs).nVersion, read.nVersion + 1);
    EXPECT_EQ(pClient->Call<wire::ModifyOrganization>(mine).nCode, ErrorVersionConflict);
    const auto vecNow = pClient->Get<wire::QueryOrganizations>().vecOrganizations;
    EXPECT_EQ(vecNow.back().sName, "Gatehouse");
    EXPECT_EQ(vecNow.back().sRemark, "");
}

INSTANTIATE_TEST_SUITE_P(
    , OrganizationTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest
