#include "COrganizationEditPage.h"

#include "ui_COrganizationEditPage.h"

#include <Trv/QSkin.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>

#include <QKeyEvent>

#include <algorithm>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(COrganizationEditPage)
};
} // namespace

COrganizationEditPage::COrganizationEditPage(
    const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::COrganizationEditPage>())
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("pageOrg"));
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
    m_calls.ForgetAll();
    m_mode = mode;
    m_loaded = record;
    m_pUi->lbTitle->setText(mode == ModeAdd ? Text::tr("Add Organization") : Text::tr("Edit Organization"));
    m_pUi->lbParent->setText(sParentName.isEmpty() ? QStringLiteral("-") : sParentName);
    m_pUi->editName->setText(QString::fromStdString(record.sName));
    m_pUi->editRemark->setText(QString::fromStdString(record.sRemark));
    m_pUi->editName->ClearErrorHint();
    m_pUi->editRemark->ClearErrorHint();
    m_baseline = GetEdited();
    SetBusy(false);
    m_pUi->editName->GetLineEdit()->setFocus();
}

bool COrganizationEditPage::IsDirty() const
{
    return GetEdited() != m_baseline;
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
    if (m_calls.IsPending())
        return;
    for (VxGUI::VxLineEdit* pEdit : {m_pUi->editName, m_pUi->editRemark}) {
        if (!pEdit->CheckInput().isEmpty()) {
            pEdit->GetLineEdit()->setFocus();
            return;
        }
    }
    const GroupLogical::Organization_t edited = GetEdited();
    const auto onAnswer = [this, edited](const Param& param) { OnSaved(edited, param); };
    if (m_mode == ModeAdd)
        m_calls.Each<&GroupLogical::IGroupManager::AddOrganization>(edited, onAnswer);
    else
        m_calls.Each<&GroupLogical::IGroupManager::ModifyOrganization>(edited, onAnswer);
    SetBusy(true);
}

void COrganizationEditPage::OnSaved(const GroupLogical::Organization_t& edited, const Param& param)
{
    if (param.nErrorCode == UICommonMdl::ErrorVersionConflict) {
        QueryTheirs();
        return;
    }
    SetBusy(false);
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        ShowFailure(param.nErrorCode);
        return;
    }
    const GroupLogical::Organization_t& saved =
        param.vecOrganizations.empty() ? edited : param.vecOrganizations.front();
    Q_EMIT SignalAddOrModifyOrgComplete(
        m_mode, QString::fromStdString(saved.sCode), QString::fromStdString(saved.sName));
}

void COrganizationEditPage::QueryTheirs()
{
    m_calls.Latest<&GroupLogical::IGroupManager::QueryOrganizations>(
        [this](const Param& param) { OnTheirs(param); });
}

void COrganizationEditPage::OnTheirs(const Param& param)
{
    SetBusy(false);
    const auto& vecAll = param.vecOrganizations;
    const auto it = std::find_if(vecAll.begin(), vecAll.end(),
        [this](const GroupLogical::Organization_t& other) { return other.sCode == m_loaded.sCode; });
    if (param.nErrorCode != UICommonMdl::ErrorNone || it == vecAll.end()) {
        ShowFailure(
            param.nErrorCode != UICommonMdl::ErrorNone ? param.nErrorCode : int(UICommonMdl::ErrorNotFound));
        return;
    }
    // What was typed stays; saved again, it stands over the change that has just been told.
    m_loaded = *it;
    m_baseline = *it;
    const QString sChange =
        Text::tr("Somebody else changed it in the meantime: its name is \"%1\", its remark \"%2\". What you "
                 "entered is kept; OK saves it over that change.")
            .arg(QString::fromStdString(it->sName), QString::fromStdString(it->sRemark));
    VxGUI::VxNotification::Show(this, Text::tr("Failed to modify organization.") + QLatin1Char(' ') + sChange,
        VxGUI::NotificationKind::Warning);
}

void COrganizationEditPage::OnCancelClicked()
{
    if (!Common::AskCancel(this, IsDirty()))
        return;
    m_calls.ForgetAll();
    Q_EMIT SignalBack();
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
