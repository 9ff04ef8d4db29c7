#include "CFilterBar.h"

#include "CSegmentButton.h"
#include "TabOrder.h"

#include <Trv/QSkin.h>

#include <QActionGroup>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QStyle>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CFilterBar)
};

/// Place of a segment in the row, for the style sheet.
void SetPlace(QPushButton* pButton, bool bFirst, bool bLast)
{
    const QString sPlace = bFirst && bLast ? QStringLiteral("only")
        : bFirst                           ? QStringLiteral("first")
        : bLast                            ? QStringLiteral("last")
                                           : QStringLiteral("middle");
    if (pButton->property("segment").toString() == sPlace)
        return;
    pButton->setProperty("segment", sPlace);
    pButton->style()->unpolish(pButton);
    pButton->style()->polish(pButton);
}

} // namespace

CFilterBar::CFilterBar(const QString& sName, QWidget* pParent)
    : QWidget(pParent)
    , m_pMore(new CSegmentButton(this))
    , m_pMenu(new QMenu(this))
    , m_pGroup(new QActionGroup(this))
{
    setObjectName(QStringLiteral("wgtFilter"));
    setAccessibleName(sName);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_pMore->setObjectName(QStringLiteral("btnMoreFilters"));
    m_pMore->setLayoutDirection(Qt::RightToLeft);
    connect(m_pMore, &QAbstractButton::clicked, this, &CFilterBar::OpenMore);
    m_pMore->installEventFilter(this);
    m_pMenu->setObjectName(QStringLiteral("menuMoreFilters"));
}

void CFilterBar::SetChoices(const QVector<FilterChoice>& vecChoices)
{
    qDeleteAll(m_vecButtons);
    m_vecButtons.clear();
    m_vecChoices = vecChoices;
    for (const FilterChoice& choice : vecChoices) {
        auto* const pButton = new CSegmentButton(this);
        pButton->setObjectName(choice.sName);
        pButton->setText(choice.sText);
        pButton->installEventFilter(this);
        connect(pButton, &QAbstractButton::clicked, this, [this, nValue = choice.nValue] { Choose(nValue); });
        m_vecButtons.append(pButton);
    }
    QVector<QWidget*> vecOrder;
    for (QPushButton* pButton : qAsConst(m_vecButtons))
        vecOrder.append(pButton);
    SetTabOrder(vecOrder + QVector<QWidget*>{m_pMore});
    Arrange();
    updateGeometry();
}

void CFilterBar::SetOffered(const QVector<int>& vecValues)
{
    m_vecOffered = vecValues;
    m_bAllOffered = false;
    Arrange();
}

bool CFilterBar::IsOffered(int nChoice) const
{
    const int nValue = m_vecChoices[nChoice].nValue;
    return m_bAllOffered || nValue == m_nValue || m_vecOffered.contains(nValue);
}

void CFilterBar::SetValue(int nValue)
{
    m_nValue = nValue;
    Arrange();
}

void CFilterBar::Choose(int nValue)
{
    if (nValue == m_nValue) {
        UpdateMarks();
        return;
    }
    const bool bFocus = isAncestorOf(focusWidget()) || m_pMenu->isVisible();
    SetValue(nValue);
    if (bFocus) {
        for (int n = 0; n < m_vecChoices.size(); ++n) {
            if (m_vecChoices[n].nValue == nValue)
                (m_vecButtons[n]->isHidden() ? m_pMore : m_vecButtons[n])->setFocus(Qt::OtherFocusReason);
        }
    }
    Q_EMIT SignalChosen(nValue);
}

void CFilterBar::Step(int nBy)
{
    QVector<int> vecValues;
    for (int n = 0; n < m_vecChoices.size(); ++n) {
        if (IsOffered(n))
            vecValues.append(m_vecChoices[n].nValue);
    }
    const int nNow = vecValues.indexOf(m_nValue);
    const int nNext = qBound(0, nNow + nBy, vecValues.size() - 1);
    if (nNext != nNow && nNext < vecValues.size())
        Choose(vecValues[nNext]);
}

void CFilterBar::OpenMore()
{
    UpdateMarks();
    m_pMenu->clear();
    for (int n = m_nInRow; n < m_vecChoices.size(); ++n) {
        if (!IsOffered(n))
            continue;
        QAction* const pAction = m_pMenu->addAction(m_vecChoices[n].sText);
        m_pGroup->addAction(pAction);
        pAction->setCheckable(true);
        pAction->setChecked(m_vecChoices[n].nValue == m_nValue);
        connect(
            pAction, &QAction::triggered, this, [this, nValue = m_vecChoices[n].nValue] { Choose(nValue); });
    }
    m_pMenu->popup(m_pMore->mapToGlobal(QPoint(0, m_pMore->height())));
}

