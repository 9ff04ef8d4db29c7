#pragma once

#include "ListTestModel.h"

#include <common/CFilterHeaderView.h>
#include <common/CListView.h>
#include <common/CRowButtonDelegate.h>

/// A made-up list. Its operations tell what was asked for.
class ListTestView : public Common::CListView
{
public:
    enum RowRole : int
    {
        RoleEdit = 1,
        RoleDelete
    };

    ListTestView()
        : m_pHeader(new Common::CFilterHeaderView(this))
    {
        setObjectName(QStringLiteral("treeTest"));
        m_pHeader->setObjectName(QStringLiteral("headerTest"));
        const Operation edit{RoleEdit, "edit", QStringLiteral("Edit")};
        const Operation remove{RoleDelete, "delete", QStringLiteral("Delete")};
        SetUp(&m_model, m_pHeader,
            {ListTestModel::ColumnCheck, ListTestModel::ColumnName, ListTestModel::ColumnOperation},
            {edit, remove});
        SetMenu(QStringLiteral("menuTest"), {edit, remove});
        AddKey(Qt::Key_Delete, RoleDelete);
    }

    void Replace(int nFirst, int nRows, const QString& sRemark = QStringLiteral("Nothing to add"))
    {
        ReplaceRows([&] { m_model.Fill(nFirst, nRows, sRemark); });
    }
    QModelIndex Cell(int nId, int nColumn) const
    {
        return m_model.index(m_model.FindRow(QString::number(nId)), nColumn);
    }
    /// Where a row's button is seen, in coordinates of the viewport.
    QPoint ButtonPlace(int nId, int nButton) const
    {
        const QModelIndex index = Cell(nId, ListTestModel::ColumnOperation);
        return findChild<Common::CRowButtonDelegate*>()
            ->GetButtonRect(visualRect(index), fontMetrics(), nButton, index)
            .center();
    }

    ListTestModel m_model;
    Common::CFilterHeaderView* m_pHeader;
    QStringList m_listAsked; ///< "role id"
    QString m_sObstacle; ///< why nothing can be deleted

protected:
    QString GetObstacle(const QModelIndex&, int nRole) const override
    {
        return nRole == RoleDelete ? m_sObstacle : QString();
    }
    void RaiseOperation(int nRole, const QModelIndex& index) override
    {
        m_listAsked.append(QStringLiteral("%1 %2").arg(nRole).arg(m_model.GetId(index.row())));
    }
    void OpenRow(const QModelIndex& index) override { RaiseOperation(RoleEdit, index); }
};
