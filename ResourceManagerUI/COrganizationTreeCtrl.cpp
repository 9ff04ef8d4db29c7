#include "COrganizationTreeCtrl.h"

#include "ui_COrganizationTreeCtrl.h"

#include <Trv/QSkin.h>
#include <VxGUI/VxNotification.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QMenu>
#include <QShortcut>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(COrganizationTreeCtrl)
};
} // namespace

COrganizationTreeCtrl::COrganizationTreeCtrl(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::COrganizationTreeCtrl>())
    , m_pModel(new Common::COrganizationModel(this))
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    m_pUi->btnAddOrg->setIcon(Trv::GetIcon(QStringLiteral("add")));
    m_pUi->btnEditOrg->setIcon(Trv::GetIcon(QStringLiteral("edit")));
    m_pUi->btnDeleteOrg->setIcon(Trv::GetIcon(QStringLiteral("delete")));
    m_pUi->treeOrg->SetAlwaysCurrent(true);
    m_pUi->treeOrg->SetTreeModel(m_pModel);

    connect(m_pUi->treeOrg, &Common::CSearchTreeView::SignalCurrentIndexChanged, this,
        &COrganizationTreeCtrl::SignalSelectionChanged);
    connect(
        m_pUi->treeOrg, &QWidget::customContextMenuRequested, this, &COrganizationTreeCtrl::OnContextMenu);
    connect(m_pUi->editFilter, &QLineEdit::textChanged, m_pUi->treeOrg, &Common::CSearchTreeView::SetFilter);
    connect(m_pUi->btnAddOrg, &QAbstractButton::clicked, this, &COrganizationTreeCtrl::OnAddClicked);
    connect(m_pUi->btnEditOrg, &QAbstractButton::clicked, this, &COrganizationTreeCtrl::OnEditClicked);
    connect(m_pUi->btnDeleteOrg, &QAbstractButton::clicked, this, &COrganizationTreeCtrl::OnDeleteClicked);
    connect(
        m_pModel, &Common::COrganizationModel::SignalMoveOrg, this, &COrganizationTreeCtrl::SignalMoveOrg);
    connect(m_pModel, &Common::COrganizationModel::SignalModifyDeviceOrg, this,
        &COrganizationTreeCtrl::SignalModifyDeviceOrg);

    const auto addShortcut = [this](const QKeySequence& keys, void (COrganizationTreeCtrl::*slot)()) {
        auto* pShortcut = new QShortcut(keys, m_pUi->treeOrg, nullptr, nullptr, Qt::WidgetShortcut);
        connect(pShortcut, &QShortcut::activated, this, slot);
    };
    addShortcut(Qt::Key_Insert, &COrganizationTreeCtrl::OnAddClicked);
    addShortcut(Qt::Key_F2, &COrganizationTreeCtrl::OnEditClicked);
    addShortcut(Qt::Key_Delete, &COrganizationTreeCtrl::OnDeleteClicked);
    UpdateButtons();
    Common::LoadStyleSheet(this, QStringLiteral("ResourceManagerUI/DeviceManager"));
}

COrganizationTreeCtrl::~COrganizationTreeCtrl() = default;

void COrganizationTreeCtrl::SetOrganizations(
    const std::vector<GroupLogical::Organization_t>& vecOrganizations)
{
    if (m_pModel->GetOrganizations() == vecOrganizations)
        return;
    m_pModel->SetOrganizations(vecOrganizations);
    m_pUi->treeOrg->Restore();
    UpdateButtons();
}

QString COrganizationTreeCtrl::GetCurrentCode() const
{
    return m_pUi->treeOrg->GetCurrentCode();
}

void COrganizationTreeCtrl::SelectCode(const QString& sCode)
{
    m_pUi->treeOrg->SelectCode(sCode);
}

void COrganizationTreeCtrl::OnAddClicked()
{
    const QModelIndex current = m_pModel->FindCode(GetCurrentCode());
    if (!current.isValid()) {
        VxGUI::VxNotification::Show(this, Text::tr("No node selected."), VxGUI::NotificationKind::Warning);
        return;
    }
    if (Common::COrganizationModel::GetLevel(current) >= m_nLevelLimit) {
        VxGUI::VxNotification::Show(this, Text::tr("Can not add, group level limits %1").arg(m_nLevelLimit),
            VxGUI::NotificationKind::Warning);
        return;
    }
    Q_EMIT SignalAddOrg(GetCurrentCode());
}

void COrganizationTreeCtrl::OnEditClicked()
{
    const GroupLogical::Organization_t* pOrganization = m_pModel->FindOrganization(GetCurrentCode());
    if (!pOrganization) {
        VxGUI::VxNotification::Show(this, Text::tr("No node selected."), VxGUI::NotificationKind::Warning);
        return;
    }
    Q_EMIT SignalModifyOrg(QString::fromStdString(pOrganization->sCode),
        QString::fromStdString(pOrganization->sName), QString::fromStdString(pOrganization->sRemark));
}

void COrganizationTreeCtrl::OnDeleteClicked()
{
    const QString sCode = GetCurrentCode();
    if (sCode.isEmpty()) {
        VxGUI::VxNotification::Show(this, Text::tr("No node selected."), VxGUI::NotificationKind::Warning);
        return;
    }
    if (sCode == QLatin1String(GroupLogical::RootOrganizationCode)) {
        VxGUI::VxNotification::Show(
            this, Text::tr("You cannot delete root node."), VxGUI::NotificationKind::Warning);
        return;
    }
    if (Common::AskPrompt(this, Text::tr("Are you sure to delete organization?")))
        Q_EMIT SignalDeleteOrg(sCode);
}

void COrganizationTreeCtrl::OnContextMenu(const QPoint& pos)
{
    auto* pMenu = new QMenu(this);
    pMenu->setObjectName(QStringLiteral("menuOrg"));
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    const auto addAction = [&](const QToolButton* pButton, void (COrganizationTreeCtrl::*slot)()) {
        QAction* pAction = pMenu->addAction(pButton->icon(), pButton->toolTip());
        pAction->setEnabled(pButton->isEnabled());
        connect(pAction, &QAction::triggered, this, slot);
    };
    addAction(m_pUi->btnAddOrg, &COrganizationTreeCtrl::OnAddClicked);
    addAction(m_pUi->btnEditOrg, &COrganizationTreeCtrl::OnEditClicked);
    addAction(m_pUi->btnDeleteOrg, &COrganizationTreeCtrl::OnDeleteClicked);
    pMenu->popup(m_pUi->treeOrg->viewport()->mapToGlobal(pos));
}

void COrganizationTreeCtrl::UpdateButtons()
{
    const bool bTree = m_pModel->rowCount() > 0;
    for (QToolButton* pButton : {m_pUi->btnAddOrg, m_pUi->btnEditOrg, m_pUi->btnDeleteOrg})
        pButton->setEnabled(bTree);
}

} // namespace ResourceManagerUI
