#include "CDeviceExporter.h"

#include "CDeviceExport.h"
#include "CDeviceListView.h"
#include "CDeviceModel.h"

#include <common/CPage.h>
#include <common/Prompt.h>

namespace ResourceManagerUI {

using GroupLogical::IGroupManager;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceManagerCtrl)
};
} // namespace

CDeviceExporter::CDeviceExporter(Common::CPage* pPage, const CDeviceListView* pList)
    : QObject(pPage)
    , m_pPage(pPage)
    , m_pList(pList)
    , m_calls(pPage->GetInterfaceSet(), this)
    , m_transfer(pPage, this)
{
}

void CDeviceExporter::Start(const GroupLogical::DevicePageRequest_t& request)
{
    const QPointer<CDeviceExporter> guard(this);
    const QString sPath = Common::AskSaveFile(
        m_pPage, Text::tr("Export"), QStringLiteral("devices.xlsx"), QStringLiteral(".xlsx"));
    if (sPath.isEmpty() || !guard)
        return;
    m_transfer.Start(Text::tr("Exporting devices"), [this] { m_calls.ForgetAll(); });
    m_calls.Latest<&IGroupManager::ExportDevice>(
        request, [this, sPath](const Answer& pAnswer) { OnAnswer(sPath, pAnswer); });
}

void CDeviceExporter::OnAnswer(const QString& sPath, const Answer& pAnswer)
{
    if (pAnswer->nErrorCode != UICommonMdl::ErrorNone) {
        m_transfer.Finish();
        m_pPage->NotifyFailure(Text::tr("Failed to export device info"), pAnswer->nErrorCode);
        return;
    }
    QVector<int> vecColumns;
    QStringList listHeader;
    for (int nColumn = ColumnId; nColumn < ColumnOperation; ++nColumn) {
        if (m_pList->isColumnHidden(nColumn))
            continue;
        vecColumns.append(nColumn);
        listHeader.append(m_pList->GetDevices()->GetColumns()[nColumn].sHeader);
    }
    m_transfer.Write(
        [writer = CDeviceExport(sPath, vecColumns, listHeader, pAnswer)] { return writer.Write(); },
        [this](const QString& sError) { OnWritten(sError); });
}

void CDeviceExporter::OnWritten(const QString& sError)
{
    if (sError.isEmpty())
        m_pPage->Notify(Text::tr("Devices are exported."), VxGUI::NotificationKind::Success);
    else
        m_pPage->Notify(Text::tr("Failed to export device info") + QStringLiteral(": ") + sError,
            VxGUI::NotificationKind::Error);
}

} // namespace ResourceManagerUI
