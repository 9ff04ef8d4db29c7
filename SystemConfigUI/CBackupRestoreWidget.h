#pragma once

#include <common/CEntryWidget.h>

namespace SystemConfigUI {

/// The entry "Backup and Restore".
class CBackupRestoreWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CBackupRestoreWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace SystemConfigUI
