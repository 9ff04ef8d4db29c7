#include "CChannelChooser.h"

#include "CChosenTable.h"
#include "CConnectionNotice.h"
#include "COrganizationModel.h"
#include "CTreeComboBox.h"
#include "StyleSheet.h"

#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CNumberPageCtrl.h>
#include <VxGUI/VxEmptyState.h>
#include <VxGUI/VxSearchBox.h>

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>
#include <QTreeView>
#include <QUrl>

namespace Common {

using GroupLogical::IGroupManager;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CChannelChooser)
};

constexpr int SearchLimit = 30;
constexpr int Spacing = 6;
constexpr int TreeShare = 550; ///< of the width, to that of the table
constexpr int ChosenShare = 450;

} // namespace

CChannelChooser::CChannelChooser(
    UICommonMdl::CInterfaceSetManager* pInterfaceSet, const Options& options, QWidget* pParent)
    : CPage(pInterfaceSet, QString(), pParent)
    , m_options(options)
    , m_pOrganizations(new COrganizationModel(this))
    , m_pOrganization(new CTreeComboBox)
    , m_pSearch(new VxGUI::VxSearchBox)
    , m_pModel(new CChannelTreeModel(options.vecKinds, this))
    , m_pTree(new QTreeView)
    , m_pState(new VxGUI::VxEmptyState)
    , m_pStack(new QStackedWidget)
    , m_pPager(new UICommonMdl::CNumberPageCtrl)
    , m_pChosen(new CChosenTable)
    , m_pCount(new QLabel)
    , m_pClear(new QPushButton(Text::tr("Clear")))
    , m_calls(pInterfaceSet, this)
{
    setObjectName(QStringLiteral("CChannelChooser"));
    auto* const pNotice = new CConnectionNotice;
    pNotice->setObjectName(QStringLiteral("lbConnection"));
    pNotice->Watch(GetSession());
    auto* const pSplitter = new QSplitter;
    pSplitter->setChildrenCollapsible(false);
    pSplitter->addWidget(MakeTreeSide());
    pSplitter->addWidget(MakeChosenSide());
    pSplitter->setSizes({TreeShare, ChosenShare});
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(pNotice);
    pLayout->addWidget(pSplitter, 1);
    connect(m_pOrganization, &CTreeComboBox::SignalCodeChanged, this, [this] {
        m_pPager->SetCurrentPage(1);
        QueryDevices();
    });
    connect(m_pSearch, &VxGUI::VxSearchBox::SignalSearch, this, [this] {
        m_pPager->SetCurrentPage(1);
        QueryDevices();
    });
    connect(m_pPager, &UICommonMdl::CNumberPageCtrl::SignalCurrentPageChanged, this,
        &CChannelChooser::QueryDevices);
    connect(
        m_pPager, &UICommonMdl::CNumberPageCtrl::SignalPageSizeChanged, this, &CChannelChooser::QueryDevices);
    connect(m_pState, &VxGUI::VxEmptyState::SignalAction, this, &CChannelChooser::QueryAll);
    connect(m_pModel, &CChannelTreeModel::SignalChannelsWanted, this, &CChannelChooser::QueryChannels);
    connect(m_pModel, &CChannelTreeModel::SignalToggled, this, &CChannelChooser::OnToggled);
    ShowChosen();
    QueryAll();
}

