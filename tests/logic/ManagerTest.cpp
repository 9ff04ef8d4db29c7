#include "ConnectionFixture.h"

#include <AccessControlLogical/IAccessControlManager.h>
#include <GroupLogical/IGroupManager.h>
#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <UICommonMdl/ErrorCodes.h>
#include <UserLogical/IUserManager.h>

#include <gmock/gmock.h>

#include <mutex>

using AccessControlLogical::IAccessControlManager;
using GroupLogical::IGroupManager;
using RemoteConfigLogical::IRemoteConfigManager;
using UserLogical::IUserManager;

namespace {

struct Heard
{
    int nSequence;
    int nErrorCode;
};

/// Observes all managers and keeps what comes on the network thread.
class Listener : public GroupLogical::IGroupManagerObserver,
                 public RemoteConfigLogical::IRemoteDeviceObserver,
                 public RemoteConfigLogical::ISystemConfigObserver,
                 public UserLogical::IUserManagerObserve,
                 public AccessControlLogical::IDepartmentManagerObserver,
                 public AccessControlLogical::IPersonManagerObserver,
                 public AccessControlLogical::IAccessControlManagerObserver
{
public:
    void OnNotifyGroupManagerState(const IGroupManagerObserver::Answer& pAnswer) override { Keep(*pAnswer); }
    void OnNotifyRemoteDeviceState(const IRemoteDeviceObserver::Answer& pAnswer) override { Keep(*pAnswer); }
    void OnNotifySystemConfigState(const ISystemConfigObserver::Answer& pAnswer) override { Keep(*pAnswer); }
    void OnNotifyUserManagerState(const IUserManagerObserve::Answer& pAnswer) override { Keep(*pAnswer); }
    void OnNotifyDepartmentManagerState(const IDepartmentManagerObserver::Answer& pAnswer) override
    {
        Keep(*pAnswer);
    }
    void OnNotifyPersonManagerState(const IPersonManagerObserver::Answer& pAnswer) override
    {
        Keep(*pAnswer);
    }
    void OnNotifyAccessControlManagerState(const IAccessControlManagerObserver::Answer& pAnswer) override
    {
        Keep(*pAnswer);
    }
    std::vector<Heard> All()
    {
        const std::lock_guard lock(m_mutex);
        return m_vecHeard;
    }

private:
    template <class Param>
    void Keep(const Param& param)
    {
        const std::lock_guard lock(m_mutex);
        m_vecHeard.push_back({param.nSequence, param.nErrorCode});
    }

    std::mutex m_mutex;
    std::vector<Heard> m_vecHeard;
};

class ManagerTest : public ConnectionFixture
{
protected:
    ManagerTest()
    {
        AddObserver<IGroupManager, GroupLogical::IGroupManagerObserver>();
        AddObserver<IRemoteConfigManager, RemoteConfigLogical::IRemoteDeviceObserver>();
        AddObserver<IRemoteConfigManager, RemoteConfigLogical::ISystemConfigObserver>();
        AddObserver<IUserManager, UserLogical::IUserManagerObserve>();
        AddObserver<IAccessControlManager, AccessControlLogical::IDepartmentManagerObserver>();
        AddObserver<IAccessControlManager, AccessControlLogical::IPersonManagerObserver>();
        AddObserver<IAccessControlManager, AccessControlLogical::IAccessControlManagerObserver>();
    }
    ~ManagerTest() override { m_pClient.reset(); }

    template <class Manager>
    Manager* Find()
    {
        return dynamic_cast<Manager*>(m_pClient->FindManager(Manager::InterfaceId));
    }
    template <class Manager, class Observer>
    void AddObserver()
    {
        auto* const pManager = Find<Manager>();
        ASSERT_TRUE(pManager) << Manager::InterfaceId;
        pManager->AddObserver(static_cast<Observer*>(&m_listener));
    }
    /// Calls operations of one manager with empty arguments.
    template <class Manager, class... Operations>
    std::vector<int> CallAll(Operations... operations)
    {
        return {Call(*Find<Manager>(), operations)...};
    }
    template <class Manager, class... Arguments>
    static int Call(Manager& manager, int (Manager::*operation)(Arguments...))
    {
        return (manager.*operation)(std::decay_t<Arguments>()...);
    }
    std::vector<int> CallAll();

