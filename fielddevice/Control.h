#pragma once

#include "Fleet.h"

#include <httplib.h>

#include <thread>

namespace FieldDevice {

/// Changes and shows devices while they run, over HTTP on 127.0.0.1: a test instrument, passwords included.
///   POST /device  {"address", "port", and any of "slow_ms", "refuse_password", "present",
///   "time_zone_support"} GET  /device?address=…&port=…
/// Both answer the state.
class Control
{
public:
    explicit Control(Fleet& fleet);
    ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// nPort 0: any. Answers the port; 0 when it is taken.
    int Start(int nPort);

private:
    void Change(const httplib::Request& request, httplib::Response& response);
    void Show(const httplib::Request& request, httplib::Response& response) const;

    Fleet& m_fleet;
    httplib::Server m_server;
    std::thread m_thread;
};

} // namespace FieldDevice
