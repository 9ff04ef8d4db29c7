#include "CColumnLayout.h"

#include "ColumnFit.h"

#include <UICommonMdl/ILocalConfig.h>

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTreeView>
#include <QtMath>

namespace Common {

namespace {

constexpr int LeastWidth = 40;
// Scripts whose letters take another shape beside others.
constexpr ushort FirstShaped = 0x0300;
constexpr ushort LastShaped = 0x2E80;

} // namespace

CColumnLayout::CColumnLayout(QTreeView* pView, const QVector<Column>& vecColumns)
    : QObject(pView)
    , m_pView(pView)
    , m_pHeader(pView->header())
    , m_pViewport(pView->viewport())
    , m_pHeaderViewport(pView->header()->viewport())
    , m_vecColumns(vecColumns)
    , m_vecStates(vecColumns.size())
{
    m_pHeader->setMinimumSectionSize(LeastWidth);
    m_pHeader->setStretchLastSection(false);
    for (int nColumn = 0; nColumn < vecColumns.size(); ++nColumn) {
        m_vecStates[nColumn].bShown = vecColumns[nColumn].bShown;
        if (vecColumns[nColumn].width == ColumnWidth::Fixed)
            m_pHeader->setSectionResizeMode(nColumn, QHeaderView::Fixed);
    }
    ForgetWidths();
    ShowColumns();
    connect(m_pHeader, &QHeaderView::sectionResized, this, &CColumnLayout::OnResized);
    // The view would take the rows in sight only.
    disconnect(m_pHeader, &QHeaderView::sectionHandleDoubleClicked, pView, nullptr);
    connect(m_pHeader, &QHeaderView::sectionHandleDoubleClicked, this, &CColumnLayout::FitToContent);
    connect(pView->model(), &QAbstractItemModel::dataChanged, this, &CColumnLayout::OnDataChanged);
    pView->installEventFilter(this);
    pView->viewport()->installEventFilter(this);
    m_pHeader->viewport()->installEventFilter(this);
}

bool CColumnLayout::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    const bool bView = pWatched == m_pView;
    if (pWatched == m_pViewport && pEvent->type() == QEvent::Resize) {
        Fit();
    } else if (pWatched == m_pHeaderViewport && pEvent->type() == QEvent::MouseButtonPress) {
        m_bPressed = true;
    } else if (pWatched == m_pHeaderViewport && pEvent->type() == QEvent::MouseButtonRelease) {
        m_bPressed = false;
        // While the button is down the other columns stay where they are.
        if (std::exchange(m_bDragged, false)) {
            Save();
            QMetaObject::invokeMethod(this, &CColumnLayout::Fit, Qt::QueuedConnection);
        }
    } else if (bView
        && (pEvent->type() == QEvent::FontChange || pEvent->type() == QEvent::StyleChange
            || pEvent->type() == QEvent::Polish)) {
        ForgetWidths();
        QMetaObject::invokeMethod(this, &CColumnLayout::Measure, Qt::QueuedConnection);
    }
    return false;
}

double CColumnLayout::LetterWidth(QChar letter)
{
    const ushort nCode = letter.unicode();
    double& dWidth = nCode < m_vecLatin.size() ? m_vecLatin[nCode] : m_mapLetters[nCode];
    if (dWidth == 0)
        dWidth = QFontMetricsF(m_pView->font(), m_pView).horizontalAdvance(letter);
    return dWidth;
}

/// Width of a text, by its letters: to lay it out costs as much as the rest of a page turn. Kerning would
/// only make it narrower.
double CColumnLayout::TextWidth(const QString& sText)
{
    double dWidth = 0;
    for (const QChar letter : sText) {
        if (letter.unicode() >= FirstShaped && letter.unicode() < LastShaped)
            return QFontMetricsF(m_pView->font(), m_pView).horizontalAdvance(sText);
        dWidth += LetterWidth(letter);
    }
    return dWidth;
}

void CColumnLayout::ForgetWidths()
{
    m_mapLetters.clear();
    m_vecLatin.fill(0, FirstShaped);
    for (State& state : m_vecStates)
        state.nContent = 0;
}

int CColumnLayout::HeaderWidth(int nColumn) const
{
    return m_vecColumns[nColumn].sHeader.isEmpty() ? 0 : m_pHeader->sectionSizeHint(nColumn);
}

