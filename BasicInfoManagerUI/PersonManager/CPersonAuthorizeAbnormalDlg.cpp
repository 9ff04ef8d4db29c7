#include "CPersonAuthorizeAbnormalDlg.h"

#include "PersonRules.h"
#include "ui_CPersonAuthorizeAbnormalDlg.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxNotification.h>
#include <common/CTableModel.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QHeaderView>
#include <QTreeView>

namespace BasicInfoManagerUI {

using AccessControlLogical::AuthorizeException_t;
using AccessControlLogical::IAccessControlManager;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonAuthorizeAbnormalDlg)
};

enum Column : int
{
    ColumnId,
    ColumnName,
    ColumnDevice,
    ColumnChannel,
    ColumnReason,
    ColumnOperation
};

constexpr std::chrono::minutes ResendTimeOut{10};

Common::CTableModel::Row MakeRow(const AuthorizeException_t& exception)
{
    using Common::CTableModel;
    return {CTableModel::MakeItem(QString::fromStdString(exception.sPersonId)),
        CTableModel::MakeItem(QString::fromStdString(exception.sPersonName)),
        CTableModel::MakeItem(QString::fromStdString(exception.sDeviceName)),
        CTableModel::MakeItem(QString::fromStdString(exception.sChannelName)),
        CTableModel::MakeItem(GetExceptionReason(exception)),
        CTableModel::MakeItem(GetExceptionOperation(exception))};
}

} // namespace

CPersonAuthorizeAbnormalDlg::CPersonAuthorizeAbnormalDlg(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, const QString& sPersonId, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CPersonAuthorizeAbnormalDlg>())
    , m_sPersonId(sPersonId)
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_pUi->lbConnection->Watch(m_session);
    m_calls.SetLimit(ResendTimeOut);
    m_pUi->m_pSearch->SetBackgroundText(Text::tr("ID/Name"));
    m_pUi->m_pSearch->setAccessibleName(Text::tr("ID/Name"));
    SetUpTabs();
    connect(m_pUi->m_pSearch, &QLineEdit::textChanged, this, &CPersonAuthorizeAbnormalDlg::ShowRows);
    connect(m_pUi->m_pBtnUpdate, &QAbstractButton::clicked, this, [this] { Query(true); });
    connect(m_pUi->m_pBtnResend, &QAbstractButton::clicked, this, &CPersonAuthorizeAbnormalDlg::Resend);
    connect(m_pUi->m_pBtnCancel, &QAbstractButton::clicked, this, &CPersonAuthorizeAbnormalDlg::reject);
    connect(m_pUi->wgtState, &VxGUI::VxEmptyState::SignalAction, this, [this] { Query(true); });
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this,
        &CPersonAuthorizeAbnormalDlg::OnConnectionChanged);
    UpdateButtons();
    Common::LoadStyleSheet(this, QStringLiteral("BasicInfoManagerUI/Personnel"));
}

CPersonAuthorizeAbnormalDlg::~CPersonAuthorizeAbnormalDlg() = default;

void CPersonAuthorizeAbnormalDlg::SetUpTabs()
{
    const QVector<Common::Column> vecColumns{{Text::tr("ID"), true}, {Text::tr("Person Name"), true},
        {Text::tr("Device Name"), true}, {Text::tr("Channel Name"), true},
        {Text::tr("Reason for Exception"), true}, {Text::tr("Operation Exception"), true}};
    const int widths[] = {80, 120, 140, 130, 200, 150};
    for (int nKind = 0; nKind <= AccessControlLogical::CredentialPassword; ++nKind) {
        auto* pModel = new Common::CTableModel(vecColumns, ColumnId, -1, this);
        m_vecModels.push_back(pModel);
        auto* pView = new QTreeView;
        pView->setObjectName(QStringLiteral("tableExceptions%1").arg(nKind));
        pView->setAccessibleName(GetExceptionSection(nKind));
        pView->setRootIsDecorated(false);
        pView->setUniformRowHeights(true);
        pView->setEditTriggers(QAbstractItemView::NoEditTriggers);
        pView->setModel(pModel);
        for (int nColumn = 0; nColumn <= ColumnOperation; ++nColumn)
            pView->header()->resizeSection(nColumn, widths[nColumn]);
        auto* pSection = new QLabel(GetExceptionSection(nKind));
        pSection->setProperty("section", true);
        auto* pPage = new QWidget;
        auto* pLayout = new QVBoxLayout(pPage);
        pLayout->setContentsMargins(8, 8, 8, 8);
        pLayout->addWidget(pSection);
        pLayout->addWidget(pView);
        m_pUi->m_pTabs->addTab(pPage, GetExceptionTabTitle(nKind, false));
    }
}

void CPersonAuthorizeAbnormalDlg::Start()
{
    Query(false);
}

void CPersonAuthorizeAbnormalDlg::Query(bool bTold)
{
    m_calls.Latest<&IAccessControlManager::QueryAuthorizeException>(
        m_sPersonId.toStdString(), [this, bTold](const Param& param) { OnQueryAnswer(param, bTold); });
    if (m_vecExceptions.empty()) {
        m_pUi->wgtState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading exceptions"));
        m_pUi->stackExceptions->setCurrentWidget(m_pUi->wgtState);
    }
    UpdateButtons();
}

