// The rights trees of a role: the filter against Qt's own recursive one over the same tree, and the device
// rights of a large platform against those of a small one.

#include "Bench.h"
#include "RightsSource.h"

#include <RoleManager/CDeviceRightModel.h>
#include <RoleManager/CMenuRightModel.h>
#include <RoleManager/CMenuRightSortFilterProxyModel.h>
#include <RoleManager/CRightTreeView.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <common/CTreeFilterProxyModel.h>

#include <cstdio>
#include <cstdlib>

namespace {

using namespace PlatformConfigUI;
using namespace UserLogical;

constexpr int Rights = 100000;
constexpr int Levels = 10;
constexpr int FilterRuns = 5;
constexpr int BranchRuns = 21;
constexpr int BranchSize = 50; ///< devices of an organisation
constexpr int LargePlatform = 100000;
constexpr int SmallPlatform = 1000;
constexpr QSize TreeSize(300, 800);

/// All in one level, or chains of ten levels.
std::vector<RightNode_t> MakeRights(bool bDeep)
{
    std::vector<RightNode_t> vecRights;
    vecRights.reserve(Rights);
    std::string sCode;
    for (int n = 0; n < Rights; ++n) {
        // Four digits more than a level has: nothing is the parent of the first of a chain.
        sCode = bDeep && n % Levels != 0 ? sCode + "001" : std::to_string(1000000 + n);
        vecRights.push_back({sCode, "Right " + std::to_string(n), RightNodeAlways});
    }
    return vecRights;
}

/// What is typed, letter by letter.
QStringList Typed()
{
    return {QStringLiteral("t 9"), QStringLiteral("t 99"), QStringLiteral("t 999"), QString()};
}

/// The user manager alone behind an interface set.
struct Source : RightsSource
{
    Source() { interfaceSet.AddAbstractResourceManager(this); }
    UICommonMdl::CInterfaceSetManager interfaceSet;
};

void Load(FakeServer& server, CRightModel& model, const std::vector<RightNode_t>& vecRights)
{
    server.AnswerAlways<wire::QueryMenuRightList>({vecRights});
    model.Query();
    WaitUntil([&] { return model.GetState() == CRightModel::State::Loaded; });
}

/// Both views show the same model, through their own filter each.
Medians MeasureFilter(bool bDeep)
{
    Source manager;
    CMenuRightModel model(&manager.interfaceSet, true);
    Load(manager.server, model, MakeRights(bDeep));

    CMenuRightSortFilterProxyModel own;
    own.setSourceModel(&model);
    CRightTreeView ownView;
    ownView.SetFilterModel(&own, CRightTreeView::Folding::Unfolded);
    QSortFilterProxyModel bare;
    bare.setRecursiveFilteringEnabled(true);
    bare.setFilterCaseSensitivity(Qt::CaseInsensitive);
    bare.setSourceModel(&model);
    QTreeView bareView;
    bareView.setModel(&bare);
    bareView.setUniformRowHeights(true);
    for (QTreeView* const pView : {static_cast<QTreeView*>(&ownView), &bareView}) {
        pView->resize(TreeSize);
        pView->show();
        pView->expandAll();
    }
    return MedianPairMs(
        FilterRuns,
        [&] {
            for (const QString& sText : Typed()) {
                ownView.Filter([&] { own.SetText(sText); }, !sText.isEmpty());
                ownView.viewport()->repaint();
            }
        },
        [&] {
            for (const QString& sText : Typed()) {
                bare.setFilterFixedString(sText);
                bareView.expandAll();
                bareView.viewport()->repaint();
            }
        });
}

/// A platform of organisations below the root. All are loaded but as many as the runs need.
class Platform
{
public:
    explicit Platform(int nNodes)
        : m_nNext(nNodes / (BranchSize + 1))
        , m_nOrganizations(m_nNext + BranchRuns + 1)
    {
        m_manager.server.AnswerAlways<wire::QueryDeviceRights>(
            [this](const DeviceRightQuery_t& query, auto& answer) { answer.vecNodes = Below(query); });
        m_filter.setSourceModel(&m_model);
        m_view.SetFilterModel(&m_filter, CRightTreeView::Folding::Folded);
        QObject::connect(
            &m_view, &CRightTreeView::SignalUnfolded, &m_model, &CDeviceRightModel::OnItemExpanded);
        m_view.resize(TreeSize);
        m_view.show();
        m_model.ShowRoles({});
        WaitUntil([this] { return m_model.rowCount() > 0; });
        m_view.expand(m_filter.index(0, 0));
        WaitUntil([this] { return m_model.rowCount(m_model.index(0, 0)) > 0; });
        for (int n = 0; n < m_nNext; ++n) {
            const QModelIndex organization = Organization(n);
            m_model.OnItemExpanded(organization);
            WaitUntil([&] { return m_model.rowCount(organization) > 0; });
        }
        m_view.viewport()->repaint();
        m_manager.server.Hold<wire::QueryDeviceRights>();
    }
    /// Unfolds an organisation that is not loaded, gives it, and takes one of its devices. Answers how long
    /// the tree took, in milliseconds: the nodes are written and read as JSON while no clock runs.
    double ExpandAndCheck()
    {
        const QModelIndex organization = Organization(m_nNext++);
        const int nAsked = m_manager.server.Count<wire::QueryDeviceRights>();
        const double dAskMs = TimeMs([&] { m_view.expand(m_filter.mapFromSource(organization)); });
        const auto query = m_manager.server.LastRequest<wire::QueryDeviceRights>();
        m_manager.server.AnswerLast<wire::QueryDeviceRights>({Below(query)});
        const double dShowMs = TimeMs([&] {
            WaitUntil([&] { return m_model.rowCount(organization) == BranchSize; });
            m_model.setData(organization, Qt::Checked, Qt::CheckStateRole);
            m_model.setData(m_model.index(0, 0, organization), Qt::Unchecked, Qt::CheckStateRole);
            m_view.viewport()->repaint();
        });
        if (m_manager.server.Count<wire::QueryDeviceRights>() != nAsked + 1) {
            fprintf(stderr, "More than the one branch was asked for.\n");
            std::exit(1);
        }
        return dAskMs + dShowMs;
    }

private:
    QModelIndex Organization(int nRow) const { return m_model.index(nRow, 0, m_model.index(0, 0)); }
    std::vector<DeviceRightNode_t> Below(const DeviceRightQuery_t& query) const
    {
        if (query.sId.empty())
            return {{DeviceNodeOrganization, "001", 0, 0, "Root", RightStateNone, false, true, {}}};
        const bool bRoot = query.sId == "001";
        std::vector<DeviceRightNode_t> vecNodes;
        for (int n = 0; n < (bRoot ? m_nOrganizations : BranchSize); ++n)
            vecNodes.push_back({bRoot ? DeviceNodeOrganization : DeviceNodeDevice,
                bRoot ? std::to_string(1000 + n) : query.sId + "-" + std::to_string(n), 0, 0,
                "Node " + std::to_string(n), RightStateNone, false, bRoot, {}});
        return vecNodes;
    }