QWidget* CChannelChooser::MakeTreeSide()
{
    m_pOrganization->setObjectName(QStringLiteral("cmbChannelOrganization"));
    m_pOrganization->setAccessibleName(Text::tr("Organization"));
    m_pOrganization->SetTree(m_pOrganizations, Text::tr("Organization"));
    m_pSearch->setObjectName(QStringLiteral("editChannelSearch"));
    m_pSearch->SetBackgroundText(Text::tr("Device Name/IP"));
    m_pSearch->setMaxLength(SearchLimit);
    m_pTree->setObjectName(QStringLiteral("treeChannels"));
    m_pTree->setAccessibleName(Text::tr("Devices and channels"));
    m_pTree->setHeaderHidden(true);
    m_pTree->setUniformRowHeights(true);
    m_pTree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pTree->setModel(m_pModel);
    m_pState->setObjectName(QStringLiteral("wgtChannelState"));
    m_pStack->addWidget(m_pTree);
    m_pStack->addWidget(m_pState);
    auto* const pSide = new QWidget;
    auto* const pFilters = new QHBoxLayout;
    pFilters->setSpacing(Spacing);
    pFilters->addWidget(m_pOrganization, 1);
    pFilters->addWidget(m_pSearch, 1);
    auto* const pLayout = new QVBoxLayout(pSide);
    pLayout->setSpacing(Spacing);
    pLayout->addLayout(pFilters);
    pLayout->addWidget(m_pStack, 1);
    pLayout->addWidget(m_pPager);
    return pSide;
}

QWidget* CChannelChooser::MakeChosenSide()
{
    m_pChosen->setObjectName(QStringLiteral("wgtChosenChannels"));
    m_pChosen->SetUp(m_options.columns.listHeaders, Text::tr("No channel is chosen."));
    m_pChosen->SetFilling();
    m_pChosen->GetView()->setAccessibleName(Text::tr("Chosen channels"));
    m_pChosen->SetRowTexts(
        [this](const QString& sKey) { return m_options.columns.texts(m_mapChosen.value(sKey)); });
    m_pCount->setObjectName(QStringLiteral("lbChecked"));
    m_pClear->setObjectName(QStringLiteral("btnClearChosen"));
    SetButtonRole(m_pClear, QStringLiteral("link"));
    connect(m_pChosen, &CChosenTable::SignalRemoved, this, &CChannelChooser::Remove);
    connect(m_pClear, &QAbstractButton::clicked, this, [this] {
        SetChosen({});
        Q_EMIT SignalChosenChanged();
    });
    auto* const pSide = new QWidget;
    auto* const pStatus = new QHBoxLayout;
    pStatus->addWidget(m_pCount);
    pStatus->addWidget(m_pClear);
    pStatus->addStretch();
    auto* const pLayout = new QVBoxLayout(pSide);
    pLayout->setSpacing(Spacing);
    pLayout->addWidget(m_pChosen, 1);
    pLayout->addLayout(pStatus);
    return pSide;
}

void CChannelChooser::OnConnectionChanged(bool bConnected)
{
    for (QWidget* const pPart : {static_cast<QWidget*>(m_pOrganization), static_cast<QWidget*>(m_pSearch),
             static_cast<QWidget*>(m_pStack), static_cast<QWidget*>(m_pPager)})
        pPart->setEnabled(bConnected);
    if (bConnected)
        QueryAll();
}

void CChannelChooser::QueryAll()
{
    m_calls.Latest<&IGroupManager::QueryOrganizations>(
        [this](const Param& param) { OnOrganizations(param); });
    QueryDevices();
}

void CChannelChooser::OnOrganizations(const Param& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone)
        return;
    m_pOrganizations->SetOrganizations(param.vecOrganizations);
    m_pOrganization->Restore();
    if (m_pOrganization->GetCode().isEmpty())
        m_pOrganization->SetCode(QLatin1String(GroupLogical::RootOrganizationCode));
}

void CChannelChooser::QueryDevices()
{
    if (m_pModel->rowCount() == 0) {
        m_pState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading devices"));
        m_pStack->setCurrentWidget(m_pState);
    }
    GroupLogical::DevicePageRequest_t request;
    request.nPage = qMax(1, m_pPager->GetCurrentPage());
    request.nPageSize = m_pPager->GetPageSize();
    request.nSortField = GroupLogical::SortByName;
    request.sOrgCode = m_pOrganization->GetCode().toStdString();
    request.sSearchText = QUrl::toPercentEncoding(m_pSearch->text().trimmed()).toStdString();
    m_calls.Latest<&IGroupManager::QueryDevicePage>(
        request, [this](const Param& param) { OnDevices(param); });
}

