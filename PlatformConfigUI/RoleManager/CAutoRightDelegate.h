#pragma once

#include <QStyledItemDelegate>

namespace PlatformConfigUI {

/// Paints the automatic authorization of an organisation as a small switch. Its tip is the model's.
/// User-interface thread.
class CAutoRightDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Where the switch of a cell with that rectangle stands.
    static QRect GetSwitchRect(const QRect& cell);

    void paint(
        QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool editorEvent(QEvent* pEvent, QAbstractItemModel* pModel, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

Q_SIGNALS:
    void SignalToggled(const QModelIndex& index);

private:
    QPersistentModelIndex m_pressed;
};

} // namespace PlatformConfigUI
