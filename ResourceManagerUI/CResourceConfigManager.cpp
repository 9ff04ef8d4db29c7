#include "CResourceConfigManager.h"

#include <QCoreApplication>

namespace ResourceManagerUI {

CResourceConfigManager::CResourceConfigManager(QWidget* pParent)
    : CNotAvailablePage(QCoreApplication::translate("CResourceManager", "Device Configuration"), pParent)
{
}

} // namespace ResourceManagerUI
