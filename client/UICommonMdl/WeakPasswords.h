#pragma once

#include <QSet>
#include <QString>

namespace UICommonMdl {

/// The passwords that every attacker tries first, in lower case; all of eight characters and more, since
/// shorter ones break the password rule anyway.
const QSet<QString>& WeakPasswords();

} // namespace UICommonMdl
