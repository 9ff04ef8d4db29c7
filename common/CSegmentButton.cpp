#include "CSegmentButton.h"

#include <QAccessibleWidget>

namespace Common {

namespace {

class SegmentInterface : public QAccessibleWidget
{
public:
    explicit SegmentInterface(CSegmentButton* pButton)
        : QAccessibleWidget(pButton, QAccessible::RadioButton, pButton->text())
    {
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = Button()->isChecked();
        return state;
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && Button()->accessibleName().isEmpty()
            ? Button()->text()
            : QAccessibleWidget::text(kind);
    }
    QStringList actionNames() const override
    {
        return QStringList{toggleAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& sAction) override
    {
        if (sAction == toggleAction())
            Button()->click();
        else
            QAccessibleWidget::doAction(sAction);
    }

private:
    CSegmentButton* Button() const { return static_cast<CSegmentButton*>(widget()); }
};

QAccessibleInterface* MakeInterface(const QString& /*sClass*/, QObject* pObject)
{
    auto* const pButton = qobject_cast<CSegmentButton*>(pObject);
    return pButton ? new SegmentInterface(pButton) : nullptr;
}

} // namespace

CSegmentButton::CSegmentButton(QWidget* pParent)
    : QPushButton(pParent)
{
    static const bool s_bInstalled = (QAccessible::installFactory(MakeInterface), true);
    Q_UNUSED(s_bInstalled)
    setCheckable(true);
    setAutoDefault(false);
}

} // namespace Common
