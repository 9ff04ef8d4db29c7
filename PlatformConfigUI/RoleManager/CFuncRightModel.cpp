#include "CFuncRightModel.h"

namespace PlatformConfigUI {

void CFuncRightModel::SendQuery(Calls& calls)
{
    calls.Latest<&UserLogical::IUserManager::QueryFuncRightList>(
        [this](const Param& param) { TakeRightList(param); });
}

const std::vector<std::string>& CFuncRightModel::RightsOf(const UserLogical::Role_t& role) const
{
    return role.vecFuncRights;
}

} // namespace PlatformConfigUI