void CChannelChooser::OnDevices(const Param& param)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    if (param.nErrorCode == UICommonMdl::ErrorNone) {
        m_pModel->SetDevices(param.devicePage.vecDevices);
        m_pPager->SetTotalCount(param.devicePage.nTotal);
        m_pPager->SetCurrentPage(param.devicePage.nPage);
    } else if (m_pModel->rowCount() > 0) {
        NotifyFailure(Text::tr("Failed to get the devices"), param.nErrorCode);
    }
    if (param.nErrorCode == UICommonMdl::ErrorNoRight)
        m_pState->SetState(Kind::NoPermission, Text::tr("You have no permission to see devices."));
    else if (param.nErrorCode != UICommonMdl::ErrorNone)
        m_pState->SetState(Kind::Failed, Text::tr("Failed to get the devices"),
            UICommonMdl::CErrorCode::GetErroCodeInfor(param.nErrorCode), Text::tr("Refresh"));
    else
        m_pState->SetState(Kind::Empty, Text::tr("There is no such device."));
    m_pStack->setCurrentWidget(m_pModel->rowCount() > 0 ? static_cast<QWidget*>(m_pTree) : m_pState);
}

void CChannelChooser::QueryChannels(const QString& sDeviceId)
{
    m_calls.Each<&IGroupManager::QueryDeviceDetail>(
        sDeviceId.toStdString(), [this, sDeviceId](const Param& param) {
            if (param.nErrorCode == UICommonMdl::ErrorNone && param.optDevice) {
                m_pModel->SetChannels(*param.optDevice);
                return;
            }
            m_pModel->SetChannelsFailed(sDeviceId);
            NotifyFailure(Text::tr("Failed to get the channels"), param.nErrorCode);
        });
}

void CChannelChooser::OnToggled(const QVector<Channel>& vecChannels, bool bChecked)
{
    const QStringList listBefore = m_listChosen;
    bool bFull = false;
    for (const Channel& channel : vecChannels) {
        const QString sKey = channel.GetKey();
        if (!bChecked) {
            m_listChosen.removeAll(sKey);
            m_mapChosen.remove(sKey);
        } else if (!m_mapChosen.contains(sKey)) {
            bFull = m_listChosen.size() >= m_options.nLimit;
            if (bFull)
                break;
            m_listChosen.append(sKey);
            m_mapChosen.insert(sKey, channel);
        }
    }
    ShowChosen();
    if (bFull)
        Notify(Text::tr("At most %1 channels can be chosen.").arg(m_options.nLimit),
            VxGUI::NotificationKind::Warning);
    if (m_listChosen != listBefore)
        Q_EMIT SignalChosenChanged();
}

void CChannelChooser::Remove(const QString& sKey)
{
    OnToggled({m_mapChosen.value(sKey)}, false);
}

void CChannelChooser::SetChosen(const QVector<Channel>& vecChannels)
{
    m_listChosen.clear();
    m_mapChosen.clear();
    for (const Channel& channel : vecChannels) {
        m_listChosen.append(channel.GetKey());
        m_mapChosen.insert(m_listChosen.last(), channel);
    }
    ShowChosen();
}

QVector<Channel> CChannelChooser::GetChosen() const
{
    QVector<Channel> vecChannels;
    for (const QString& sKey : m_listChosen)
        vecChannels.append(m_mapChosen.value(sKey));
    return vecChannels;
}

void CChannelChooser::ShowChosen()
{
    m_pModel->ShowChosen(QSet<QString>(m_listChosen.begin(), m_listChosen.end()));
    m_pChosen->SetIds(m_listChosen);
    m_pCount->setText(Text::tr("%1 chosen").arg(m_listChosen.size()));
    m_pClear->setEnabled(!m_listChosen.isEmpty());
}

} // namespace Common
