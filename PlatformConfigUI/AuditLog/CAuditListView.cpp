#include "CAuditListView.h"

#include "CAuditModel.h"

#include <common/CFilterHeaderView.h>

#include <QCoreApplication>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAuditLogCtrl)
};

constexpr int RoleDetails = 1;

} // namespace

CAuditListView::CAuditListView(QWidget* pParent)
    : CListView(pParent)
    , m_pModel(new CAuditModel(this))
{
    setObjectName(QStringLiteral("treeAudit"));
    setAccessibleName(Text::tr("Audit Log"));
    auto* const pHeader = new Common::CFilterHeaderView(this);
    pHeader->setObjectName(QStringLiteral("headerAudit"));
    SetUp(m_pModel, pHeader, {-1, AuditColumnTime, -1}, {});
    setColumnHidden(AuditColumnId, true);
    SetMenu(QStringLiteral("menuAudit"), {{RoleDetails, "details", Text::tr("Details")}});
    AddKey(Qt::Key_Return, RoleDetails);
    AddKey(Qt::Key_Enter, RoleDetails);
}

void CAuditListView::SetEntries(const std::vector<UserLogical::AuditEntry_t>& vecEntries)
{
    ReplaceRows([&] { m_pModel->SetEntries(vecEntries); });
}

void CAuditListView::RaiseOperation(int /*nRole*/, const QModelIndex& index)
{
    OpenRow(index);
}

void CAuditListView::OpenRow(const QModelIndex& index)
{
    if (const UserLogical::AuditEntry_t* const pEntry = m_pModel->GetEntry(index.row()))
        Q_EMIT SignalDetails(*pEntry);
}

} // namespace PlatformConfigUI
