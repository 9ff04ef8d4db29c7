#pragma once

#include <QIcon>
#include <QString>
#include <QVector>

#include <string>

namespace UICommonMdl {

/// One entry that the signed-in user may open.
struct MenuRightEntry
{
    std::string sName; ///< name of the entry's widget
    unsigned int nEntryId = 0; ///< number of the entry
};

/// One entry of a panel.
struct PanelTabItem
{
    QIcon icon;
    QString sPluginId;
    QString sWidgetName;
    QString sTitle;
    int nFlag = 0;
};

} // namespace UICommonMdl
