#include <VxGUI/VxEmptyState.h>

#include <Trv/QSkin.h>

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace VxGUI {

namespace {

const char* IconName(VxEmptyState::Kind kind)
{
    switch (kind) {
    case VxEmptyState::Kind::Empty:
        return "empty";
    case VxEmptyState::Kind::Loading:
        return "loading";
    case VxEmptyState::Kind::Failed:
        return "failed";
    case VxEmptyState::Kind::NoPermission:
        return "no-permission";
    case VxEmptyState::Kind::NotAvailable:
        break;
    }
    return "not-available";
}

} // namespace

VxEmptyState::VxEmptyState(QWidget* pParent)
    : QWidget(pParent)
    , m_pIcon(new QLabel(this))
    , m_pTitle(new QLabel(this))
    , m_pText(new QLabel(this))
    , m_pAction(new QPushButton(this))
{
    m_pIcon->setObjectName(QStringLiteral("lbStateIcon"));
    m_pTitle->setObjectName(QStringLiteral("lbStateTitle"));
    m_pText->setObjectName(QStringLiteral("lbStateText"));
    m_pAction->setObjectName(QStringLiteral("btnStateAction"));
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setSpacing(8);
    pLayout->addStretch(2);
    for (QLabel* pLabel : {m_pIcon, m_pTitle, m_pText}) {
        pLabel->setTextFormat(Qt::PlainText);
        pLabel->setAlignment(Qt::AlignCenter);
        pLabel->setWordWrap(pLabel != m_pIcon);
        pLayout->addWidget(pLabel);
    }
    pLayout->addSpacing(8);
    pLayout->addWidget(m_pAction, 0, Qt::AlignHCenter);
    pLayout->addStretch(3);
    connect(m_pAction, &QPushButton::clicked, this, &VxEmptyState::SignalAction);
}

void VxEmptyState::SetState(Kind kind, const QString& sTitle, const QString& sText, const QString& sAction)
{
    m_kind = kind;
    m_pIcon->setPixmap(Trv::GetIcon(QLatin1String(IconName(kind))).pixmap(QSize(48, 48)));
    m_pTitle->setText(sTitle);
    m_pText->setText(sText);
    m_pText->setVisible(!sText.isEmpty());
    m_pAction->setText(sAction);
    m_pAction->setVisible(!sAction.isEmpty());
    setAccessibleName(sTitle);
}

QString VxEmptyState::GetTitle() const
{
    return m_pTitle->text();
}

} // namespace VxGUI
