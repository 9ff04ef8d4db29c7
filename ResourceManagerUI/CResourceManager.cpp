#include "CResourceManager.h"

#include "CDeviceManagerCtrl.h"
#include "CResourceConfigManager.h"
#include "ui_CResourceManager.h"

#include <Trv/QSkin.h>
#include <VxGUI/TextLayout.h>
#include <VxGUI/VxEmptyState.h>

namespace ResourceManagerUI {

namespace {
constexpr const char* RightDeviceManager = "001001001";
constexpr const char* RightDeviceConfig = "001001002";
constexpr int NavigationTextWidth = 96;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CResourceManager)
};

} // namespace

CResourceManager::CResourceManager(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CPage(pInterfaceSet, QStringLiteral("ResourceManagerUI/DeviceManager"), pParent)
    , m_pUi(std::make_unique<Ui::CResourceManager>())
    , m_pDeviceManager(new CDeviceManagerCtrl(pInterfaceSet))
    , m_pNoRight(new VxGUI::VxEmptyState)
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("CResourceManager"));
    // The stack's frame carries the page's name; the page itself keeps its class name for its style sheet.
    auto* pDevicePage = new QWidget;
    pDevicePage->setObjectName(QStringLiteral("pageDeviceManager"));
    auto* pLayout = new QVBoxLayout(pDevicePage);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pDeviceManager);
    auto* pConfigPage = new CResourceConfigManager;
    pConfigPage->setObjectName(QStringLiteral("pageDeviceConfig"));
    m_pUi->stackPages->addWidget(pDevicePage);
    m_pUi->stackPages->addWidget(pConfigPage);
    m_pNoRight->setObjectName(QStringLiteral("pageNoRight"));
    m_pNoRight->SetState(
        VxGUI::VxEmptyState::Kind::NoPermission, Text::tr("You do not have the right to use these pages."));
    m_pUi->stackPages->addWidget(m_pNoRight);
    SetUpEntry(m_pUi->btnDeviceManager, QStringLiteral("ResourceManagerUI/DeviceManager"),
        QStringLiteral("DeviceManager"), pDevicePage);
    SetUpEntry(m_pUi->btnDeviceConfig, QStringLiteral("ResourceManagerUI/ResourceConfig"),
        QStringLiteral("DeviceConfig"), pConfigPage);
    OnRightsChanged();
}

CResourceManager::~CResourceManager() = default;

void CResourceManager::SetUpEntry(
    QToolButton* pButton, const QString& sFolder, const QString& sIcon, QWidget* pPage)
{
    const auto path = [&](const char* pszState) {
        return Trv::GetSkinPath(sIcon + QLatin1String(pszState), sFolder);
    };
    QIcon icon(path("-n.svg"));
    icon.addFile(path("-h.svg"), QSize(), QIcon::Active);
    icon.addFile(path("-p.svg"), QSize(), QIcon::Normal, QIcon::On);
    pButton->setIcon(icon);
    // The font is the style sheet's only once the button is polished.
    pButton->ensurePolished();
    pButton->setText(VxGUI::WrapTitle(pButton->text(), pButton->fontMetrics(), NavigationTextWidth));
    pButton->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    pButton->setIconSize({24, 24});
    connect(pButton, &QToolButton::toggled, pPage, [this, pPage](bool bChecked) {
        if (bChecked)
            m_pUi->stackPages->setCurrentWidget(pPage);
    });
}

void CResourceManager::OnRightsChanged()
{
    const bool bManager = HasRight(RightDeviceManager);
    const bool bConfig = HasRight(RightDeviceConfig);
    m_pUi->btnDeviceManager->setVisible(bManager);
    m_pUi->btnDeviceConfig->setVisible(bConfig);
    m_pUi->wgtNavigation->setVisible(bManager || bConfig);
    if (!bManager && !bConfig) {
        m_pUi->stackPages->setCurrentWidget(m_pNoRight);
        return;
    }
    const bool bConfigChosen = m_pUi->btnDeviceConfig->isChecked();
    QToolButton* pChosen =
        (bConfigChosen && bConfig) || !bManager ? m_pUi->btnDeviceConfig : m_pUi->btnDeviceManager;
    pChosen->setChecked(true);
    m_pUi->stackPages->setCurrentIndex(pChosen == m_pUi->btnDeviceManager ? 0 : 1);
}

} // namespace ResourceManagerUI
