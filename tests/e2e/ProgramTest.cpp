// The client as a program of its own, with its embedded server.

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr int DeadlineMs = 120000;

QString ProgramPath()
{
    return qEnvironmentVariable("PRODUCT_BINARY_DIR") + QStringLiteral("/bin/securityclient");
}

struct Finished
{
    int nExitCode = -1;
    QString sOutput;
};

Finished RunClient(const QStringList& listArguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    // The platform without a display leaves its screen behind, which is no fault of the program's.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    process.setProcessEnvironment(environment);
    process.start(ProgramPath(), listArguments);
    EXPECT_TRUE(process.waitForFinished(DeadlineMs)) << qPrintable(process.errorString());
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        QString::fromLocal8Bit(process.readAll())};
}

} // namespace

TEST(Program, RefusesWrongOptionsWithAReason)
{
    const QStringList cases[] = {{QStringLiteral("--no-such-option")}, {QStringLiteral("file")},
        {QStringLiteral("--server"), QStringLiteral("ftp://localhost")},
        {QStringLiteral("--skin"), QStringLiteral("pink")},
        {QStringLiteral("--demo"), QStringLiteral("--server"), QStringLiteral("http://127.0.0.1:1")}};
    for (const QStringList& listArguments : cases) {
        const Finished finished = RunClient(listArguments);
        EXPECT_EQ(finished.nExitCode, 2) << qPrintable(listArguments.join(QLatin1Char(' ')));
        EXPECT_TRUE(finished.sOutput.contains(QStringLiteral("--help")));
    }
    const Finished help = RunClient({QStringLiteral("--help")});
    EXPECT_EQ(help.nExitCode, 0);
    for (const char* const pszOption : {"--demo", "--server", "--screenshots", "--help"})
        EXPECT_TRUE(help.sOutput.contains(QLatin1String(pszOption))) << pszOption;
}

TEST(Program, TheScreenshotTourShowsEveryPage)
{
    QTemporaryDir folder;
    const Finished finished =
        RunClient({QStringLiteral("--screenshots"), folder.filePath(QStringLiteral("pictures"))});
    ASSERT_EQ(finished.nExitCode, 0) << qPrintable(finished.sOutput.right(2000));
    const QStringList listPictures =
        QDir(folder.filePath(QStringLiteral("pictures"))).entryList({QStringLiteral("*.png")});
    EXPECT_EQ(listPictures.size(), 2 + 1 + 15) << qPrintable(listPictures.join(QLatin1Char(' ')));
    for (const QString& sPicture : listPictures)
        EXPECT_FALSE(QImage(folder.filePath(QStringLiteral("pictures/") + sPicture)).isNull())
            << qPrintable(sPicture);
}
