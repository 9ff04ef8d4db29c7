#pragma once

#include "store/Database.h"

#include <QByteArray>
#include <QString>

#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace Platform {

class DatabasePool;

/// The photos of persons: JPEG files in a folder of the data folder, each under a random name that its person
/// holds. A name is given once only, so that a photo under a name never changes. Any thread; faults are
/// ServiceError.
class PhotoStore
{
public:
    explicit PhotoStore(QString sFolder);

    /// Keeps a photo that came as Base64, and answers its name. Throws ErrorPhoto unless it is a whole JPEG
    /// within the limits of PersonRecords.h.
    std::string Add(const std::string& sBase64) const;
    /// Throws ErrorNotFound.
    QByteArray Read(const std::string& sName) const;
    void Remove(const std::vector<std::string>& vecNames) const;
    /// Removes files of before this start that no person holds: what a stop between file and record has left.
    void RemoveUnused(DatabasePool& pool, const std::stop_token& stop) const;

    /// True for a JPEG that decodes without a fault and keeps the limit of its sides.
    static bool IsPhoto(const QByteArray& baFile);

private:
    QString PathOf(const std::string& sName) const;

    const QString m_sFolder;
};

} // namespace Platform
