#include <RoleManager/CDeviceRightModel.h>
#include <UICommonMdl/ErrorCodes.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace PlatformConfigUI;
using namespace UserLogical;

namespace {

using Change = DeviceRightChange_t;
constexpr int Keep = Change::Keep;
constexpr int Off = Change::Off;
constexpr int On = Change::On;
constexpr int Org = DeviceNodeOrganization;
constexpr int Dev = DeviceNodeDevice;
constexpr int Chn = DeviceNodeChannel;

/// The tree of two organisations: "Guard" has the camera "Gate" of "North", and what is added to "North".
class DeviceRights : public testing::Test
{
protected:
    void SetUp() override { m_host.site.ServeUsers(); }
    void Show(const std::vector<Role_t>& vecRoles, CDeviceRightModel& model)
    {
        model.ShowRoles(vecRoles);
        PageDriver::Settle();
    }
    static Role_t Role(const char* pszId, const char* pszName)
    {
        return {pszId, pszName, "", false, {}, {}, 1};
    }
    QModelIndex Find(const QString& sName, const CDeviceRightModel& model) const
    {
        const auto listFound = model.match(model.index(0, 0), Qt::DisplayRole, sName, 1,
            Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchCaseSensitive);
        return listFound.isEmpty() ? QModelIndex() : listFound.first();
    }
    QModelIndex Find(const QString& sName) const { return Find(sName, m_model); }
    void Expand(const QString& sName)
    {
        m_model.OnItemExpanded(Find(sName));
        PageDriver::Settle();
    }
    /// "Name" clicks the box, "*Name" the switch, ">Name" expands.
    void Do(const QString& sStep)
    {
        const QString sName =
            sStep.mid(sStep.startsWith(QLatin1Char('*')) || sStep.startsWith(QLatin1Char('>')));
        const QModelIndex index = Find(sName);
        ASSERT_TRUE(index.isValid()) << qPrintable(sStep);
        if (sStep.startsWith(QLatin1Char('>')))
            Expand(sName);
        else if (sStep.startsWith(QLatin1Char('*')))
            m_model.ToggleAuto(index);
        else
            m_model.setData(index,
                index.data(Qt::CheckStateRole).toInt() == Qt::Checked ? Qt::Unchecked : Qt::Checked,
                Qt::CheckStateRole);
    }
    /// All that is loaded: "Name", "Name+" (all), "Name~" (in part).
    QString Loaded(const QModelIndex& parent = QModelIndex()) const
    {
        QStringList listNodes;
        for (int nRow = 0; nRow < m_model.rowCount(parent); ++nRow) {
            const QModelIndex index = m_model.index(nRow, 0, parent);
            const int nCheck = index.data(Qt::CheckStateRole).toInt();
            listNodes << index.data().toString()
                    + (nCheck == Qt::Checked                 ? QStringLiteral("+")
                            : nCheck == Qt::PartiallyChecked ? QStringLiteral("~")
                                                             : QString());
            if (m_model.rowCount(index) > 0)
                listNodes << Loaded(index);
        }
        return listNodes.join(QLatin1Char(' '));
    }
    std::vector<DeviceRightQuery_t> Asked() const
    {
        std::vector<DeviceRightQuery_t> vecQueries;
        for (const FakeCall& call : m_host.server.Calls<wire::QueryDeviceRights>())
            vecQueries.push_back(call.Request<wire::QueryDeviceRights>());
        return vecQueries;
    }

