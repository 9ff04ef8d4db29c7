#include "CDeviceExport.h"

#include "CDeviceModel.h"

#include <UICommonMdl/CSpreadsheetWriter.h>

namespace ResourceManagerUI {

CDeviceExport::CDeviceExport(const QString& sPath, const QVector<int>& vecColumns,
    const QStringList& listHeader, GroupLogical::IGroupManagerObserver::Answer pAnswer)
    : m_sPath(sPath)
    , m_vecColumns(vecColumns)
    , m_listHeader(listHeader)
    , m_pAnswer(std::move(pAnswer))
{
}

QString CDeviceExport::Write() const
{
    const std::vector<GroupLogical::DeviceInfo_t>& vecDevices = m_pAnswer->devicePage.vecDevices;
    std::size_t nNext = 0;
    return UICommonMdl::CSpreadsheetWriter::Write(
        m_sPath, QStringLiteral("Devices"), m_listHeader, [this, &vecDevices, &nNext](QStringList& row) {
            if (nNext == vecDevices.size())
                return false;
            const QStringList listTexts = CDeviceModel::GetTexts(vecDevices[nNext++]);
            row.clear();
            for (const int nColumn : m_vecColumns)
                row.append(listTexts[nColumn]);
            return true;
        });
}

} // namespace ResourceManagerUI
