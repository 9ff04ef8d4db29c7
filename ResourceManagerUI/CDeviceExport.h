#pragma once

#include <GroupLogical/GroupRecords.h>

#include <QStringList>
#include <QVector>

#include <vector>

namespace ResourceManagerUI {

/// Writes a list of devices to a spreadsheet. Holds what it needs, so that it can run on any thread.
class CDeviceExport
{
public:
    /// vecColumns are columns of the device table, in the order in which they are written.
    CDeviceExport(const QString& sPath, const QVector<int>& vecColumns, const QStringList& listHeader,
        std::vector<GroupLogical::DeviceInfo_t> vecDevices);

    /// Answers an error text, empty on success.
    QString Write() const;

private:
    QString m_sPath;
    QVector<int> m_vecColumns;
    QStringList m_listHeader;
    std::vector<GroupLogical::DeviceInfo_t> m_vecDevices;
};

} // namespace ResourceManagerUI
