#include "FakeSite.h"

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

/// A person of which only the row is known.
AccessControlLogical::Person_t DetailOf(const AccessControlLogical::PersonInfo_t& row)
{
    AccessControlLogical::Person_t person;
    person.sPersonId = row.sPersonId;
    person.sName = row.sName;
    person.sGroupCode = row.sGroupCode;
    person.sGroupName = row.sGroupName;
    person.nVersion = 1;
    return person;
}

} // namespace

void FakeSite::ServeDevices()
{
    vecOrganizations = {{"001", "", "Site", "", 0, 1}, {"001001", "001", "North", "gate", 0, 4},
        {"001002", "001", "South", "", 1, 1}, {"001001001", "001001", "Tower", "", 0, 1}};
    vecDevices.clear();
    for (int n = 1; n <= 12; ++n) {
        GroupLogical::DeviceInfo_t device;
        device.sDeviceId = std::to_string(1000 + n);
        device.sName = "Camera " + std::to_string(n);
        device.sIp = "10.0.0." + std::to_string(n);
        device.nCategory = n % 2 ? 1 : 8;
        device.sOrgCode = "001";
        device.sOrgName = "Site";
        device.nOnlineState = n % 3 ? GroupLogical::StateOnline : GroupLogical::StateOffline;
        device.nOfflineReason = n % 3 ? GroupLogical::ReasonNone : GroupLogical::ReasonRefused;
        vecDevices.push_back(device);
    }
    m_server.AnswerAlways<wire::QueryOrganizations>(
        [this](const auto&, auto& answer) { answer.vecOrganizations = vecOrganizations; });
    m_server.AnswerAlways<wire::QueryDeviceTypes>({{1, 8, 50}});
    const auto servePage = [this](const auto& request, auto& page) {
        page = {vecDevices, 60, request.nPage};
    };
    m_server.AnswerAlways<wire::QueryDevicePage>(servePage);
    m_server.AnswerAlways<wire::ExportDevice>(servePage);
}

void FakeSite::ServePersons()
{
    vecDepartments = {{"001", "", "All Persons", "", 1}, {"1001", "001", "Engineering", "second floor", 3},
        {"1002", "001", "Sales", "", 1}, {"1003", "1001", "Testing", "", 1}};
    vecPersons.clear();
    for (int n = 1; n <= 6; ++n) {
        AccessControlLogical::PersonInfo_t person;
        person.sPersonId = std::to_string(100 + n);
        person.sName = "Person " + std::to_string(n);
        person.nGender = n % 4;
        person.nPersonType = n;
        person.sGroupCode = "1001";
        person.sGroupName = "Engineering";
        person.sTelephone = "555-010" + std::to_string(n);
        person.nCards = n % 2;
        person.bAuthorizationError = n == 2;
        vecPersons.push_back(person);
    }
    m_server.AnswerAlways<wire::QueryDepartmentTree>(
        [this](const auto&, auto& answer) { answer.vecDepartments = vecDepartments; });
    m_server.AnswerAlways<wire::QueryPersonList>([this](const auto& request, auto& page) {
        page = {vecPersons, 60, request.nPage};
    });
    m_server.AnswerAlways<wire::QueryPersonDetail>([this](const auto& request, auto& answer) -> int {
        for (const auto& person : vecDetails) {
            if (person.sPersonId == request.sPersonId)
                return answer = person, UICommonMdl::ErrorNone;
        }
        for (const auto& row : vecPersons) {
            if (row.sPersonId == request.sPersonId)
                return answer = DetailOf(row), UICommonMdl::ErrorNone;
        }
        return UICommonMdl::ErrorNotFound;
    });
    m_server.AnswerAlways<wire::QueryPermissionChoices>(
        {{{"1", "Day shift"}, {"2", "Night shift"}, {"3", "Laboratories"}},
            {{"1", "Staff"}, {"2", "Contractors"}},
            {{"1", "Lift Controller 1", "Lift A", "1"}, {"2", "Lift Controller 1", "Lift A", "2"}}});
    m_server.AnswerAlways<wire::QueryResidenceScenario>({true, {"101", "102", "201"}});
}

void FakeSite::ServeUsers()
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
    m_server.AnswerAlways<wire::QueryUserPage>([this](const auto& request, auto& page) {
        page = {vecUsers, 60, request.nPage};
    });
    m_server.AnswerAlways<wire::QueryUserInfo>([](const auto& request, User_t& user) {
        user.sUserName = request.sUserName;
        user.sEmail = user.sUserName + "@example.org";
        user.vecRoleIds = {"2"};
        user.nPtzLevel = 5;
        user.nVersion = 4;
        if (user.sUserName == "bob") {
            user.vecRoleIds = {"2", "3"};
            user.nUserType = UserTypeDomain;
            user.sDomainUser = "uid=bob,ou=people,dc=example,dc=org";
        }
    });
    m_server.AnswerAlways<wire::QueryUserRole>([this](const auto& request, auto& answer) {
        for (const UserInfo_t& user : vecUsers)
            for (const Role_t& role : vecRoles)
                if (user.sUserName == request.sUserName
                    && std::count(user.vecRoleNames.begin(), user.vecRoleNames.end(), role.sName) != 0)
                    answer.vecRoles.push_back(role);
    });
    m_server.AnswerAlways<wire::QueryRoleList>([this](const auto&, auto& answer) {
        answer.vecRoles = vecRoles;
        for (Role_t& role : answer.vecRoles) {
            role.vecMenuRights.clear();
            role.vecFuncRights.clear();
        }
    });
    m_server.AnswerAlways<wire::QueryRoleInfo>([this](const auto& request, auto& answer) -> int {
        const auto it = std::find_if(vecRoles.begin(), vecRoles.end(),
            [&](const Role_t& role) { return role.sRoleId == request.sRoleId; });
        if (it == vecRoles.end())
            return UICommonMdl::ErrorNotFound;
        answer = *it;
        return UICommonMdl::ErrorNone;
    });
    m_server.AnswerAlways<wire::QueryMenuRightList>({MenuRights()});
    m_server.AnswerAlways<wire::QueryFuncRightList>({FuncRights()});
    m_server.AnswerAlways<wire::QueryDeviceRights>(
        [](const auto& query, auto& answer) { answer.vecNodes = Children(query); });
}
