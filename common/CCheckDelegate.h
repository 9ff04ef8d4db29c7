#pragma once

#include <QStyledItemDelegate>

namespace Common {

/// The check boxes of a column: a click anywhere in the cell changes the box.
class CCheckDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool editorEvent(QEvent* pEvent, QAbstractItemModel* pModel, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
};

} // namespace Common
