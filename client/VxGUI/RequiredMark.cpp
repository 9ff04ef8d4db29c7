#include <VxGUI/RequiredMark.h>

#include <Trv/QSkin.h>

#include <QCoreApplication>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QStyle>

namespace VxGUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(RequiredMark)
};

const char* const MarkedProperty = "required";
constexpr int Gap = 3; ///< between text and mark, in pixels
constexpr int MaxLevels = 3; ///< of containers that a field may stand in, beside its label

/// The mark lies over its label, which keeps its own text: pages change it, and readers of the screen say it.
class RequiredMark : public QWidget
{
public:
    RequiredMark(QLabel* pLabel, QWidget* pField)
        : QWidget(pLabel)
        , m_pLabel(pLabel)
        , m_pField(pField)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        pLabel->installEventFilter(this);
        pField->installEventFilter(this);
        MakeRoom(true);
        Place();
        show();
    }

    const QWidget* GetField() const { return m_pField; }

    void SetShown(bool bShown)
    {
        if (bShown == !isHidden())
            return;
        MakeRoom(bShown);
        setVisible(bShown);
        Place();
    }

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override
    {
        switch (pEvent->type()) {
        case QEvent::Paint: // also after another text
        case QEvent::Resize:
        case QEvent::FontChange:
        case QEvent::LayoutDirectionChange:
            Place();
            break;
        case QEvent::EnabledChange:
            update();
            break;
        default:
            break;
        }
        return QWidget::eventFilter(pWatched, pEvent);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const bool bEnabled = m_pLabel->isEnabled() && m_pField && m_pField->isEnabled();
        painter.setFont(m_pLabel->font());
        painter.setPen(Trv::GetColor(bEnabled ? QStringLiteral("danger") : QStringLiteral("text-muted")));
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("*"));
    }

private:
    QSize MarkSize() const
    {
        const QFontMetrics metrics = m_pLabel->fontMetrics();
        return {metrics.horizontalAdvance(QLatin1Char('*')) + 2, metrics.height()};
    }

    void MakeRoom(bool bRoom)
    {
        const int nRoom = (bRoom ? 1 : -1) * (Gap + MarkSize().width());
        const QMargins side = IsMirrored() ? QMargins(nRoom, 0, 0, 0) : QMargins(0, 0, nRoom, 0);
        m_pLabel->setContentsMargins(m_pLabel->contentsMargins() + side);
    }

    bool IsMirrored() const { return m_pLabel->layoutDirection() == Qt::RightToLeft; }

    void Place()
    {
        const QStyle* const pStyle = m_pLabel->style();
        const int nFlags = int(QStyle::visualAlignment(m_pLabel->layoutDirection(), m_pLabel->alignment()))
            | Qt::TextShowMnemonic | (m_pLabel->wordWrap() ? Qt::TextWordWrap : 0);
        const QRect text = pStyle->itemTextRect(
            m_pLabel->fontMetrics(), m_pLabel->contentsRect(), nFlags, true, m_pLabel->text());
        const QSize size = MarkSize();
        const int nLeft = IsMirrored() ? text.left() - Gap - size.width() : text.right() + 1 + Gap;
        const QRect place(QPoint(nLeft, text.top()), size);
        if (place != geometry())
            setGeometry(place);
    }

    QLabel* m_pLabel;
    QPointer<QWidget> m_pField;
};

QLabel* FindByBuddy(const QWidget* pField)
{
    for (const QWidget* pArea = pField->parentWidget(); pArea; pArea = pArea->parentWidget()) {
        const auto listLabels = pArea->findChildren<QLabel*>();
        for (QLabel* pLabel : listLabels) {
            if (pLabel->buddy() && (pLabel->buddy() == pField || pField->isAncestorOf(pLabel->buddy())))
                return pLabel;
        }
        if (pArea->isWindow())
            break;
    }
    return nullptr;
}

bool Holds(QLayoutItem* pItem, const QWidget* pWidget)
{
    const QLayout* const pLayout = pItem->layout();
    return pItem->widget() == pWidget || (pLayout && pLayout->indexOf(const_cast<QWidget*>(pWidget)) >= 0);
}

QLabel* ToLabel(QLayoutItem* pItem)
{
    return pItem ? qobject_cast<QLabel*>(pItem->widget()) : nullptr;
}

