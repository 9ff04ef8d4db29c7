#pragma once

#include "CRightModel.h"

namespace PlatformConfigUI {

/// The rights to open entries of the menus.
class CMenuRightModel : public CRightModel
{
    Q_OBJECT

public:
    CMenuRightModel(UserLogical::IUserManager* pManager, bool bEditable, QObject* pParent = nullptr);

protected:
    int SendQuery() override;
    void HandleResult(const Param& param) override;
    const std::vector<std::string>& RightsOf(const UserLogical::Role_t& role) const override;

private:
    void HandleQueryMenuRightListResult(const Param& param);
};

} // namespace PlatformConfigUI