    FakeHost m_host;
    CDeviceRightModel m_model{&m_host.interfaceSet, true};
};

TEST_F(DeviceRights, BranchesAreAskedForOnceAndOnlyWhenTheyAreExpanded)
{
    Show({Role("2", "Guard")}, m_model);
    EXPECT_EQ(Loaded(), QStringLiteral("Root~"));
    Expand(QStringLiteral("Root"));
    Expand(QStringLiteral("Root"));
    EXPECT_EQ(Loaded(), QStringLiteral("Root~ North~ South"));
    EXPECT_TRUE(m_model.canFetchMore(Find(QStringLiteral("North"))));
    m_model.setData(Find(QStringLiteral("North")), Qt::Checked, Qt::CheckStateRole);
    Expand(QStringLiteral("North"));
    Expand(QStringLiteral("Gate"));
    const std::vector<std::string> ids{"2"};
    EXPECT_EQ(Asked(),
        (std::vector<DeviceRightQuery_t>{
            {Org, "", ids}, {Org, "001", ids}, {Org, "1001", ids}, {Dev, "1", ids}}));
    EXPECT_FALSE(m_model.hasChildren(Find(QStringLiteral("Yard"))));
}

struct ClickCase
{
    const char* pszName;
    QStringList listSteps;
    QString sLoaded;
    std::vector<Change> vecChanges;
};

class DeviceClicks : public DeviceRights, public testing::WithParamInterface<ClickCase>
{
};

TEST_P(DeviceClicks, MakeTheListOfChanges)
{
    Show({Role("2", "Guard")}, m_model);
    Expand(QStringLiteral("Root"));
    for (const QString& sStep : GetParam().listSteps)
        Do(sStep);
    EXPECT_EQ(Loaded(), GetParam().sLoaded);
    EXPECT_EQ(m_model.GetChanges(), GetParam().vecChanges);
}

const ClickCase Clicks[] = {
    {"NotLoaded", {"South"}, "Root~ North~ South+", {{Org, "1002", 0, 0, On, Keep}}},
    {"LoadedLater", {"South", ">South", ">Dock"}, "Root~ North~ South+ Dock+ Channel 1+ Channel 2+",
        {{Org, "1002", 0, 0, On, Keep}}},
    {"LessBelowAChange", {"South", ">South", ">Dock", "Channel 2"},
        "Root~ North~ South~ Dock~ Channel 1+ Channel 2",
        {{Org, "1002", 0, 0, On, Keep}, {Chn, "3", ChannelVideo, 2, Off, Keep}}},
    {"AsTheChangeAboveSays", {"South", ">South", "Dock", "Dock"}, "Root~ North~ South+ Dock+",
        {{Org, "1002", 0, 0, On, Keep}}},
    {"BackToWhatWas", {"South", "South", ">North", "Gate", "Gate"}, "Root~ North~ Yard Gate+ Lobby South",
        {}},
    {"OneOfTwoDevices", {">North", "Lobby"}, "Root~ North+ Yard Gate+ Lobby+ South",
        {{Dev, "2", 0, 0, On, Keep}}},
    {"AllOneByOne", {">North", "Lobby", "South"}, "Root+ North+ Yard Gate+ Lobby+ South+",
        {{Org, "1002", 0, 0, On, Keep}, {Dev, "2", 0, 0, On, Keep}}},
    {"ReplacedByOneAbove", {">North", ">Gate", "Channel 1", "South", "Root", "Root"},
        "Root North Yard Gate Channel 1 Channel 2 Lobby South", {{Org, "001", 0, 0, Off, Keep}}},
    {"OrderOfTheList", {">North", ">Gate", "Channel 1", "Lobby", "South", "*South", "*Root"},
        "Root~ North~ Yard Gate~ Channel 1 Channel 2+ Lobby+ South+",
        {{Org, "001", 0, 0, Keep, On}, {Org, "1002", 0, 0, On, Keep}, {Dev, "2", 0, 0, On, Keep},
            {Chn, "1", ChannelVideo, 1, Off, Keep}}},
    {"SwitchTwice", {"*North", "*South", "*South"}, "Root~ North~ South", {{Org, "1001", 0, 0, Keep, Off}}},
    {"SwitchOutlivesABoxAbove", {"*South", "Root"}, "Root+ North+ South+",
        {{Org, "001", 0, 0, On, Keep}, {Org, "1002", 0, 0, Keep, On}}},
};
INSTANTIATE_TEST_SUITE_P(
    Sequences, DeviceClicks, testing::ValuesIn(Clicks), [](const auto& info) { return info.param.pszName; });

TEST_F(DeviceRights, TheSwitchSaysWhatItDoesAndIsInherited)
{
    Show({Role("2", "Guard")}, m_model);
    Expand(QStringLiteral("Root"));
    Expand(QStringLiteral("North"));
    const auto autoOf = [this](const char* pszName) {
        return Find(QLatin1String(pszName)).siblingAtColumn(CDeviceRightModel::ColumnAuto);
    };
    const auto stateOf = [&](const char* pszName) {
        return autoOf(pszName).data(CDeviceRightModel::RoleAuto).toInt();
    };
    EXPECT_EQ(stateOf("North"), CDeviceRightModel::AutoOn);
    EXPECT_EQ(stateOf("Yard"), CDeviceRightModel::AutoInherited);
    EXPECT_EQ(stateOf("South"), CDeviceRightModel::AutoOff);
    EXPECT_EQ(stateOf("Gate"), CDeviceRightModel::AutoNone);
    EXPECT_EQ(autoOf("North").data(Qt::ToolTipRole).toString(),
        QStringLiteral("After Auto Authorization is enabled, users will automatically have the permission of "
                       "devices added to the organization or sub-organization."));
    EXPECT_EQ(autoOf("South").data(Qt::ToolTipRole).toString(),
        QStringLiteral("Users will not have the permissions of the devices added to the organization or "
                       "sub-organization. You need to configure permissions manually."));
    m_model.ToggleAuto(autoOf("Yard"));
    m_model.ToggleAuto(autoOf("Gate"));
    EXPECT_TRUE(m_model.GetChanges().empty());
    m_model.ToggleAuto(autoOf("Root"));
    EXPECT_EQ(stateOf("South"), CDeviceRightModel::AutoInherited);
}

TEST_F(DeviceRights, AnswersForATreeThatIsGoneAreDropped)
{
    Show({Role("2", "Guard")}, m_model);
    m_host.server.Hold<wire::QueryDeviceRights>();
    Expand(QStringLiteral("Root"));
    const FakeCall branch = m_host.server.Last<wire::QueryDeviceRights>();
    Do(QStringLiteral("Root"));
    Show({Role("1", "Administrator")}, m_model);
    const FakeCall root = m_host.server.Last<wire::QueryDeviceRights>();
    const auto answer = [this](const FakeCall& call, const char* pszName) {
        m_host.server.Answer<wire::QueryDeviceRights>(
            call, {{{Org, "001", 0, 0, pszName, RightStateAll, false, true, {"1"}}}});
    };
    answer(branch, "Late");
    PageDriver::Settle();
    EXPECT_EQ(Loaded(), QString());
    answer(root, "Root");
    PageDriver::Settle();
    EXPECT_EQ(Loaded(), QStringLiteral("Root+"));
    EXPECT_TRUE(m_model.GetChanges().empty());
}

TEST_F(DeviceRights, AFailedBranchIsToldAndCanBeAskedForAgain)
{
    QSignalSpy failures(&m_model, &CDeviceRightModel::SignalBranchFailed);
    Show({Role("2", "Guard")}, m_model);
    m_host.server.FailAlways<wire::QueryDeviceRights>(UICommonMdl::ErrorTimeOut);
    Expand(QStringLiteral("Root"));
    ASSERT_EQ(failures.count(), 1);
    EXPECT_EQ(failures.first().at(1).toInt(), UICommonMdl::ErrorTimeOut);
    m_host.server.Refuse<wire::QueryDeviceRights>();
    Expand(QStringLiteral("Root"));
    EXPECT_EQ(failures.count(), 2) << "one that is not even sent";
    FakeHost other;
    CDeviceRightModel model(&other.interfaceSet, true);
    other.server.FailAlways<wire::QueryDeviceRights>(UICommonMdl::ErrorNoRight);
    Show({}, model);
    EXPECT_EQ(model.GetState(), CDeviceRightModel::State::Failed);
    EXPECT_EQ(model.GetError(), UICommonMdl::ErrorNoRight);
    other.site.ServeUsers();
    model.QueryRoot();
    PageDriver::Settle();
    EXPECT_EQ(model.GetState(), CDeviceRightModel::State::Loaded);
}

TEST_F(DeviceRights, ToLookAtOnlyWhatRolesGiveWithTheirNames)
{
    CDeviceRightModel together(&m_host.interfaceSet, false);
    Show({Role("2", "Guard"), Role("3", "Reception")}, together);
    together.OnItemExpanded(together.index(0, 0));
    PageDriver::Settle();
    const QModelIndex root = together.index(0, 0);
    ASSERT_EQ(together.rowCount(root), 1) << "nobody gives the other organisation";
    const QModelIndex north = together.index(0, 0, root);
    EXPECT_EQ(
        north.siblingAtColumn(CDeviceRightModel::ColumnRole).data().toString(), QStringLiteral("Guard"));
    EXPECT_FALSE(together.setData(north, Qt::Checked, Qt::CheckStateRole));
    together.ToggleAuto(north);
    EXPECT_TRUE(together.GetChanges().empty());
    Show({}, together);
    EXPECT_EQ(together.rowCount(), 0);
    EXPECT_EQ(together.GetState(), CDeviceRightModel::State::Loaded) << "no role gives nothing";
}

TEST_F(DeviceRights, FourThousandCamerasInOneBranch)
{
    constexpr int Cameras = 4000;
    m_host.server.AnswerAlways<wire::QueryDeviceRights>([](const auto& query, auto& answer) {
        if (query.sId.empty())
            answer.vecNodes = {{Org, "001", 0, 0, "Root", RightStateAll, false, true, {}}};
        for (int n = 1; !query.sId.empty() && n <= Cameras; ++n)
            answer.vecNodes.push_back({Dev, std::to_string(n), 0, 0, "Camera " + std::to_string(n),
                RightStateAll, false, true, {}});
    });
    Show({Role("2", "Guard")}, m_model);
    Expand(QStringLiteral("Root"));
    const QModelIndex root = m_model.index(0, 0);
    ASSERT_EQ(m_model.rowCount(root), Cameras);
    for (int nRow = 0; nRow < Cameras; nRow += 2)
        m_model.setData(m_model.index(nRow, 0, root), Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_EQ(root.data(Qt::CheckStateRole).toInt(), Qt::PartiallyChecked);
    EXPECT_EQ(m_model.GetChanges().size(), std::size_t(Cameras / 2));
    m_model.setData(root, Qt::Checked, Qt::CheckStateRole);
    EXPECT_TRUE(m_model.GetChanges().empty()) << "as it was";
    EXPECT_EQ(m_model.index(0, 0, root).data(Qt::CheckStateRole).toInt(), Qt::Checked);
}

} // namespace
