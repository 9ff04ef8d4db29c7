#pragma once

namespace PlatformConfigUI {

/// What the user page's requests are for.
enum UserRequestKind : int
{
    KindUserPage = 1,
    KindLock, ///< locks or unlocks
    KindDelete,
    KindSave
};

} // namespace PlatformConfigUI
