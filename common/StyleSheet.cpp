#include "StyleSheet.h"

#include <Trv/QSkin.h>

#include <QWidget>

namespace Common {

void LoadStyleSheet(QWidget* pWidget, const QString& sSkinFolder)
{
    QString sStyleSheet;
    const QString sPath = Trv::GetSkinPath(pWidget->objectName() + QStringLiteral(".qss"), sSkinFolder);
    if (Trv::loadStyleSheet(sPath, sStyleSheet) && sStyleSheet != pWidget->styleSheet())
        pWidget->setStyleSheet(sStyleSheet);
}

} // namespace Common
