#include "CDevTimeZone.h"

#include "ui_CDevTimeZone.h"

#include <UICommonMdl/CErrorCode.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QPushButton>

namespace ResourceManagerUI {

using RemoteConfigLogical::IRemoteConfigManager;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevTimeZone)
};

/// Devices are worked on one after the other, each with a time-out of its own.
constexpr std::chrono::minutes ReportTimeOut{5};

} // namespace

CDevTimeZone::CDevTimeZone(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, const Devices& vecDevices, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CDevTimeZone>())
    , m_session(pInterfaceSet, this)
    , m_systemCalls(pInterfaceSet, this)
    , m_deviceCalls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    resize(600, 620);
    m_deviceCalls.SetLimit(ReportTimeOut);
    m_pUi->treeDevices->SetDevices(vecDevices);
    Common::SetButtonRole(m_pUi->buttonBox->button(QDialogButtonBox::Ok), QStringLiteral("primary"));
    connect(m_pUi->buttonBox, &QDialogButtonBox::accepted, this, &CDevTimeZone::accept);
    connect(m_pUi->buttonBox, &QDialogButtonBox::rejected, this, &CDevTimeZone::reject);
    connect(m_pUi->wgtServer, &CHomeServerSel::SignalServerChosen, this, &CDevTimeZone::QueryZone);
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this, &CDevTimeZone::UpdateEnabled);
    m_pUi->lbConnection->Watch(m_session);
    Common::LoadStyleSheet(this, QStringLiteral("ResourceManagerUI/DeviceManager"));
}

CDevTimeZone::~CDevTimeZone() = default;

void CDevTimeZone::Start()
{
    m_pUi->wgtState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Reading the time zone"));
    m_pUi->stackTimeZone->setCurrentWidget(m_pUi->wgtState);
    open();
    QueryServers();
    QueryZone();
}

void CDevTimeZone::QueryServers()
{
    m_systemCalls.Latest<&IRemoteConfigManager::QueryVideoServers>([this](const SystemParam& param) {
        if (param.nErrorCode != UICommonMdl::ErrorNone)
            qInfo("Failed to query video server list,error code = %d", param.nErrorCode);
        else
            m_pUi->wgtServer->SetServers(param.vecServers);
    });
}

void CDevTimeZone::QueryZone()
{
    m_systemCalls.Latest<&IRemoteConfigManager::QueryTimeZone>(
        [this](const SystemParam& param) { OnZone(param); });
    UpdateEnabled();
}

void CDevTimeZone::OnZone(const SystemParam& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        const QString sText =
            Common::FailureText(Text::tr("Failed to get service time zone."), param.nErrorCode);
        Q_EMIT SignalShowNotify(sText);
        m_pUi->lbSummary->setText(sText);
        // Without the platform's zone there is nothing to begin with.
        if (m_pUi->stackTimeZone->currentWidget() == m_pUi->wgtState)
            reject();
        else
            UpdateEnabled();
        return;
    }
    m_pUi->lbSummary->clear();
    m_pUi->wgtTimeZone->SetPlatformTime(param.platformTime);
    m_pUi->stackTimeZone->setCurrentWidget(m_pUi->pageSetting);
    UpdateEnabled();
}

void CDevTimeZone::UpdateEnabled()
{
    const bool bPushing = m_deviceCalls.IsPending();
    const bool bReading = m_systemCalls.IsPending<&IRemoteConfigManager::QueryTimeZone>();
    const bool bConnected = m_session.IsConnected();
    const bool bShown = m_pUi->stackTimeZone->currentWidget() == m_pUi->pageSetting;
    m_pUi->wgtServer->setEnabled(!bPushing && !bReading && bConnected);
    m_pUi->wgtTimeZone->setEnabled(!bPushing && !bReading);
    m_pUi->buttonBox->button(QDialogButtonBox::Ok)
        ->setEnabled(bShown && bConnected && !bPushing && !bReading);
}

std::vector<std::string> CDevTimeZone::ChooseTargets(
    const RemoteConfigLogical::TimeZoneSetting_t& setting) const
{
    std::vector<std::string> vecIds = m_pUi->treeDevices->GetIdsNotIn(RemoteConfigLogical::TimeZoneDone);
    // The marks are about what was sent before: what has it is left alone, unless it shall get something
    // else.
    if (!(setting == m_sent) || vecIds.empty())
        vecIds = m_pUi->treeDevices->GetIds();
    return vecIds;
}

void CDevTimeZone::accept()
{
    if (!m_pUi->buttonBox->button(QDialogButtonBox::Ok)->isEnabled()
        || !m_pUi->wgtTimeZone->CheckInput().isEmpty())
        return;
    const RemoteConfigLogical::TimeZoneSetting_t setting = m_pUi->wgtTimeZone->GetSetting();
    const std::vector<std::string> vecIds = ChooseTargets(setting);
    m_sent = setting;
    SetStates(vecIds, RemoteConfigLogical::TimeZoneSending, UICommonMdl::ErrorNone);
    m_deviceCalls.Each<&IRemoteConfigManager::SetDeviceTimeZone>(
        vecIds, setting, [this](const RemoteParam& param) { OnReport(param); });
    ShowSummary();
    UpdateEnabled();
}

void CDevTimeZone::SetStates(const std::vector<std::string>& vecIds, int nState, int nErrorCode)
{
    for (const std::string& sId : vecIds)
        m_pUi->treeDevices->SetResult({sId, nState, nErrorCode});
}

void CDevTimeZone::OnReport(const RemoteParam& param)
{
    for (const RemoteConfigLogical::TimeZoneResult_t& result : param.vecTimeZones)
        m_pUi->treeDevices->SetResult(result);
    if (param.bFinal)
        OnFinished(param);
    ShowSummary();
    UpdateEnabled();
}

void CDevTimeZone::OnFinished(const RemoteParam& param)
{
    // Nobody will say any more what became of devices that are under way still.
    for (const std::string& sId : m_pUi->treeDevices->GetIds()) {
        if (m_pUi->treeDevices->GetState(QString::fromStdString(sId)) == RemoteConfigLogical::TimeZoneSending)
            SetStates({sId}, RemoteConfigLogical::TimeZoneFailed, param.nErrorCode);
    }
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        Q_EMIT SignalShowNotify(
            Common::FailureText(Text::tr("Failed to set the time zone of the devices."), param.nErrorCode));
    }
}

void CDevTimeZone::ShowSummary()
{
    const CTimeZoneDeviceList* const pList = m_pUi->treeDevices;
    const int nTotal = static_cast<int>(pList->GetIds().size());
    const int nDone = pList->CountState(RemoteConfigLogical::TimeZoneDone);
    const int nSending = pList->CountState(RemoteConfigLogical::TimeZoneSending);
    QString sText = Text::tr("%1 of %2 devices have the time zone.").arg(nDone).arg(nTotal);
    if (nSending > 0)
        sText += QLatin1Char(' ') + Text::tr("Sending to %1.").arg(nSending);
    else if (nDone < nTotal)
        sText += QLatin1Char(' ') + Text::tr("OK sends it to the others again.");
    m_pUi->lbSummary->setText(sText);
}

} // namespace ResourceManagerUI
