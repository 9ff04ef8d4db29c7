#include "CDeviceDetailPage.h"

#include "DeviceRules.h"
#include "ui_CDeviceDetailPage.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <common/DeviceCategory.h>

#include <QKeyEvent>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceDetailPage)
};
} // namespace

CDeviceDetailPage::CDeviceDetailPage(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CDeviceDetailPage>())
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("pageDetail"));
    m_pUi->btnBack->setIcon(Trv::GetIcon(QStringLiteral("back")));
    connect(m_pUi->btnBack, &QAbstractButton::clicked, this, &CDeviceDetailPage::SignalBack);
    m_pUi->btnAccess->setIcon(Trv::GetIcon(QStringLiteral("users")));
    connect(
        m_pUi->btnAccess, &QAbstractButton::clicked, this, [this] { Q_EMIT SignalShowAccess(m_sDeviceId); });
    connect(m_pUi->wgtDetailState, &VxGUI::VxEmptyState::SignalAction, this,
        [this] { ShowDevice(m_sDeviceId, m_sOrgName); });
}

CDeviceDetailPage::~CDeviceDetailPage() = default;

void CDeviceDetailPage::ShowDevice(const QString& sDeviceId, const QString& sOrgName)
{
    m_sDeviceId = sDeviceId;
    m_sOrgName = sOrgName;
    m_pUi->treeDetail->clear();
    m_pUi->listReferences->clear();
    m_pUi->wgtDetailState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading"));
    m_pUi->stackDetail->setCurrentWidget(m_pUi->pageState);
    const std::string sId = sDeviceId.toStdString();
    m_calls.Latest<&GroupLogical::IGroupManager::QueryDeviceDetail>(
        sId, [this](const Calls::Param& param) { OnDetail(param); });
    m_calls.Latest<&GroupLogical::IGroupManager::QueryDeviceReferences>(
        sId, [this](const Calls::Param& param) { OnReferences(param); });
}

void CDeviceDetailPage::SetAccessOffered(bool bOffered)
{
    m_pUi->btnAccess->setVisible(bOffered);
}

void CDeviceDetailPage::OnDetail(const GroupLogical::IGroupManagerObserver::Param& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone || !param.optDevice) {
        ShowFailure(param.nErrorCode);
        return;
    }
    const GroupLogical::DeviceAddInfo_t& device = *param.optDevice;
    const auto text = [](const std::string& s) { return QString::fromStdString(s); };
    AddLine(Text::tr("Device ID"), text(device.sDeviceId));
    AddLine(Text::tr("Device Name"), text(device.sName));
    AddLine(Text::tr("IP Address"), text(device.sIp));
    AddLine(Text::tr("Port"), QString::number(device.nPort));
    AddLine(Text::tr("Device Type"), Common::GetCategoryText(device.nCategory));
    AddLine(Text::tr("Device Model"), text(device.sModel));
    AddLine(Text::tr("Organization"), m_sOrgName);
    AddLine(Text::tr("Manufacturer"), text(device.sManufacturer));
    AddLine(Text::tr("Access Protocol"), text(device.sProtocol));
    AddLine(Text::tr("Access Direction"), Common::GetAccessDirectionText(device.nAccessDirection));
    AddLine(Text::tr("Serial Number"), text(device.sSerialNumber));
    AddLine(Text::tr("User Name"), text(device.sUserName));
    AddLine(Text::tr("Video Channels"), QString::number(device.nVideoChannels));
    AddLine(Text::tr("Alarm Inputs"), QString::number(device.nAlarmInputs));
    AddLine(Text::tr("Alarm Outputs"), QString::number(device.nAlarmOutputs));
    AddLine(Text::tr("Remark"), text(device.sRemark));
    m_pUi->treeDetail->resizeColumnToContents(0);
    m_pUi->stackDetail->setCurrentWidget(m_pUi->pageContent);
}

void CDeviceDetailPage::OnReferences(const GroupLogical::IGroupManagerObserver::Param& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        m_pUi->listReferences->addItem(UICommonMdl::CErrorCode::GetErroCodeInfor(param.nErrorCode));
        return;
    }
    const QStringList listLines = GetReferenceLines(param.vecReferences);
    m_pUi->listReferences->addItems(
        listLines.isEmpty() ? QStringList{Text::tr("Nothing refers to this device.")} : listLines);
}

void CDeviceDetailPage::ShowFailure(int nErrorCode)
{
    m_pUi->wgtDetailState->SetState(VxGUI::VxEmptyState::Kind::Failed, Text::tr("Failed to get device"),
        UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Try Again"));
    m_pUi->stackDetail->setCurrentWidget(m_pUi->pageState);
}

void CDeviceDetailPage::AddLine(const QString& sCaption, const QString& sText)
{
    new QTreeWidgetItem(m_pUi->treeDetail, {sCaption, sText});
}

void CDeviceDetailPage::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        Q_EMIT SignalBack();
    else
        QWidget::keyPressEvent(pEvent);
}

} // namespace ResourceManagerUI
