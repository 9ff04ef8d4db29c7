#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <stop_token>
#include <thread>

namespace Platform {

/// Cuts a connection when its time is over or too much has come by it: the time-outs of the HTTP library are
/// for each read, and it keeps headers without a limit.
class HttpGuard
{
public:
    HttpGuard(std::chrono::steady_clock::time_point deadline, std::uint64_t nMaxReceived);
    ~HttpGuard();
    HttpGuard(const HttpGuard&) = delete;
    HttpGuard& operator=(const HttpGuard&) = delete;

    /// Watches that socket from now on, instead of another one.
    void Take(int nSocket);
    /// Any thread.
    bool IsTooMuch() const;

private:
    void Watch(const std::stop_token& stop);

    const std::chrono::steady_clock::time_point m_deadline;
    const std::uint64_t m_nMaxReceived;
    mutable std::mutex m_mutex;
    std::condition_variable_any m_changed;
    int m_nSocket = -1; ///< a duplicate, so that the number cannot come to mean another socket
    bool m_bTooMuch = false;
    std::jthread m_thread; ///< last: uses the others
};

} // namespace Platform
