#include "PersonFixture.h"

namespace ServerTest {

using namespace UICommonMdl;
using AccessControlLogical::Department_t;

class DepartmentTest : public PersonFixture
{
protected:
    void SetUp() override { Start(); }
    Department_t Find(const std::string& sCode)
    {
        for (const auto& department : pClient->Get<wire::QueryDepartmentTree>().vecDepartments) {
            if (department.sCode == sCode)
                return department;
        }
        return {};
    }
    Reply Move(const std::string& sCode, const std::string& sParent)
    {
        Department_t department = Find(sCode);
        department.sParentCode = sParent;
        return pClient->Call<wire::ModifyDepartment>(department);
    }
};

TEST_P(DepartmentTest, NamesAndRemarksAreChecked)
{
    AddGroup("001", "Gate");
    const struct
    {
        const char* szName;
        std::string sRemark;
        int nCode;
    } cases[] = {{"", "", ErrorInvalidInput}, {"  ", "", ErrorInvalidInput}, {"a/b", "", ErrorInvalidInput},
        {"a<b", "", ErrorInvalidInput}, {"GATE", "", ErrorNameExists}, {"Remark", "<x>", ErrorInvalidInput},
        {"Long", std::string(AccessControlLogical::DepartmentRemark.nMax + 1, 'r'), ErrorInvalidInput}};
    for (const auto& test : cases)
        EXPECT_EQ(
            pClient->Call<wire::AddDepartment>({"", "001", test.szName, test.sRemark, 0}).nCode, test.nCode)
            << test.szName;
    const std::string sLong(AccessControlLogical::DepartmentName.nMax + 1, 'n');
    EXPECT_EQ(pClient->Call<wire::AddDepartment>({"", "001", sLong, "", 0}).nCode, ErrorInvalidInput);
    EXPECT_EQ(pClient->Call<wire::AddDepartment>({"", "none", "Lost", "", 0}).nCode, ErrorNotFound);
}

TEST_P(DepartmentTest, TenLevelsAndNotOneMore)
{
    std::string sCode = "001";
    std::vector<std::string> vecChain;
    for (int nLevel = 2; nLevel <= 10; ++nLevel) {
        sCode = AddGroup(sCode, "Level " + std::to_string(nLevel));
        vecChain.push_back(sCode);
    }
    EXPECT_EQ(
        pClient->Call<wire::AddDepartment>({"", sCode, "Level 11", "", 0}).nCode, ErrorOrganizationDepth);
    // A sub-tree of two levels does not fit below level 9, one level does.
    const std::string sTop = AddGroup("001", "Top");
    AddGroup(sTop, "Below");
    EXPECT_EQ(Move(sTop, vecChain[7]).nCode, ErrorOrganizationDepth);
    EXPECT_EQ(Move(sTop, vecChain[6]).nCode, ErrorNone);
    EXPECT_EQ(Find(sTop).sParentCode, vecChain[6]);
}

TEST_P(DepartmentTest, AGroupCannotMoveUnderItselfAndTheRootNowhere)
{
    const std::string sOuter = AddGroup("001", "Outer");
    const std::string sInner = AddGroup(sOuter, "Inner");
    EXPECT_EQ(Move(sOuter, sInner).nCode, ErrorOrganizationCycle);
    EXPECT_EQ(Move(sOuter, sOuter).nCode, ErrorOrganizationCycle);
    EXPECT_EQ(Move("001", sInner).nCode, ErrorOrganizationRoot);
    Department_t root = Find("001");
    root.sName = "Everybody";
    EXPECT_EQ(pClient->Get<wire::ModifyDepartment>(root).sName, "Everybody");
    // The second of two operators is told.
    EXPECT_EQ(pClient->Call<wire::ModifyDepartment>(root).nCode, ErrorVersionConflict);
    EXPECT_EQ(pClient->Call<wire::DeleteDepartment>({"001"}).nCode, ErrorOrganizationRoot);
}

TEST_P(DepartmentTest, AMovedGroupTakesItsPersonsAlong)
{
    const std::string sEast = AddGroup("001", "East");
    const std::string sWest = AddGroup("001", "West");
    const std::string sTeam = AddGroup(sEast, "Team");
    Add(Make("11", "Ann", sTeam));
    EXPECT_THAT(Ids(sEast, true), testing::ElementsAre("11"));
    EXPECT_EQ(Move(sTeam, sWest).nCode, ErrorNone);
    EXPECT_THAT(Ids(sEast, true), testing::IsEmpty());
    EXPECT_THAT(Ids(sWest, true), testing::ElementsAre("11"));
}

TEST_P(DepartmentTest, DeletingAGroupTakesSubGroupsAndPersonsWithItAndIsLogged)
{
    const std::string sGone = AddGroup("001", "Gone");
    const std::string sBelow = AddGroup(sGone, "Below");
    Add(Make("11", "Stays"));
    Add(Make("12", "Goes", sGone));
    Person_t person = Make("13", "Goes too", sBelow);
    person.vecCards = {{"AA"}};
    Add(person);
    EXPECT_EQ(pClient->Call<wire::DeleteDepartment>({sGone}).nCode, ErrorNone);
    EXPECT_THAT(Ids("001", true), testing::ElementsAre("11"));
    EXPECT_EQ(Count("person_card"), 0);
    EXPECT_EQ(Count("person_group"), 1);
    EXPECT_EQ(Count("person_group_ancestor"), 1);
    for (const char* szId : {"12", "13"})
        EXPECT_EQ(pServer
                      ->QuerySql(QStringLiteral("SELECT COUNT(*) FROM audit_log WHERE object_id = ? AND "
                                                "after_json = '' AND before_json <> ''"),
                          {QString::fromLatin1(szId)})
                      .toInt(),
            1)
            << szId;
    // The card is free again.
    Person_t other = Make("14", "Other");
    other.vecCards = {{"AA"}};
    Add(other);
    EXPECT_EQ(pClient->Call<wire::DeleteDepartment>({sGone}).nCode, ErrorNotFound);
}

INSTANTIATE_TEST_SUITE_P(
    , DepartmentTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest
