#include "CDeviceAccessDlg.h"

#include "DeviceRules.h"
#include "ui_CDeviceAccessDlg.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CErrorCode.h>
#include <common/CTableModel.h>
#include <common/StyleSheet.h>

#include <QHeaderView>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceAccessDlg)
};

constexpr int NameColumn = 0;

} // namespace

CDeviceAccessDlg::CDeviceAccessDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet,
    const QString& sDeviceId, const QString& sDeviceName, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CDeviceAccessDlg>())
    , m_sDeviceId(sDeviceId)
    , m_pModel(new Common::CTableModel(
          {{Text::tr("User"), true}, {Text::tr("Role"), true}, {Text::tr("Access"), true}}, NameColumn, -1,
          this))
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("CDeviceAccessDlg"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setModal(true);
    m_pUi->lbConnection->Watch(m_session);
    m_pUi->lbAccessDevice->setText(sDeviceName);
    m_pUi->edtSearchUser->SetBackgroundText(Text::tr("User/Role"));
    m_pUi->treeAccess->setModel(m_pModel);
    m_pUi->treeAccess->header()->resizeSection(0, 160);
    m_pUi->treeAccess->header()->resizeSection(1, 240);
    connect(m_pUi->edtSearchUser, &QLineEdit::textChanged, this, &CDeviceAccessDlg::ShowRows);
    connect(m_pUi->btnClose, &QAbstractButton::clicked, this, &QDialog::accept);
    connect(m_pUi->wgtAccessState, &VxGUI::VxEmptyState::SignalAction, this, &CDeviceAccessDlg::Query);
    connect(
        &m_session, &Common::CSession::SignalConnectionChanged, this, &CDeviceAccessDlg::OnConnectionChanged);
    Common::LoadStyleSheet(this, QStringLiteral("ResourceManagerUI/DeviceManager"));
}

CDeviceAccessDlg::~CDeviceAccessDlg() = default;

void CDeviceAccessDlg::Start()
{
    open();
    Query();
}

void CDeviceAccessDlg::Query()
{
    m_calls.Latest<&UserLogical::IUserManager::QueryDeviceAccess>(
        m_sDeviceId.toStdString(), [this](const Param& param) { OnAnswer(param); });
    m_pUi->edtSearchUser->setEnabled(false);
    m_pUi->wgtAccessState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading users"));
    m_pUi->stackAccess->setCurrentWidget(m_pUi->wgtAccessState);
}

void CDeviceAccessDlg::OnAnswer(const Param& param)
{
    m_vecAccess = param.vecAccess;
    m_pUi->edtSearchUser->setEnabled(!m_vecAccess.empty());
    if (param.nErrorCode != UICommonMdl::ErrorNone)
        ShowState(param.nErrorCode);
    else
        ShowRows();
    if (!m_vecAccess.empty())
        m_pUi->edtSearchUser->setFocus();
}

void CDeviceAccessDlg::ShowRows()
{
    using Common::CTableModel;
    QVector<CTableModel::Row> vecRows;
    for (const UserLogical::DeviceAccess_t& access : FindAccess(m_vecAccess, m_pUi->edtSearchUser->text())) {
        vecRows.append({CTableModel::MakeItem(QString::fromStdString(access.sUserName)),
            CTableModel::MakeItem(GetRoleNames(access)),
            CTableModel::MakeItem(access.bWhole ? Text::tr("All channels") : Text::tr("Some channels"))});
    }
    m_pModel->SetRows(vecRows);
    ShowState(UICommonMdl::ErrorNone);
}

void CDeviceAccessDlg::ShowState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    VxGUI::VxEmptyState* const pState = m_pUi->wgtAccessState;
    if (nErrorCode == UICommonMdl::ErrorNone && m_pModel->rowCount() > 0) {
        m_pUi->stackAccess->setCurrentWidget(m_pUi->treeAccess);
        return;
    }
    if (nErrorCode == UICommonMdl::ErrorNoRight)
        pState->SetState(Kind::NoPermission, Text::tr("You have no permission to see who has access."));
    else if (nErrorCode != UICommonMdl::ErrorNone)
        pState->SetState(Kind::Failed, Text::tr("Failed to get who has access"),
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Try Again"));
    else if (m_vecAccess.empty())
        pState->SetState(Kind::Empty, Text::tr("No user has access to this device."));
    else
        pState->SetState(Kind::Empty, Text::tr("No user matches the search."));
    m_pUi->stackAccess->setCurrentWidget(pState);
}

void CDeviceAccessDlg::OnConnectionChanged(bool bConnected)
{
    m_pUi->wgtAccessState->setEnabled(bConnected);
    if (bConnected && m_vecAccess.empty())
        Query();
}

} // namespace ResourceManagerUI
