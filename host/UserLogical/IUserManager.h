#pragma once

#include <UserLogical/UserRecords.h>
#include <VxPluginAPI/IAbstractResourceManager.h>
#include <VxPluginAPI/IObserver.h>

#include <vector>

namespace UserLogical {

/// The rights of the signed-in user, as last told by the server.
class IUserRight
{
public:
    virtual ~IUserRight() = default;
    /// True when the user has the right of that code. Any thread.
    virtual bool HasRight(const std::string& sRightCode) = 0;
};

class IUserManagerObserver : public VxPluginAPI::IObserver
{
public:
    enum ResultCode : int
    {
        ResultRightsChanged = 100, ///< pushed: the signed-in user's rights are others now
        ResultSessionEnded, ///< pushed: the session is no longer valid, the user has to sign in again
    };
    struct Param
    {
        int nResultCode = 0; ///< ResultCode
        int nErrorCode = 0; ///< UICommonMdl::ErrorCode
    };
    /// Comes on a thread of the host: copy the record and leave.
    virtual void OnNotifyUserManagerState(const Param& param) = 0;
};

/// The signed-in user.
class IUserManager : public VxPluginAPI::IManager
{
public:
    static constexpr const char* InterfaceId = "UserLogical.IUserManager(1.0)";

    virtual void AddObserver(IUserManagerObserver* pObserver) = 0;
    virtual void RemoveObserver(IUserManagerObserver* pObserver) = 0;

    /// The rights object, null while nobody is signed in. Owned by the manager.
    virtual IUserRight* GetUserRight() = 0;
    /// The entries that the user may open, in the order of the platform. Any thread, no round trip.
    virtual std::vector<MenuRight_t> GetMenuRights() = 0;
    /// Name of the signed-in account; empty: nobody.
    virtual std::string GetUserName() = 0;
    /// The session's token for addresses of uploads and downloads; empty: nobody is signed in.
    virtual std::string GetToken() = 0;
};

} // namespace UserLogical
