#pragma once

#include <QString>

#include <string>

namespace PlatformConfigUI {

/// How the filter of a rights tree decides on a node before it looks at the text.
enum RightFilterMode : int
{
    RightFilterOperator = 0, ///< all but what only administrators give
    RightFilterAdministrator = 1, ///< all but the services of the platform
    RightFilterKind = 2, ///< what the kind of the node lets through
};

/// The mode that goes with the host's text on what the signed-in user may give.
int GetRightFilterMode(const std::string& sTypeText);
/// bOwn: the node's own check passes, that is, the signed-in user has the right himself.
bool PassesRightFilter(int nMode, int nKind, bool bOwn, const QString& sCode);
/// Code of the right above; empty: it is at the top.
QString GetParentCode(const QString& sCode);

} // namespace PlatformConfigUI
