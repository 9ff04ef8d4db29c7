// Saving roles against the bare insert of their rows, and what the rights of an account cost a page query.

#include "Bench.h"
#include "BenchServer.h"
#include "ServerCalls.h"

#include <server/store/Database.h>

namespace {

using namespace UserLogical;

constexpr int Devices = 100000;
constexpr int Roles = 40;
constexpr int CamerasOfARole = 4000;
constexpr int FirstDevice = 1000001;
constexpr int PageRuns = 200;
constexpr int PageSize = 20; ///< as the client asks for unless the user chose another
constexpr const char* Password = "Lantern-42";

DeviceRightChange_t Camera(int nNumber)
{
    return {DeviceNodeDevice, std::to_string(FirstDevice + nNumber), 0, 0, DeviceRightChange_t::On,
        DeviceRightChange_t::Keep};
}

/// Role nRole has every 25th device, from another one on.
int CameraOf(int nRole, int nCamera)
{
    return nCamera * (Devices / CamerasOfARole) + nRole % (Devices / CamerasOfARole);
}

BenchResult BenchSave(httplib::Client& client, const std::string& sToken, const QString& sDatabase)
{
    std::vector<RoleEdit_t> vecEdits(Roles + 1);
    for (int nRole = 0; nRole <= Roles; ++nRole) {
        RoleEdit_t& edit = vecEdits[static_cast<std::size_t>(nRole)];
        edit.role.sName = "Cameras " + std::to_string(nRole);
        edit.role.vecMenuRights = {"001001"};
        for (int nCamera = 0; nCamera < CamerasOfARole; ++nCamera)
            edit.vecChanges.push_back(Camera(CameraOf(nRole, nCamera)));
    }
    int nSaved = 0;
    const auto save = [&] {
        ServerCalls::Call<wire::AddRole>(client, vecEdits[static_cast<std::size_t>(nSaved)], sToken);
        ++nSaved;
    };
    Platform::Database database(Platform::DatabaseAddress{sDatabase});
    int nBare = 0;
    const auto insert = [&] {
        const qlonglong nRole = 500000 + nBare;
        Platform::Transaction transaction(database);
        database.Run(QStringLiteral("INSERT INTO role (id, name, name_key) VALUES (?, ?, ?)"),
            {nRole, QString::number(nRole), QString::number(nRole)});
        for (int nCamera = 0; nCamera < CamerasOfARole; ++nCamera)
            database.Run(
                QStringLiteral("INSERT INTO role_device (role_id, device_id, whole) VALUES (?, ?, 1)"),
                {nRole, FirstDevice + CameraOf(nBare, nCamera)});
        transaction.Commit();
        ++nBare;
    };
    const Medians medians = MedianPairMs(Roles, save, insert);
    return {QStringLiteral("roles: saving 40 with 4,000 cameras each, against the bare insert of their rows"),
        medians.dFirst * Roles, medians.dSecond * Roles, QStringLiteral("ms"), 2.0};
}

/// Token of an account whose one role names every device there is.
std::string AddRestricted(httplib::Client& client, const std::string& sToken)
{
    RoleEdit_t edit;
    edit.role.sName = "Everything named";
    edit.role.vecMenuRights = {"001001"};
    edit.vecChanges = {
        {DeviceNodeOrganization, "001", 0, 0, DeviceRightChange_t::On, DeviceRightChange_t::Keep}};
    User_t user;
    user.sUserName = "restricted";
    user.sPassword = Password;
    user.vecRoleIds = {ServerCalls::Call<wire::AddRole>(client, edit, sToken).sRoleId};
    ServerCalls::Call<wire::AddUser>(client, user, sToken);
    return ServerCalls::Call<wire::SignIn>(client, {"restricted", Password, {}, {}}, {}).sToken;
}

BenchResult BenchPages(httplib::Client& client, const std::string& sToken)
{
    const std::string sRestricted = AddRestricted(client, sToken);
    int nPage = 0;
    const auto turn = [&](const std::string& sWhose) {
        GroupLogical::DevicePageRequest_t request;
        request.nPageSize = PageSize;
        request.nPage = ++nPage / 2 + 1;
        ServerCalls::Call<wire::QueryDevicePage>(client, request, sWhose);
    };
    const Medians medians = MedianPairMs(
        PageRuns, [&] { turn(sRestricted); }, [&] { turn(sToken); });
    return {QStringLiteral("rights: device page of an account whose role names 100,000 devices, against the "
                           "account that has all"),
        medians.dFirst, medians.dSecond, QStringLiteral("ms"), 1.1};
}

} // namespace

std::vector<BenchResult> BenchAccounts()
{
    BenchServer server(Devices);
    httplib::Client client(server.Url().host().toStdString(), server.Url().port());
    client.set_keep_alive(true);
    client.set_tcp_nodelay(true);
    client.set_read_timeout(60);
    const std::string sPassword = server.Password().toStdString();
    ServerCalls::Call<wire::SetUp>(client, {sPassword}, {});
    const std::string sToken =
        ServerCalls::Call<wire::SignIn>(client, {"system", sPassword, {}, {}}, {}).sToken;
    std::vector<BenchResult> vecResults{BenchPages(client, sToken)};
    vecResults.push_back(BenchSave(client, sToken, server.DatabasePath()));
    return vecResults;
}