void CPersonAuthorizeAbnormalDlg::OnQueryAnswer(const Param& param, bool bTold)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone)
        ShowFailed(param.nErrorCode);
    else
        ShowExceptions(param.vecExceptions);
    if (bTold && param.nErrorCode == UICommonMdl::ErrorNone && param.vecExceptions.empty())
        VxGUI::VxNotification::Show(
            this, Text::tr("Information updated. No exceptions found."), VxGUI::NotificationKind::Success);
    UpdateButtons();
}

void CPersonAuthorizeAbnormalDlg::Resend()
{
    m_bResending = true;
    m_calls.Each<&IAccessControlManager::ReissuePersonRight>(
        m_sPersonId.toStdString(), [this](const Param& param) { OnResendAnswer(param); });
    UpdateButtons();
}

void CPersonAuthorizeAbnormalDlg::OnResendAnswer(const Param& param)
{
    m_bResending = false;
    const QString sFailure =
        GetReissueFailure(param.nErrorCode, int(m_vecExceptions.size()), int(param.vecExceptions.size()));
    if (param.nErrorCode == UICommonMdl::ErrorNone)
        ShowExceptions(param.vecExceptions);
    if (sFailure.isEmpty())
        VxGUI::VxNotification::Show(
            this, Text::tr("Information updated. No exceptions found."), VxGUI::NotificationKind::Success);
    else
        VxGUI::VxNotification::Show(this, sFailure);
    UpdateButtons();
}

void CPersonAuthorizeAbnormalDlg::ShowExceptions(const std::vector<AuthorizeException_t>& vecExceptions)
{
    const bool bFirst = m_vecExceptions.empty();
    m_vecExceptions = vecExceptions;
    if (vecExceptions.empty()) {
        m_pUi->wgtState->SetState(
            VxGUI::VxEmptyState::Kind::Empty, Text::tr("Information updated. No exceptions found."));
        m_pUi->stackExceptions->setCurrentWidget(m_pUi->wgtState);
        return;
    }
    ShowRows();
    m_pUi->stackExceptions->setCurrentWidget(m_pUi->pageTabs);
    if (!bFirst)
        return;
    const auto itFirst = std::find_if(m_vecModels.begin(), m_vecModels.end(),
        [](const Common::CTableModel* pModel) { return pModel->rowCount() > 0; });
    if (itFirst != m_vecModels.end())
        m_pUi->m_pTabs->setCurrentIndex(int(itFirst - m_vecModels.begin()));
}

void CPersonAuthorizeAbnormalDlg::ShowRows()
{
    const QString sKey = m_pUi->m_pSearch->text().trimmed();
    std::vector<QVector<Common::CTableModel::Row>> vecRows(m_vecModels.size());
    std::vector<bool> vecAbnormal(m_vecModels.size(), false);
    for (const AuthorizeException_t& exception : m_vecExceptions) {
        // A kind that this client does not know is about the person.
        const std::size_t nKind = std::size_t(exception.nCredential) < m_vecModels.size()
            ? std::size_t(exception.nCredential)
            : std::size_t(AccessControlLogical::CredentialPerson);
        vecAbnormal[nKind] = true;
        if (QString::fromStdString(exception.sPersonId).contains(sKey)
            || QString::fromStdString(exception.sPersonName).contains(sKey, Qt::CaseInsensitive))
            vecRows[nKind].append(MakeRow(exception));
    }
    for (std::size_t n = 0; n < m_vecModels.size(); ++n) {
        m_vecModels[n]->SetRows(vecRows[n]);
        m_pUi->m_pTabs->setTabText(int(n), GetExceptionTabTitle(int(n), vecAbnormal[n]));
    }
}

void CPersonAuthorizeAbnormalDlg::ShowFailed(int nErrorCode)
{
    const QString sText = Text::tr("Failed to search access group authorization exception information");
    VxGUI::VxNotification::Show(this, Common::FailureText(sText, nErrorCode));
    // What was read before is better than nothing.
    if (!m_vecExceptions.empty())
        return;
    const bool bNoRight = nErrorCode == UICommonMdl::ErrorNoRight;
    m_pUi->wgtState->SetState(
        bNoRight ? VxGUI::VxEmptyState::Kind::NoPermission : VxGUI::VxEmptyState::Kind::Failed, sText,
        UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), bNoRight ? QString() : Text::tr("Update"));
    m_pUi->stackExceptions->setCurrentWidget(m_pUi->wgtState);
}

void CPersonAuthorizeAbnormalDlg::OnConnectionChanged(bool bConnected)
{
    m_pUi->wgtState->setEnabled(bConnected);
    UpdateButtons();
    if (bConnected)
        Query(false);
}

void CPersonAuthorizeAbnormalDlg::UpdateButtons()
{
    const bool bFree = m_session.IsConnected() && !m_calls.IsPending();
    m_pUi->m_pBtnUpdate->setEnabled(bFree);
    m_pUi->m_pBtnResend->setEnabled(bFree && !m_vecExceptions.empty());
    m_pUi->lbBusy->setText(m_bResending ? Text::tr("The rights are being sent again.") : QString());
}

} // namespace BasicInfoManagerUI
