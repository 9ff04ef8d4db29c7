#include "SocketLimit.h"

#include <poll.h>

#include <cerrno>

namespace Platform {

namespace {

/// Below the layer of the encryption, above that of the socket.
constexpr int Level = (LBER_SBIOD_LEVEL_PROVIDER + LBER_SBIOD_LEVEL_TRANSPORT) / 2;

int Setup(Sockbuf_IO_Desc* pLayer, void* pTimeOut)
{
    pLayer->sbiod_pvt = pTimeOut;
    return 0;
}

/// Waits until the socket can be read or written. False, as a failed read or write says it, when the time is
/// over.
bool Wait(Sockbuf_IO_Desc* pLayer, short nEvent)
{
    ber_socket_t nSocket = -1;
    ber_sockbuf_ctrl(pLayer->sbiod_sb, LBER_SB_OPT_GET_FD, &nSocket);
    pollfd wait{nSocket, nEvent, 0};
    if (poll(&wait, 1, *static_cast<const int*>(pLayer->sbiod_pvt)) > 0)
        return true;
    errno = ETIMEDOUT;
    return false;
}

ber_slen_t Read(Sockbuf_IO_Desc* pLayer, void* pBuffer, ber_len_t nSize)
{
    return Wait(pLayer, POLLIN) ? LBER_SBIOD_READ_NEXT(pLayer, pBuffer, nSize) : -1;
}

ber_slen_t Write(Sockbuf_IO_Desc* pLayer, void* pBuffer, ber_len_t nSize)
{
    return Wait(pLayer, POLLOUT) ? LBER_SBIOD_WRITE_NEXT(pLayer, pBuffer, nSize) : -1;
}

int Control(Sockbuf_IO_Desc* pLayer, int nOption, void* pArgument)
{
    return LBER_SBIOD_CTRL_NEXT(pLayer, nOption, pArgument);
}

} // namespace

void LimitWaits(Sockbuf* pSocket, int& nTimeOutMs)
{
    static Sockbuf_IO s_layer = {&Setup, nullptr, &Control, &Read, &Write, nullptr};
    ber_sockbuf_add_io(pSocket, &s_layer, Level, &nTimeOutMs);
}

} // namespace Platform
