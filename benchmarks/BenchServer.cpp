#include "BenchServer.h"

#include <QCoreApplication>
#include <QUuid>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int StartTimeOutMs = 600000;
const char* const ReadyPrefix = "listening on ";

} // namespace

BenchServer::BenchServer(const QStringList& listSeeds)
    : m_sPassword(QStringLiteral("Aa1-") + QUuid::createUuid().toString(QUuid::Id128).left(20))
{
    const QString sProgram = QCoreApplication::applicationDirPath() + QStringLiteral("/platformd");
    m_process.setStandardErrorFile(m_folder.filePath(QStringLiteral("log")));
    m_process.start(sProgram,
        listSeeds
            + QStringList{QStringLiteral("--listen"), QStringLiteral("127.0.0.1:0"),
                QStringLiteral("--data-dir"), m_folder.path(), QStringLiteral("--probe-interval"),
                QStringLiteral("0"), QStringLiteral("--exit-with-parent")});
    QByteArray line;
    while (!line.startsWith(ReadyPrefix)) {
        if (!m_process.waitForReadyRead(StartTimeOutMs)) {
            fprintf(
                stderr, "%s did not start: %s\n", qPrintable(sProgram), qPrintable(m_process.errorString()));
            std::exit(2);
        }
        while (m_process.canReadLine() && !line.startsWith(ReadyPrefix))
            line = m_process.readLine().trimmed();
    }
    m_url = QUrl(QString::fromLatin1(line.mid(int(qstrlen(ReadyPrefix)))));
}

BenchServer::~BenchServer()
{
    m_process.terminate();
    m_process.waitForFinished();
}
