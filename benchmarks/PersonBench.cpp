// Pages and searches of persons: many of them against few, over HTTP.

#include "Bench.h"
#include "BenchServer.h"
#include "ServerCalls.h"

#include <array>

namespace {

constexpr int ManyPersons = 1000000;
constexpr int FewPersons = 10000;
constexpr int Groups = 1000;
constexpr int PageSize = 100;
constexpr int Turns = 60;
constexpr int Searches = 40;
constexpr int FirstId = 10000001; ///< of the seeds

using AccessControlLogical::PersonPageRequest_t;

/// A signed-in client of a server with that many persons.
class Site
{
public:
    explicit Site(int nPersons)
        : m_nPersons(nPersons)
        , m_server({QStringLiteral("--seed-persons"), QString::number(nPersons),
              QStringLiteral("--seed-person-groups"), QString::number(Groups)})
        , m_client(m_server.Url().host().toStdString(), m_server.Url().port())
    {
        const std::string sPassword = m_server.Password().toStdString();
        m_client.set_keep_alive(true);
        m_client.set_tcp_nodelay(true);
        ServerCalls::Call<wire::SetUp>(m_client, {sPassword}, {});
        m_sToken = ServerCalls::Call<wire::SignIn>(m_client, {"system", sPassword}, {}).sToken;
    }

    /// The next page of everybody; after twenty a jump to another place.
    void TurnPage()
    {
        PersonPageRequest_t request;
        request.bSubGroups = true;
        const int nPages = m_nPersons / PageSize;
        m_nPage = m_nTurn++ % 20 == 0 ? m_nTurn * 37 % nPages + 1 : m_nPage % nPages + 1;
        request.nPage = m_nPage;
        request.nPageSize = PageSize;
        Ask(request, PageSize);
    }

    /// A search that nobody made before, for somebody that there is.
    enum class By
    {
        Id,
        Name,
        Plate
    };
    void Search(By by)
    {
        // Every fourth person has a plate.
        const int nPerson = ++m_nSearch * 4 * 31 % FewPersons / 4 * 4;
        std::array<char, 16> number{};
        std::snprintf(number.data(), number.size(), "%07d", nPerson);
        PersonPageRequest_t request;
        request.bSubGroups = true;
        request.sSearchKey = by == By::Id ? std::to_string(FirstId + nPerson)
            : by == By::Name              ? std::string(" ") + number.data()
                                          : std::string("pl") + number.data();
        Ask(request, 1);
    }

private:
    void Ask(const PersonPageRequest_t& request, std::size_t nAtLeast)
    {
        const auto page = ServerCalls::Call<wire::QueryPersonList>(m_client, request, m_sToken);
        if (page.vecPersons.size() < nAtLeast)
            throw std::runtime_error("persons are missing");
    }

    int m_nPersons;
    BenchServer m_server;
    httplib::Client m_client;
    std::string m_sToken;
    int m_nPage = 1;
    int m_nTurn = 0;
    int m_nSearch = 0;
};

} // namespace

std::vector<BenchResult> BenchPersons()
{
    Site many(ManyPersons);
    Site few(FewPersons);
    const QString sMs = QStringLiteral("ms");
    const auto compare = [&](const char* szName, int nRuns, const std::function<void(Site&)>& work) {
        const Medians medians = MedianPairMs(
            nRuns, [&] { work(many); }, [&] { work(few); });
        return BenchResult{QString::fromLatin1(szName), medians.dFirst, medians.dSecond, sMs, 1.5};
    };
    return {compare("persons: page turn with 1,000,000, against 10,000", Turns,
                [](Site& site) { site.TurnPage(); }),
        compare("persons: search by ID among 1,000,000, against 10,000", Searches,
            [](Site& site) { site.Search(Site::By::Id); }),
        compare("persons: search by name among 1,000,000, against 10,000", Searches,
            [](Site& site) { site.Search(Site::By::Name); }),
        compare("persons: search by plate among 1,000,000, against 10,000", Searches,
            [](Site& site) { site.Search(Site::By::Plate); })};
}
