#include "CInputFinger.h"

#include "CReadFingerByDevice.h"
#include "CReadUSB.h"
#include "FingerSound.h"
#include "ui_CInputFinger.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/ILocalConfig.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QStyle>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CInputFinger)
};

const QString TypeKey = QStringLiteral("AuthenFinger/type");
constexpr int CategoryAccessControl = 8;
constexpr int MaxDevices = 1000;
constexpr int TipTime = 1000;
constexpr int Presses = 3;

void SetStyleProperty(QWidget* pWidget, const char* pszName, const QVariant& vValue)
{
    pWidget->setProperty(pszName, vValue);
    pWidget->style()->unpolish(pWidget);
    pWidget->style()->polish(pWidget);
}

} // namespace

CInputFinger::CInputFinger(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CInputFinger>())
    , m_pConfig(pInterfaceSet->GetLocalConfig())
    , m_pDevice(new CReadFingerByDevice(pInterfaceSet, this))
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    resize(440, 420);
    m_pUi->lbFingerIcon->setPixmap(Trv::GetIcon(QStringLiteral("fingerprint")).pixmap(QSize(72, 72)));
    m_pUi->btnRefreshDevices->setIcon(Trv::GetIcon(QStringLiteral("refresh")));
    m_pUi->m_pBtnStart->setProperty("role", QStringLiteral("primary"));
    for (QTimer* const pTimer : {&m_tipTimer, &m_closeTimer}) {
        pTimer->setSingleShot(true);
        pTimer->setInterval(TipTime);
    }
    connect(&m_tipTimer, &QTimer::timeout, this, [this] { m_pUi->lbTip->clear(); });
    connect(&m_closeTimer, &QTimer::timeout, this, &CInputFinger::accept);
    connect(m_pUi->m_pBtnStart, &QAbstractButton::clicked, this, &CInputFinger::Start);
    connect(m_pUi->m_pBtnCancelFinger, &QAbstractButton::clicked, this, &CInputFinger::reject);
    connect(m_pUi->btnRefreshDevices, &QAbstractButton::clicked, this, &CInputFinger::QueryDevices);
    connect(m_pDevice, &CReadFingerByDevice::SignalFingerData, this, &CInputFinger::OnCollected);
    connect(m_pDevice, &CReadFingerByDevice::SignalFailed, this, &CInputFinger::Fail);
    Common::LoadStyleSheet(this, QStringLiteral("BasicInfoManagerUI/Personnel"));
    SetUpReaders();
}

CInputFinger::~CInputFinger() = default;

void CInputFinger::SetUpReaders()
{
    QComboBox* const pType = m_pUi->m_pCmbFingerReaderType;
    pType->addItem(Text::tr("Please select"), ReaderNone);
    pType->addItem(Text::tr("USB Fingerprint Reader"), ReaderUsb);
    pType->addItem(Text::tr("Access Control Device"), ReaderDevice);
    if (m_pConfig)
        pType->setCurrentIndex(qMax(pType->findData(m_pConfig->GetValue(TypeKey).toInt()), 0));
    connect(pType, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] {
        if (m_pConfig)
            m_pConfig->SetValue(TypeKey, GetType());
        OnTypeChanged();
    });
    OnTypeChanged();
}

int CInputFinger::GetType() const
{
    return m_pUi->m_pCmbFingerReaderType->currentData().toInt();
}

void CInputFinger::SetCaptureTimeOut(std::chrono::milliseconds timeOut)
{
    m_pDevice->SetTimeOut(timeOut);
}

void CInputFinger::OnTypeChanged()
{
    const bool bDevice = GetType() == ReaderDevice;
    m_pUi->lbFingerDevice->setVisible(bDevice);
    m_pUi->wgtFingerDevice->setVisible(bDevice);
    ShowDeviceState({});
    // A device takes as many images as it needs by itself.
    m_pUi->lbSubTitle->setVisible(!bDevice);
    ShowPresses(0);
    ShowState(State::Idle);
    if (bDevice && m_pUi->m_pCmbFingerDevice->count() == 0)
        QueryDevices();
}

void CInputFinger::QueryDevices()
{
    GroupLogical::DevicePageRequest_t request;
    request.nCategory = CategoryAccessControl;
    request.nPageSize = MaxDevices;
    request.nSortField = GroupLogical::SortByName;
    m_calls.Latest<&GroupLogical::IGroupManager::QueryDevicePage>(
        request, [this](const GroupParam& param) { OnDevices(param); });
    m_pUi->btnRefreshDevices->setEnabled(false);
    ShowDeviceState(Text::tr("The devices are being queried."));
}

void CInputFinger::OnDevices(const GroupParam& param)
{
    m_pUi->btnRefreshDevices->setEnabled(m_bConnected && m_state != State::Collecting);
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        ShowDeviceState(Common::FailureText(Text::tr("Failed to query devices"), param.nErrorCode));
        return;
    }
    QComboBox* const pDevices = m_pUi->m_pCmbFingerDevice;
    const QVariant vChosen = pDevices->currentData();
    pDevices->clear();
    for (const GroupLogical::DeviceInfo_t& device : param.devicePage.vecDevices) {
        // What a host does not filter is filtered here.
        if (device.nCategory != CategoryAccessControl)
            continue;
        QString sName = QString::fromStdString(device.sName);
        if (device.nOnlineState != GroupLogical::StateOnline)
            sName = Text::tr("%1 (offline)").arg(sName);
        pDevices->addItem(sName, QString::fromStdString(device.sDeviceId));
    }
    pDevices->setCurrentIndex(qMax(pDevices->findData(vChosen), pDevices->count() > 0 ? 0 : -1));
    ShowDeviceState(pDevices->count() > 0 ? QString() : Text::tr("There is no access control device."));
}

