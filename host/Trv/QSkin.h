#pragma once

#include <Trv/TrvExport.h>

#include <QColor>
#include <QIcon>
#include <QString>

namespace Trv {

/// Path of a file of the current skin: sFile in the skin directory sFolder
/// ("ResourceManagerUI/DeviceManager"). The path is answered also when no such file exists. Any thread.
TRV_EXPORT QString GetSkinPath(const QString& sFile, const QString& sFolder);

/// Reads the style sheet at sPath into sStyleSheet. False, with sStyleSheet untouched, when it cannot be read
/// or is empty. Any thread.
TRV_EXPORT bool loadStyleSheet(const QString& sPath, QString& sStyleSheet);

/// Icon of the current skin from the common set ("add", "delete", "refresh": the names of skin/icons.map),
/// with its disabled state. Null for an unknown name.
TRV_EXPORT QIcon GetIcon(const QString& sName);

/// Value of a colour token of the current skin ("danger", "text-muted"); invalid for an unknown name.
TRV_EXPORT QColor GetColor(const QString& sToken);

/// The skins that exist ("light", "dark"), the one in use, and switching (before widgets are built, or
/// followed by a new load of all style sheets: showing a page loads its own again).
TRV_EXPORT QStringList GetSkins();
TRV_EXPORT QString GetSkin();
TRV_EXPORT bool SetSkin(const QString& sSkin);

/// The folder that holds the skins; found beside the program or given by the client.
TRV_EXPORT void SetSkinRoot(const QString& sFolder);

} // namespace Trv
