#include "StyleSheet.h"

#include <Trv/QSkin.h>

#include <QStyle>
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

void SetButtonRole(QWidget* pButton, const QString& sRole)
{
    pButton->setProperty("role", sRole);
    pButton->style()->unpolish(pButton);
    pButton->style()->polish(pButton);
}

} // namespace Common
