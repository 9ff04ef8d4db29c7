#include <VxGUI/VxTabPanel.h>

#include <VxGUI/TextLayout.h>

#include <QKeyEvent>
#include <QToolButton>

namespace VxGUI {

namespace {
constexpr QSize TabSize(148, 108);
constexpr int MaxTabWidth = 220;
constexpr int Spacing = 8;
constexpr QSize IconSize(48, 48);
constexpr int TextMargin = 8;
} // namespace

VxTabPanel::VxTabPanel(QWidget* pParent)
    : QWidget(pParent)
{
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void VxTabPanel::AddTab(const QString& sName, const QString& sTitle, const QIcon& icon)
{
    auto* pTab = new QToolButton(this);
    pTab->setObjectName(sName);
    pTab->setProperty("tab", true);
    pTab->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    pTab->setIcon(icon);
    pTab->setIconSize(IconSize);
    pTab->setToolTip(sTitle);
    pTab->setAccessibleName(sTitle);
    pTab->setFocusPolicy(Qt::StrongFocus);
    pTab->installEventFilter(this);
    connect(pTab, &QToolButton::clicked, this, [this, sName] { Q_EMIT SignalTabClicked(sName); });
    // The font is the style sheet's only once the tab is polished.
    pTab->ensurePolished();
    pTab->setText(WrapTitle(sTitle, pTab->fontMetrics(), TabSize.width() - 2 * TextMargin));
    m_vecTabs.append(pTab);
    pTab->show();
    LayoutTabs();
    updateGeometry();
}

void VxTabPanel::RemoveAllTab()
{
    // A tab may be the sender of the click that led here.
    for (QToolButton* pTab : qAsConst(m_vecTabs)) {
        pTab->hide();
        pTab->setParent(nullptr);
        pTab->deleteLater();
    }
    m_vecTabs.clear();
    updateGeometry();
}

void VxTabPanel::SetAutoResize(bool bEnable)
{
    m_bAutoResize = bEnable;
}

int VxTabPanel::ColumnsFor(int nWidth) const
{
    return qMax(1, (nWidth + Spacing) / (TabSize.width() + Spacing));
}

void VxTabPanel::LayoutTabs()
{
    const int nColumns = ColumnsFor(width());
    const int nShared = (width() + Spacing) / nColumns - Spacing;
    const int nTabWidth = m_bAutoResize ? qBound(TabSize.width(), nShared, MaxTabWidth) : TabSize.width();
    for (int i = 0; i < m_vecTabs.size(); ++i) {
        const QPoint place(
            (i % nColumns) * (nTabWidth + Spacing), (i / nColumns) * (TabSize.height() + Spacing));
        m_vecTabs[i]->setGeometry(QRect(place, QSize(nTabWidth, TabSize.height())));
    }
}

int VxTabPanel::heightForWidth(int nWidth) const
{
    if (m_vecTabs.isEmpty())
        return 0;
    const int nRows = (m_vecTabs.size() - 1) / ColumnsFor(nWidth) + 1;
    return nRows * (TabSize.height() + Spacing) - Spacing;
}

QSize VxTabPanel::sizeHint() const
{
    const int nWidth = m_vecTabs.size() * (TabSize.width() + Spacing);
    return {nWidth, heightForWidth(width() > 0 ? width() : nWidth)};
}

QSize VxTabPanel::minimumSizeHint() const
{
    return m_vecTabs.isEmpty() ? QSize(0, 0) : TabSize;
}

void VxTabPanel::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    LayoutTabs();
}

bool VxTabPanel::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pEvent->type() != QEvent::KeyPress)
        return QWidget::eventFilter(pWatched, pEvent);
    const int nTab = m_vecTabs.indexOf(qobject_cast<QToolButton*>(pWatched));
    int nTarget = nTab;
    switch (static_cast<QKeyEvent*>(pEvent)->key()) {
    case Qt::Key_Left:
        nTarget = nTab - 1;
        break;
    case Qt::Key_Right:
        nTarget = nTab + 1;
        break;
    case Qt::Key_Up:
        nTarget = nTab - ColumnsFor(width());
        break;
    case Qt::Key_Down:
        nTarget = nTab + ColumnsFor(width());
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (nTab >= 0)
            m_vecTabs[nTab]->click();
        return nTab >= 0;
    default:
        return QWidget::eventFilter(pWatched, pEvent);
    }
    if (nTab < 0 || nTarget < 0 || nTarget >= m_vecTabs.size())
        return nTab >= 0;
    m_vecTabs[nTarget]->setFocus(Qt::TabFocusReason);
    return true;
}

} // namespace VxGUI
