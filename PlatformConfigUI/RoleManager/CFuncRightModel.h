#pragma once

#include "CRightModel.h"

namespace PlatformConfigUI {

/// The rights to single functions of the pages.
class CFuncRightModel : public CRightModel
{
    Q_OBJECT

public:
    CFuncRightModel(UserLogical::IUserManager* pManager, bool bEditable, QObject* pParent = nullptr);

protected:
    int SendQuery() override;
    void HandleResult(const Param& param) override;
    const std::vector<std::string>& RightsOf(const UserLogical::Role_t& role) const override;

private:
    void HandleQueryFuncRightListResult(const Param& param);
};

} // namespace PlatformConfigUI
