#pragma once

#include "persons/PhotoStore.h"
#include "services/SecretBox.h"
#include "store/DatabasePool.h"

#include <QString>

namespace Platform {

/// Fills an empty database: the same data each time. Throws StartError with ExitSeed when devices or
/// organisations exist already.
class Seeds
{
public:
    /// All are borrowed.
    Seeds(DatabasePool& pool, const SecretBox& box, const PhotoStore& photos);

    /// A company of several sites with about 60 organisations and 300 devices, what refers to them, its
    /// staff, and the locked account "operator". Writes "field-devices.json" to the folder: which addresses
    /// are to answer.
    void Demo(const QString& sDataDir, std::int64_t nNow) const;
    /// nDevices devices over a plain tree of organisations.
    void Bulk(int nDevices) const;
    /// nPersons persons over a plain tree of nGroups groups.
    void BulkPersons(int nPersons, int nGroups) const;

private:
    DatabasePool& m_pool;
    const SecretBox& m_box;
    const PhotoStore& m_photos;
};

} // namespace Platform
