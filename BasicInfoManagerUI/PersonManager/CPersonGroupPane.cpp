#include "CPersonGroupPane.h"

#include "CPersonGroupEditUI.h"
#include "ui_CPersonGroupPane.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CDepartmentModelManager.h>
#include <UICommonMdl/ErrorCodes.h>
#include <common/Prompt.h>

namespace BasicInfoManagerUI {

using AccessControlLogical::IAccessControlManager;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonManagerCtrl)
};
} // namespace

CPersonGroupPane::CPersonGroupPane(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pPage)
    : QWidget(pPage)
    , m_pInterfaceSet(pInterfaceSet)
    , m_pPage(pPage)
    , m_pDepartments(UICommonMdl::CDepartmentModelManager::Instance()->GetDepartmentModel())
    , m_pUi(std::make_unique<Ui::CPersonGroupPane>())
    , m_calls(pInterfaceSet, this)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    SetUpTools();
    m_pUi->m_pSearchOrg->SetBackgroundText(Text::tr("Person Group"));
    m_pUi->m_pTreeWnd->SetTreeModel(m_pDepartments);
    connect(
        m_pUi->m_pSearchOrg, &QLineEdit::textChanged, m_pUi->m_pTreeWnd, &Common::CSearchTreeView::SetFilter);
    connect(m_pUi->m_pTreeWnd, &Common::CSearchTreeView::SignalCurrentIndexChanged, this, [this] {
        UpdateTools();
        Q_EMIT SignalGroupChanged();
    });
    connect(UICommonMdl::CDepartmentModelManager::Instance(),
        &UICommonMdl::CDepartmentModelManager::SignalDepartmentModelFinish, this,
        &CPersonGroupPane::OnDepartmentModelFinish);
    connect(m_pUi->wgtTreeState, &VxGUI::VxEmptyState::SignalAction, this, &CPersonGroupPane::Query);
    UpdateTools();
}

CPersonGroupPane::~CPersonGroupPane() = default;

void CPersonGroupPane::SetUpTools()
{
    const struct
    {
        QToolButton* pButton;
        const char* pszIcon;
        void (CPersonGroupPane::*slot)();
        QKeySequence keys;
    } operations[] = {{m_pUi->m_btnAddOrg, "add", &CPersonGroupPane::OnBtnAddOrgClicked, Qt::Key_Insert},
        {m_pUi->m_btnModifyOrg, "edit", &CPersonGroupPane::OnBtnModifyOrgClicked, Qt::Key_F2},
        {m_pUi->m_btnDelOrg, "delete", &CPersonGroupPane::OnBtnDelOrgClicked, Qt::Key_Delete}};
    for (const auto& operation : operations) {
        operation.pButton->setIcon(Trv::GetIcon(QLatin1String(operation.pszIcon)));
        connect(operation.pButton, &QAbstractButton::clicked, this, operation.slot);
        auto* pAction =
            new QAction(operation.pButton->icon(), operation.pButton->toolTip(), m_pUi->m_pTreeWnd);
        pAction->setShortcut(operation.keys);
        pAction->setShortcutContext(Qt::WidgetShortcut);
        connect(pAction, &QAction::triggered, this, operation.slot);
        m_pUi->m_pTreeWnd->addAction(pAction);
    }
}

void CPersonGroupPane::UpdateTools()
{
    const bool bUsable = m_sObstacle.isEmpty();
    const QModelIndex group = m_pDepartments->FindCode(GetCode());
    m_pUi->m_btnAddOrg->setEnabled(bUsable);
    m_pUi->m_btnModifyOrg->setEnabled(bUsable);
    m_pUi->m_btnDelOrg->setEnabled(bUsable && group.isValid() && group.parent().isValid());
    m_pUi->m_btnAddOrg->setToolTip(bUsable ? Text::tr("Add") : m_sObstacle);
    m_pUi->m_btnModifyOrg->setToolTip(bUsable ? Text::tr("Edit") : m_sObstacle);
    const QString sDelete = !group.isValid() ? Text::tr("No group is selected.")
        : group.parent().isValid()           ? Text::tr("Delete")
                                             : Text::tr("The topmost group cannot be deleted.");
    m_pUi->m_btnDelOrg->setToolTip(bUsable ? sDelete : m_sObstacle);
    const QList<QAction*> listActions = m_pUi->m_pTreeWnd->actions();
    for (QAction* const pAction : listActions)
        pAction->setEnabled(bUsable);
}

void CPersonGroupPane::SetObstacle(const QString& sReason)
{
    m_sObstacle = sReason;
    UpdateTools();
}

QString CPersonGroupPane::GetCode() const
{
    return m_pUi->m_pTreeWnd->GetCurrentCode();
}

QString CPersonGroupPane::GetName() const
{
    return m_pDepartments->FindCode(GetCode()).data().toString();
}

bool CPersonGroupPane::IsWithin(const QString& sCode, const QString& sAncestor) const
{
    for (QModelIndex group = m_pDepartments->FindCode(sCode); group.isValid(); group = group.parent()) {
        if (UICommonMdl::CDepartmentModel::GetCode(group) == sAncestor)
            return true;
    }
    return false;
}

