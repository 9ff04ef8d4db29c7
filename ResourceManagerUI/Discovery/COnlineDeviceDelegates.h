#pragma once

#include <common/CRowButtonDelegate.h>

namespace ResourceManagerUI {

/// What the buttons of a found device do.
enum OnlineOperation : int
{
    OperationModifyIp = 1,
    OperationAdd,
    OperationInitialize
};

/// The operations of each row, by what can be done with it: buttons, or a word where nothing can.
class COnlineOperationDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit COnlineOperationDelegate(QObject* pParent = nullptr);

    void paint(
        QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool editorEvent(QEvent* pEvent, QAbstractItemModel* pModel, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
    bool helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

    /// Where the button of that operation stands in a cell of the widest row.
    QRect GetButtonRect(const QRect& cell, const QFontMetrics& metrics, OnlineOperation operation) const;

Q_SIGNALS:
    void SignalButtonClicked(const QModelIndex& index, int nRole);

private:
    /// Null for a row without operations.
    Common::CRowButtonDelegate* Buttons(const QModelIndex& index) const;

    Common::CRowButtonDelegate* m_pInitialized;
    Common::CRowButtonDelegate* m_pUninitialized;
};

/// Edits an address: takes IPv4 addresses alone.
class CAddressDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget* createEditor(
        QWidget* pParent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace ResourceManagerUI
