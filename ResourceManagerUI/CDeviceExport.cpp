#include "CDeviceExport.h"

#include "CDeviceModel.h"

#include <UICommonMdl/CSpreadsheetWriter.h>

namespace ResourceManagerUI {

CDeviceExport::CDeviceExport(const QString& sPath, const QVector<int>& vecColumns,
    const QStringList& listHeader, std::vector<GroupLogical::DeviceInfo_t> vecDevices)
    : m_sPath(sPath)
    , m_vecColumns(vecColumns)
    , m_listHeader(listHeader)
    , m_vecDevices(std::move(vecDevices))
{
}

QString CDeviceExport::Write() const
{
    std::size_t nNext = 0;
    return UICommonMdl::CSpreadsheetWriter::Write(
        m_sPath, QStringLiteral("Devices"), m_listHeader, [this, &nNext](QStringList& row) {
            if (nNext == m_vecDevices.size())
                return false;
            const QStringList listTexts = CDeviceModel::GetTexts(m_vecDevices[nNext++]);
            row.clear();
            for (const int nColumn : m_vecColumns)
                row.append(listTexts[nColumn]);
            return true;
        });
}

} // namespace ResourceManagerUI
