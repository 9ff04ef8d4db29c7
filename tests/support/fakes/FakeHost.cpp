#include "FakeHost.h"

#include <UICommonMdl/CDepartmentModelManager.h>

namespace {

const char* const AllRights[] = {"001", "002", "003", "004", "004001", "001001", "001001001", "001001002",
    "001002", "001002001", "001002002", "001002003", "001003", "001003001", "001003002", "001003003",
    "002001", "002002", "002003", "002003001", "002004", "002005", "002006", "002006001", "002006002",
    "002006003", "002006004", "002006006", "002007", "002008", "002009", "003001", "003001001", "003001002",
    "003003", "003004", "004002", "004003"};

} // namespace

FakeHost::FakeHost()
{
    session = {"0123456789abcdef", "operator", {}, {std::begin(AllRights), std::end(AllRights)}, 10, "1"};
    user.SetSession(session);
    server.AnswerAlways<wire::GetSession>([this](const auto&, auto& answer) { answer = session; });
    server.SetEventHandler(
        [this](const std::string& sName, const std::string& sData) { m_router.OnEvent(sName, sData); });
    interfaceSet.AddAbstractResourceManager(this);
    UICommonMdl::CDepartmentModelManager::Instance()->SetAccessControlManager(&access);
    m_nOwnObservers = CountObservers();
}

FakeHost::~FakeHost()
{
    UICommonMdl::CDepartmentModelManager::Instance()->SetAccessControlManager(nullptr);
    // What is open is answered while the managers that it belongs to still stand.
    server.Stop();
}

VxPluginAPI::IManager* FakeHost::FindManager(const std::string& sInterfaceId)
{
    const std::map<std::string, VxPluginAPI::IManager*> mapManagers = {
        {AccessControlLogical::IAccessControlManager::InterfaceId, &access},
        {GroupLogical::IGroupManager::InterfaceId, &group},
        {RemoteConfigLogical::IRemoteConfigManager::InterfaceId, &remote},
        {UserLogical::IUserManager::InterfaceId, &user}, {UICommonMdl::ILocalConfig::InterfaceId, &config},
        {UICommonMdl::ITransferManager::InterfaceId, static_cast<UICommonMdl::ITransferManager*>(&transfer)}};
    const auto it = mapManagers.find(sInterfaceId);
    return it == mapManagers.end() ? nullptr : it->second;
}

void FakeHost::ApplySession()
{
    server.Push(wire::event::RightsChanged);
}

void FakeHost::SetMissingRights(const std::set<std::string>& setMissing)
{
    session.vecRights.clear();
    std::copy_if(std::begin(AllRights), std::end(AllRights), std::back_inserter(session.vecRights),
        [&](const std::string& sRight) { return setMissing.count(sRight) == 0; });
    ApplySession();
}

void FakeHost::PushConnected(bool bConnected)
{
    server.SetReachable(bConnected);
    server.Run([this, bConnected] { m_router.SetConnected(bConnected); });
}

int FakeHost::CountObservers() const
{
    return user.nObservers + group.nObservers + remote.nObservers + access.nObservers - m_nOwnObservers;
}
