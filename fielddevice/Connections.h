#pragma once

#include "Protocol.h"

#include <httplib.h>

#include <memory>

namespace FieldDevice {

/// Answers the HTTP requests of all devices on a few threads.
class Connections
{
public:
    explicit Connections(const Services& services);
    /// Breaks off what is under way.
    ~Connections();
    Connections(const Connections&) = delete;
    Connections& operator=(const Connections&) = delete;

    /// Takes over the connection; one request is answered. The device has to outlive this object.
    void Serve(Device& device, int nSocket);

private:
    Answer Wait(Device& device, const Query& query);
    void ServeNow(Device& device, int nSocket);

    const Services m_services;
    std::mutex m_mutex;
    std::condition_variable m_stopping;
    std::atomic<bool> m_bStopping = false;
    httplib::ThreadPool m_pool;
};

} // namespace FieldDevice
