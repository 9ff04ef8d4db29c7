#pragma once

#include "store/DatabasePool.h"

#include <QString>

namespace Platform {

/// Fills an empty database: the same data each time. Throws StartError with ExitSeed when devices or
/// organisations exist already.
class Seeds
{
public:
    explicit Seeds(DatabasePool& pool);

    /// A company of several sites with about 60 organisations and 300 devices, what refers to them, and the
    /// locked account "operator". Writes "field-devices.json" to the folder: which addresses are to answer.
    void Demo(const QString& sDataDir) const;
    /// nDevices devices over a plain tree of organisations.
    void Bulk(int nDevices) const;

private:
    DatabasePool& m_pool;
};

} // namespace Platform
