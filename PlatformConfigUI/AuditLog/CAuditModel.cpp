#include "CAuditModel.h"

#include "AuditRules.h"

namespace PlatformConfigUI {

namespace {

constexpr int MaxToolTipLines = 20;
constexpr int MaxToolTipLine = 160;
constexpr int MaxChangeWidth = 360;

QVector<Common::Column> MakeColumns()
{
    QVector<Common::Column> vecColumns;
    const QStringList listHeader = GetAuditHeader();
    for (const QString& sHeader : listHeader)
        vecColumns.append({sHeader});
    vecColumns[AuditColumnUser].width = Common::ColumnWidth::Text;
    vecColumns[AuditColumnObject].width = Common::ColumnWidth::Text;
    vecColumns[AuditColumnBefore].width = Common::ColumnWidth::Text;
    vecColumns[AuditColumnBefore].nMaximum = MaxChangeWidth;
    vecColumns[AuditColumnAfter].width = Common::ColumnWidth::Stretch;
    vecColumns.append({QString(), false});
    return vecColumns;
}

QStringList Shorten(QStringList listLines)
{
    const QString sMore = QStringLiteral("\u2026");
    for (QString& sLine : listLines) {
        if (sLine.size() > MaxToolTipLine)
            sLine = sLine.left(MaxToolTipLine) + sMore;
    }
    if (listLines.size() > MaxToolTipLines) {
        listLines.erase(listLines.begin() + MaxToolTipLines, listLines.end());
        listLines.append(sMore);
    }
    return listLines;
}

/// Shown as it is: what a stranger typed as a user name must not become part of a page.
QString ToPlainToolTip(const QStringList& listLines)
{
    return QStringLiteral("<p style='white-space:pre'>")
        + Shorten(listLines).join(QLatin1Char('\n')).toHtmlEscaped() + QStringLiteral("</p>");
}

} // namespace

CAuditModel::CAuditModel(QObject* pParent)
    : CTableModel(MakeColumns(), AuditColumnId, -1, pParent)
{
}

void CAuditModel::SetEntries(const std::vector<UserLogical::AuditEntry_t>& vecEntries)
{
    QVector<Row> vecRows;
    vecRows.reserve(int(vecEntries.size()));
    for (const UserLogical::AuditEntry_t& entry : vecEntries) {
        Row row;
        const QStringList listTexts = GetAuditTexts(entry);
        for (const QString& sText : listTexts)
            row.append(MakeItem(sText.simplified()));
        row.append(MakeItem(QString::number(entry.nId)));
        vecRows.append(row);
    }
    m_vecEntries = vecEntries;
    SetRows(vecRows);
}

const UserLogical::AuditEntry_t* CAuditModel::GetEntry(int nRow) const
{
    return nRow >= 0 && nRow < int(m_vecEntries.size()) ? &m_vecEntries[std::size_t(nRow)] : nullptr;
}

QVariant CAuditModel::data(const QModelIndex& index, int nRole) const
{
    if (nRole != Qt::ToolTipRole || !index.isValid())
        return CTableModel::data(index, nRole);
    const UserLogical::AuditEntry_t* const pEntry = GetEntry(index.row());
    QStringList listLines{index.data().toString()};
    if (pEntry && (index.column() == AuditColumnBefore || index.column() == AuditColumnAfter))
        listLines = GetChangeLines(GetChanges(pEntry->sBefore, pEntry->sAfter));
    return listLines.join(QString()).isEmpty() ? QString() : ToPlainToolTip(listLines);
}

} // namespace PlatformConfigUI
