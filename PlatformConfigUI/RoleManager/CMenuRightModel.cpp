#include "CMenuRightModel.h"

namespace PlatformConfigUI {

void CMenuRightModel::SendQuery(Calls& calls)
{
    calls.Latest<&UserLogical::IUserManager::QueryMenuRightList>(
        [this](const Param& param) { TakeRightList(param); });
}

const std::vector<std::string>& CMenuRightModel::RightsOf(const UserLogical::Role_t& role) const
{
    return role.vecMenuRights;
}

} // namespace PlatformConfigUI
