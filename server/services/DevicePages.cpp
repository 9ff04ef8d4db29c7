#include "DevicePages.h"

#include "ServiceError.h"
#include "TextRules.h"
#include "store/TextSearch.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace Platform {

using GroupLogical::DeviceInfo_t;
using GroupLogical::DevicePage_t;
using GroupLogical::DevicePageRequest_t;

namespace {

const char* const Columns = "d.id, d.name, d.address, d.port, d.category, d.model, d.org_code, o.name, "
                            "d.online_state, d.offline_reason, d.manufacturer, d.protocol, d.version, ";

DeviceInfo_t ReadRow(const Rows& rows)
{
    DeviceInfo_t device;
    device.sDeviceId = rows.Text(0);
    device.sName = rows.Text(1);
    device.sIp = rows.Text(2);
    device.nPort = rows.Int(3);
    device.nCategory = rows.Int(4);
    device.sModel = rows.Text(5);
    device.sOrgCode = rows.Text(6);
    device.sOrgName = rows.Text(7);
    device.nOnlineState = rows.Int(8);
    device.nOfflineReason = rows.Int(9);
    device.sManufacturer = rows.Text(10);
    device.sProtocol = rows.Text(11);
    device.nVersion = rows.Big(12);
    return device;
}

} // namespace

/// The filter of a request, checked and in the words of the database.
struct DevicePages::Filter
{
    Filter(const DevicePageRequest_t& request, const DeviceScope& deviceScope);

    /// " WHERE …" (or nothing) with its values. bWalk: the rows are to be read along the sort index, because
    /// the filter lets most of them through.
    QString Where(const Database& database, bool bWalk, const Plan* pPlan, QVariantList& values) const;
    QString Statement(const Database& database, bool bWalk, const Plan& plan, QVariantList& values) const;
    bool IsSearchOnly() const { return scope.IsAll() && sOrgCode.empty() && nCategory == 0 && !OfState(); }
    bool IsEmpty() const { return IsSearchOnly() && sSearch.empty(); }
    bool IsIndexedSearchOnly(const Database& database) const
    {
        return IsSearchOnly() && TextSearch::IsIndexed(database, sSearch);
    }
    bool OfState() const { return nOnlineState != GroupLogical::StateAll; }
    std::string CacheKey() const;

    DeviceScope scope;
    std::string sOrgCode;
    int nCategory;
    int nOnlineState;
    std::string sSearch;
    QString sSortColumn;
};

DevicePages::Filter::Filter(const DevicePageRequest_t& request, const DeviceScope& deviceScope)
    : scope(deviceScope)
    , sOrgCode(request.sOrgCode == GroupLogical::RootOrganizationCode ? std::string() : request.sOrgCode)
    , nCategory(request.nCategory)
    , nOnlineState(request.nOnlineState)
    , sSearch(TextSearch::Key(PercentDecoded(request.sSearchText)))
    , sSortColumn(request.nSortField == GroupLogical::SortByIp ? QStringLiteral("d.address_key")
                                                               : QStringLiteral("d.name_key"))
{
    if (request.nSortField != GroupLogical::SortByIp && request.nSortField != GroupLogical::SortByName)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "nSortField");
    if (nOnlineState < GroupLogical::StateAll || nOnlineState > GroupLogical::StateOnline)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "nOnlineState");
    if (nCategory < 0)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "nCategory");
}

std::string DevicePages::Filter::CacheKey() const
{
    return sSortColumn.toStdString() + '\n' + sOrgCode + '\n' + std::to_string(nCategory) + '\n'
        + std::to_string(nOnlineState) + '\n' + scope.Key() + '\n' + sSearch;
}

QString DevicePages::Filter::Where(
    const Database& database, bool bWalk, const Plan* pPlan, QVariantList& values) const
{
    const auto column = [&](const char* szName) {
        const QString sName = QString::fromLatin1(szName);
        return bWalk ? database.Unindexed(sName) : sName;
    };
    QStringList listTerms;
    if (!sOrgCode.empty()) {
        listTerms << column("d.org_code")
                + QLatin1String(" IN (SELECT code FROM organization_ancestor WHERE ancestor = ?)");
        values << TextValue(sOrgCode);
    }
    if (nCategory != 0) {
        listTerms << column("d.category") + QLatin1String(" = ?");
        values << nCategory;
    }
    if (OfState()) {
        listTerms << column("d.online_state") + QLatin1String(" = ?");
        values << nOnlineState;
    }
    if (!scope.IsAll())
        listTerms << scope.DeviceTerm(
            QStringLiteral("d.id"), bWalk ? DeviceScope::Way::TestRows : DeviceScope::Way::Collect, values);
    if (!sSearch.empty())
        listTerms << TextSearch::Term(database, QStringLiteral("device"), QStringLiteral("d"), sSearch,
            TextSearch::Way{bWalk, {}}, values);
    if (pPlan && pPlan->optAnchor) {
        listTerms << QLatin1Char('(') + sSortColumn + QLatin1String(", d.id) ")
                + QLatin1String(pPlan->bForward ? ">=" : "<") + QLatin1String(" (?, ?)");
        values << TextValue(pPlan->optAnchor->sSortKey) << static_cast<qlonglong>(pPlan->optAnchor->nId);
    }
    return listTerms.isEmpty() ? QString()
                               : QLatin1String(" WHERE ") + listTerms.join(QLatin1String(" AND "));
}

