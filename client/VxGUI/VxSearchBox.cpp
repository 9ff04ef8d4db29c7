#include <VxGUI/VxSearchBox.h>

#include "EmptyMark.h"
#include "FieldEdit.h"

#include <Trv/QSkin.h>

#include <QAction>

namespace VxGUI {

VxSearchBox::VxSearchBox(QWidget* pParent)
    : QLineEdit(pParent)
    , m_pSearchAction(new QAction(this))
{
    m_pSearchAction->setIcon(Trv::GetIcon(QStringLiteral("search")));
    m_pSearchAction->setToolTip(tr("Search"));
    addAction(m_pSearchAction, QLineEdit::TrailingPosition);
    setClearButtonEnabled(true);
    MarkEmpty(this);
    connect(m_pSearchAction, &QAction::triggered, this, &VxSearchBox::SignalSearch);
    connect(this, &QLineEdit::returnPressed, this, &VxSearchBox::SignalSearch);
    // An emptied field, by keys or by the clear button, is a search for everything; waiting for Enter would
    // leave a list that nobody asked for.
    connect(this, &QLineEdit::textEdited, this, [this](const QString& sText) {
        if (sText.isEmpty())
            Q_EMIT SignalSearch();
    });
}

void VxSearchBox::SetBackgroundText(const QString& sText)
{
    setPlaceholderText(sText);
    setAccessibleName(sText);
}

void VxSearchBox::setMaxLength(int nMaxLength)
{
    if (!m_pValidator)
        m_pValidator = new FieldValidator(this, nullptr);
    m_pValidator->SetLimit(nMaxLength, UICommonMdl::TextLines::One);
}

bool VxSearchBox::event(QEvent* pEvent)
{
    return HandleFieldEvent(m_pValidator, [this, pEvent] { return QLineEdit::event(pEvent); });
}

} // namespace VxGUI
