#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>

/// A "platformd" of its own, filled by its seeds, on a free loopback port; ends with the object.
class BenchServer
{
public:
    explicit BenchServer(int nDevices)
        : BenchServer({QStringLiteral("--seed-devices"), QString::number(nDevices)})
    {
    }
    explicit BenchServer(const QStringList& listSeeds);
    ~BenchServer();
    BenchServer(const BenchServer&) = delete;
    BenchServer& operator=(const BenchServer&) = delete;

    QUrl Url() const { return m_url; }
    QString DatabasePath() const { return m_folder.filePath(QStringLiteral("platform.db")); }
    /// Password of the built-in account, made for this run.
    QString Password() const { return m_sPassword; }

private:
    QTemporaryDir m_folder;
    QProcess m_process;
    QUrl m_url;
    QString m_sPassword;
};
