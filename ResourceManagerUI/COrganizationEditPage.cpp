#include "COrganizationEditPage.h"

#include "ui_COrganizationEditPage.h"

#include <Trv/QSkin.h>
#include <UserLogical/RightCodes.h>

#include <QKeyEvent>

#include <algorithm>

namespace ResourceManagerUI {

using GroupLogical::IGroupManager;
using GroupLogical::Organization_t;

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
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
    , m_editor(m_session, this, *this)
    , m_fields(m_editor.Fields())
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("pageOrg"));
    m_pUi->btnBack->setIcon(Trv::GetIcon(QStringLiteral("back")));
    SetUpFields();
    SetUpEditor();
    const auto save = [this] { m_editor.Save(); };
    connect(m_pUi->btnOk, &QAbstractButton::clicked, this, save);
    connect(m_pUi->editName, &VxGUI::VxLineEdit::returnPressed, this, save);
    connect(m_pUi->editRemark, &VxGUI::VxLineEdit::returnPressed, this, save);
    for (QAbstractButton* const pButton :
        std::initializer_list<QAbstractButton*>{m_pUi->btnCancel, m_pUi->btnBack})
        connect(pButton, &QAbstractButton::clicked, this, [this] { m_editor.Leave(); });
}

COrganizationEditPage::~COrganizationEditPage() = default;

void COrganizationEditPage::SetUpFields()
{
    const QString sSpecial = Text::tr("Special characters < and > are not allowed.");
    m_pUi->editName->SetRequired(Text::tr("Organization name cannot be empty."));
    m_pUi->editName->SetRule(
        GroupLogical::OrganizationName, Text::tr("The max length of organization name is %1!"), sSpecial);
    m_pUi->editRemark->SetRule(GroupLogical::OrganizationRemark,
        Text::tr("The remark length cannot exceed %1 characters."), sSpecial);
    m_fields.Text(&Organization_t::sName, m_pUi->editName);
    m_fields.Text(&Organization_t::sRemark, m_pUi->editRemark);
}

void COrganizationEditPage::SetUpEditor()
{
    m_editor.SetForm(
        {.pSave = m_pUi->btnOk, .pTitle = m_pUi->lbTitle, .vecInput = {m_pUi->editName, m_pUi->editRemark}},
        {.sAddTitle = Text::tr("Add Organization"),
            .sModifyTitle = Text::tr("Edit Organization"),
            .sAdded = Text::tr("The organization was added."),
            .sModified = Text::tr("The organization was modified."),
            .sAddFailed = Text::tr("Failed to add organization"),
            .sModifyFailed = Text::tr("Failed to modify organization."),
            .sNoRight = Text::tr("You have no permission to change organizations.")},
        UserLogical::RightChangeDevices);
    m_editor.SetNotice(m_pUi->wgtSaveNotice);
    m_editor.SetClose([this] {
        m_calls.ForgetAll();
        Q_EMIT SignalBack();
    });
}

void COrganizationEditPage::BeginAdd(const Organization_t& parent)
{
    ShowParent(QString::fromStdString(parent.sName));
    Organization_t record;
    record.sParentCode = parent.sCode;
    m_editor.BeginNew(record);
}

void COrganizationEditPage::BeginModify(const Organization_t& organization, const QString& sParentName)
{
    ShowParent(sParentName);
    m_editor.BeginEdit(organization);
}

void COrganizationEditPage::ShowParent(const QString& sName)
{
    m_calls.ForgetAll();
    m_pUi->lbParent->setText(sName.isEmpty() ? QStringLiteral("-") : sName);
}

void COrganizationEditPage::ShowRecord(const Organization_t& record)
{
    m_fields.Show(record);
    m_pUi->editName->GetLineEdit()->setFocus();
}

Organization_t COrganizationEditPage::GetEdited() const
{
    Organization_t edited = m_editor.GetLoaded();
    m_fields.Read(edited);
    return edited;
}

bool COrganizationEditPage::CheckInput()
{
    return m_fields.Check();
}

void COrganizationEditPage::Send(const Organization_t& record, bool bNew)
{
    const auto onAnswer = [this](const Param& param) {
        m_editor.OnAnswer(param.nErrorCode, param.sErrorDetail,
            param.vecOrganizations.empty() ? nullptr : &param.vecOrganizations.front());
    };
    if (bNew)
        m_calls.Each<&IGroupManager::AddOrganization>(record, onAnswer);
    else
        m_calls.Each<&IGroupManager::ModifyOrganization>(record, onAnswer);
}

void COrganizationEditPage::Fetch(const Organization_t& record, bool bNew)
{
    m_calls.Latest<&IGroupManager::QueryOrganizations>([this, record, bNew](const Param& param) {
        const auto& vecAll = param.vecOrganizations;
        const auto it = std::find_if(vecAll.begin(), vecAll.end(), [&](const Organization_t& other) {
            return bNew ? other.sParentCode == record.sParentCode && other.sName == record.sName
                        : other.sCode == record.sCode;
        });
        m_editor.OnFetched(param.nErrorCode, it == vecAll.end() ? nullptr : &*it);
    });
}

void COrganizationEditPage::OnSaved(const Organization_t& record)
{
    Q_EMIT SignalAddOrModifyOrgComplete(m_editor.IsNew() ? ModeAdd : ModeModify,
        QString::fromStdString(record.sCode), QString::fromStdString(record.sName));
}

void COrganizationEditPage::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        m_editor.Leave();
    else
        QWidget::keyPressEvent(pEvent);
}

} // namespace ResourceManagerUI
