#pragma once

#include <ldap.h>

namespace Platform {

/// Makes every single read and write of the connection end in time, those while both sides agree on the
/// encryption included: for these the LDAP library keeps no time. nTimeOutMs outlives the
/// connection.
void LimitWaits(Sockbuf* pSocket, int& nTimeOutMs);

} // namespace Platform
