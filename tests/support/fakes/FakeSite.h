#pragma once

#include "FakeServer.h"

/// A small site as the server knows it. What it serves is answered at once, from what stands here then.
class FakeSite
{
public:
    explicit FakeSite(FakeServer& server)
        : m_server(server)
    {
    }

    /// A tree of organisations, the devices below, of which there are said to be 60, their categories.
    void ServeDevices();
    /// A tree of groups, the persons below, of which there are said to be 60, what their permissions are
    /// chosen from; details are those of vecDetails, or the ID and name of the row.
    void ServePersons();
    /// Users, of which there are said to be 60, roles with their rights, the platform's rights, and a tree of
    /// two organisations with devices and channels.
    void ServeUsers();

    std::vector<GroupLogical::Organization_t> vecOrganizations;
    std::vector<GroupLogical::DeviceInfo_t> vecDevices;
    std::vector<AccessControlLogical::Department_t> vecDepartments;
    std::vector<AccessControlLogical::PersonInfo_t> vecPersons;
    std::vector<AccessControlLogical::Person_t> vecDetails;
    std::vector<UserLogical::UserInfo_t> vecUsers;
    std::vector<UserLogical::Role_t> vecRoles;

private:
    FakeServer& m_server;
};
