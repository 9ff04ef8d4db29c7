#pragma once

#include "Dispatcher.h"
#include "EventHub.h"
#include "FileRoutes.h"

#include <QString>

#include <memory>
#include <string>

namespace Platform {

struct HttpOptions
{
    std::string sHost = "127.0.0.1";
    int nPort = 0; ///< 0: a free one
    QString sCertificate; ///< PEM file; empty: no TLS
    QString sKey;
    int nStreamLimit = 256;
    int nHeartbeatMs = 10000;
};

/// The server's HTTP side: operations by POST, the event stream by GET, files by either.
class HttpFront
{
public:
    /// Binds the address; throws StartError.
    HttpFront(
        const HttpOptions& options, const Dispatcher& dispatcher, const FileRoutes& files, EventHub& hub);
    ~HttpFront();
    HttpFront(const HttpFront&) = delete;
    HttpFront& operator=(const HttpFront&) = delete;

    /// Starts to serve on threads of its own.
    void Start();
    /// Takes no new connection, ends the event streams and waits for the requests under way.
    void Stop();
    /// From now on the answers of requests under way are lost; Stop, which comes next, cuts their
    /// connections.
    void Cut();
    /// Beginning of every address: "http://127.0.0.1:8420".
    std::string Url() const;

private:
    struct Private;
    std::unique_ptr<Private> m_pPrivate;
};

} // namespace Platform
