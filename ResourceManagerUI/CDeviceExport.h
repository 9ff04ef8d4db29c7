#pragma once

#include <GroupLogical/IGroupManager.h>

#include <QStringList>
#include <QVector>

namespace ResourceManagerUI {

/// Writes the devices of an answer to a spreadsheet. Shares the answer, so that it can run on any thread.
class CDeviceExport
{
public:
    /// vecColumns are columns of the device table, in the order in which they are written.
    CDeviceExport(const QString& sPath, const QVector<int>& vecColumns, const QStringList& listHeader,
        GroupLogical::IGroupManagerObserver::Answer pAnswer);

    /// Answers an error text, empty on success.
    QString Write() const;

private:
    QString m_sPath;
    QVector<int> m_vecColumns;
    QStringList m_listHeader;
    GroupLogical::IGroupManagerObserver::Answer m_pAnswer;
};

} // namespace ResourceManagerUI
