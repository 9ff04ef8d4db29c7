#include "PersonPages.h"

#include "PersonRecords.h"
#include "ServiceError.h"
#include "store/TextSearch.h"

#include <QStringList>

#include <algorithm>
#include <charconv>

namespace Platform {

using namespace AccessControlLogical;

namespace {

const char* const Columns =
    "SELECT p.id, p.name, p.gender, p.person_type, p.group_code, g.name, p.telephone, p.photo, "
    "(SELECT COUNT(*) FROM person_card c WHERE c.person_id = p.id), "
    "(SELECT COUNT(*) FROM person_fingerprint f WHERE f.person_id = p.id), "
    "p.unlock_password_sealed <> '', p.plates, "
    "EXISTS (SELECT 1 FROM person_authorization a WHERE a.person_id = p.id AND a.state = 2), p.version ";

PersonInfo_t ReadRow(const Rows& rows)
{
    PersonInfo_t person;
    person.sPersonId = rows.Text(0);
    person.sName = rows.Text(1);
    person.nGender = rows.Int(2);
    person.nPersonType = rows.Int(3);
    person.sGroupCode = rows.Text(4);
    person.sGroupName = rows.Text(5);
    person.sTelephone = rows.Text(6);
    person.sPhotoUrl = PersonRecords::PhotoUrl(person.sPersonId, rows.Text(7));
    person.nCards = rows.Int(8);
    person.nFingerprints = rows.Int(9);
    person.bUnlockPassword = rows.Flag(10);
    person.sPlates = rows.Text(11);
    person.bAuthorizationError = rows.Flag(12);
    person.nVersion = rows.Big(13);
    return person;
}

std::int64_t IdOf(const PersonInfo_t& person)
{
    std::int64_t nId = 0;
    std::from_chars(person.sPersonId.data(), person.sPersonId.data() + person.sPersonId.size(), nId);
    return nId;
}

} // namespace

/// A request in the words of the database.
struct PersonPages::Filter
{
    explicit Filter(const PersonPageRequest_t& request)
        : sGroupCode(request.sGroupCode.empty() ? RootDepartmentCode : request.sGroupCode)
        , bSubGroups(request.bSubGroups)
        , sSearch(TextSearch::Key(request.sSearchKey))
    {
    }

    bool IsOfGroup() const { return !bSubGroups || sGroupCode != RootDepartmentCode; }
    bool IsEmpty() const { return !IsOfGroup() && sSearch.empty(); }
    std::string CacheKey() const { return sGroupCode + (bSubGroups ? "+\n" : "\n") + sSearch; }

    /// " WHERE …" (or nothing) with its values. bWalk: the rows are to be read in the order of their IDs,
    /// because the filter lets most of them through.
    QString Where(
        const Database& database, bool bWalk, const PageIndex::Plan* pPlan, QVariantList& values) const
    {
        QStringList listTerms;
        if (IsOfGroup()) {
            const QString sColumn =
                bWalk ? database.Unindexed(QStringLiteral("p.group_code")) : QStringLiteral("p.group_code");
            listTerms << sColumn
                    + QLatin1String(bSubGroups
                            ? " IN (SELECT code FROM person_group_ancestor WHERE ancestor = ?)"
                            : " = ?");
            values << TextValue(sGroupCode);
        }
        if (!sSearch.empty())
            listTerms << TextSearch::Term(database, QStringLiteral("person"), QStringLiteral("p"), sSearch,
                bWalk ? TextSearch::Way{true, {}} : searchWay, values);
        if (pPlan && pPlan->optAnchor) {
            listTerms << QLatin1String(pPlan->bForward ? "p.id >= ?" : "p.id < ?");
            values << static_cast<qlonglong>(pPlan->optAnchor->nId);
        }
        return listTerms.isEmpty() ? QString()
                                   : QLatin1String(" WHERE ") + listTerms.join(QLatin1String(" AND "));
    }

