#include "StyleSheet.h"

#include <Trv/QSkin.h>

#include <QWidget>

namespace Common {

void LoadStyleSheet(QWidget* pWidget, const QString& sSkinFolder)
{
    QString sStyleSheet;
    const QString sPath = Trv::GetSkinPath(pWidget->objectName() + QStringLiteral(".qss"), sSkinFolder);
    if (!Trv::loadStyleSheet(sPath, sStyleSheet) || sStyleSheet == pWidget->styleSheet())
        return;
    // Below a window with a sheet of its own Qt looks at what is polished already only if the widget itself
    // is.
    pWidget->ensurePolished();
    pWidget->setStyleSheet(sStyleSheet);
}

} // namespace Common