void CColumnLayout::MeasureRows(int nColumn, int nFirst, int nLast)
{
    // The widest text is found here; what stands around it only the delegate knows.
    const QAbstractItemModel* const pModel = m_pView->model();
    QModelIndex widest = pModel->index(nFirst, nColumn);
    double dWidest = -1;
    for (int nRow = nFirst; nRow <= nLast; ++nRow) {
        const QModelIndex index = pModel->index(nRow, nColumn);
        const double dWidth = TextWidth(index.data().toString());
        if (dWidth > dWidest) {
            dWidest = dWidth;
            widest = index;
        }
    }
    int& nContent = m_vecStates[nColumn].nContent;
    nContent = qMax(nContent, HeaderWidth(nColumn));
    if (!widest.isValid())
        return;
    QStyleOptionViewItem option;
    option.initFrom(m_pView);
    option.widget = m_pView;
    option.font = m_pView->font();
    option.decorationSize = m_pView->iconSize().isValid()
        ? m_pView->iconSize()
        : QSize(1, 1) * m_pView->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, m_pView);
    // Another text may be wider once it is laid out, yet not wider than the sum of its letters.
    const int nSpare = qCeil(dWidest) - m_pView->fontMetrics().horizontalAdvance(widest.data().toString());
    nContent =
        qMax(nContent, m_pView->itemDelegate(widest)->sizeHint(option, widest).width() + qMax(0, nSpare));
}

void CColumnLayout::Measure()
{
    const int nRows = m_pView->model()->rowCount();
    for (int nColumn = 0; nColumn < m_vecColumns.size(); ++nColumn) {
        if (m_vecStates[nColumn].bShown && m_vecColumns[nColumn].width != ColumnWidth::Fixed)
            MeasureRows(nColumn, 0, nRows - 1);
    }
    Fit();
}

void CColumnLayout::OnDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight)
{
    bool bWider = false;
    for (int nColumn = topLeft.column(); nColumn <= bottomRight.column(); ++nColumn) {
        State& state = m_vecStates[nColumn];
        if (!state.bShown || m_vecColumns[nColumn].width == ColumnWidth::Fixed)
            continue;
        const int nBefore = state.nContent;
        MeasureRows(nColumn, topLeft.row(), bottomRight.row());
        bWider = bWider || state.nContent > nBefore;
    }
    if (bWider)
        Fit();
}

void CColumnLayout::Fit()
{
    if (m_bDragged)
        return;
    QVector<int> vecShown;
    std::vector<ColumnNeed> vecNeeds;
    for (int nColumn = 0; nColumn < m_vecColumns.size(); ++nColumn) {
        const Column& column = m_vecColumns[nColumn];
        const State& state = m_vecStates[nColumn];
        if (!state.bShown)
            continue;
        vecShown.append(nColumn);
        if (column.width == ColumnWidth::Fixed || state.nDragged > 0) {
            const int nWidth = state.nDragged > 0 ? state.nDragged : qMax(LeastWidth, column.nMinimum);
            vecNeeds.push_back({nWidth, nWidth, false, false});
            continue;
        }
        const int nMinimum = qMax(LeastWidth, column.nMinimum > 0 ? column.nMinimum : HeaderWidth(nColumn));
        const int nContent = qMax(nMinimum, state.nContent);
        vecNeeds.push_back({column.nMaximum > 0 ? qMin(nContent, column.nMaximum) : nContent, nMinimum,
            column.width != ColumnWidth::Content, column.width == ColumnWidth::Stretch});
    }
    const std::vector<int> vecWidths = FitColumns(vecNeeds, m_pView->viewport()->width());
    const QScopedValueRollback<bool> fitting(m_bFitting, true);
    for (int n = 0; n < vecShown.size(); ++n)
        m_pHeader->resizeSection(vecShown[n], vecWidths[std::size_t(n)]);
}

void CColumnLayout::OnResized(int nColumn, int nBefore, int nWidth)
{
    if (m_bFitting || !m_bPressed || nBefore == 0 || nWidth == 0)
        return;
    m_vecStates[nColumn].nDragged = nWidth;
    m_bDragged = true;
}

void CColumnLayout::FitToContent(int nColumn)
{
    if (m_vecColumns[nColumn].width == ColumnWidth::Fixed)
        return;
    State& state = m_vecStates[nColumn];
    state.nContent = 0;
    MeasureRows(nColumn, 0, m_pView->model()->rowCount() - 1);
    state.nDragged = qMax(LeastWidth, state.nContent);
    m_bDragged = false;
    Fit();
    Save();
}

void CColumnLayout::ShowColumns()
{
    const QScopedValueRollback<bool> fitting(m_bFitting, true);
    for (int nColumn = 0; nColumn < m_vecColumns.size(); ++nColumn)
        m_pHeader->setSectionHidden(nColumn, !m_vecStates[nColumn].bShown);
}

