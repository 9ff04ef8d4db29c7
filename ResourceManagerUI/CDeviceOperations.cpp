#include "CDeviceOperations.h"

#include "CBatchDeleteDeviceDlg.h"
#include "CDevMove.h"
#include "CDeviceAccessDlg.h"
#include "CDeviceModel.h"
#include "DeviceRules.h"
#include "DeviceSettings/CBulkResetPassword.h"
#include "DeviceSettings/CDevTimeZone.h"

#include <UICommonMdl/CErrorCode.h>
#include <common/CFailureListDlg.h>
#include <common/COrganizationModel.h>
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

CDeviceOperations::CDeviceOperations(
    Common::CPage* pPage, CDeviceModel* pDevices, const Common::COrganizationModel* pOrganizations)
    : QObject(pPage)
    , m_pPage(pPage)
    , m_pDevices(pDevices)
    , m_pOrganizations(pOrganizations)
    , m_calls(pPage->GetInterfaceSet(), this)
{
}

bool CDeviceOperations::IsSomethingChosen(const QStringList& listIds)
{
    if (listIds.isEmpty())
        m_pPage->Notify(Text::tr("You must select an item at least."), VxGUI::NotificationKind::Warning);
    return !listIds.isEmpty();
}

void CDeviceOperations::Delete(const QStringList& listIds)
{
    if (!IsSomethingChosen(listIds))
        return;
    QStringList listNames;
    QHash<QString, QString> mapNames;
    for (const QString& sId : listIds) {
        listNames.append(m_pDevices->GetLabel(sId));
        mapNames.insert(sId, listNames.last());
    }
    const QString sQuestion = listIds.size() == 1 ? Text::tr("Are you sure to delete the device?")
                                                  : Text::tr("Are you sure to delete these devices?");
    if (!Common::AskDelete(m_pPage, sQuestion, listNames))
        return;
    auto* const pDialog = new CBatchDeleteDeviceDlg(
        m_pPage->GetInterfaceSet(), GroupLogical::DeleteNormal, listIds.toVector(), mapNames, m_pPage);
    connect(pDialog, &CBatchDeleteDeviceDlg::SignalGone, m_pDevices, &CDeviceModel::ForgetIds);
    connect(pDialog, &QDialog::finished, this, &CDeviceOperations::SignalChanged);
    pDialog->open();
    pDialog->Start();
}

void CDeviceOperations::MoveTo(const QStringList& listIds)
{
    auto* const pDialog = new CDevMove(m_pOrganizations->GetOrganizations(), listIds, m_pPage);
    connect(pDialog, &CDevMove::SignalShowNotify, m_pPage,
        [this](const QString& sText) { m_pPage->Notify(sText, VxGUI::NotificationKind::Warning); });
    connect(pDialog, &CDevMove::SignalMove, this, &CDeviceOperations::Move);
    pDialog->open();
}

void CDeviceOperations::Move(const QVector<QString>& vecIds, const QString& sOrgCode)
{
    for (int nFirst = 0; nFirst < vecIds.size(); nFirst += MoveBatchSize) {
        std::vector<std::string> vecBatch;
        for (const QString& sId : vecIds.mid(nFirst, MoveBatchSize))
            vecBatch.push_back(sId.toStdString());
        m_calls.Each<&IGroupManager::MoveDevice>(
            vecBatch, sOrgCode.toStdString(), [this](const Param& param) { OnMoveAnswer(param); });
    }
}

void CDeviceOperations::OnMoveAnswer(const Param& param)
{
    QVector<Common::Failure> vecFailures;
    for (const GroupLogical::FailedItem_t& item : param.vecFailed) {
        const QString sName = item.sName.empty() ? m_pDevices->GetLabel(QString::fromStdString(item.sId))
                                                 : QString::fromStdString(item.sName);
        vecFailures.append({sName, UICommonMdl::CErrorCode::GetErroCodeInfor(item.nErrorCode)});
    }
    Q_EMIT SignalChanged();
    m_pPage->TellFailures(Text::tr("Failed to move device"), vecFailures, param.nErrorCode);
}

void CDeviceOperations::ModifyPasswords(const QStringList& listIds)
{
    if (!IsSomethingChosen(listIds))
        return;
    auto* const pDialog = new CBulkResetPassword(m_pPage->GetInterfaceSet(), listIds, m_pPage);
    // Good news or bad: the dialog tells it in words.
    connect(pDialog, &CBulkResetPassword::SignalShowNotify, m_pPage,
        [this](const QString& sText) { m_pPage->Notify(sText, VxGUI::NotificationKind::Information); });
    pDialog->open();
}

void CDeviceOperations::SetTimeZones(const QStringList& listIds)
{
    if (!IsSomethingChosen(listIds))
        return;
    CDevTimeZone::Devices vecDevices;
    for (const QString& sId : listIds)
        vecDevices.append({sId, m_pDevices->GetLabel(sId)});
    auto* const pDialog = new CDevTimeZone(m_pPage->GetInterfaceSet(), vecDevices, m_pPage);
    connect(pDialog, &CDevTimeZone::SignalShowNotify, m_pPage,
        [this](const QString& sText) { m_pPage->Notify(sText, VxGUI::NotificationKind::Warning); });
    pDialog->Start();
}

void CDeviceOperations::ShowAccess(const QString& sDeviceId)
{
    (new CDeviceAccessDlg(m_pPage->GetInterfaceSet(), sDeviceId, m_pDevices->GetLabel(sDeviceId), m_pPage))
        ->Start();
}

} // namespace ResourceManagerUI
