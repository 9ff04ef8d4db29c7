#pragma once

#include "ImportRules.h"

#include <QAbstractTableModel>

namespace ResourceManagerUI {

/// What became of the rows of an import: all of them, or those that failed. Holds 100,000 rows without an
/// object a cell. User-interface thread.
class CImportResultModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column : int
    {
        ColumnLine,
        ColumnName,
        ColumnAddress,
        ColumnStatus,
        ColumnField,
        ColumnReason,
        ColumnCount
    };

    using QAbstractTableModel::QAbstractTableModel;

    void SetRows(std::vector<ImportResultRow> vecRows);
    void SetOnlyFailed(bool bOnlyFailed);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int nRole = Qt::DisplayRole) const override;
    QVariant headerData(
        int nSection, Qt::Orientation orientation, int nRole = Qt::DisplayRole) const override;

private:
    void SelectRows();

    std::vector<ImportResultRow> m_vecRows;
    std::vector<std::size_t> m_vecShown; ///< indices of m_vecRows
    bool m_bOnlyFailed = false;
};

} // namespace ResourceManagerUI
