#pragma once

#include <QLineEdit>
#include <QStyle>

namespace VxGUI {

/// Keeps the property "empty" of a line edit: a style sheet colours the background text like the text itself,
/// and tells them apart by it.
inline void MarkEmpty(QLineEdit* pEdit)
{
    pEdit->setProperty("empty", pEdit->text().isEmpty());
    QObject::connect(pEdit, &QLineEdit::textChanged, pEdit, [pEdit](const QString& sText) {
        if (pEdit->property("empty").toBool() == sText.isEmpty())
            return;
        pEdit->setProperty("empty", sText.isEmpty());
        pEdit->style()->unpolish(pEdit);
        pEdit->style()->polish(pEdit);
    });
}

} // namespace VxGUI
