#include "CIssueCardModel.h"

#include <Trv/QSkin.h>

#include <QCoreApplication>
#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CBatchIssueCard)
};

} // namespace

void CIssueCardModel::SetRows(const QVector<CredentialRules::IssueRow>& vecRows)
{
    beginResetModel();
    m_vecRows = vecRows;
    m_setMarked.clear();
    endResetModel();
}

void CIssueCardModel::RemoveRow(int nRow)
{
    beginRemoveRows({}, nRow, nRow);
    m_setMarked.remove(QString::fromStdString(m_vecRows[nRow].sPersonId));
    m_vecRows.removeAt(nRow);
    endRemoveRows();
}

void CIssueCardModel::SetCardNo(int nRow, const QString& sCardNo)
{
    m_vecRows[nRow].sCardNo = sCardNo.toUpper();
    m_setMarked.remove(QString::fromStdString(m_vecRows[nRow].sPersonId));
    Q_EMIT dataChanged(index(nRow, ColumnCardNo), index(nRow, ColumnCardNo));
}

void CIssueCardModel::MarkRows(const QVector<int>& vecRows)
{
    m_setMarked.clear();
    for (const int nRow : vecRows)
        m_setMarked.insert(QString::fromStdString(m_vecRows[nRow].sPersonId));
    if (!m_vecRows.isEmpty())
        Q_EMIT dataChanged(index(0, ColumnName), index(m_vecRows.size() - 1, ColumnCardNo));
}

QVector<int> CIssueCardModel::FindCards(const QStringList& listCardNos) const
{
    QSet<QString> setCards;
    for (const QString& sCardNo : listCardNos)
        setCards.insert(sCardNo.toUpper());
    QVector<int> vecFound;
    for (int nRow = 0; nRow < m_vecRows.size(); ++nRow) {
        if (setCards.contains(m_vecRows[nRow].sCardNo))
            vecFound.append(nRow);
    }
    return vecFound;
}

int CIssueCardModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_vecRows.size();
}

int CIssueCardModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CIssueCardModel::data(const QModelIndex& index, int nRole) const
{
    if (!index.isValid() || index.row() >= m_vecRows.size())
        return {};
    const CredentialRules::IssueRow& row = m_vecRows[index.row()];
    const bool bMarked = m_setMarked.contains(QString::fromStdString(row.sPersonId));
    if (nRole == Qt::ForegroundRole && bMarked && index.column() != ColumnOperation)
        return Trv::GetColor(QStringLiteral("danger"));
    if (nRole == Qt::BackgroundRole && bMarked && index.column() == ColumnCardNo)
        return Trv::GetColor(QStringLiteral("danger-soft"));
    if (nRole != Qt::DisplayRole && nRole != Qt::EditRole && nRole != Qt::ToolTipRole)
        return {};
    if (index.column() == ColumnName)
        return row.sName;
    return index.column() == ColumnCardNo ? row.sCardNo : QVariant();
}

bool CIssueCardModel::setData(const QModelIndex& index, const QVariant& vValue, int nRole)
{
    if (!index.isValid() || index.column() != ColumnCardNo || nRole != Qt::EditRole)
        return false;
    // Closing an editor without a change is none: marks stay.
    if (m_vecRows[index.row()].sCardNo != vValue.toString().toUpper())
        SetCardNo(index.row(), vValue.toString());
    return true;
}

QVariant CIssueCardModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const
{
    if (orientation != Qt::Horizontal || nRole != Qt::DisplayRole)
        return {};
    switch (nSection) {
    case ColumnName:
        return Text::tr("Name");
    case ColumnCardNo:
        return Text::tr("Card No.");
    default:
        return Text::tr("Operation");
    }
}

Qt::ItemFlags CIssueCardModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == ColumnCardNo ? flags | Qt::ItemIsEditable : flags;
}

QWidget* CCardNoDelegate::createEditor(
    QWidget* pParent, const QStyleOptionViewItem&, const QModelIndex&) const
{
    auto* const pEdit = new QLineEdit(pParent);
    pEdit->setObjectName(QStringLiteral("edtCardNo"));
    pEdit->setAccessibleName(Text::tr("Card No."));
    const UICommonMdl::TextRule& rule = AccessControlLogical::CardNumber;
    pEdit->setMaxLength(rule.nMax);
    pEdit->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[%1]*").arg(QLatin1String(rule.szAllowed))), pEdit));
    return pEdit;
}

void CCardNoDelegate::initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(pOption, index);
    if (!pOption->text.isEmpty())
        return;
    pOption->text = Text::tr("Type or read a card number");
    pOption->features |= QStyleOptionViewItem::HasDisplay;
    const QColor muted = Trv::GetColor(QStringLiteral("text-disabled"));
    pOption->palette.setColor(QPalette::Text, muted);
    pOption->palette.setColor(QPalette::HighlightedText, muted);
}

} // namespace BasicInfoManagerUI
