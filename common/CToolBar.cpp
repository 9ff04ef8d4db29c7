#include "CToolBar.h"

#include "TabOrder.h"

#include <Trv/QSkin.h>

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QToolButton>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CToolBar)
};

constexpr int Spacing = 6;

/// Its tool tip while it can be used: the shortcut is not seen elsewhere.
QString ShortcutTip(const QAction* pAction)
{
    if (pAction->shortcut().isEmpty())
        return {};
    return QStringLiteral("%1 (%2)").arg(
        pAction->text(), pAction->shortcut().toString(QKeySequence::NativeText));
}

} // namespace

CToolBar::CToolBar(QWidget* pParent)
    : QWidget(pParent)
    , m_pScope(pParent ? pParent : this)
    , m_pMore(new QPushButton(Text::tr("More"), this))
    , m_pMoreMenu(new QMenu(this))
{
    setObjectName(QStringLiteral("wgtToolBar"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_pMore->setObjectName(QStringLiteral("btnMore"));
    m_pMore->setAutoDefault(false);
    m_pMore->setAccessibleName(Text::tr("More actions"));
    // Qt's own drop-down would wait in an event loop of its own.
    m_pMore->setIcon(Trv::GetIcon(QStringLiteral("down")));
    m_pMore->setLayoutDirection(Qt::RightToLeft);
    connect(m_pMore, &QAbstractButton::clicked, this, &CToolBar::OpenMore);
    m_pMore->hide();
    m_pMoreMenu->setObjectName(QStringLiteral("menuMore"));
    m_pMoreMenu->setToolTipsVisible(true);
}

QAction* CToolBar::AddAction(const ToolAction& action)
{
    auto* const pAction = new QAction(action.sText, this);
    pAction->setObjectName(QLatin1String(action.pszName));
    if (*action.pszIcon)
        pAction->setIcon(Trv::GetIcon(QLatin1String(action.pszIcon)));
    pAction->setShortcut(action.keys);
    pAction->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_pScope->addAction(pAction);
    connect(pAction, &QAction::triggered, this, action.run);
    auto* const pButton = new QPushButton(this);
    pButton->setAutoDefault(false);
    m_vecEntries.append({pAction, pButton, nullptr, action.vecNeeds});
    SetTabOrders();
    connect(pButton, &QAbstractButton::clicked, pAction, &QAction::trigger);
    connect(pAction, &QAction::changed, this, [this, pAction] {
        for (const Entry& entry : qAsConst(m_vecEntries)) {
            if (entry.pAction == pAction)
                UpdateButton(entry);
        }
        Arrange();
    });
    UpdateButton(m_vecEntries.last());
    UpdateNeed(m_vecEntries.last());
    Arrange();
    return pAction;
}

void CToolBar::SetTabOrders()
{
    QVector<QWidget*> vecOrder;
    for (const Entry& entry : qAsConst(m_vecEntries))
        vecOrder.append(entry.pButton);
    SetTabOrder(vecOrder + QVector<QWidget*>{m_pMore} + m_vecFields);
}

void CToolBar::SetMenu(QAction* pAction, QMenu* pMenu)
{
    Entry& entry = m_vecEntries.last();
    Q_ASSERT(entry.pAction == pAction);
    delete entry.pButton;
    auto* const pButton = new QToolButton(this);
    pButton->setProperty("role", QStringLiteral("split"));
    pButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    pButton->setPopupMode(QToolButton::MenuButtonPopup);
    pButton->setFocusPolicy(Qt::StrongFocus);
    pButton->setMenu(pMenu);
    entry.pButton = pButton;
    entry.pMenu = pMenu;
    SetTabOrders();
    connect(pButton, &QAbstractButton::clicked, pAction, &QAction::trigger);
    UpdateButton(entry);
    Arrange();
}

void CToolBar::AddField(QWidget* pField)
{
    pField->setParent(this);
    pField->show();
    m_vecFields.append(pField);
    SetTabOrders();
    Arrange();
}

void CToolBar::SetFieldsEnabled(bool bEnabled)
{
    for (QWidget* pField : qAsConst(m_vecFields))
        pField->setEnabled(bEnabled);
}

void CToolBar::UpdateButton(const Entry& entry)
{
    const QAction* const pAction = entry.pAction;
    entry.pButton->setObjectName(pAction->objectName());
    entry.pButton->setText(pAction->text());
    entry.pButton->setIcon(pAction->icon());
    entry.pButton->setEnabled(pAction->isEnabled());
    // The tool tip of an action that was given none is its text.
    const bool bReason = !pAction->isEnabled() && !pAction->whatsThis().isEmpty();
    entry.pButton->setToolTip(bReason ? pAction->whatsThis() : ShortcutTip(pAction));
    entry.pButton->setAccessibleDescription(bReason ? pAction->whatsThis() : QString());
}

void CToolBar::UpdateNeed(const Entry& entry)
{
    QString sReason;
    for (const Need& need : entry.vecNeeds) {
        sReason = need();
        if (!sReason.isEmpty())
            break;
    }
    entry.pAction->setWhatsThis(sReason);
    entry.pAction->setToolTip(sReason.isEmpty() ? entry.pAction->text() : sReason);
    entry.pAction->setEnabled(sReason.isEmpty());
}

void CToolBar::UpdateNeeds()
{
    for (const Entry& entry : qAsConst(m_vecEntries))
        UpdateNeed(entry);
}

QAction* CToolBar::FindAction(const QString& sName) const
{
    for (const Entry& entry : m_vecEntries) {
        if (entry.pAction->objectName() == sName)
            return entry.pAction;
    }
    return nullptr;
}

QAbstractButton* CToolBar::FindButton(const QString& sName) const
{
    for (const Entry& entry : m_vecEntries) {
        if (entry.pAction->objectName() == sName)
            return entry.pButton;
    }
    return nullptr;
}

int CToolBar::FieldsWidth(bool bMinimum) const
{
    int nWidth = 0;
    for (const QWidget* pField : m_vecFields) {
        if (pField->isHidden())
            continue;
        const int nLeast = qMax(pField->minimumWidth(), pField->minimumSizeHint().width());
        const int nWanted = qMin(qMax(pField->sizeHint().width(), nLeast), pField->maximumWidth());
        nWidth += Spacing + (bMinimum ? nLeast : nWanted);
    }
    return nWidth;
}

int CToolBar::RowHeight() const
{
    int nHeight = m_pMore->sizeHint().height();
    for (const Entry& entry : m_vecEntries)
        nHeight = qMax(nHeight, entry.pButton->sizeHint().height());
    for (const QWidget* pField : m_vecFields)
        nHeight = qMax(nHeight, pField->sizeHint().height());
    return nHeight;
}

QSize CToolBar::sizeHint() const
{
    int nWidth = FieldsWidth(false);
    for (const Entry& entry : m_vecEntries) {
        if (entry.pAction->isVisible())
            nWidth += entry.pButton->sizeHint().width() + Spacing;
    }
    return {nWidth, RowHeight()};
}

QSize CToolBar::minimumSizeHint() const
{
    return {m_pMore->sizeHint().width() + FieldsWidth(true), RowHeight()};
}

int CToolBar::CountInRow(int nRoom) const
{
    int nFits = 0; // with the button "More" beside them
    int nUsed = 0;
    const int nMore = Spacing + m_pMore->sizeHint().width();
    for (int n = 0; n < m_vecEntries.size(); ++n) {
        if (!m_vecEntries[n].pAction->isVisible())
            continue;
        nUsed += (nUsed > 0 ? Spacing : 0) + m_vecEntries[n].pButton->sizeHint().width();
        if (nUsed + nMore <= nRoom)
            nFits = n + 1;
    }
    return nUsed <= nRoom ? m_vecEntries.size() : nFits;
}

void CToolBar::OpenMore()
{
    m_pMoreMenu->clear();
    for (const Entry& entry : m_vecEntries.mid(m_nInRow)) {
        m_pMoreMenu->addAction(entry.pAction);
        if (entry.pMenu)
            m_pMoreMenu->addActions(entry.pMenu->actions());
    }
    m_pMoreMenu->popup(m_pMore->mapToGlobal(QPoint(0, m_pMore->height())));
}

void CToolBar::Arrange()
{
    if (m_bArranging)
        return;
    const QScopedValueRollback<bool> arranging(m_bArranging, true);
    m_nInRow = CountInRow(width() - FieldsWidth(true));
    for (int n = 0; n < m_vecEntries.size(); ++n)
        m_vecEntries[n].pButton->setVisible(n < m_nInRow && m_vecEntries[n].pAction->isVisible());
    m_pMore->setVisible(m_nInRow < m_vecEntries.size());
    int nX = 0;
    const auto place = [this, &nX](QWidget* pWidget, int nWidth) {
        pWidget->setGeometry(nX, 0, nWidth, height());
        nX += nWidth + Spacing;
    };
    for (const Entry& entry : qAsConst(m_vecEntries)) {
        if (!entry.pButton->isHidden())
            place(entry.pButton, entry.pButton->sizeHint().width());
    }
    if (!m_pMore->isHidden())
        place(m_pMore, m_pMore->sizeHint().width());
    // The fields share what is left over beyond their minimum, from the right edge.
    int nSpare = qMax(0, width() - qMax(0, nX - Spacing) - FieldsWidth(true));
    QVector<int> vecWidths;
    for (const QWidget* pField : qAsConst(m_vecFields)) {
        const int nLeast = qMax(pField->minimumWidth(), pField->minimumSizeHint().width());
        const int nWanted = qMin(qMax(pField->sizeHint().width(), nLeast), pField->maximumWidth());
        const int nMore = pField->isHidden() ? 0 : qMin(nSpare, nWanted - nLeast);
        nSpare -= nMore;
        vecWidths.append(nLeast + nMore);
    }
    nX = qMax(nX, nX + nSpare);
    for (int n = 0; n < m_vecFields.size(); ++n) {
        if (!m_vecFields[n]->isHidden())
            place(m_vecFields[n], vecWidths[n]);
    }
}

bool CToolBar::event(QEvent* pEvent)
{
    if (pEvent->type() == QEvent::LayoutRequest || pEvent->type() == QEvent::StyleChange
        || pEvent->type() == QEvent::Polish || pEvent->type() == QEvent::Show) {
        Arrange();
        if (pEvent->type() != QEvent::Show)
            updateGeometry();
    }
    return QWidget::event(pEvent);
}

void CToolBar::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    Arrange();
}

} // namespace Common