QLabel* LabelBefore(QLayout* pLayout, int nItem, bool bBoxes)
{
    QLayoutItem* const pItem = pLayout->itemAt(nItem);
    if (auto* const pForm = qobject_cast<QFormLayout*>(pLayout))
        return qobject_cast<QLabel*>(
            pItem->layout() ? pForm->labelForField(pItem->layout()) : pForm->labelForField(pItem->widget()));
    if (auto* const pGrid = qobject_cast<QGridLayout*>(pLayout)) {
        int nRow = 0, nColumn = 0, nRows = 0, nColumns = 0;
        pGrid->getItemPosition(nItem, &nRow, &nColumn, &nRows, &nColumns);
        return nColumn > 0 ? ToLabel(pGrid->itemAtPosition(nRow, nColumn - 1)) : nullptr;
    }
    return bBoxes && nItem > 0 ? ToLabel(pLayout->itemAt(nItem - 1)) : nullptr;
}

QLabel* FindInRow(QWidget* pField)
{
    QWidget* pChild = pField;
    for (int nLevel = 0; nLevel < MaxLevels && pChild->parentWidget() && !pChild->isWindow(); ++nLevel) {
        QWidget* const pParent = pChild->parentWidget();
        auto listLayouts = pParent->findChildren<QLayout*>();
        for (QLayout* pLayout : qAsConst(listLayouts)) {
            for (int n = 0; n < pLayout->count(); ++n) {
                if (!Holds(pLayout->itemAt(n), pChild))
                    continue;
                // What stands above a container is the title of more than the field.
                if (QLabel* const pLabel = LabelBefore(pLayout, n, nLevel == 0))
                    return pLabel;
            }
        }
        pChild = pParent;
    }
    return nullptr;
}

RequiredMark* FindMark(const QLabel* pLabel, const QWidget* pField)
{
    for (QObject* pChild : pLabel->children()) {
        auto* const pMark = dynamic_cast<RequiredMark*>(pChild);
        if (pMark && pMark->GetField() == pField)
            return pMark;
    }
    return nullptr;
}

QString PlainName(const QWidget* pField, const QWidget* pTarget, const QLabel* pLabel, const QString& sSuffix)
{
    QString sName = pField->accessibleName();
    if (sName.isEmpty())
        sName = pTarget->accessibleName();
    if (sName.isEmpty() && pLabel)
        sName = pLabel->text().remove(QLatin1Char('&')).remove(QLatin1Char(':')).trimmed();
    return sName.endsWith(sSuffix) ? sName.chopped(sSuffix.size()) : sName;
}

void NameField(QWidget* pField, const QLabel* pLabel, bool bRequired)
{
    // What has the focus is what is read out.
    QWidget* const pTarget = pField->focusProxy() ? pField->focusProxy() : pField;
    const QString sSuffix = Text::tr(", required");
    const QString sName = PlainName(pField, pTarget, pLabel, sSuffix);
    const QString sWanted = bRequired && !sName.isEmpty() ? sName + sSuffix : sName;
    if (pTarget->accessibleName() != sWanted)
        pTarget->setAccessibleName(sWanted);
}

} // namespace

void MarkRequired(QWidget* pField, bool bRequired)
{
    // A field that was never marked has nothing to take away.
    if (!bRequired && !pField->property(MarkedProperty).isValid())
        return;
    pField->setProperty(MarkedProperty, bRequired);
    QLabel* pLabel = FindByBuddy(pField);
    if (!pLabel)
        pLabel = FindInRow(pField);
    NameField(pField, pLabel, bRequired);
    if (!pLabel)
        return;
    if (RequiredMark* const pMark = FindMark(pLabel, pField))
        pMark->SetShown(bRequired);
    else if (bRequired)
        new RequiredMark(pLabel, pField);
}

QString GetFieldName(QWidget* pField)
{
    QLabel* const pLabel = FindByBuddy(pField);
    QWidget* const pTarget = pField->focusProxy() ? pField->focusProxy() : pField;
    return PlainName(pField, pTarget, pLabel ? pLabel : FindInRow(pField), Text::tr(", required"));
}

bool IsMarkedRequired(const QWidget* pField)
{
    return pField->property(MarkedProperty).toBool();
}

} // namespace VxGUI