void CInputFinger::ShowDeviceState(const QString& sText)
{
    m_pUi->lbDeviceState->setText(sText);
    m_pUi->lbDeviceState->setVisible(!sText.isEmpty());
}

void CInputFinger::SetConnected(bool bConnected)
{
    m_bConnected = bConnected;
    if (!bConnected && m_state == State::Collecting && GetType() == ReaderDevice)
        Fail(Text::tr("The connection to the server is lost."));
    else
        ShowState(m_state);
    if (bConnected && GetType() == ReaderDevice && m_pUi->m_pCmbFingerDevice->count() == 0)
        QueryDevices();
}

void CInputFinger::Start()
{
    const int nType = GetType();
    const QString sDeviceId = m_pUi->m_pCmbFingerDevice->currentData().toString();
    if (nType == ReaderNone || (nType == ReaderDevice && sDeviceId.isEmpty())) {
        VxGUI::VxNotification::Show(
            this, Text::tr("Please select a reader."), VxGUI::NotificationKind::Warning);
        (nType == ReaderNone ? m_pUi->m_pCmbFingerReaderType : m_pUi->m_pCmbFingerDevice)->setFocus();
        return;
    }
    ShowPresses(0);
    ShowState(State::Collecting);
    if (nType == ReaderUsb)
        StartUsb();
    else
        m_pDevice->Start(sDeviceId);
}

void CInputFinger::StartUsb()
{
    if (!m_pUsb) {
        m_pUsb = std::make_unique<CReadUSB>(m_readerCalls);
        connect(m_pUsb.get(), &CReadUSB::SignalPlaySound, this, &CInputFinger::OnPress, Qt::QueuedConnection);
        connect(
            m_pUsb.get(), &CReadUSB::SignalFingerData, this,
            [this](int nResult, const QString& sData) {
                if (nResult == CReadUSB::ResultCollected)
                    OnCollected(sData);
                else
                    Fail(nResult == CReadUSB::ResultOpenFailed ? Text::tr("Failed to open reader.")
                                                               : Text::tr("Failed to collect fingerprint."));
            },
            Qt::QueuedConnection);
    }
    m_pUsb->StartCollect();
}

void CInputFinger::OnPress(int nPress)
{
    if (m_state != State::Collecting)
        return;
    PlayFingerSound(nPress);
    ShowPresses(nPress);
    if (nPress == 1)
        ShowTip(Text::tr("First time fingerprint collection is successful!"), true);
    else if (nPress == 2)
        ShowTip(Text::tr("Second time fingerprint collection is successful!"), true);
}

void CInputFinger::OnCollected(const QString& sTemplate)
{
    if (m_state != State::Collecting)
        return;
    ShowPresses(Presses);
    ShowState(State::Collected);
    ShowTip(Text::tr("Successfully collect!"), true);
    // The text can be read before the dialog goes.
    m_closeTimer.start();
    connect(this, &QDialog::accepted, this, [this, sTemplate] { Q_EMIT SignalCollected(sTemplate); });
}

void CInputFinger::Fail(const QString& sText)
{
    if (m_state != State::Collecting)
        return;
    m_pDevice->Stop();
    ShowPresses(0);
    ShowState(State::Failed);
    ShowTip(sText, false);
}

void CInputFinger::ShowState(State state)
{
    m_state = state;
    const bool bBusy = state == State::Collecting || state == State::Collected;
    const bool bUsable = GetType() != ReaderDevice || m_bConnected;
    m_pUi->m_pCmbFingerReaderType->setEnabled(!bBusy);
    m_pUi->wgtFingerDevice->setEnabled(!bBusy && m_bConnected);
    m_pUi->m_pBtnStart->setEnabled(!bBusy && bUsable);
    m_pUi->m_pBtnStart->setText(state == State::Failed ? Text::tr("Try Again") : Text::tr("Start"));
    QString sPrompt = Text::tr("Press your finger");
    if (!bUsable)
        sPrompt = Text::tr("The connection to the server is lost.");
    else if (state == State::Idle)
        sPrompt = Text::tr("Choose the reader, start, and press your finger when you are asked to.");
    else if (state == State::Failed)
        sPrompt = Text::tr("No fingerprint was collected.");
    else if (state == State::Collected)
        sPrompt = Text::tr("The fingerprint is complete.");
    m_pUi->lbPrompt->setText(sPrompt);
    SetStyleProperty(m_pUi->lbPrompt, "active", state == State::Collecting);
}

void CInputFinger::ShowPresses(int nPresses)
{
    QFrame* const arrBars[Presses] = {m_pUi->wgtPress1, m_pUi->wgtPress2, m_pUi->wgtPress3};
    for (int n = 0; n < Presses; ++n) {
        SetStyleProperty(arrBars[n], "done", n < nPresses);
        arrBars[n]->setVisible(GetType() != ReaderDevice);
    }
    m_pUi->lbSubTitle->setAccessibleDescription(Text::tr("%1 of %2").arg(nPresses).arg(Presses));
}

void CInputFinger::ShowTip(const QString& sText, bool bGood)
{
    m_pUi->lbTip->setText(sText);
    SetStyleProperty(m_pUi->lbTip, "good", bGood);
    m_tipTimer.start();
}

void CInputFinger::done(int nResult)
{
    m_closeTimer.stop();
    m_pDevice->Stop();
    m_calls.ForgetAll();
    // Told first, so that a call of the reader that takes long holds up nothing while the dialog is shown.
    if (m_pUsb)
        m_pUsb->StopCollect();
    QDialog::done(nResult);
}

} // namespace BasicInfoManagerUI
