#include "COrganizationEditPage.h"

#include "ui_COrganizationEditPage.h"

#include <Trv/QSkin.h>
#include <VxGUI/VxNotification.h>
#include <common/ObserverAdapters.h>
#include <common/Prompt.h>

#include <QKeyEvent>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(COrganizationEditPage)
};
constexpr int KindSave = 1;
} // namespace

COrganizationEditPage::COrganizationEditPage(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::COrganizationEditPage>())
{
    m_pUi->setupUi(this);
    m_pUi->btnBack->setIcon(Trv::GetIcon(QStringLiteral("back")));
    const QString sSpecial = Text::tr("Special characters < and > are not allowed.");
    m_pUi->editName->SetRequired(Text::tr("Organization name cannot be empty."));
    m_pUi->editName->SetRule(
        GroupLogical::OrganizationName, Text::tr("The max length of organization name is %1!"), sSpecial);
    m_pUi->editRemark->SetRule(GroupLogical::OrganizationRemark,
        Text::tr("The remark length cannot exceed %1 characters."), sSpecial);
    connect(m_pUi->btnOk, &QAbstractButton::clicked, this, &COrganizationEditPage::OnOkClicked);
    connect(m_pUi->editName, &VxGUI::VxLineEdit::returnPressed, this, &COrganizationEditPage::OnOkClicked);
    connect(m_pUi->editRemark, &VxGUI::VxLineEdit::returnPressed, this, &COrganizationEditPage::OnOkClicked);
    connect(m_pUi->btnCancel, &QAbstractButton::clicked, this, &COrganizationEditPage::OnCancelClicked);
    connect(m_pUi->btnBack, &QAbstractButton::clicked, this, &COrganizationEditPage::OnCancelClicked);
}

COrganizationEditPage::~COrganizationEditPage() = default;

void COrganizationEditPage::SetGroupManager(GroupLogical::IGroupManager* pManager)
{
    m_pManager = pManager;
    m_pAdapter = std::make_unique<Common::CGroupManagerAdapter>(pManager);
    connect(m_pAdapter.get(), &Common::CGroupManagerAdapter::SignalState, this,
        &COrganizationEditPage::OnAnswer, Qt::QueuedConnection);
}

void COrganizationEditPage::BeginAdd(const GroupLogical::Organization_t& parent)
{
    GroupLogical::Organization_t record;
    record.sParentCode = parent.sCode;
    Begin(ModeAdd, record, QString::fromStdString(parent.sName));
}

void COrganizationEditPage::BeginModify(
    const GroupLogical::Organization_t& organization, const QString& sParentName)
{
    Begin(ModeModify, organization, sParentName);
}

void COrganizationEditPage::Begin(
    Mode mode, const GroupLogical::Organization_t& record, const QString& sParentName)
{
    m_requests.Clear();
    m_mode = mode;
    m_loaded = record;
    m_pUi->lbTitle->setText(mode == ModeAdd ? Text::tr("Add Organization") : Text::tr("Edit Organization"));
    m_pUi->lbParent->setText(sParentName.isEmpty() ? QStringLiteral("-") : sParentName);
    m_pUi->editName->setText(QString::fromStdString(record.sName));
    m_pUi->editRemark->setText(QString::fromStdString(record.sRemark));
    m_pUi->editName->ClearErrorHint();
    m_pUi->editRemark->ClearErrorHint();
    SetBusy(false);
    m_pUi->editName->GetLineEdit()->setFocus();
}

GroupLogical::Organization_t COrganizationEditPage::GetEdited() const
{
    GroupLogical::Organization_t edited = m_loaded;
    edited.sName = m_pUi->editName->text().trimmed().toStdString();
    edited.sRemark = m_pUi->editRemark->text().toStdString();
    return edited;
}

void COrganizationEditPage::OnOkClicked()
{
    if (m_requests.HasKind(KindSave))
        return;
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->editName, m_pUi->editRemark}) {
        if (!pEdit->CheckInput().isEmpty()) {
            pEdit->GetLineEdit()->setFocus();
            return;
        }
    }
    const GroupLogical::Organization_t edited = GetEdited();
    int nSequence = 0;
    if (m_pManager)
        nSequence =
            m_mode == ModeAdd ? m_pManager->AddOrganization(edited) : m_pManager->ModifyOrganization(edited);
    const bool bSent = m_requests.Add(nSequence, KindSave, [this, edited](const auto& param) {
        SetBusy(false);
        if (param.nErrorCode != UICommonMdl::ErrorNone) {
            ShowFailure(param.nErrorCode);
            return;
        }
        const GroupLogical::Organization_t& saved =
            param.vecOrganizations.empty() ? edited : param.vecOrganizations.front();
        Q_EMIT SignalAddOrModifyOrgComplete(
            m_mode, QString::fromStdString(saved.sCode), QString::fromStdString(saved.sName));
    });
    SetBusy(bSent);
    if (!bSent)
        ShowFailure(UICommonMdl::ErrorNone);
}

void COrganizationEditPage::OnCancelClicked()
{
    if (!Common::AskPrompt(this, Text::tr("Are you sure to cancel?")))
        return;
    m_requests.Clear();
    Q_EMIT SignalFirstBtnClicked();
}

void COrganizationEditPage::OnAnswer(const GroupLogical::IGroupManagerObserver::Param& param)
{
    m_requests.Answer(param);
}

void COrganizationEditPage::ShowFailure(int nErrorCode)
{
    VxGUI::VxNotification::Show(this,
        Common::FailureText(m_mode == ModeAdd ? Text::tr("Failed to add organization")
                                              : Text::tr("Failed to modify organization."),
            nErrorCode));
}

void COrganizationEditPage::SetBusy(bool bBusy)
{
    m_pUi->btnOk->setEnabled(!bBusy);
}

void COrganizationEditPage::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        OnCancelClicked();
    else
        QWidget::keyPressEvent(pEvent);
}

} // namespace ResourceManagerUI