    std::string sGroupCode;
    bool bSubGroups;
    std::string sSearch;
    TextSearch::Way searchWay;
};

PersonPages::PersonPages(const Generations& generations)
    : m_generations(generations)
{
}

int PersonPages::Count(Database& database, const Filter& filter)
{
    QVariantList values;
    // A search alone is counted by its index, without a look at the persons.
    const QString sSql =
        !filter.IsOfGroup() && !filter.searchWay.IsFew() && TextSearch::IsIndexed(database, filter.sSearch)
        ? TextSearch::CountStatement(QStringLiteral("person"), filter.sSearch, values)
        : QLatin1String("SELECT COUNT(*) FROM person p") + filter.Where(database, false, nullptr, values);
    Rows rows = database.Run(sSql, values);
    rows.Next();
    return rows.Int(0);
}

int PersonPages::CountAll(Database& database)
{
    PersonPageRequest_t everybody;
    everybody.bSubGroups = true;
    const Filter filter(everybody);
    const PageIndex::Stamp stamp{m_generations.persons, 0};
    if (const auto optKnown = m_index.Find(filter.CacheKey(), stamp))
        return optKnown->nTotal;
    const int nTotal = Count(database, filter);
    m_index.Remember(filter.CacheKey(), {stamp, nTotal, {}});
    return nTotal;
}

std::vector<PersonInfo_t> PersonPages::Read(
    Database& database, const Filter& filter, const PageIndex::Plan& plan, bool bWalk)
{
    QVariantList values;
    const QLatin1String sDirection(plan.bForward ? "" : " DESC");
    // Rows are stepped over in the index; what a page shows is read for its own rows only.
    const QString sSql = QLatin1String(Columns) + QLatin1String("FROM (SELECT p.id FROM person p")
        + filter.Where(database, bWalk, &plan, values) + QLatin1String(" ORDER BY p.id") + sDirection
        + QLatin1String(" LIMIT ? OFFSET ?) k JOIN person p ON p.id = k.id "
                        "LEFT JOIN person_group g ON g.code = p.group_code ORDER BY p.id")
        + sDirection;
    values << plan.nCount << plan.nSkip;
    std::vector<PersonInfo_t> vecPersons;
    vecPersons.reserve(static_cast<std::size_t>(plan.nCount));
    Rows rows = database.Run(sSql, values);
    while (rows.Next())
        vecPersons.push_back(ReadRow(rows));
    if (!plan.bForward)
        std::reverse(vecPersons.begin(), vecPersons.end());
    return vecPersons;
}

PersonPage_t PersonPages::FirstPage(
    Database& database, const Filter& filter, int nPageSize, PageIndex::Known& known)
{
    PersonPage_t page;
    // Of a search nobody knows how much it finds: read as if it were little, by its index.
    if (filter.searchWay.IsFew())
        page.vecPersons = Read(database, filter, PageIndex::Plan{true, std::nullopt, 0, nPageSize}, false);
    const int nRead = static_cast<int>(page.vecPersons.size());
    const bool bAll = filter.searchWay.IsFew() && nRead < nPageSize;
    known.nTotal = bAll ? nRead : Count(database, filter);
    page.nTotal = known.nTotal;
    return page;
}

PersonPage_t PersonPages::Page(Database& database, const PersonPageRequest_t& request)
{
    CheckPage(request.nPage, request.nPageSize);
    Filter filter(request);
    const PageIndex::Stamp stamp{m_generations.persons, 0};
    std::optional<PageIndex::Known> optKnown = m_index.Find(filter.CacheKey(), stamp);
    if (!filter.sSearch.empty())
        filter.searchWay = TextSearch::FindWay(database, QStringLiteral("person"), filter.sSearch);
    PersonPage_t page;
    if (!optKnown) {
        optKnown = PageIndex::Known{stamp, 0, {}};
        page = FirstPage(database, filter, request.nPageSize, *optKnown);
    }
    PageIndex::Known known = std::move(*optKnown);

    page.nTotal = known.nTotal;
    const int nPages = std::max(1, (known.nTotal + request.nPageSize - 1) / request.nPageSize);
    page.nPage = std::min(request.nPage, nPages);
    const int nFirst = (page.nPage - 1) * request.nPageSize;
    const int nCount = std::min(request.nPageSize, known.nTotal - nFirst);
    const bool bRead = page.nPage == 1 && static_cast<int>(page.vecPersons.size()) == nCount;
    if (nCount > 0 && !bRead) {
        const PageIndex::Plan plan = PageIndex::MakePlan(known, nFirst, nCount);
        // Rows to step over in the order of IDs, against rows to fetch and sort.
        const int nAll = filter.IsEmpty() ? known.nTotal : CountAll(database);
        const double dWalk = (double(plan.nSkip) + nCount) * nAll / std::max(1, known.nTotal);
        page.vecPersons = Read(database, filter, plan, dWalk < 2.0 * known.nTotal);
    }
    // Fewer rows than counted: a change came between, and the row numbers are no longer these.
    if (nCount > 0 && static_cast<int>(page.vecPersons.size()) == nCount) {
        known.mapAnchors[nFirst] = {{}, IdOf(page.vecPersons.front())};
        known.mapAnchors[nFirst + nCount - 1] = {{}, IdOf(page.vecPersons.back())};
    }
    m_index.Remember(filter.CacheKey(), std::move(known));
    return page;
}

} // namespace Platform
