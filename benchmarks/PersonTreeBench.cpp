// The tree of person groups against a bare model with Qt's own recursive filter.

#include "Bench.h"

#include <UICommonMdl/CDepartmentModelManager.h>
#include <common/CSearchTreeView.h>

#include <QSortFilterProxyModel>
#include <QTreeView>

namespace {

constexpr int GroupsOfLevel = 10000;
constexpr int Levels = 10;
constexpr int Runs = 9;
constexpr QSize TreeSize(300, 800);

using AccessControlLogical::Department_t;

/// All in one level, or chains of ten levels.
std::vector<Department_t> MakeGroups(bool bDeep)
{
    std::vector<Department_t> vecGroups{{"001", "", "All Persons", "", 1}};
    for (int n = 1; n <= GroupsOfLevel; ++n) {
        const bool bTop = !bDeep || n % (Levels - 1) == 1;
        vecGroups.push_back({std::to_string(1000 + n), bTop ? "001" : std::to_string(999 + n),
            "Group " + std::to_string(n), "", 1});
    }
    return vecGroups;
}

/// What is typed, letter by letter.
QStringList Typed()
{
    return {QStringLiteral("9"), QStringLiteral("99"), QStringLiteral("999"), QString()};
}

class BareTree
{
public:
    BareTree()
    {
        m_proxy.setRecursiveFilteringEnabled(true);
        m_proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
        m_proxy.setSourceModel(&m_model);
        m_view.setModel(&m_proxy);
        m_view.setHeaderHidden(true);
        m_view.resize(TreeSize);
        m_view.show();
    }
    void Fill(const std::vector<Department_t>& vecGroups)
    {
        m_model.clear();
        QHash<QString, QStandardItem*> mapItems;
        for (const Department_t& group : vecGroups) {
            auto* pItem = new QStandardItem(QString::fromStdString(group.sName));
            mapItems.insert(QString::fromStdString(group.sCode), pItem);
            QStandardItem* pParent = mapItems.value(QString::fromStdString(group.sParentCode));
            (pParent ? pParent : m_model.invisibleRootItem())->appendRow(pItem);
        }
        m_view.expand(m_proxy.index(0, 0));
        m_view.viewport()->repaint();
    }
    void Type()
    {
        for (const QString& sText : Typed()) {
            m_proxy.setFilterFixedString(sText);
            m_view.expandToDepth(sText.isEmpty() ? 0 : Levels);
            m_view.viewport()->repaint();
        }
    }

private:
    QStandardItemModel m_model;
    QSortFilterProxyModel m_proxy;
    QTreeView m_view;
};

class OwnTree
{
public:
    OwnTree()
    {
        m_view.SetTreeModel(&m_model);
        m_view.SetAlwaysCurrent(true);
        m_view.setHeaderHidden(true);
        m_view.resize(TreeSize);
        m_view.show();
    }
    void Fill(const std::vector<Department_t>& vecGroups)
    {
        m_model.SetDepartments(vecGroups);
        m_view.Restore();
        m_view.viewport()->repaint();
    }
    void Type()
    {
        for (const QString& sText : Typed()) {
            m_view.SetFilter(sText);
            m_view.viewport()->repaint();
        }
    }

private:
    UICommonMdl::CDepartmentModel m_model;
    Common::CSearchTreeView m_view;
};

} // namespace

std::vector<BenchResult> BenchPersonTree()
{
    std::vector<BenchResult> vecResults;
    for (const bool bDeep : {false, true}) {
        const std::vector<Department_t> vecGroups = MakeGroups(bDeep);
        OwnTree own;
        BareTree bare;
        const QString sShape = bDeep ? QStringLiteral("10 levels deep") : QStringLiteral("in one level");
        const Medians fill = MedianPairMs(
            Runs, [&] { own.Fill(vecGroups); }, [&] { bare.Fill(vecGroups); });
        vecResults.push_back(
            {QStringLiteral("person groups: 10,000 %1 shown, against a bare model").arg(sShape), fill.dFirst,
                fill.dSecond, QStringLiteral("ms"), 1.5});
        const Medians type = MedianPairMs(
            Runs, [&] { own.Type(); }, [&] { bare.Type(); });
        vecResults.push_back(
            {QStringLiteral("person groups: 10,000 %1 filtered, against a bare model").arg(sShape),
                type.dFirst, type.dSecond, QStringLiteral("ms"), 1.5});
    }
    return vecResults;
}
