#pragma once

#include "FieldValidator.h"

#include <QLineEdit>
#include <QPointer>

namespace VxGUI {

/// Handles an event of a field so that its validator can put in what fits of a refused entry.
template <class Handle>
bool HandleFieldEvent(FieldValidator* pValidator, Handle handle)
{
    const QPointer<FieldValidator> pGuard(pValidator);
    if (pGuard)
        pGuard->Begin();
    const bool bHandled = handle();
    // Enter may have closed the form.
    if (pGuard)
        pGuard->End();
    return bHandled;
}

/// A line edit whose validator is a FieldValidator.
class FieldEdit : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

    bool event(QEvent* pEvent) override
    {
        auto* const pValidator = dynamic_cast<FieldValidator*>(const_cast<QValidator*>(validator()));
        return HandleFieldEvent(pValidator, [this, pEvent] { return QLineEdit::event(pEvent); });
    }
};

} // namespace VxGUI
