#include "Bench.h"

#include <Trv/QSkin.h>

#include <QApplication>

#include <cstdio>

namespace {

bool Print(const BenchResult& result)
{
    printf("%s | %.2f %s | %.2f %s | %.2f | %s %.2f%s\n", qPrintable(result.sName), result.dMeasured,
        qPrintable(result.sUnit), result.dReference, qPrintable(result.sUnit), result.Ratio(),
        result.bAtLeast ? ">=" : "<=", result.dBound, result.IsHeld() ? "" : "  FAILED");
    fflush(stdout);
    return result.IsHeld();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Trv::SetSkinRoot(qEnvironmentVariable("PRODUCT_BINARY_DIR") + QStringLiteral("/skin"));
    QString sStyleSheet;
    Trv::loadStyleSheet(Trv::GetSkinPath(QStringLiteral("Client.qss"), QString()), sStyleSheet);
    application.setStyleSheet(sStyleSheet);

    const QString sOnly = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    const struct
    {
        const char* pszName;
        std::vector<BenchResult> (*run)();
    } benchmarks[] = {{"home", &BenchHomePage}, {"device", &BenchDevicePage}, {"server", &BenchServerQueries},
        {"file", &BenchImportFile}, {"import", &BenchImport}, {"discovery", &BenchDiscovery},
        {"persons", &BenchPersons}, {"tree", &BenchPersonTree}, {"rights", &BenchRightsTree},
        {"accounts", &BenchAccounts}, {"export", &BenchExport}};
    if (sOnly == QLatin1String(ReceiveExportArgument))
        return ReceiveExport();
    printf("name | measured | reference | ratio | bound\n");
    bool bHeld = true;
    for (const auto& benchmark : benchmarks) {
        if (!sOnly.isEmpty() && sOnly != QLatin1String(benchmark.pszName))
            continue;
        for (const BenchResult& result : benchmark.run())
            bHeld = Print(result) && bHeld;
    }
    return bHeld ? 0 : 1;
}
