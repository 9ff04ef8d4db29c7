#pragma once

#include "directory/Directory.h"
#include "services/Context.h"
#include "store/Database.h"

#include <QString>

#include <functional>
#include <memory>
#include <string>

namespace Platform {

class DatabasePool;
class Dispatcher;
class EventHub;
class FileRoutes;
class RightsService;
class SessionService;
struct Generations;

struct ServerOptions
{
    std::string sListenHost = "127.0.0.1";
    int nListenPort = 8420; ///< 0: a free one
    QString sDataDir;
    DatabaseAddress database; ///< empty: platform.db in the data folder
    QString sCertificate;
    QString sKey;
    bool bSeedDemo = false;
    int nSeedDevices = 0;
    int nSeedPersons = 0;
    int nSeedPersonGroups = 100;
    int nProbeIntervalSeconds = 15; ///< 0: no probing
    int nProbeConcurrency = 256;
    int nProbeTimeoutMs = 2000;
    int nTokenLifetimeMinutes = 720;
    DirectoryOptions directory; ///< of domain users; without an address there is none
    std::string sCloudUrl; ///< account service of P2P devices; empty: none
    int nSearchTimeoutMs = 3000; ///< how long a search for devices waits for answers
    int nDeviceTimeoutMs = 5000; ///< of each question to a device
    int nDiscoveryPort = 37810; ///< UDP port that the platform's own devices answer on
    int nOnvifDiscoveryPort = 3702;
    int nReaders = 4;
    int nHeartbeatMs = 10000; ///< of event streams
    Clock clock; ///< empty: the system's
};

/// The central server: store, services, probing and HTTP put together. Start and Stop are called on one
/// thread.
class PlatformServer
{
public:
    explicit PlatformServer(ServerOptions options);
    ~PlatformServer();
    PlatformServer(const PlatformServer&) = delete;
    PlatformServer& operator=(const PlatformServer&) = delete;

    /// Opens the store, brings its schema up to date and fills it where the options say so. Throws
    /// StartError.
    void Open();
    /// Opens when that has not been done, and serves. Throws StartError.
    void Start();
    /// Ends event streams, finishes the requests under way, closes the store.
    void Stop();
    /// From now on the answers of requests under way are lost, as after a crash; Stop comes next.
    void Cut();

    /// "http://127.0.0.1:8420"
    std::string Url() const;

    SessionService& Sessions();
    RightsService& Rights();
    DatabasePool& Pool();
    EventHub& Hub();
    Generations& DataGenerations();
    Dispatcher& Operations();
    FileRoutes& Files();

private:
    struct Private;
    std::unique_ptr<Private> m_pPrivate;
};

} // namespace Platform
