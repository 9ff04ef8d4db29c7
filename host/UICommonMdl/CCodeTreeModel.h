#pragma once

#include <UICommonMdl/UICommonMdlExport.h>

#include <QHash>
#include <QIcon>
#include <QStandardItemModel>
#include <QVector>

namespace UICommonMdl {

/// One node of a tree that comes as a list.
struct TreeNode
{
    QString sCode; ///< key
    QString sParentCode;
    QString sText;
};

/// A tree of nodes that are known by a code. User-interface thread.
class UICOMMONMDL_EXPORT CCodeTreeModel : public QStandardItemModel
{
    Q_OBJECT

public:
    static constexpr int RoleCode = Qt::UserRole + 1;

    explicit CCodeTreeModel(QObject* pParent = nullptr);

    /// Code of a node, of a proxy's too; empty for an invalid index.
    static QString GetCode(const QModelIndex& index);
    /// 1 for a root, 0 for an invalid index.
    static int GetLevel(const QModelIndex& index);
    /// Invalid when there is none.
    QModelIndex FindCode(const QString& sCode) const;

protected:
    /// Replaces the tree; parents stand before their children. One whose parent is missing becomes a root.
    void SetNodes(const QVector<TreeNode>& vecNodes, const QIcon& icon);

private:
    QHash<QString, QStandardItem*> m_mapItems;
};

} // namespace UICommonMdl
