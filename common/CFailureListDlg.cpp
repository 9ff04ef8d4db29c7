#include "CFailureListDlg.h"

#include "CColumnLayout.h"
#include "CTableModel.h"
#include "ScreenFit.h"
#include "StyleSheet.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CFailureListDlg)
};

constexpr int Margin = 20;
constexpr int LeastRows = 3;
constexpr int MostRows = 12;
constexpr int Width = 620;

enum FailureColumn : int
{
    FailureName,
    FailureReason
};

QVector<Failure> WithoutDuplicates(const QVector<Failure>& vecFailures)
{
    QVector<Failure> vecOnce;
    QSet<QPair<QString, QString>> setTold;
    for (const Failure& failure : vecFailures) {
        const QPair<QString, QString> told(failure.sName, failure.sReason);
        if (setTold.contains(told))
            continue;
        setTold.insert(told);
        vecOnce.append(failure);
    }
    return vecOnce;
}

CTableModel* MakeModel(const QVector<Failure>& vecFailures, QObject* pParent)
{
    auto* const pModel = new CTableModel(
        {{Text::tr("Name"), true, ColumnWidth::Text}, {Text::tr("Reason"), true, ColumnWidth::Stretch}},
        FailureName, -1, pParent);
    QVector<CTableModel::Row> vecRows;
    for (const Failure& failure : vecFailures)
        vecRows.append(
            CTableModel::Row{CTableModel::MakeItem(failure.sName), CTableModel::MakeItem(failure.sReason)});
    pModel->SetRows(vecRows);
    return pModel;
}

} // namespace

CFailureListDlg::CFailureListDlg(const QString& sText, const QVector<Failure>& vecFailures, QWidget* pParent)
    : QDialog(pParent)
    , m_vecFailures(WithoutDuplicates(vecFailures))
    , m_pTable(new QTreeView(this))
{
    setObjectName(QStringLiteral("CFailureListDlg"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* const pText = new QLabel(sText, this);
    pText->setObjectName(QStringLiteral("lbText"));
    pText->setTextFormat(Qt::PlainText);
    pText->setWordWrap(true);
    m_pTable->setObjectName(QStringLiteral("treeFailures"));
    m_pTable->setAccessibleName(Text::tr("What failed"));
    m_pTable->setRootIsDecorated(false);
    m_pTable->setUniformRowHeights(true);
    m_pTable->setAllColumnsShowFocus(true);
    m_pTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pTable->setModel(MakeModel(m_vecFailures, this));
    (new CColumnLayout(m_pTable, static_cast<CTableModel*>(m_pTable->model())->GetColumns()))->Measure();

    auto* const pButtons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* const pClose = pButtons->button(QDialogButtonBox::Close);
    pClose->setObjectName(QStringLiteral("btnClose"));
    pClose->setText(Text::tr("Close"));
    SetButtonRole(pClose, QStringLiteral("primary"));
    pClose->setDefault(true);
    auto* const pCopy = new QPushButton(Text::tr("Copy"), this);
    pCopy->setObjectName(QStringLiteral("btnCopy"));
    pCopy->setAutoDefault(false);
    pButtons->addButton(pCopy, QDialogButtonBox::ActionRole);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(pCopy, &QAbstractButton::clicked, this,
        [this] { QGuiApplication::clipboard()->setText(GetLines()); });

    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(Margin, Margin, Margin, Margin);
    pLayout->addWidget(pText);
    pLayout->addWidget(m_pTable, 1);
    pLayout->addWidget(pButtons);
    pClose->setFocus();
    ensurePolished();
    resize(FittingSize());
}

QString GetLines(const QVector<Failure>& vecFailures)
{
    QStringList listLines;
    for (const Failure& failure : vecFailures)
        listLines.append(failure.sReason.isEmpty() ? failure.sName
                                                   : failure.sName + QStringLiteral(": ") + failure.sReason);
    return listLines.join(QLatin1Char('\n'));
}

QSize CFailureListDlg::FittingSize() const
{
    const int nRowHeight = qMax(1, m_pTable->sizeHintForRow(0));
    const int nTable = m_pTable->header()->sizeHint().height()
        + nRowHeight * qBound(LeastRows, m_vecFailures.size(), MostRows) + 2 * m_pTable->frameWidth();
    const int nRest = layout()->sizeHint().height() - m_pTable->sizeHint().height();
    return FitToScreen(this, {Width, nRest + nTable});
}

} // namespace Common