QString DevicePages::Filter::Statement(
    const Database& database, bool bWalk, const Plan& plan, QVariantList& values) const
{
    const QString sDirection = plan.bForward ? QString() : QStringLiteral(" DESC");
    // The outer join keeps the device table in front, so that its index gives the order.
    QString sSql = QLatin1String("SELECT ") + QLatin1String(Columns) + sSortColumn
        + QLatin1String(" FROM device d LEFT JOIN organization o ON o.code = d.org_code")
        + Where(database, bWalk, &plan, values) + QLatin1String(" ORDER BY ") + sSortColumn + sDirection
        + QLatin1String(", d.id") + sDirection + QLatin1String(" LIMIT ? OFFSET ?");
    values << plan.nCount << plan.nSkip;
    return sSql;
}

DevicePages::DevicePages(const Generations& generations)
    : m_generations(generations)
{
}

PageIndex::Stamp DevicePages::StampOf(const Filter& filter) const
{
    return {m_generations.devices, filter.OfState() ? m_generations.states.load() : 0};
}

std::vector<DeviceInfo_t> DevicePages::Read(
    Database& database, const Filter& filter, const Plan& plan, int nTotal, int nAll, Key* pFirst, Key* pLast)
{
    // Rows to step over along the sort index, against rows to fetch and sort.
    const double dWalk = (double(plan.nSkip) + plan.nCount) * nAll / std::max(1, nTotal);
    const bool bWalk = dWalk < 2.0 * nTotal;
    QVariantList values;
    const QString sSql = filter.Statement(database, bWalk, plan, values);
    std::vector<DeviceInfo_t> vecDevices;
    vecDevices.reserve(static_cast<std::size_t>(plan.nCount));
    Rows rows = database.Run(sSql, values);
    Key last;
    while (rows.Next()) {
        vecDevices.push_back(ReadRow(rows));
        last = {rows.Text(13), rows.Big(0)};
        if (vecDevices.size() == 1)
            *pFirst = last;
    }
    *pLast = last;
    if (!plan.bForward) {
        std::reverse(vecDevices.begin(), vecDevices.end());
        std::swap(*pFirst, *pLast);
    }
    return vecDevices;
}

DevicePage_t DevicePages::Page(
    Database& database, const DeviceScope& scope, const DevicePageRequest_t& request)
{
    CheckPage(request.nPage, request.nPageSize);
    const Filter filter(request, scope);
    const std::string sKey = filter.CacheKey();
    const PageIndex::Stamp stamp = StampOf(filter);
    std::optional<Known> optKnown = m_index.Find(sKey, stamp);
    if (!optKnown)
        optKnown = Known{stamp, Count(database, filter), {}};
    Known known = std::move(*optKnown);

    DevicePage_t page;
    page.nTotal = known.nTotal;
    const int nPages = std::max(1, (known.nTotal + request.nPageSize - 1) / request.nPageSize);
    page.nPage = std::min(request.nPage, nPages);
    const int nOffset = (page.nPage - 1) * request.nPageSize;
    const int nCount = std::min(request.nPageSize, known.nTotal - nOffset);
    if (nCount > 0) {
        const int nFirst = request.bAscending ? nOffset : known.nTotal - nOffset - nCount;
        Key first;
        Key last;
        const int nAll = filter.IsEmpty() ? known.nTotal : CountAll(database);
        page.vecDevices = Read(
            database, filter, PageIndex::MakePlan(known, nFirst, nCount), known.nTotal, nAll, &first, &last);
        // Fewer rows than counted: a change came between, and the row numbers are no longer these.
        if (static_cast<int>(page.vecDevices.size()) == nCount) {
            known.mapAnchors[nFirst] = std::move(first);
            known.mapAnchors[nFirst + nCount - 1] = std::move(last);
        }
        if (!request.bAscending)
            std::reverse(page.vecDevices.begin(), page.vecDevices.end());
    }
    m_index.Remember(sKey, std::move(known));
    return page;
}

int DevicePages::Count(Database& database, const Filter& filter)
{
    QVariantList values;
    // A search alone is counted by its index, without a look at the devices.
    const QString sSql = filter.IsIndexedSearchOnly(database)
        ? TextSearch::CountStatement(QStringLiteral("device"), filter.sSearch, values)
        : QLatin1String("SELECT COUNT(*) FROM device d") + filter.Where(database, false, nullptr, values);
    Rows rows = database.Run(sSql, values);
    rows.Next();
    return rows.Int(0);
}

int DevicePages::CountAll(Database& database)
{
    const std::uint64_t nDevices = m_generations.devices;
    {
        const std::lock_guard lock(m_mutex);
        if (m_nAllOf == nDevices)
            return m_nAll;
    }
    const int nAll = Count(database, Filter(DevicePageRequest_t{}, DeviceScope::All()));
    const std::lock_guard lock(m_mutex);
    m_nAllOf = nDevices;
    m_nAll = nAll;
    return nAll;
}

DevicePage_t DevicePages::All(
    Database& database, const DeviceScope& scope, const DevicePageRequest_t& request)
{
    const Filter filter(request, scope);
    DevicePage_t page;
    page.nTotal = Count(database, filter);
    Key first;
    Key last;
    const Plan plan{request.bAscending, std::nullopt, 0, page.nTotal};
    page.vecDevices = Read(database, filter, plan, page.nTotal, page.nTotal, &first, &last);
    if (!request.bAscending)
        std::reverse(page.vecDevices.begin(), page.vecDevices.end());
    page.nTotal = static_cast<int>(page.vecDevices.size());
    return page;
}

std::pair<QString, QVariantList> DevicePages::FirstPageStatement(
    const Database& database, const DeviceScope& scope, const DevicePageRequest_t& request)
{
    QVariantList values;
    const Filter filter(request, scope);
    QString sSql = filter.Statement(
        database, filter.IsEmpty(), Plan{request.bAscending, std::nullopt, 0, request.nPageSize}, values);
    return {std::move(sSql), std::move(values)};
}

} // namespace Platform