    int m_nNext; ///< the first that is not loaded
    int m_nOrganizations;
    Source m_manager;
    CDeviceRightModel m_model{&m_manager.interfaceSet, true};
    Common::CTreeFilterProxyModel m_filter;
    CRightTreeView m_view;
};

} // namespace

std::vector<BenchResult> BenchRightsTree()
{
    std::vector<BenchResult> vecResults;
    for (const bool bDeep : {true, false}) {
        const Medians filter = MeasureFilter(bDeep);
        vecResults.push_back(
            {QStringLiteral("rights tree: filter of 100,000 %1, against Qt's recursive one")
                    .arg(bDeep ? QStringLiteral("10 levels deep") : QStringLiteral("in one level")),
                filter.dFirst, filter.dSecond, QStringLiteral("ms"), 1.2});
    }
    Platform large(LargePlatform);
    Platform small(SmallPlatform);
    const Medians branch = MedianPair(
        BranchRuns, [&] { return large.ExpandAndCheck(); }, [&] { return small.ExpandAndCheck(); });
    vecResults.push_back({QStringLiteral("device rights: expand and check an organisation, 100,000 nodes "
                                         "loaded against 1,000"),
        branch.dFirst, branch.dSecond, QStringLiteral("ms"), 2});
    return vecResults;
}
