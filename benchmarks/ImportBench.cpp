// An import of 100,000 devices through the server against bare prepared inserts into the same tables of an
// empty database, in one transaction.

#include "Bench.h"
#include "BenchServer.h"
#include "ServerCalls.h"

#include <server/services/DeviceRecords.h>
#include <server/store/Database.h>
#include <server/store/Migrations.h>

#include <QElapsedTimer>
#include <QTemporaryDir>

namespace {

constexpr int Devices = 100000;
constexpr int ChunkSize = 1000;

GroupLogical::ImportRow_t MakeRow(int n)
{
    GroupLogical::ImportRow_t row;
    row.nLine = n + 2;
    row.sName = "Imported camera " + std::to_string(n);
    row.sConnect = "1";
    row.sAddress = "10." + std::to_string(n / 62500) + '.' + std::to_string(n / 250 % 250) + '.'
        + std::to_string(1 + n % 250);
    row.sPort = "37777";
    row.sUserName = "admin";
    row.sPassword = "Pass-1234";
    return row;
}

/// Devices a second by the server's operations, from the first request to the end of the job.
double ImportRate()
{
    const BenchServer server(0);
    httplib::Client client(server.Url().toString().toStdString());
    client.set_keep_alive(true);
    client.set_tcp_nodelay(true);
    client.set_read_timeout(60);
    using ServerCalls::Call;
    const std::string sPassword = server.Password().toStdString();
    Call<wire::SetUp>(client, {sPassword}, {});
    const std::string sToken = Call<wire::SignIn>(client, {"system", sPassword, {}, {}}, {}).sToken;
    QElapsedTimer clock;
    clock.start();
    const wire::Job job = Call<wire::BeginImport>(client, {"001", "xml"}, sToken);
    for (int nFirst = 0; nFirst < Devices; nFirst += ChunkSize) {
        wire::ImportRowsRequest rows{job.sJob, {}};
        for (int n = nFirst; n < nFirst + ChunkSize; ++n)
            rows.vecRows.push_back(MakeRow(n));
        Call<wire::AddImportRows>(client, rows, sToken);
    }
    Call<wire::RunImport>(client, {job.sJob, false, false}, sToken);
    wire::JobState state;
    while (!state.bFinished)
        state = Call<wire::WaitJob>(client, {job.sJob, 0}, sToken);
    if (state.summary.get<GroupLogical::ImportState_t>().nSucceeded != Devices)
        throw std::runtime_error("devices were not imported");
    return Devices * 1000.0 / clock.elapsed();
}

double InsertRate()
{
    const QTemporaryDir folder;
    Platform::DatabaseAddress address;
    address.sText = folder.filePath(QStringLiteral("bare.db"));
    Platform::Database database(address);
    Platform::Migrate(database, Platform::Migrations(false));
    QElapsedTimer clock;
    clock.start();
    Platform::Transaction transaction(database);
    for (int n = 0; n < Devices; ++n) {
        const QString sName = QStringLiteral("Imported camera %1").arg(n);
        const QString sAddress =
            QStringLiteral("10.%1.%2.%3").arg(n / 62500).arg(n / 250 % 250).arg(1 + n % 250);
        database.Run(
            QStringLiteral("INSERT INTO device (id, name, name_key, address, address_key, port, search_key, "
                           "category, model, org_code, manufacturer, protocol, add_mode, user_name, "
                           "password_sealed) VALUES (?, ?, ?, ?, ?, 37777, ?, 1, '', '001', 'Other', "
                           "'Private', 1, 'admin', 'sealed')"),
            {n + 1, sName, sName, sAddress, sAddress, QString(sName + QLatin1Char('\n') + sAddress)});
        database.Run(
            QStringLiteral(
                "INSERT INTO audit_log (at, account_name, client_address, operation, object_id, "
                "before_json, after_json) VALUES (0, 'system', '127.0.0.1', 'import/run', ?, '', ?)"),
            {QString::number(n + 1), sName});
    }
    transaction.Commit();
    return Devices * 1000.0 / clock.elapsed();
}

} // namespace

std::vector<BenchResult> BenchImport()
{
    return {{QStringLiteral("server: import of 100,000 devices, against bare prepared inserts"), ImportRate(),
        InsertRate(), QStringLiteral("/s"), 0.3, true}};
}
