#include "CDeviceListView.h"

#include "CDeviceModel.h"
#include "CDeviceTableHeader.h"

#include <QCoreApplication>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceManagerCtrl)
};
} // namespace

CDeviceListView::CDeviceListView(QWidget* pParent)
    : CListView(pParent)
    , m_pModel(new CDeviceModel(this))
    , m_pHeader(new CDeviceTableHeader(this))
{
    setObjectName(QStringLiteral("treeDevice"));
    setAccessibleName(Text::tr("Devices"));
    m_pHeader->setObjectName(QStringLiteral("headerDevice"));
    const Operation details{RoleDetails, "details", Text::tr("Details")};
    const Operation edit{RoleEdit, "edit", Text::tr("Edit")};
    const Operation move{RoleMoveTo, "move", Text::tr("Move To")};
    const Operation remove{RoleDelete, "delete", Text::tr("Delete")};
    const Operation access{RoleAccess, "users", Text::tr("Who Has Access")};
    SetUp(m_pModel, m_pHeader, {ColumnCheck, ColumnName, ColumnOperation}, {details, edit, move, remove});
    SetMenu(QStringLiteral("menuDevice"), {details, edit, move, remove, access});
    AddKey(Qt::Key_Return, RoleDetails);
    AddKey(Qt::Key_Enter, RoleDetails);
    AddKey(Qt::Key_F2, RoleEdit);
    AddKey(Qt::Key_Delete, RoleDelete);
    SetSort(GroupLogical::SortByIp, Qt::DescendingOrder);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
}

void CDeviceListView::SetDevices(const std::vector<GroupLogical::DeviceInfo_t>& vecDevices)
{
    ReplaceRows([&] { m_pModel->SetDevices(vecDevices); });
}

bool CDeviceListView::IsInMenu(const QModelIndex&, int nRole) const
{
    return nRole != RoleAccess || m_bAccessOffered;
}

void CDeviceListView::OpenRow(const QModelIndex& index)
{
    RaiseOperation(RoleDetails, index);
}

} // namespace ResourceManagerUI
