#pragma once

#include <common/CNotAvailablePage.h>

namespace ResourceManagerUI {

/// The page "Device Configuration".
class CResourceConfigManager : public Common::CNotAvailablePage
{
    Q_OBJECT

public:
    explicit CResourceConfigManager(QWidget* pParent = nullptr);
};

} // namespace ResourceManagerUI
