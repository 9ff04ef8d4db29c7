// Page queries of the server against a bare route of the same HTTP library that runs the same statement and
// answers the same bytes.

#include "Bench.h"
#include "BenchServer.h"
#include "ServerCalls.h"

#include <server/services/DevicePages.h>
#include <server/store/Database.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace {

constexpr int Devices = 100000;
constexpr int Clients = 2;
constexpr std::chrono::seconds Duration(3);
constexpr int PageSize = 100;
constexpr int SearchRuns = 40;
constexpr int SearchPageSize = 20; ///< as the client asks for unless the user chose another
constexpr int DeviceColumns = 13;

using GroupLogical::DevicePageRequest_t;
using ServerCalls::Call;
using ServerCalls::MakeHeaders;

DevicePageRequest_t PageRequest()
{
    DevicePageRequest_t request;
    request.nPageSize = PageSize;
    return request;
}

/// Reads all columns of all rows; answers how many bytes they hold.
std::size_t ReadRows(Platform::Rows&& rows)
{
    std::size_t nBytes = 0;
    while (rows.Next()) {
        for (int nColumn = 0; nColumn < DeviceColumns; ++nColumn)
            nBytes += rows.Text(nColumn).size();
    }
    return nBytes;
}

/// Requests per second over all clients.
double Rate(const std::string& sHost, int nPort, const std::string& sPath, const std::string& sBody,
    const std::string& sToken)
{
    std::atomic<int> nRequests{0};
    std::vector<std::thread> vecThreads;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < Clients; ++i) {
        vecThreads.emplace_back([&] {
            httplib::Client client(sHost, nPort);
            client.set_keep_alive(true);
            client.set_tcp_nodelay(true);
            while (std::chrono::steady_clock::now() - start < Duration) {
                const auto result =
                    client.Post(sPath.c_str(), MakeHeaders(sToken), sBody, "application/json");
                if (!result || result->status != 200)
                    throw std::runtime_error("a request failed");
                ++nRequests;
            }
        });
    }
    for (std::thread& thread : vecThreads)
        thread.join();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    return nRequests / elapsed.count();
}

/// The bare route: one connection a thread, the rows walked, the prepared bytes sent.
class BareServer
{
public:
    BareServer(const QString& sDatabase, std::string sBytes)
        : m_sDatabase(sDatabase)
        , m_sBytes(std::move(sBytes))
    {
        m_server.set_tcp_nodelay(true);
        m_server.Post(
            "/page", [this](const httplib::Request&, httplib::Response& response) { Answer(response); });
        m_nPort = m_server.bind_to_any_port("127.0.0.1");
        m_thread = std::thread([this] { m_server.listen_after_bind(); });
        while (!m_server.is_running())
            std::this_thread::yield();
    }

    ~BareServer()
    {
        m_server.stop();
        m_thread.join();
    }
    BareServer(const BareServer&) = delete;
    BareServer& operator=(const BareServer&) = delete;

    int Port() const { return m_nPort; }

private:
    void Answer(httplib::Response& response)
    {
        thread_local Platform::Database s_database(Platform::DatabaseAddress{m_sDatabase});
        const auto [sSql, values] = Platform::DevicePages::FirstPageStatement(
            s_database, Platform::DeviceScope::All(), PageRequest());
        const std::size_t nBytes = ReadRows(s_database.Run(sSql, values));
        response.set_content(nBytes > 0 ? m_sBytes : std::string(), "application/json");
    }

    QString m_sDatabase;
    std::string m_sBytes;
    httplib::Server m_server;
    std::thread m_thread;
    int m_nPort = 0;
};

} // namespace

namespace {

/// Beginning of the number in a device's name, "000" to "099": a thousand devices have it.
std::string SearchText(int nSearch)
{
    return {'0', char('0' + nSearch / 10 % 10), char('0' + nSearch % 10)};
}

/// A search that nobody made before, over HTTP, against the statements alone that answer it: the page and its
/// total.
BenchResult BenchSearch(httplib::Client& client, const std::string& sToken, const QString& sDatabase)
{
    Platform::Database database(Platform::DatabaseAddress{sDatabase});
    const std::string sPath = std::string(wire::OperationPrefix) + std::string(wire::QueryDevicePage::Name);
    int nSearch = 0;
    const auto request = [&] {
        DevicePageRequest_t page = PageRequest();
        page.nPageSize = SearchPageSize;
        page.sSearchText = "%20" + SearchText(nSearch);
        return page;
    };
    const auto search = [&] {
        ++nSearch;
        const auto result = client.Post(
            sPath.c_str(), MakeHeaders(sToken), nlohmann::json(request()).dump(), "application/json");
        if (!result || result->status != 200)
            throw std::runtime_error("a search failed");
    };
    const auto bare = [&] {
        ++nSearch;
        const auto [sSql, values] =
            Platform::DevicePages::FirstPageStatement(database, Platform::DeviceScope::All(), request());
        ReadRows(database.Run(sSql, values));
        const QString sPhrase =
            QLatin1Char('"') + QString::fromStdString(request().sSearchText) + QLatin1Char('"');
        Platform::Rows total =
            database.Run(QStringLiteral("SELECT COUNT(*) FROM device_search WHERE device_search MATCH ?"),
                QVariantList{sPhrase});
        total.Next();
    };
    const Medians medians = MedianPairMs(SearchRuns, search, bare);
    return {QStringLiteral("server: text search over 100,000 devices, against the bare statements"),
        medians.dFirst, medians.dSecond, QStringLiteral("ms"), 2.0};
}

} // namespace

std::vector<BenchResult> BenchServerQueries()
{
    BenchServer server(Devices);
    const std::string sHost = server.Url().host().toStdString();
    const std::string sPassword = server.Password().toStdString();
    httplib::Client client(sHost, server.Url().port());
    Call<wire::SetUp>(client, {sPassword}, {});
    const std::string sToken = Call<wire::SignIn>(client, {"system", sPassword, {}, {}}, {}).sToken;

    const std::string sBody = nlohmann::json(PageRequest()).dump();
    const std::string sPath = std::string(wire::OperationPrefix) + std::string(wire::QueryDevicePage::Name);
    const auto answer = client.Post(sPath.c_str(), MakeHeaders(sToken), sBody, "application/json");
    BareServer bare(server.DatabasePath(), answer->body);

    const double dMeasured = Rate(sHost, server.Url().port(), sPath, sBody, sToken);
    const double dReference = Rate("127.0.0.1", bare.Port(), "/page", sBody, {});
    BenchResult result{
        QStringLiteral("server: page queries of 100 rows, 100,000 devices, against a bare route"), dMeasured,
        dReference, QStringLiteral("/s"), 0.5};
    result.bAtLeast = true;
    return {result, BenchSearch(client, sToken, server.DatabasePath())};
}