bool CFilterBar::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pEvent->type() != QEvent::KeyPress)
        return QWidget::eventFilter(pWatched, pEvent);
    const auto* const pKey = static_cast<QKeyEvent*>(pEvent);
    if (pKey->modifiers() & ~Qt::KeypadModifier)
        return false;
    switch (pKey->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        Step(-1);
        return true;
    case Qt::Key_Right:
        Step(1);
        return true;
    case Qt::Key_Down:
        if (pWatched == m_pMore)
            OpenMore();
        else
            Step(1);
        return true;
    default:
        return false;
    }
}

void CFilterBar::UpdateMarks()
{
    // One of them is reached by Tab, as with radio buttons.
    const QPushButton* pReached = nullptr;
    for (int n = 0; n < m_vecButtons.size(); ++n) {
        m_vecButtons[n]->setChecked(m_vecChoices[n].nValue == m_nValue);
        if (m_vecButtons[n]->isChecked())
            pReached = m_vecButtons[n]->isHidden() ? m_pMore : m_vecButtons[n];
    }
    m_pMore->setChecked(pReached == m_pMore);
    // Setting an icon asks for a layout, even when it is the same one.
    const QString sIcon = m_pMore->isChecked() ? QStringLiteral("down-on-accent") : QStringLiteral("down");
    if (sIcon != m_sMoreIcon)
        m_pMore->setIcon(Trv::GetIcon(sIcon));
    m_sMoreIcon = sIcon;
    for (QPushButton* pButton : qAsConst(m_vecButtons))
        pButton->setFocusPolicy(!pReached || pButton == pReached ? Qt::StrongFocus : Qt::ClickFocus);
    m_pMore->setFocusPolicy(Qt::StrongFocus);
}

int CFilterBar::CountInRow() const
{
    int nFits = 0;
    int nUsed = 0;
    for (int n = 0; n < m_vecButtons.size(); ++n) {
        if (!IsOffered(n))
            continue;
        nUsed += m_vecButtons[n]->sizeHint().width() - 1;
        if (nUsed + m_pMore->sizeHint().width() <= width())
            nFits = n + 1;
    }
    return nUsed < width() ? m_vecButtons.size() : nFits;
}

void CFilterBar::ShowInRow(int nInRow)
{
    m_nInRow = nInRow;
    QString sInMenu;
    bool bMore = false;
    for (int n = 0; n < m_vecButtons.size(); ++n) {
        m_vecButtons[n]->setVisible(n < nInRow && IsOffered(n));
        if (n < nInRow || !IsOffered(n))
            continue;
        bMore = true;
        if (m_vecChoices[n].nValue == m_nValue)
            sInMenu = m_vecChoices[n].sText;
    }
    m_pMore->setVisible(bMore);
    m_pMore->setText(sInMenu.isEmpty() ? Text::tr("More") : sInMenu);
    m_pMore->setAccessibleName(
        sInMenu.isEmpty() ? Text::tr("More choices") : Text::tr("%1, more choices").arg(sInMenu));
}

void CFilterBar::Arrange()
{
    if (m_bArranging)
        return;
    const QScopedValueRollback<bool> arranging(m_bArranging, true);
    // The drop-down is as wide as the choice that it shows, which may push one more into it.
    ShowInRow(CountInRow());
    ShowInRow(CountInRow());
    UpdateMarks();
    QVector<QPushButton*> vecShown;
    for (QPushButton* pButton : m_vecButtons + QVector<QPushButton*>{m_pMore}) {
        if (!pButton->isHidden())
            vecShown.append(pButton);
    }
    int nX = 0;
    for (int n = 0; n < vecShown.size(); ++n) {
        SetPlace(vecShown[n], n == 0, n == vecShown.size() - 1);
        const QSize size = vecShown[n]->sizeHint();
        // Neighbours share a border.
        vecShown[n]->setGeometry(nX, 0, qMin(size.width(), qMax(0, width() - nX)), size.height());
        nX += size.width() - 1;
    }
}

QSize CFilterBar::sizeHint() const
{
    int nWidth = 1;
    for (int n = 0; n < m_vecButtons.size(); ++n)
        nWidth += IsOffered(n) ? m_vecButtons[n]->sizeHint().width() - 1 : 0;
    return {nWidth, m_pMore->sizeHint().height()};
}

QSize CFilterBar::minimumSizeHint() const
{
    return m_pMore->sizeHint();
}

bool CFilterBar::event(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::StyleChange)
        m_sMoreIcon.clear(); // the look may be another one
    if (pEvent->type() == QEvent::StyleChange || pEvent->type() == QEvent::Polish
        || pEvent->type() == QEvent::Show || pEvent->type() == QEvent::LayoutRequest)
        Arrange();
    return QWidget::event(pEvent);
}

void CFilterBar::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    Arrange();
}

} // namespace Common
