#pragma once

#include <QString>

namespace Common {

/// Codes of the device categories that this module treats by name.
enum DeviceCategory : int
{
    CategoryAll = 0, ///< as a filter: every category
    CategoryLiftController = 50, ///< has a filter, but no text in the list
};

/// Translated text of a category; empty for a code without one.
QString GetCategoryText(int nCategory);
/// Text of a category as a filter: as above, and the lift controller has one too. "All" for 0.
QString GetCategoryFilterText(int nCategory);
/// Translated text of an access direction (0 to 3); empty for another value.
QString GetAccessDirectionText(int nDirection);
/// Translated text of a GroupLogical::OfflineReason; empty for ReasonNone and unknown ones.
QString GetOfflineReasonText(int nReason);

} // namespace Common
