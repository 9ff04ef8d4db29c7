#include "CDeviceExporter.h"

#include "CDeviceExport.h"
#include "CDeviceListView.h"
#include "CDeviceModel.h"

#include <VxGUI/VxDialogService.h>
#include <VxGUI/VxWaitDialog.h>
#include <common/CPage.h>

#include <QtConcurrent>

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
{
    connect(&m_written, &QFutureWatcher<QString>::finished, this, &CDeviceExporter::OnWritten);
}

CDeviceExporter::~CDeviceExporter()
{
    m_written.waitForFinished();
}

void CDeviceExporter::Start(const GroupLogical::DevicePageRequest_t& request)
{
    const QPointer<CDeviceExporter> guard(this);
    QString sPath = VxGUI::VxDialogService::Current()->SaveFile(
        m_pPage, Text::tr("Export"), QStringLiteral("devices.xlsx"), QStringLiteral("*.xlsx"));
    if (sPath.isEmpty() || !guard)
        return;
    if (!sPath.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive))
        sPath += QStringLiteral(".xlsx");
    m_calls.Latest<&IGroupManager::ExportDevice>(
        request, [this, sPath](const Answer& pAnswer) { OnAnswer(sPath, pAnswer); });
    m_pWaitDialog = new VxGUI::VxWaitDialog(Text::tr("Exporting devices"), m_pPage);
    m_pWaitDialog->setAttribute(Qt::WA_DeleteOnClose);
    m_pWaitDialog->SetProgress(-1);
    m_pWaitDialog->SetCancellable(false);
    m_pWaitDialog->open();
}

void CDeviceExporter::OnAnswer(const QString& sPath, const Answer& pAnswer)
{
    if (pAnswer->nErrorCode != UICommonMdl::ErrorNone) {
        CloseWaitDialog();
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
    m_written.setFuture(QtConcurrent::run(
        [writer = CDeviceExport(sPath, vecColumns, listHeader, pAnswer)] { return writer.Write(); }));
}

void CDeviceExporter::OnWritten()
{
    CloseWaitDialog();
    const QString sError = m_written.result();
    if (sError.isEmpty())
        m_pPage->Notify(Text::tr("Devices are exported."), VxGUI::NotificationKind::Success);
    else
        m_pPage->Notify(Text::tr("Failed to export device info") + QStringLiteral(": ") + sError,
            VxGUI::NotificationKind::Error);
}

void CDeviceExporter::CloseWaitDialog()
{
    if (m_pWaitDialog)
        m_pWaitDialog->accept();
}

} // namespace ResourceManagerUI
