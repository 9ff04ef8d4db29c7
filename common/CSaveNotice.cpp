#include "CSaveNotice.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace Common {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CSaveNotice)
};
} // namespace

CSaveNotice::CSaveNotice(QWidget* pParent)
    : QFrame(pParent)
    , m_pText(new QLabel(this))
    , m_pLookAgain(new QPushButton(Text::tr("Look Again"), this))
{
    m_pText->setObjectName(QStringLiteral("lbSaveNotice"));
    m_pText->setTextFormat(Qt::PlainText);
    m_pText->setWordWrap(true);
    m_pLookAgain->setObjectName(QStringLiteral("btnLookAgain"));
    m_pLookAgain->setAutoDefault(false);
    auto* const pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(12, 6, 12, 6);
    pLayout->addWidget(m_pText, 1);
    pLayout->addWidget(m_pLookAgain);
    connect(m_pLookAgain, &QAbstractButton::clicked, this, &CSaveNotice::SignalLookAgain);
    hide();
}

void CSaveNotice::SetText(const QString& sText, bool bLookAgain)
{
    m_pText->setText(sText);
    m_pLookAgain->setVisible(bLookAgain);
    setVisible(!sText.isEmpty());
}

} // namespace Common
