#include "CFuncRightModel.h"

namespace PlatformConfigUI {

CFuncRightModel::CFuncRightModel(UserLogical::IUserManager* pManager, bool bEditable, QObject* pParent)
    : CRightModel(pManager, bEditable, pParent)
{
}

int CFuncRightModel::SendQuery()
{
    return GetManager()->QueryFuncRightList();
}

void CFuncRightModel::HandleResult(const Param& param)
{
    HandleQueryFuncRightListResult(param);
}

void CFuncRightModel::HandleQueryFuncRightListResult(const Param& param)
{
    TakeRightList(param);
}

const std::vector<std::string>& CFuncRightModel::RightsOf(const UserLogical::Role_t& role) const
{
    return role.vecFuncRights;
}

} // namespace PlatformConfigUI
