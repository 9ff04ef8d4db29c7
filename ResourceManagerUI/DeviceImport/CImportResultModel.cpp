#include "CImportResultModel.h"

#include <Trv/QSkin.h>

#include <QBrush>
#include <QCoreApplication>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevImport)
};

QString GetCellText(const ImportResultRow& row, int nColumn)
{
    switch (nColumn) {
    case CImportResultModel::ColumnLine:
        return row.row.nLine > 0 ? QString::number(row.row.nLine) : QString();
    case CImportResultModel::ColumnName:
        return QString::fromStdString(row.row.sName);
    case CImportResultModel::ColumnAddress:
        return QString::fromStdString(row.row.sAddress);
    case CImportResultModel::ColumnStatus:
        return row.bFailed ? Text::tr("Failed") : Text::tr("Success");
    case CImportResultModel::ColumnField:
        return QString::fromStdString(row.sField);
    case CImportResultModel::ColumnReason:
        return QString::fromStdString(row.sReason);
    default:
        return {};
    }
}

} // namespace

void CImportResultModel::SetRows(std::vector<ImportResultRow> vecRows)
{
    beginResetModel();
    m_vecRows = std::move(vecRows);
    SelectRows();
    endResetModel();
}

void CImportResultModel::SetOnlyFailed(bool bOnlyFailed)
{
    if (bOnlyFailed == m_bOnlyFailed)
        return;
    beginResetModel();
    m_bOnlyFailed = bOnlyFailed;
    SelectRows();
    endResetModel();
}

void CImportResultModel::SelectRows()
{
    m_vecShown.clear();
    for (std::size_t i = 0; i < m_vecRows.size(); ++i) {
        if (m_vecRows[i].bFailed || !m_bOnlyFailed)
            m_vecShown.push_back(i);
    }
}

int CImportResultModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_vecShown.size());
}

int CImportResultModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CImportResultModel::data(const QModelIndex& index, int nRole) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ImportResultRow& row = m_vecRows[m_vecShown[static_cast<std::size_t>(index.row())]];
    if (nRole == Qt::DisplayRole || nRole == Qt::ToolTipRole)
        return GetCellText(row, index.column());
    if (nRole == Qt::ForegroundRole && index.column() == ColumnStatus)
        return QBrush(Trv::GetColor(row.bFailed ? QStringLiteral("danger") : QStringLiteral("success")));
    return {};
}

QVariant CImportResultModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const
{
    if (orientation != Qt::Horizontal || nRole != Qt::DisplayRole)
        return {};
    switch (nSection) {
    case ColumnLine:
        return Text::tr("Line");
    case ColumnName:
        return Text::tr("Device Name");
    case ColumnAddress:
        return Text::tr("Address");
    case ColumnStatus:
        return Text::tr("Status");
    case ColumnField:
        return Text::tr("Field");
    case ColumnReason:
        return Text::tr("Failed Reason");
    default:
        return {};
    }
}

} // namespace ResourceManagerUI
