#include "PhotoStore.h"

#include "Log.h"
#include "ServiceError.h"
#include "store/DatabasePool.h"

#include <AccessControlLogical/PersonRecords.h>

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>

#include <memory>

#include <turbojpeg.h>

namespace Platform {

using namespace AccessControlLogical;

namespace {
const QString Ending = QStringLiteral(".jpg");
constexpr std::size_t FolderLetters = 2;
} // namespace

PhotoStore::PhotoStore(QString sFolder)
    : m_sFolder(std::move(sFolder))
{
}

QString PhotoStore::PathOf(const std::string& sName) const
{
    // Many files share no folder: the first letters of the name are one.
    return m_sFolder + QLatin1Char('/') + QString::fromStdString(sName.substr(0, FolderLetters))
        + QLatin1Char('/') + QString::fromStdString(sName) + Ending;
}

bool PhotoStore::IsPhoto(const QByteArray& baFile)
{
    const std::unique_ptr<void, int (*)(tjhandle)> pDecoder(tjInitDecompress(), &tjDestroy);
    const auto* pBytes = reinterpret_cast<const unsigned char*>(baFile.constData());
    const auto nSize = static_cast<unsigned long>(baFile.size());
    int nWidth = 0;
    int nHeight = 0;
    int nSubsampling = 0;
    int nColours = 0;
    // The header tells the size before memory is taken for the picture.
    if (!pDecoder
        || tjDecompressHeader3(pDecoder.get(), pBytes, nSize, &nWidth, &nHeight, &nSubsampling, &nColours)
            != 0
        || nWidth < 1 || nHeight < 1 || nWidth > PhotoSideLimit || nHeight > PhotoSideLimit)
        return false;
    std::vector<unsigned char> vecPixels(
        static_cast<std::size_t>(nWidth) * static_cast<std::size_t>(nHeight));
    // Stopping at warnings refuses truncated files, which decode to grey areas otherwise.
    return tjDecompress2(pDecoder.get(), pBytes, nSize, vecPixels.data(), nWidth, 0, nHeight, TJPF_GRAY,
               TJFLAG_STOPONWARNING | TJFLAG_LIMITSCANS)
        == 0;
}

std::string PhotoStore::Add(const std::string& sBase64) const
{
    if (sBase64.size() > PhotoSizeLimit * 4 / 3 + 4)
        throw ServiceError(UICommonMdl::ErrorPhoto);
    const auto result = QByteArray::fromBase64Encoding(
        QByteArray::fromStdString(sBase64), QByteArray::AbortOnBase64DecodingErrors);
    if (!result || !IsPhoto(result.decoded))
        throw ServiceError(UICommonMdl::ErrorPhoto);
    std::string sName = QUuid::createUuid().toString(QUuid::Id128).toStdString();
    const QString sPath = PathOf(sName);
    QSaveFile file(sPath);
    if (!QDir().mkpath(QFileInfo(sPath).path()) || !file.open(QIODevice::WriteOnly)
        || file.write(result.decoded) != result.decoded.size() || !file.commit()) {
        Log::Error("photos", "A photo could not be written", {{"file", sPath.toStdString()}});
        throw ServiceError(UICommonMdl::ErrorDatabaseFull);
    }
    return sName;
}

QByteArray PhotoStore::Read(const std::string& sName) const
{
    QFile file(PathOf(sName));
    if (sName.empty() || !file.open(QIODevice::ReadOnly))
        throw ServiceError(UICommonMdl::ErrorNotFound);
    return file.readAll();
}

void PhotoStore::Remove(const std::vector<std::string>& vecNames) const
{
    for (const std::string& sName : vecNames) {
        if (!sName.empty())
            QFile::remove(PathOf(sName));
    }
}

void PhotoStore::RemoveUnused(DatabasePool& pool, const std::stop_token& stop) const
{
    const QDateTime start = QDateTime::currentDateTime();
    QDirIterator it(m_sFolder, {QLatin1Char('*') + Ending}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext() && !stop.stop_requested()) {
        it.next();
        if (it.fileInfo().lastModified() >= start)
            continue;
        const std::string sName = it.fileInfo().completeBaseName().toStdString();
        const bool bUsed = pool.Read([&sName](Database& database) {
            return database
                .Run(QStringLiteral("SELECT 1 FROM person WHERE photo = ? AND photo <> '' LIMIT 1"),
                    {TextValue(sName)})
                .Next();
        });
        if (!bUsed)
            QFile::remove(it.filePath());
    }
}

} // namespace Platform