void CColumnLayout::SetShown(int nColumn, bool bShown)
{
    m_vecStates[nColumn].bShown = bShown;
    m_vecStates[nColumn].bChosen = bShown != m_vecColumns[nColumn].bShown;
    ShowColumns();
    Measure();
    Save();
}

QVector<int> CColumnLayout::GetOptionalColumns() const
{
    QVector<int> vecOptional;
    for (int nColumn = 0; nColumn < m_vecColumns.size(); ++nColumn) {
        if (m_vecColumns[nColumn].bMayHide && !m_vecColumns[nColumn].sHeader.isEmpty())
            vecOptional.append(nColumn);
    }
    return vecOptional;
}

void CColumnLayout::Reset()
{
    for (int nColumn = 0; nColumn < m_vecColumns.size(); ++nColumn) {
        m_vecStates[nColumn] = State();
        m_vecStates[nColumn].bShown = m_vecColumns[nColumn].bShown;
    }
    ShowColumns();
    Measure();
    Save();
}

QString CColumnLayout::GetKey(int nColumn) const
{
    const QString& sKey = m_vecColumns[nColumn].sKey;
    return sKey.isEmpty() ? QString::number(nColumn) : sKey;
}

void CColumnLayout::Remember(UICommonMdl::ILocalConfig* pConfig, const QString& sPageKey)
{
    m_pConfig = pConfig;
    m_sPageKey = sPageKey;
    if (!pConfig)
        return;
    Load();
    ShowColumns();
    Measure();
}

// "name=180,model=+,address=-120": a width that was dragged, a column that is shown (+) or hidden (-) by
// choice.
void CColumnLayout::Load()
{
    const QVariant vColumns = m_pConfig->GetValue(m_sPageKey + QStringLiteral("/Columns"));
    if (!vColumns.isValid()) {
        const QVariant vHidden = m_pConfig->GetValue(m_sPageKey + QStringLiteral("/HiddenColumns"));
        if (vHidden.isValid())
            TakeHiddenColumns(vHidden.toString());
        return;
    }
    const QVector<int> vecOptional = GetOptionalColumns();
    const QStringList listEntries = vColumns.toString().split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (int nColumn = 0; nColumn < m_vecColumns.size(); ++nColumn) {
        const QString sHead = GetKey(nColumn) + QLatin1Char('=');
        for (const QString& sEntry : listEntries) {
            if (!sEntry.startsWith(sHead))
                continue;
            QString sValue = sEntry.mid(sHead.size());
            State& state = m_vecStates[nColumn];
            if (sValue.startsWith(QLatin1Char('+')) || sValue.startsWith(QLatin1Char('-'))) {
                state.bChosen = vecOptional.contains(nColumn);
                if (state.bChosen)
                    state.bShown = sValue.startsWith(QLatin1Char('+'));
                sValue.remove(0, 1);
            }
            const int nWidth = sValue.toInt();
            if (nWidth > 0 && m_vecColumns[nColumn].width != ColumnWidth::Fixed)
                state.nDragged = qMax(LeastWidth, nWidth);
        }
    }
}

/// What earlier versions remembered: the numbers of the hidden columns.
void CColumnLayout::TakeHiddenColumns(const QString& sNumbers)
{
    const QStringList listHidden = sNumbers.split(QLatin1Char(','), Qt::SkipEmptyParts);
    const QVector<int> vecOptional = GetOptionalColumns();
    for (const int nColumn : vecOptional) {
        State& state = m_vecStates[nColumn];
        state.bShown = !listHidden.contains(QString::number(nColumn));
        state.bChosen = state.bShown != m_vecColumns[nColumn].bShown;
    }
    Save();
}

void CColumnLayout::Save()
{
    if (!m_pConfig)
        return;
    QStringList listEntries;
    for (int nColumn = 0; nColumn < m_vecColumns.size(); ++nColumn) {
        const State& state = m_vecStates[nColumn];
        if (!state.bChosen && state.nDragged == 0)
            continue;
        QString sEntry = GetKey(nColumn) + QLatin1Char('=');
        if (state.bChosen)
            sEntry += state.bShown ? QLatin1Char('+') : QLatin1Char('-');
        if (state.nDragged > 0)
            sEntry += QString::number(state.nDragged);
        listEntries.append(sEntry);
    }
    m_pConfig->SetValue(m_sPageKey + QStringLiteral("/Columns"), listEntries.join(QLatin1Char(',')));
}

} // namespace Common
