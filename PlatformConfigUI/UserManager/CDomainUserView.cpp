#include "CDomainUserView.h"

#include <common/CCheckDelegate.h>
#include <common/CTableModel.h>

#include <QCoreApplication>
#include <QHeaderView>
#include <QShortcut>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDomainUserView)
};

enum Column : int
{
    ColumnNumber = 0, ///< with the box, where users can be ticked
    ColumnName,
    ColumnDomainUser
};

} // namespace

CDomainUserView::CDomainUserView(QWidget* pParent)
    : QTreeView(pParent)
    , m_pModel(new Common::CTableModel(
          {{Text::tr("No."), true}, {Text::tr("Username"), true}, {Text::tr("Domain User"), true}},
          ColumnName, -1, this))
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setModel(m_pModel);
    header()->resizeSection(ColumnNumber, 80);
    header()->resizeSection(ColumnName, 220);
    header()->setStretchLastSection(true);
}

void CDomainUserView::SetCheckable()
{
    m_bCheckable = true;
    setItemDelegateForColumn(ColumnNumber, new Common::CCheckDelegate(this));
    connect(m_pModel, &QStandardItemModel::itemChanged, this, &CDomainUserView::OnItemChanged);
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() != ColumnNumber)
            Toggle(index);
    });
    auto* const pSpace = new QShortcut(Qt::Key_Space, this, nullptr, nullptr, Qt::WidgetShortcut);
    connect(pSpace, &QShortcut::activated, this, [this] { Toggle(currentIndex()); });
}

void CDomainUserView::SetUsers(const std::vector<UserLogical::DomainUser_t>& vecUsers)
{
    using Common::CTableModel;
    QVector<CTableModel::Row> vecRows;
    vecRows.reserve(int(vecUsers.size()));
    for (const UserLogical::DomainUser_t& user : vecUsers) {
        CTableModel::Row row{CTableModel::MakeItem(QString::number(vecRows.size() + 1)),
            CTableModel::MakeItem(QString::fromStdString(user.sUserName)),
            CTableModel::MakeItem(QString::fromStdString(user.sDomainUser))};
        row[ColumnNumber]->setCheckable(m_bCheckable);
        vecRows.append(row);
    }
    m_pModel->SetRows(vecRows);
    ShowTicks();
}

int CDomainUserView::GetCount() const
{
    return m_pModel->rowCount();
}

QString CDomainUserView::NameAt(int nRow) const
{
    return m_pModel->GetId(nRow);
}

QStringList CDomainUserView::GetNames() const
{
    QStringList listNames;
    for (int nRow = 0; nRow < GetCount(); ++nRow)
        listNames.append(NameAt(nRow));
    return listNames;
}

QStringList CDomainUserView::GetTicked() const
{
    QStringList listNames = m_setTicked.values();
    listNames.sort();
    return listNames;
}

void CDomainUserView::SetTicked(const QStringList& listNames)
{
    m_setTicked = QSet<QString>(listNames.begin(), listNames.end());
    ShowTicks();
}

void CDomainUserView::TickListed(bool bTicked)
{
    for (const QString& sName : GetNames()) {
        if (bTicked)
            m_setTicked.insert(sName);
        else
            m_setTicked.remove(sName);
    }
    ShowTicks();
}

Qt::CheckState CDomainUserView::GetListedSummary() const
{
    const QStringList listNames = GetNames();
    const auto nTicked = std::count_if(listNames.begin(), listNames.end(),
        [this](const QString& sName) { return m_setTicked.contains(sName); });
    if (nTicked == 0)
        return Qt::Unchecked;
    return nTicked == listNames.size() ? Qt::Checked : Qt::PartiallyChecked;
}

void CDomainUserView::ShowTicks()
{
    if (!m_bCheckable)
        return;
    {
        const QSignalBlocker blocker(m_pModel);
        for (int nRow = 0; nRow < GetCount(); ++nRow)
            m_pModel->item(nRow, ColumnNumber)
                ->setCheckState(m_setTicked.contains(NameAt(nRow)) ? Qt::Checked : Qt::Unchecked);
    }
    viewport()->update();
    Q_EMIT SignalTickedChanged();
}

void CDomainUserView::OnItemChanged(QStandardItem* pItem)
{
    if (pItem->column() != ColumnNumber)
        return;
    if (pItem->checkState() == Qt::Checked)
        m_setTicked.insert(NameAt(pItem->row()));
    else
        m_setTicked.remove(NameAt(pItem->row()));
    Q_EMIT SignalTickedChanged();
}

void CDomainUserView::Toggle(const QModelIndex& index)
{
    if (!index.isValid())
        return;
    QStandardItem* const pItem = m_pModel->item(index.row(), ColumnNumber);
    pItem->setCheckState(pItem->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

} // namespace PlatformConfigUI