void CPersonGroupPane::Query()
{
    m_calls.Latest<&IAccessControlManager::QueryDepartmentTree>([this](const Param& param) {
        if (param.nErrorCode == UICommonMdl::ErrorNone)
            return;
        Q_EMIT SignalNotice(Common::FailureText(Text::tr("Failed to get person groups"), param.nErrorCode),
            VxGUI::NotificationKind::Error);
        ShowTreeState(param.nErrorCode);
    });
    if (m_pDepartments->rowCount() > 0) {
        ShowTreeState(UICommonMdl::ErrorNone);
        return;
    }
    m_pUi->wgtTreeState->SetState(VxGUI::VxEmptyState::Kind::Loading, Text::tr("Loading person groups"));
    m_pUi->stackTree->setCurrentWidget(m_pUi->wgtTreeState);
}

void CPersonGroupPane::OnDepartmentModelFinish()
{
    ShowTreeState(UICommonMdl::ErrorNone);
    m_pUi->m_pTreeWnd->Restore();
    if (m_pDepartments->FindCode(m_sSelectAfterQuery).isValid())
        m_pUi->m_pTreeWnd->SelectCode(std::exchange(m_sSelectAfterQuery, QString()));
    UpdateTools();
    Q_EMIT SignalTreeChanged();
}

void CPersonGroupPane::ShowTreeState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    VxGUI::VxEmptyState* const pState = m_pUi->wgtTreeState;
    // Groups that were there before are better than none.
    if (nErrorCode == UICommonMdl::ErrorNone || m_pDepartments->rowCount() > 0) {
        m_pUi->stackTree->setCurrentWidget(m_pUi->pageTree);
        return;
    }
    if (nErrorCode == UICommonMdl::ErrorNoRight)
        pState->SetState(Kind::NoPermission, Text::tr("You have no permission to see person groups."));
    else
        pState->SetState(
            Kind::Failed, Text::tr("Failed to get person groups"), QString(), Text::tr("Refresh"));
    m_pUi->stackTree->setCurrentWidget(pState);
}

void CPersonGroupPane::ShowSelectGroup()
{
    Q_EMIT SignalNotice(Text::tr("Please select a person group."), VxGUI::NotificationKind::Warning);
}

void CPersonGroupPane::OnBtnAddOrgClicked()
{
    const QModelIndex group = m_pDepartments->FindCode(GetCode());
    if (!group.isValid()) {
        ShowSelectGroup();
        return;
    }
    if (UICommonMdl::CDepartmentModel::GetLevel(group) >= AccessControlLogical::DepartmentLevelLimit) {
        Q_EMIT SignalNotice(Text::tr("Failed to add. Person group level must not exceed %1.")
                                .arg(AccessControlLogical::DepartmentLevelLimit),
            VxGUI::NotificationKind::Warning);
        return;
    }
    auto* const pDialog = new CPersonGroupEditUI(m_pInterfaceSet, m_pPage);
    pDialog->BeginAdd(GetCode());
    OpenGroupEditor(pDialog);
}

void CPersonGroupPane::OnBtnModifyOrgClicked()
{
    const AccessControlLogical::Department_t* const pGroup = m_pDepartments->FindDepartment(GetCode());
    if (!pGroup) {
        ShowSelectGroup();
        return;
    }
    auto* const pDialog = new CPersonGroupEditUI(m_pInterfaceSet, m_pPage);
    pDialog->BeginModify(*pGroup);
    OpenGroupEditor(pDialog);
}

void CPersonGroupPane::OpenGroupEditor(CPersonGroupEditUI* pDialog)
{
    connect(pDialog, &CPersonGroupEditUI::SignalGroupSaved, this, &CPersonGroupPane::OnGroupSaved);
    pDialog->open();
}

void CPersonGroupPane::OnGroupSaved(const QString& sCode, bool bAddPerson)
{
    m_sSelectAfterQuery = sCode;
    Query();
    Q_EMIT SignalGroupSaved(sCode, bAddPerson);
}

void CPersonGroupPane::OnBtnDelOrgClicked()
{
    const QModelIndex group = m_pDepartments->FindCode(GetCode());
    if (!group.isValid()) {
        ShowSelectGroup();
        return;
    }
    if (!group.parent().isValid()) {
        Q_EMIT SignalNotice(Text::tr("The root group cannot be deleted."), VxGUI::NotificationKind::Warning);
        return;
    }
    const QString sCode = GetCode();
    const QString sParentCode = UICommonMdl::CDepartmentModel::GetCode(group.parent());
    if (!Common::AskDelete(m_pPage,
            Text::tr("Are you sure you want to delete the person group? After deletion, the people in this "
                     "group and sub group(s) will be deleted."),
            {GetName()}))
        return;
    m_calls.Each<&IAccessControlManager::DeleteDepartment>(
        sCode.toStdString(), [this, sCode, sParentCode](const Param& param) {
            OnGroupDeleted(sCode, sParentCode, param.nErrorCode);
        });
}

void CPersonGroupPane::OnGroupDeleted(const QString& sCode, const QString& sParentCode, int nErrorCode)
{
    if (nErrorCode == UICommonMdl::ErrorNone) {
        // Another choice that was made in the meantime stays.
        m_sSelectAfterQuery = sParentCode;
        Q_EMIT SignalGroupDeleted(sCode);
    } else {
        Q_EMIT SignalNotice(Common::FailureText(Text::tr("Failed to delete person group"), nErrorCode),
            VxGUI::NotificationKind::Error);
    }
    Query();
}

} // namespace BasicInfoManagerUI
