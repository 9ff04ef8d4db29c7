#pragma once

#include "DeviceSpec.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>

namespace FieldDevice {

/// A listening TCP socket, closed with the object.
class Listener
{
public:
    /// Not open when the address is taken or not allowed.
    explicit Listener(const Address& address);
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    bool IsOpen() const { return m_nSocket >= 0; }
    int Descriptor() const { return m_nSocket; }
    /// The next connection that waits, below 0 when there is none. It is the caller's.
    int Accept() const;

private:
    int m_nSocket;
};

/// Calls back when descriptors can be read; one thread runs it and serves thousands of them.
class EventLoop
{
public:
    EventLoop();
    ~EventLoop();
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// Any thread. The callback comes on the thread of Run.
    void Watch(int nDescriptor, std::function<void()> readable);
    /// Any thread; a callback that has begun goes on.
    void Forget(int nDescriptor);
    /// Until Stop.
    void Run();
    /// From a callback.
    void Stop() { m_bStopped = true; }

private:
    std::shared_ptr<std::function<void()>> Find(int nDescriptor);

    const int m_nPoll;
    bool m_bStopped = false;
    std::mutex m_mutex;
    std::map<int, std::shared_ptr<std::function<void()>>> m_mapReadable;
};

} // namespace FieldDevice
