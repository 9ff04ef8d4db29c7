#include "CDiscoveryStrip.h"

#include "CVerticalButton.h"

#include <UICommonMdl/ILocalConfig.h>

#include <QCoreApplication>
#include <QToolButton>
#include <QVBoxLayout>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceManagerCtrl)
};

constexpr const char* ConfigKey = "DeviceManager/DiscoveryShown";
constexpr int Spacing = 6;

} // namespace

CDiscoveryStrip::CDiscoveryStrip(QWidget* pPanel, UICommonMdl::ILocalConfig* pConfig)
    : m_pPanel(pPanel)
    , m_pConfig(pConfig)
    , m_pExpand(new QToolButton(this))
    , m_pDiscover(new CVerticalButton(Text::tr("Discover Device"), this))
{
    setObjectName(QStringLiteral("wgtExpand"));
    setAttribute(Qt::WA_StyledBackground);
    m_pExpand->setObjectName(QStringLiteral("btnExpand"));
    m_pExpand->setAccessibleName(Text::tr("Fold or unfold the search panel"));
    m_pExpand->setCheckable(true);
    m_pDiscover->setObjectName(QStringLiteral("btnDiscover"));
    m_pDiscover->setCheckable(true);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(Spacing);
    pLayout->addWidget(m_pExpand);
    pLayout->addWidget(m_pDiscover);
    pLayout->addStretch();
    connect(m_pExpand, &QAbstractButton::clicked, this, &CDiscoveryStrip::OnClicked);
    connect(m_pDiscover, &QAbstractButton::clicked, this, &CDiscoveryStrip::OnClicked);
    Show(pConfig && pConfig->GetValue(QLatin1String(ConfigKey), false).toBool());
}

void CDiscoveryStrip::OnClicked()
{
    Show(m_pPanel->isHidden());
    if (m_pConfig)
        m_pConfig->SetValue(QLatin1String(ConfigKey), !m_pPanel->isHidden());
}

void CDiscoveryStrip::Show(bool bShown)
{
    m_pPanel->setVisible(bShown);
    // The fold button is down while the panel is folded; what the panel would show is always the search.
    m_pExpand->setChecked(!bShown);
    m_pDiscover->setChecked(true);
    m_pExpand->setArrowType(bShown ? Qt::RightArrow : Qt::LeftArrow);
    m_pExpand->setToolTip(bShown ? Text::tr("Fold") : Text::tr("Unfold"));
}

} // namespace ResourceManagerUI
