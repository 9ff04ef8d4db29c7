#include "CMenuRightModel.h"

namespace PlatformConfigUI {

CMenuRightModel::CMenuRightModel(UserLogical::IUserManager* pManager, bool bEditable, QObject* pParent)
    : CRightModel(pManager, bEditable, pParent)
{
}

int CMenuRightModel::SendQuery()
{
    return GetManager()->QueryMenuRightList();
}

void CMenuRightModel::HandleResult(const Param& param)
{
    HandleQueryMenuRightListResult(param);
}

void CMenuRightModel::HandleQueryMenuRightListResult(const Param& param)
{
    TakeRightList(param);
}

const std::vector<std::string>& CMenuRightModel::RightsOf(const UserLogical::Role_t& role) const
{
    return role.vecMenuRights;
}

} // namespace PlatformConfigUI
