#include "FakeUserManager.h"

#include <UICommonMdl/ErrorCodes.h>

using namespace UserLogical;

namespace {

/// The rights trees of a small platform.
std::vector<RightNode_t> MenuRights()
{
    return {{"001", "Basic Configuration", RightNodeAlways}, {"001001", "Device", RightNodeChecked},
        {"001001001", "Device Management", RightNodeChecked}, {"001001002", "Resource", RightNodeChecked},
        {"001002", "User", RightNodeChecked}, {"001002001", "User Management", RightNodeChecked},
        {"001002002", "Role Management", RightNodeChecked}, {"001002003", "Audit Log", RightNodeChecked},
        {"002", "Applications", RightNodeAlways}, {"002001", "Event", RightNodeChecked},
        {"002003", "Person and Vehicle Info", RightNodeChecked}, {"002003001", "Person", RightNodeChecked},
        {"003", "System", RightNodeAlways}, {"003001", "Service", RightNodeChecked},
        {"003004", "Backup and Restore", RightNodeChecked}};
}

std::vector<RightNode_t> FuncRights()
{
    return {{"004", "All", RightNodeAlways}, {"004001", "Privacy Masking", RightNodeChecked},
        {"004002", "Export Devices", RightNodeChecked}, {"004003", "Export Audit Log", RightNodeChecked}};
}

bool Asked(const DeviceRightQuery_t& query, const char* szRoleId)
{
    return std::find(query.vecRoleIds.begin(), query.vecRoleIds.end(), szRoleId) != query.vecRoleIds.end();
}

/// Role "1" has all of it, role "2" the camera "Gate" of the organisation "North" and gets what is added
/// there.
DeviceRightNode_t Node(
    const DeviceRightQuery_t& query, DeviceRightNode_t node, bool bPartOfTwo, bool bAllOfTwo = false)
{
    if (Asked(query, "1")) {
        node.nState = RightStateAll;
        node.vecRoleIds.push_back("1");
    }
    if (Asked(query, "2") && (bPartOfTwo || bAllOfTwo)) {
        node.nState = std::max<int>(node.nState, bAllOfTwo ? RightStateAll : RightStatePart);
        node.vecRoleIds.push_back("2");
        node.bAuto = node.nKind == DeviceNodeOrganization && node.sId == "1001";
    }
    return node;
}

std::vector<DeviceRightNode_t> Children(const DeviceRightQuery_t& query)
{
    const auto organization = [](const char* szCode, const char* szName, bool bChildren) {
        return DeviceRightNode_t{DeviceNodeOrganization, szCode, 0, 0, szName, 0, false, bChildren, {}};
    };
    const auto device = [](const char* szId, const char* szName, bool bChildren) {
        return DeviceRightNode_t{DeviceNodeDevice, szId, 0, 0, szName, 0, false, bChildren, {}};
    };
    if (query.nKind == DeviceNodeDevice) {
        std::vector<DeviceRightNode_t> vecNodes;
        for (int n = 1; n <= 2; ++n)
            vecNodes.push_back(Node(query,
                {DeviceNodeChannel, query.sId, ChannelVideo, n, "Channel " + std::to_string(n), 0, false,
                    false, {}},
                false, query.sId == "1"));
        return vecNodes;
    }
    if (query.sId.empty())
        return {Node(query, organization("001", "Root", true), true)};
    if (query.sId == "001")
        return {Node(query, organization("1001", "North", true), true),
            Node(query, organization("1002", "South", true), false)};
    if (query.sId == "1001")
        return {Node(query, organization("1003", "Yard", false), false),
            Node(query, device("1", "Gate", true), false, true),
            Node(query, device("2", "Lobby", true), false)};
    if (query.sId == "1002")
        return {Node(query, device("3", "Dock", true), false)};
    return {};
}

} // namespace

void FakeUserManager::ServePlatform()
{
    vecRoles = {{"1", "Administrator", "Has every right", true, {}, {}, 1},
        {"2", "Guard", "Day and night", false, {"001001", "002001"}, {"004001"}, 3},
        {"3", "Reception", "", false, {"002003", "002003001"}, {}, 1}};
    for (const RightNode_t& right : MenuRights())
        vecRoles.front().vecMenuRights.push_back(right.sCode);
    for (const RightNode_t& right : FuncRights())
        vecRoles.front().vecFuncRights.push_back(right.sCode);
    vecUsers = {{"alice", {"Guard"}, true, UserTypeNormal, LockStateUsable},
        {"bob", {"Guard", "Reception"}, false, UserTypeDomain, LockStateLocked},
        {"system", {"Administrator"}, true, UserTypeNormal, LockStateUsable}};
    users.AnswerAlways("QueryUserPage", [this](const FakeCall& call, Param& param) {
        param.userPage = {vecUsers, 60, std::any_cast<UserPageRequest_t>(call.argument).nPage};
    });
    users.AnswerAlways("QueryUserInfo", [](const FakeCall& call, Param& param) {
        User_t user;
        user.sUserName = std::any_cast<std::string>(call.argument);
        user.sEmail = user.sUserName + "@example.org";
        user.vecRoleIds = {"2"};
        user.nPtzLevel = 5;
        user.nVersion = 4;
        if (user.sUserName == "bob") {
            user.vecRoleIds = {"2", "3"};
            user.nUserType = UserTypeDomain;
            user.sDomainUser = "uid=bob,ou=people,dc=example,dc=org";
        }
        param.optUser = user;
    });
    users.AnswerAlways("QueryUserRole", [this](const FakeCall& call, Param& param) {
        const auto sName = std::any_cast<std::string>(call.argument);
        for (const UserInfo_t& user : vecUsers)
            for (const Role_t& role : vecRoles)
                if (user.sUserName == sName
                    && std::count(user.vecRoleNames.begin(), user.vecRoleNames.end(), role.sName) != 0)
                    param.vecRoles.push_back(role);
    });
    users.AnswerAlways("QueryRoleList", [this](const FakeCall&, Param& param) {
        param.vecRoles = vecRoles;
        for (Role_t& role : param.vecRoles) {
            role.vecMenuRights.clear();
            role.vecFuncRights.clear();
        }
    });
    users.AnswerAlways("QueryRoleInfo", [this](const FakeCall& call, Param& param) {
        for (const Role_t& role : vecRoles)
            if (role.sRoleId == std::any_cast<std::string>(call.argument))
                param.vecRoles = {role};
        if (param.vecRoles.empty())
            param.nErrorCode = UICommonMdl::ErrorNotFound;
    });
    users.AnswerAlways(
        "QueryMenuRightList", [](const FakeCall&, Param& param) { param.vecRights = MenuRights(); });
    users.AnswerAlways(
        "QueryFuncRightList", [](const FakeCall&, Param& param) { param.vecRights = FuncRights(); });
    users.AnswerAlways("QueryDeviceRights", [](const FakeCall& call, Param& param) {
        param.vecNodes = Children(std::any_cast<DeviceRightQuery_t>(call.argument));
    });
}
