#include <VxGUI/VxSearchBox.h>

#include <Trv/QSkin.h>

#include <QAction>
#include <QStyle>

namespace VxGUI {

VxSearchBox::VxSearchBox(QWidget* pParent)
    : QLineEdit(pParent)
    , m_pSearchAction(new QAction(this))
{
    m_pSearchAction->setIcon(Trv::GetIcon(QStringLiteral("search")));
    m_pSearchAction->setToolTip(tr("Search"));
    addAction(m_pSearchAction, QLineEdit::TrailingPosition);
    setClearButtonEnabled(true);
    // A style sheet colours the background text like the text itself; "empty" lets it tell them apart.
    setProperty("empty", true);
    connect(this, &QLineEdit::textChanged, this, [this](const QString& sText) {
        if (property("empty").toBool() == sText.isEmpty())
            return;
        setProperty("empty", sText.isEmpty());
        style()->unpolish(this);
        style()->polish(this);
    });
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

} // namespace VxGUI
