#include <RoleManager/CFuncRightModel.h>
#include <RoleManager/CMenuRightModel.h>
#include <RoleManager/CMenuRightSortFilterProxyModel.h>
#include <RoleManager/RightRules.h>
#include <UICommonMdl/ErrorCodes.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>

#include <gtest/gtest.h>

using namespace PlatformConfigUI;
using namespace UserLogical;

namespace {

TEST(RightFilter, HidesByTheKindOfAccountWhatMayNotBeGiven)
{
    const struct
    {
        const char* pszTypeText;
        int nKind;
        bool bOwn; ///< the asking account has the right
        const char* pszCode;
        bool bShown;
    } cases[] = {{"2", 0, false, "001002001", true}, {"2", RightNodeAlways, true, "003001002", false},
        {"1", RightNodeAlways, false, "003001002", true}, {"1", RightNodeChecked, true, "003001002", true},
        {"1", RightNodeChecked, false, "003001002", false}, {"1", 0, true, "001002001", false},
        {"0", RightNodeAlways, true, "001002001", false}, {"0", RightNodeAlways, true, "003001002", false},
        {"0", 0, false, "002003001", true}, {"", RightNodeAlways, true, "001", false},
        {"12", RightNodeAlways, true, "001", false}};
    for (const auto& test : cases) {
        const int nMode = GetRightFilterMode(test.pszTypeText);
        EXPECT_EQ(PassesRightFilter(nMode, test.nKind, test.bOwn, QLatin1String(test.pszCode)), test.bShown)
            << test.pszTypeText << ' ' << test.nKind << ' ' << test.bOwn << ' ' << test.pszCode;
    }
}

/// The menu rights as the filter shows them, "code" or "code+" (given) or "code~" (in part).
class RightTree : public testing::Test
{
protected:
    void SetUp() override
    {
        m_host.site.ServeUsers();
        m_proxy.setSourceModel(&m_model);
    }
    void Load(const std::vector<Role_t>& vecRoles)
    {
        m_model.Query();
        PageDriver::Settle();
        m_model.ShowRoles(vecRoles);
    }
    static Role_t RoleWith(const std::vector<std::string>& vecCodes)
    {
        return {"7", "Seven", "", false, vecCodes, {}, 1};
    }
    QModelIndex Find(const char* pszCode) const
    {
        const auto listFound = m_model.match(m_model.index(0, 0), CRightModel::RoleCode,
            QLatin1String(pszCode), 1, Qt::MatchExactly | Qt::MatchRecursive);
        return listFound.isEmpty() ? QModelIndex() : listFound.first();
    }
    void SetCheck(const char* pszCode, bool bOn)
    {
        ASSERT_TRUE(m_model.setData(Find(pszCode), bOn ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole));
    }
    QString Shown(const QModelIndex& parent = QModelIndex()) const
    {
        QStringList listShown;
        for (int nRow = 0; nRow < m_proxy.rowCount(parent); ++nRow) {
            const QModelIndex index = m_proxy.index(nRow, 0, parent);
            const int nCheck = index.data(Qt::CheckStateRole).toInt();
            QString sNode = index.data(CRightModel::RoleCode).toString();
            if (nCheck != Qt::Unchecked)
                sNode += nCheck == Qt::Checked ? QLatin1Char('+') : QLatin1Char('~');
            listShown << sNode;
            if (m_proxy.hasChildren(index))
                listShown << Shown(index);
        }
        return listShown.join(QLatin1Char(' '));
    }

