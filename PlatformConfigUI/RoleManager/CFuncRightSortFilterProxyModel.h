#pragma once

#include "CRightSortFilterProxyModel.h"

namespace PlatformConfigUI {

/// The filter of the function rights.
class CFuncRightSortFilterProxyModel : public CRightSortFilterProxyModel
{
    Q_OBJECT

public:
    using CRightSortFilterProxyModel::CRightSortFilterProxyModel;
};

} // namespace PlatformConfigUI
