#include "CBackupRestoreWidget.h"

namespace SystemConfigUI {

CBackupRestoreWidget::CBackupRestoreWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"003004", "BackupRestoreWidget", QT_TRANSLATE_NOOP("CBackupRestoreWidget", "Backup and Restore"),
            "CBackupRestoreWidget", QStringLiteral("SystemConfigUI/BackupRestore"),
            QStringLiteral("backupandrestore.png"), QStringLiteral("backupandrestore-d.png")})
{
}

} // namespace SystemConfigUI