    FakeHost m_host;
    CMenuRightModel m_model{&m_host.interfaceSet, true};
    CMenuRightSortFilterProxyModel m_proxy;
};

TEST_F(RightTree, ShowsTheWayToWhatMatchesAndHidesWhatMayNotBeGiven)
{
    m_host.SetMissingRights({"002003"});
    Load({RoleWith({})});
    const struct
    {
        int nMode;
        const char* pszText;
        const char* pszShown;
    } cases[] = {{2, "",
                     "001 001001 001001001 001001002 001002 001002001 001002002 001002003 002 002001 003 "
                     "003001 003004"},
        {2, "role MAN", "001 001002 001002002"}, {2, "user", "001 001002 001002001"}, {2, "person", ""},
        {2, "0030", "003 003001 003004"}, {2, "no such", ""}, {0, "person", "002 002003 002003001"},
        {0, "", "002 002001 002003 002003001"}, {1, "service", ""}, {1, "system", "003"}, {1, "backup", ""}};
    for (const auto& filter : cases) {
        m_proxy.SetMode(filter.nMode);
        m_proxy.SetText(QLatin1String(filter.pszText));
        EXPECT_EQ(Shown(), QLatin1String(filter.pszShown)) << filter.nMode << ' ' << filter.pszText;
    }
}

TEST_F(RightTree, BoxesBringTheRightsBelowAndAboveWithThem)
{
    Load({RoleWith({"002001"})});
    m_proxy.SetText(QStringLiteral("001002"));
    const struct
    {
        const char* pszCode;
        bool bOn;
        const char* pszShown;
        std::vector<std::string> vecGiven;
    } steps[] = {
        {"001002002", true, "001~ 001002~ 001002001 001002002+ 001002003",
            {"001", "001002", "001002002", "002001"}},
        {"001002", true, "001~ 001002+ 001002001+ 001002002+ 001002003+",
            {"001", "001002", "001002001", "001002002", "001002003", "002001"}},
        {"001002001", false, "001~ 001002~ 001002001 001002002+ 001002003+",
            {"001", "001002", "001002002", "001002003", "002001"}},
        {"001002003", false, "001~ 001002~ 001002001 001002002+ 001002003",
            {"001", "001002", "001002002", "002001"}},
        {"001002002", false, "001~ 001002+ 001002001 001002002 001002003", {"001", "001002", "002001"}},
        {"001002", false, "001 001002 001002001 001002002 001002003", {"002001"}},
    };
    for (const auto& step : steps) {
        SetCheck(step.pszCode, step.bOn);
        EXPECT_EQ(Shown(), QLatin1String(step.pszShown)) << step.pszCode;
        EXPECT_EQ(m_model.GetGiven(), step.vecGiven) << step.pszCode;
    }
    EXPECT_FALSE(Find("001002").data(CRightModel::RoleChanged).toBool()) << "as it was at first";
    SetCheck("002001", false);
    EXPECT_TRUE(Find("002001").data(CRightModel::RoleChanged).toBool());
}

TEST_F(RightTree, RightsThatCannotBeGivenStayAsTheyWere)
{
    m_host.SetMissingRights({"001002003", "003001"});
    // One right that the platform does not know, one that is hidden.
    Load({RoleWith({"001002003", "009009"})});
    EXPECT_EQ(CRightModel::State::Loaded, m_model.GetState());
    EXPECT_EQ(Find("001002").data(Qt::CheckStateRole).toInt(), Qt::Unchecked)
        << "what is hidden does not count";
    SetCheck("001", true);
    EXPECT_EQ(Find("001").data(Qt::CheckStateRole).toInt(), Qt::Checked);
    SetCheck("003", true);
    SetCheck("001", false);
    EXPECT_EQ(m_model.GetGiven(), (std::vector<std::string>{"001002003", "003", "003004", "009009"}));
}

TEST_F(RightTree, ManyRolesTogetherSayWhichOfThemGivesARight)
{
    CMenuRightModel together(&m_host.interfaceSet, false);
    together.Query();
    PageDriver::Settle();
    Role_t all{"1", "All", "", true, {}, {}, 1};
    together.ShowRoles({RoleWith({"001001"}), all});
    m_proxy.SetGivenOnly(true);
    m_proxy.setSourceModel(&together);
    m_proxy.SetText(QStringLiteral("001001"));
    EXPECT_EQ(Shown(), QStringLiteral("001+ 001001+ 001001001+ 001001002+"));
    const QModelIndex device = m_proxy.index(0, 0, m_proxy.index(0, 0));
    EXPECT_EQ(
        device.siblingAtColumn(CRightModel::ColumnRole).data().toString(), QStringLiteral("Seven, All"));
    EXPECT_FALSE(device.flags().testFlag(Qt::ItemIsUserCheckable));
    EXPECT_FALSE(m_proxy.setData(device, Qt::Unchecked, Qt::CheckStateRole));

    together.ShowRoles({RoleWith({"001001"})});
    EXPECT_EQ(Shown(), QStringLiteral("001~ 001001+"));
}

TEST_F(RightTree, FailuresAreToldAndLateAnswersDropped)
{
    m_host.server.Hold<wire::QueryMenuRightList>();
    m_model.Query();
    const FakeCall first = m_host.server.Last<wire::QueryMenuRightList>();
    m_model.Query();
    const FakeCall second = m_host.server.Last<wire::QueryMenuRightList>();
    m_host.server.Fail(second, UICommonMdl::ErrorInternal);
    PageDriver::Settle();
    EXPECT_EQ(m_model.GetState(), CRightModel::State::Failed);
    m_host.server.Answer<wire::QueryMenuRightList>(first, {{{"001", "Late", RightNodeAlways}}});
    PageDriver::Settle();
    EXPECT_EQ(m_model.rowCount(), 0);
    // Nothing is lost by saving a role whose tree did not come.
    m_model.ShowRoles({RoleWith({"002001", "001002"})});
    EXPECT_EQ(m_model.GetGiven(), (std::vector<std::string>{"001002", "002001"}));

    m_host.server.Refuse<wire::QueryFuncRightList>();
    CFuncRightModel functions(&m_host.interfaceSet, true);
    functions.Query();
    PageDriver::Settle();
    EXPECT_EQ(functions.GetState(), CRightModel::State::Failed);
}

} // namespace
