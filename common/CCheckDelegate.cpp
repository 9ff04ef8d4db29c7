#include "CCheckDelegate.h"

#include <QMouseEvent>

namespace Common {

bool CCheckDelegate::editorEvent(
    QEvent* pEvent, QAbstractItemModel* pModel, const QStyleOptionViewItem&, const QModelIndex& index)
{
    const Qt::ItemFlags flags = index.flags();
    if (!flags.testFlag(Qt::ItemIsUserCheckable) || !flags.testFlag(Qt::ItemIsEnabled))
        return false;
    // The press of a double click arrives as such and its release as another click: both count.
    if (pEvent->type() != QEvent::MouseButtonRelease
        || static_cast<QMouseEvent*>(pEvent)->button() != Qt::LeftButton)
        return false;
    const bool bChecked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return pModel->setData(index, bChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

} // namespace Common
