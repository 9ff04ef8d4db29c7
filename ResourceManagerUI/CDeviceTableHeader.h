#pragma once

#include <common/CFilterHeaderView.h>

#include <vector>

namespace ResourceManagerUI {

/// Header of the device table: filters of type and online state.
class CDeviceTableHeader : public Common::CFilterHeaderView
{
    Q_OBJECT

public:
    explicit CDeviceTableHeader(QWidget* pParent = nullptr);

    /// The categories to choose from, beside "All".
    void SetCategories(const std::vector<int>& vecCategories);

Q_SIGNALS:
    void SignalFilterTypeChanged(int nCategory);
    void sgnBtnClicked(int nOnlineState);
};

} // namespace ResourceManagerUI
