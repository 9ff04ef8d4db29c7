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
class COnlineOperationDelegate : public Common::CRowButtonDelegate
{
    Q_OBJECT

public:
    explicit COnlineOperationDelegate(QObject* pParent = nullptr);

    using Common::CRowButtonDelegate::GetButtonRect;
    /// Where the button of that operation stands in a cell of the widest row.
    QRect GetButtonRect(const QRect& cell, const QFontMetrics& metrics, OnlineOperation operation) const;
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
