#include "Context.h"

#include "RightsService.h"

#include <sstream>

namespace Platform {

const DeviceScope& Context::Scope() const
{
    static const DeviceScope s_nothing;
    return pRights ? pRights->scope : s_nothing;
}

bool Context::HasRights(const std::string& sCodes) const
{
    std::istringstream codes(sCodes);
    std::string sCode;
    while (codes >> sCode)
        if (!pRights || pRights->setCodes.count(sCode) == 0)
            return false;
    return true;
}

} // namespace Platform
