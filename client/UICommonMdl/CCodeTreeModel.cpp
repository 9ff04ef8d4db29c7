#include <UICommonMdl/CCodeTreeModel.h>

namespace UICommonMdl {

CCodeTreeModel::CCodeTreeModel(QObject* pParent)
    : QStandardItemModel(pParent)
{
}

QString CCodeTreeModel::GetCode(const QModelIndex& index)
{
    return index.data(RoleCode).toString();
}

int CCodeTreeModel::GetLevel(const QModelIndex& index)
{
    int nLevel = 0;
    for (QModelIndex i = index; i.isValid(); i = i.parent())
        ++nLevel;
    return nLevel;
}

QModelIndex CCodeTreeModel::FindCode(const QString& sCode) const
{
    const QStandardItem* pItem = m_mapItems.value(sCode);
    return pItem ? pItem->index() : QModelIndex();
}

void CCodeTreeModel::SetNodes(const QVector<TreeNode>& vecNodes, const QIcon& icon)
{
    removeRows(0, rowCount());
    m_mapItems.clear();
    m_mapItems.reserve(vecNodes.size());
    QList<QStandardItem*> listRoots;
    for (const TreeNode& node : vecNodes) {
        auto* pItem = new QStandardItem(icon, node.sText);
        pItem->setData(node.sCode, RoleCode);
        pItem->setToolTip(node.sText);
        pItem->setEditable(false);
        m_mapItems.insert(node.sCode, pItem);
        if (QStandardItem* pParent = m_mapItems.value(node.sParentCode))
            pParent->appendRow(pItem);
        else
            listRoots.append(pItem);
    }
    // One by one: only so do the items below learn their model.
    for (QStandardItem* pRoot : qAsConst(listRoots))
        appendRow(pRoot);
}

} // namespace UICommonMdl
