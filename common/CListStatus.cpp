#include "CListStatus.h"

#include "CTableModel.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CListStatus)
};

constexpr int Spacing = 8;

} // namespace

CListStatus::CListStatus(QWidget* pParent)
    : QWidget(pParent)
    , m_sPattern(Text::tr("Total: %1"))
    , m_pTotal(new QLabel(this))
    , m_pChecked(new QLabel(this))
    , m_pClear(new QPushButton(Text::tr("Clear"), this))
{
    setObjectName(QStringLiteral("wgtListStatus"));
    // The style sheet lets its button become as narrow as none, beside a page bar that needs the room.
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
    m_pTotal->setObjectName(QStringLiteral("lbStatus"));
    m_pChecked->setObjectName(QStringLiteral("lbChecked"));
    m_pClear->setObjectName(QStringLiteral("btnClearChecks"));
    m_pClear->setProperty("role", QStringLiteral("link"));
    m_pClear->setAutoDefault(false);
    m_pClear->setToolTip(Text::tr("Uncheck everything, on all pages"));
    m_pClear->setAccessibleName(Text::tr("Uncheck everything"));
    auto* const pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(Spacing);
    for (QWidget* pWidget :
        {static_cast<QWidget*>(m_pTotal), static_cast<QWidget*>(m_pChecked), static_cast<QWidget*>(m_pClear)})
        pLayout->addWidget(pWidget);
    connect(m_pClear, &QAbstractButton::clicked, this, [this] {
        if (m_pModel)
            m_pModel->ClearChecks();
    });
    Update();
}

void CListStatus::SetTotalText(const QString& sPattern)
{
    m_sPattern = sPattern;
    Update();
}

void CListStatus::SetTotal(int nTotal)
{
    m_nTotal = nTotal;
    Update();
}

void CListStatus::Follow(CTableModel* pModel)
{
    m_pModel = pModel;
    connect(pModel, &CTableModel::SignalChecksChanged, this, &CListStatus::Update);
    Update();
}

void CListStatus::Update()
{
    const int nChecked = m_pModel ? m_pModel->GetCheckedCount() : 0;
    m_pTotal->setText(m_sPattern.arg(locale().toString(m_nTotal)));
    m_pChecked->setText(Text::tr("%1 checked").arg(locale().toString(nChecked)));
    m_pChecked->setVisible(nChecked > 0);
    m_pClear->setVisible(nChecked > 0);
}

} // namespace Common
