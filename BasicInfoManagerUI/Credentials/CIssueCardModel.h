#pragma once

#include "CredentialRules.h"

#include <QAbstractTableModel>
#include <QSet>
#include <QStyledItemDelegate>

namespace BasicInfoManagerUI {

/// Persons and the number of the card that each gets; the numbers are edited in place and kept upper case.
/// User-interface thread.
class CIssueCardModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column : int
    {
        ColumnName,
        ColumnCardNo,
        ColumnOperation,
        ColumnCount
    };

    using QAbstractTableModel::QAbstractTableModel;

    void SetRows(const QVector<CredentialRules::IssueRow>& vecRows);
    const QVector<CredentialRules::IssueRow>& GetRows() const { return m_vecRows; }
    void RemoveRow(int nRow);
    void SetCardNo(int nRow, const QString& sCardNo);
    /// Rows whose number is not good; a mark goes when the number is changed.
    void MarkRows(const QVector<int>& vecRows);
    /// The rows with one of these numbers.
    QVector<int> FindCards(const QStringList& listCardNos) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int nRole = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& vValue, int nRole = Qt::EditRole) override;
    QVariant headerData(
        int nSection, Qt::Orientation orientation, int nRole = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QVector<CredentialRules::IssueRow> m_vecRows;
    QSet<QString> m_setMarked; ///< IDs of persons
};

/// The field that a card number is typed into.
class CCardNoDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(
        QWidget* pParent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const override;
};

} // namespace BasicInfoManagerUI
