#include "CChoiceDlg.h"

#include "PersonFields.h"

#include <VxGUI/VxSearchBox.h>
#include <common/CCheckDelegate.h>
#include <common/CFilterHeaderView.h>
#include <common/CTableModel.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CChoiceDlg)
};

constexpr int ColumnCheck = 0;
constexpr int ColumnId = 1;
constexpr int FirstTextColumn = 2;
constexpr int CheckWidth = 40;

QVector<Common::Column> MakeColumns(const QStringList& listHeaders)
{
    QVector<Common::Column> vecColumns{{QString(), true}, {QString(), false}};
    for (const QString& sHeader : listHeaders)
        vecColumns.append({sHeader, true});
    return vecColumns;
}

/// Shows the rows that hold the text in any of their columns, whatever its case.
class ChoiceFilter : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

protected:
    bool filterAcceptsRow(int nRow, const QModelIndex& parent) const override
    {
        for (int nColumn = FirstTextColumn; nColumn < sourceModel()->columnCount(parent); ++nColumn) {
            const QString sText = sourceModel()->index(nRow, nColumn, parent).data().toString();
            if (sText.contains(filterRegularExpression()))
                return true;
        }
        return false;
    }
};

} // namespace

CChoiceDlg::CChoiceDlg(const QString& sTitle, const QStringList& listHeaders,
    const QVector<ChoiceRow>& vecRows, QWidget* pParent)
    : QDialog(pParent)
    , m_pModel(new Common::CTableModel(MakeColumns(listHeaders), ColumnId, ColumnCheck, this))
    , m_pProxy(new ChoiceFilter(this))
    , m_pView(new QTreeView(this))
    , m_pEmpty(new QLabel(this))
    , m_pCount(new QLabel(this))
{
    setObjectName(QStringLiteral("CChoiceDlg"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setWindowTitle(sTitle);
    resize(520, 440);
    QVector<Common::CTableModel::Row> vecItems;
    for (const ChoiceRow& choice : vecRows) {
        Common::CTableModel::Row row{
            Common::CTableModel::MakeItem(), Common::CTableModel::MakeItem(choice.sId)};
        for (int n = 0; n < listHeaders.size(); ++n)
            row.append(Common::CTableModel::MakeItem(choice.listTexts.value(n)));
        vecItems.append(row);
    }
    m_pModel->SetRows(vecItems);
    m_pProxy->setSourceModel(m_pModel);
    SetUpView(listHeaders.size());

    auto* const pSearch = new VxGUI::VxSearchBox(this);
    pSearch->setObjectName(QStringLiteral("editChoiceSearch"));
    pSearch->SetBackgroundText(Text::tr("Search"));
    pSearch->setAccessibleName(Text::tr("Search"));
    connect(pSearch, &QLineEdit::textChanged, this, &CChoiceDlg::OnSearchChanged);
    auto* const pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_pOk = pButtons->button(QDialogButtonBox::Ok);
    PersonFields::MakePrimary(m_pOk);
    connect(pButtons, &QDialogButtonBox::accepted, this, &CChoiceDlg::OnAccepted);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    m_pEmpty->setAlignment(Qt::AlignCenter);
    m_pEmpty->setWordWrap(true);
    auto* const pFoot = new QHBoxLayout;
    pFoot->addWidget(m_pCount, 1);
    pFoot->addWidget(pButtons);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(16, 16, 16, 16);
    pLayout->setSpacing(12);
    pLayout->addWidget(pSearch);
    pLayout->addWidget(m_pView, 1);
    pLayout->addWidget(m_pEmpty, 1);
    pLayout->addLayout(pFoot);
    connect(m_pModel, &QStandardItemModel::dataChanged, this, [this] { UpdateState(); });
    UpdateState();
    pSearch->setFocus();
}

void CChoiceDlg::SetUpView(int nColumns)
{
    m_pView->setObjectName(QStringLiteral("tblChoices"));
    m_pView->setAccessibleName(windowTitle());
    m_pView->setModel(m_pProxy);
    m_pView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pView->setRootIsDecorated(false);
    m_pView->setUniformRowHeights(true);
    m_pView->setItemDelegateForColumn(ColumnCheck, new Common::CCheckDelegate(m_pView));
    auto* const pHeader = new Common::CFilterHeaderView(m_pView);
    m_pView->setHeader(pHeader);
    pHeader->SetCheckSection(ColumnCheck);
    pHeader->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_pView->hideColumn(ColumnId);
    m_pView->setColumnWidth(ColumnCheck, CheckWidth);
    for (int n = 0; n < nColumns; ++n)
        pHeader->setSectionResizeMode(FirstTextColumn + n, QHeaderView::Stretch);
    connect(pHeader, &Common::CFilterHeaderView::SignalCheckAll, this, [this](bool bChecked) {
        // Only what the search shows.
        for (int nRow = 0; nRow < m_pProxy->rowCount(); ++nRow)
            m_pProxy->setData(m_pProxy->index(nRow, ColumnCheck), bChecked ? Qt::Checked : Qt::Unchecked,
                Qt::CheckStateRole);
    });
    connect(m_pView, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() == ColumnCheck)
            return;
        const QModelIndex check = index.siblingAtColumn(ColumnCheck);
        const bool bChecked = check.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        m_pProxy->setData(check, bChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    });
}

void CChoiceDlg::OnSearchChanged(const QString& sText)
{
    m_pProxy->setFilterRegularExpression(QRegularExpression(
        QRegularExpression::escape(sText.trimmed()), QRegularExpression::CaseInsensitiveOption));
    UpdateState();
}

void CChoiceDlg::UpdateState()
{
    const int nChecked = m_pModel->GetCheckedIds().size();
    m_pCount->setText(Text::tr("Selected: %1").arg(nChecked));
    m_pOk->setEnabled(nChecked > 0);
    static_cast<Common::CFilterHeaderView*>(m_pView->header())->SetCheckState(m_pModel->GetCheckSummary());
    m_pEmpty->setText(m_pModel->rowCount() == 0 ? Text::tr("There is nothing left to add.")
                                                : Text::tr("Nothing matches the search."));
    m_pEmpty->setVisible(m_pProxy->rowCount() == 0);
    m_pView->setVisible(m_pProxy->rowCount() > 0);
}

void CChoiceDlg::OnAccepted()
{
    const QStringList listIds = m_pModel->GetCheckedIds();
    if (listIds.isEmpty())
        return;
    Q_EMIT SignalChosen(listIds);
    accept();
}

} // namespace BasicInfoManagerUI
