#include "COrganizationModel.h"

#include <Trv/QSkin.h>

#include <QMimeData>

#include <algorithm>

namespace Common {

COrganizationModel::COrganizationModel(QObject* pParent)
    : CCodeTreeModel(pParent)
{
}

void COrganizationModel::SetOrganizations(const std::vector<GroupLogical::Organization_t>& vecOrganizations)
{
    m_vecOrganizations = vecOrganizations;
    QVector<UICommonMdl::TreeNode> vecNodes;
    vecNodes.reserve(int(vecOrganizations.size()));
    for (const GroupLogical::Organization_t& organization : vecOrganizations)
        vecNodes.append({QString::fromStdString(organization.sCode),
            QString::fromStdString(organization.sParentCode), QString::fromStdString(organization.sName)});
    SetNodes(vecNodes, Trv::GetIcon(QStringLiteral("organization")));
    if (QStandardItem* pRoot = itemFromIndex(FindCode(QLatin1String(GroupLogical::RootOrganizationCode))))
        pRoot->setDragEnabled(false);
}

const GroupLogical::Organization_t* COrganizationModel::FindOrganization(const QString& sCode) const
{
    const auto it = std::find_if(m_vecOrganizations.begin(), m_vecOrganizations.end(),
        [sKey = sCode.toStdString()](const auto& organization) { return organization.sCode == sKey; });
    return it == m_vecOrganizations.end() ? nullptr : &*it;
}

QStringList COrganizationModel::mimeTypes() const
{
    return {QString::fromLatin1(OrganizationMimeType), QString::fromLatin1(DeviceIdsMimeType)};
}

QMimeData* COrganizationModel::mimeData(const QModelIndexList& listIndexes) const
{
    if (listIndexes.isEmpty())
        return nullptr;
    auto* pData = new QMimeData;
    pData->setData(QString::fromLatin1(OrganizationMimeType), GetCode(listIndexes.first()).toUtf8());
    return pData;
}

bool COrganizationModel::IsSelfOrBelow(const QModelIndex& index, const QString& sCode) const
{
    for (QModelIndex i = index; i.isValid(); i = i.parent()) {
        if (GetCode(i) == sCode)
            return true;
    }
    return false;
}

bool COrganizationModel::canDropMimeData(
    const QMimeData* pData, Qt::DropAction, int, int, const QModelIndex& parent) const
{
    if (!parent.isValid())
        return false;
    if (pData->hasFormat(QString::fromLatin1(DeviceIdsMimeType)))
        return true;
    if (!pData->hasFormat(QString::fromLatin1(OrganizationMimeType)))
        return false;
    const QString sCode = QString::fromUtf8(pData->data(QString::fromLatin1(OrganizationMimeType)));
    const QModelIndex moved = FindCode(sCode);
    return moved.isValid() && moved.parent() != parent && !IsSelfOrBelow(parent, sCode);
}

bool COrganizationModel::dropMimeData(
    const QMimeData* pData, Qt::DropAction action, int nRow, int nColumn, const QModelIndex& parent)
{
    if (!canDropMimeData(pData, action, nRow, nColumn, parent))
        return false;
    const QString sTarget = GetCode(parent);
    if (pData->hasFormat(QString::fromLatin1(DeviceIdsMimeType))) {
        const QString sIds = QString::fromUtf8(pData->data(QString::fromLatin1(DeviceIdsMimeType)));
        Q_EMIT SignalModifyDeviceOrg(sIds.split(QLatin1Char('\n'), Qt::SkipEmptyParts).toVector(), sTarget);
    } else {
        Q_EMIT SignalMoveOrg(
            QString::fromUtf8(pData->data(QString::fromLatin1(OrganizationMimeType))), sTarget);
    }
    // Answering false keeps the dragging view from removing its row: the server's answer moves it.
    return false;
}

} // namespace Common
