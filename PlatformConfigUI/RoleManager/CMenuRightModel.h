#pragma once

#include "CRightModel.h"

namespace PlatformConfigUI {

/// The rights to open entries of the menus.
class CMenuRightModel : public CRightModel
{
    Q_OBJECT

public:
    using CRightModel::CRightModel;

protected:
    void SendQuery(Calls& calls) override;
    const std::vector<std::string>& RightsOf(const UserLogical::Role_t& role) const override;
};

} // namespace PlatformConfigUI
