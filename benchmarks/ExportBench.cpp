// How much memory the client takes while a page receives an export, on the whole road from the server to the
// rows in the page's hands.

#include "Bench.h"
#include "LiveServer.h"
#include "ServerCalls.h"

#include <GroupLogical/IGroupManager.h>
#include <UserLogical/IUserManager.h>
#include <common/CCalls.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <malloc.h>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int Devices = 100000;
constexpr int ReceiverTimeOutMs = 600000;

using GroupLogical::IGroupManager;
using GroupLogical::IGroupManagerObserver;

/// A line of this process's status, in MiB: "VmRSS" is its memory now, "VmHWM" the most that it was.
double StatusMiB(const QByteArray& key)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> listLines = file.readAll().split('\n');
    for (const QByteArray& line : listLines) {
        if (line.startsWith(key + ':'))
            return line.mid(key.size() + 1).simplified().split(' ').front().toDouble() / 1024;
    }
    return 0;
}

/// Makes the most that the memory was what it is now, where the system lets a process do that.
void ForgetPeak()
{
    // What was freed before would take in the answer unseen.
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

std::string ExportBody(LiveServer& live)
{
    httplib::Client client(live.Url().host().toStdString(), live.Url().port());
    const std::string sPath = std::string(wire::OperationPrefix) + std::string(wire::ExportDevice::Name);
    const auto result = client.Post(sPath.c_str(),
        ServerCalls::MakeHeaders(live.Interfaces()->GetUserManager()->GetToken()), "{}", "application/json");
    return result && result->status == 200 ? result->body : std::string();
}

} // namespace

int ReceiveExport()
{
    LiveServer live({QStringLiteral("--seed-devices"), QString::number(Devices)});
    QObject page;
    Common::CCalls<IGroupManagerObserver> calls(live.Interfaces(), &page);
    IGroupManagerObserver::Answer pRows;

    ForgetPeak();
    const double dBefore = StatusMiB("VmRSS");
    calls.Latest<&IGroupManager::ExportDevice>(GroupLogical::DevicePageRequest_t(),
        [&](const IGroupManagerObserver::Answer& pAnswer) { pRows = pAnswer; });
    WaitUntil([&] { return pRows != nullptr; });
    const double dGrowth = StatusMiB("VmHWM") - dBefore;
    if (pRows->devicePage.vecDevices.size() != std::size_t(Devices))
        return 1;
    printf("%f %f\n", dGrowth, double(ExportBody(live).size()) / (1024 * 1024));
    return 0;
}

std::vector<BenchResult> BenchExport()
{
    // A process of its own: in this one the benchmarks before have been larger.
    QProcess receiver;
    receiver.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    receiver.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(ReceiveExportArgument)});
    if (!receiver.waitForFinished(ReceiverTimeOutMs) || receiver.exitCode() != 0) {
        fprintf(stderr, "The export was not received.\n");
        std::exit(2);
    }
    const QList<QByteArray> listFigures = receiver.readAllStandardOutput().simplified().split(' ');
    return {
        {QStringLiteral("export of 100,000 devices: growth of the client, against the bytes of the answer"),
            listFigures.value(0).toDouble(), listFigures.value(1).toDouble(), QStringLiteral("MiB"), 1.5}};
}