    Listener m_listener;
};

std::vector<int> ManagerTest::CallAll()
{
    using G = IGroupManager;
    using R = IRemoteConfigManager;
    using U = IUserManager;
    using A = IAccessControlManager;
    std::vector<int> vecNumbers;
    const auto append = [&](const std::vector<int>& vecMore) {
        vecNumbers.insert(vecNumbers.end(), vecMore.begin(), vecMore.end());
    };
    append(CallAll<G>(&G::QueryOrganizations, &G::AddOrganization, &G::ModifyOrganization,
        &G::DeleteOrganization, &G::MoveOrganization, &G::QueryDevicePage, &G::ExportDevice,
        &G::QueryDeviceDetail, &G::QueryDeviceReferences, &G::DeleteDevice, &G::MoveDevice,
        &G::QueryDeviceTypes, &G::AddDevice, &G::ModifyDevice, &G::ImportUploaded));
    GroupLogical::ImportRequest_t import;
    import.vecRows.resize(1);
    append({Find<G>()->ImportDevice(import)});
    append(CallAll<R>(&R::QueryDictionary, &R::QueryFeatures, &R::QueryVideoServers, &R::QueryTimeZone,
        &R::SearchOnlineDevice, &R::InitializeDevice, &R::ModifyAddress, &R::ModifyDevicePassword,
        &R::SetDeviceTimeZone, &R::QueryP2PDeviceList));
    append(CallAll<U>(&U::QueryUserPage, &U::QueryUserInfo, &U::AddUser, &U::ModifyUser, &U::LockUser,
        &U::UnlockUser, &U::DeleteUsers, &U::QueryUserRole, &U::QueryRoleList, &U::QueryRoleInfo, &U::AddRole,
        &U::ModifyRole, &U::DeleteRoles, &U::QueryMenuRightList, &U::QueryFuncRightList,
        &U::QueryDeviceRights, &U::QueryDeviceAccess, &U::QueryDomainUsers, &U::AddDomainUsers,
        &U::QueryInvalidDomainUsers, &U::DeleteInvalidDomainUsers, &U::QueryAuditPage, &U::ExportAudit));
    append(CallAll<A>(&A::QueryDepartmentTree, &A::AddDepartment, &A::ModifyDepartment, &A::DeleteDepartment,
        &A::QueryPersonList, &A::QueryPersonDetail, &A::AddPerson, &A::ModifyPerson, &A::DeletePersons,
        &A::DeleteAllPersons, &A::MovePersons, &A::IssueCards, &A::AuthorizePersons, &A::ReissuePersonRight,
        &A::QueryAuthorizeException, &A::QueryPermissionChoices, &A::QueryResidenceScenario, &A::QueryQrCode,
        &A::CaptureFingerprint, &A::ExtractPersons, &A::QueryRecordTotal, &A::QueryRecords));
    return vecNumbers;
}

} // namespace

TEST_F(ManagerTest, EachCallIsRefusedWithoutASessionAndElseAnsweredOnce)
{
    EXPECT_THAT(CallAll(), testing::Each(testing::Le(0)));
    SignIn();
    // The server knows none of the operations.
    const std::vector<int> vecNumbers = CallAll();
    EXPECT_THAT(vecNumbers, testing::Each(testing::Gt(0)));
    WaitFor([&] {
        return m_pClient->GetOpenRequestCount() == 0 && m_listener.All().size() >= vecNumbers.size();
    });
    std::vector<int> vecHeard;
    for (const Heard& heard : m_listener.All()) {
        vecHeard.push_back(heard.nSequence);
        EXPECT_EQ(heard.nErrorCode, UICommonMdl::ErrorUnknownOperation) << heard.nSequence;
    }
    EXPECT_THAT(vecHeard, testing::UnorderedElementsAreArray(vecNumbers));

    m_pClient->SignOut();
    WaitFor([&] { return m_server.RequestCount(QStringLiteral("/api/v1/session/sign-out")) == 1; });
    EXPECT_TRUE(Find<IUserManager>()->GetMenuRights().empty());
    EXPECT_EQ(Find<IUserManager>()->GetToken(), "");
    EXPECT_THAT(CallAll(), testing::Each(testing::Le(0)));
}
