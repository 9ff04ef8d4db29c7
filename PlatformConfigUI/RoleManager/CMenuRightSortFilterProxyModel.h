#pragma once

#include "CRightSortFilterProxyModel.h"

namespace PlatformConfigUI {

/// The filter of the menu rights.
class CMenuRightSortFilterProxyModel : public CRightSortFilterProxyModel
{
    Q_OBJECT

public:
    using CRightSortFilterProxyModel::CRightSortFilterProxyModel;
};

} // namespace PlatformConfigUI
