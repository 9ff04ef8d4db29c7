#include "CConfigManagerCtrl.h"

#include "CConfigPanel.h"
#include "EntryFactory.h"
#include "PluginTexts.h"
#include "ui_CConfigManagerCtrl.h"

#include <Trv/QSkin.h>
#include <VxPluginAPI/IAbstractWidget.h>

namespace ConfigManagerPlugin {

namespace {
constexpr QSize HeaderIconSize(20, 20);

/// The texts' context is the class name alone, which the class's own tr would put behind its namespace.
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CConfigManagerCtrl)
};

} // namespace

CConfigManagerCtrl::CConfigManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CBasePanel(pInterfaceSet, QString::fromLatin1(PluginName), pParent)
    , m_pUi(std::make_unique<Ui::CConfigManagerCtrl>())
{
    m_pUi->setupUi(this);
    SetTexts();
    BuildGroups();
    LoadStyleSheet();
}

CConfigManagerCtrl::~CConfigManagerCtrl() = default;

void CConfigManagerCtrl::SetTexts()
{
    m_pUi->lbBasic->setText(Text::tr("Basic Configuration"));
    m_pUi->lbApplication->setText(Text::tr("Applications Configuration"));
    m_pUi->lbSystem->setText(Text::tr("System Configuration"));
}

CConfigManagerCtrl::Group CConfigManagerCtrl::ApplicationGroup()
{
    return {CConfigPanel::KindApplication, 9, 17, 18, m_pUi->wgtApplication, m_pUi->m_pApplicationPanel,
        &m_vecApplicationItems};
}

CConfigManagerCtrl::Group CConfigManagerCtrl::PlatformGroup()
{
    return {CConfigPanel::KindPlatform, 0, 2, 2, m_pUi->wgtBasic, m_pUi->m_pBasicPanel, &m_vecPlatformItems};
}

CConfigManagerCtrl::Group CConfigManagerCtrl::SystemGroup()
{
    return {CConfigPanel::KindSystem, 4, 7, 7, m_pUi->wgtSystem, m_pUi->m_pSystemPanel, &m_vecSystemItems};
}

void CConfigManagerCtrl::BuildGroups()
{
    for (const Group& group : {ApplicationGroup(), PlatformGroup(), SystemGroup()})
        group.pPanel->SetPluginId(PanelId(group.nKind));
    QVector<UICommonMdl::MenuRightEntry> vecRights;
    GetMenuRight(vecRights);
    for (const Group& group : {ApplicationGroup(), PlatformGroup(), SystemGroup()})
        BuildGroup(group, vecRights);
    OrderTabs();
}

void CConfigManagerCtrl::BuildGroup(const Group& group, const QVector<UICommonMdl::MenuRightEntry>& vecRights)
{
    for (unsigned int nId = group.nFirstEntry; nId <= group.nLastEntry; ++nId)
        AddWidgetByRight(this, nId, MakeEntry(nId, GetInterfaceSet()).release(), vecRights, *group.pItems);
    group.pPanel->ReLayout(PanelId(group.nKind), *group.pItems);
    group.pPanel->AddPanelTab(*group.pItems);
    group.pBlock->setVisible(!group.pItems->isEmpty());
}

void CConfigManagerCtrl::RebuildGroups()
{
    QVector<UICommonMdl::MenuRightEntry> vecRights;
    UpdateMenuRight(vecRights);
    m_vecPlatformItems.clear();
    m_vecSystemItems.clear();
    m_vecApplicationItems.clear();
    for (const UICommonMdl::MenuRightEntry& right : qAsConst(vecRights))
        PlaceEntry(right);

    const Group groups[] = {PlatformGroup(), SystemGroup(), ApplicationGroup()};
    for (const Group& group : groups)
        group.pPanel->RemoveAllTab();
    for (const Group& group : groups)
        group.pPanel->ReLayout(PanelId(group.nKind), *group.pItems);
    for (const Group& group : groups)
        group.pPanel->AddPanelTab(*group.pItems);
    for (const Group& group : groups)
        group.pBlock->setVisible(!group.pItems->isEmpty());
    OrderTabs();
}

void CConfigManagerCtrl::OrderTabs()
{
    // The groups are not built in the order in which they stand; the Tab key follows what is seen.
    QWidget* pPrevious = nullptr;
    for (const UICommonMdl::CPluginPanel* pPanel :
        {m_pUi->m_pBasicPanel, m_pUi->m_pApplicationPanel, m_pUi->m_pSystemPanel}) {
        for (QToolButton* pTab : pPanel->GetTabs()) {
            if (pPrevious)
                setTabOrder(pPrevious, pTab);
            pPrevious = pTab;
        }
    }
}

void CConfigManagerCtrl::PlaceEntry(const UICommonMdl::MenuRightEntry& right)
{
    VxPluginAPI::IAbstractWidget* pEntry = FindOrMakeEntry(right);
    if (!pEntry)
        return;
    for (const Group& group : {PlatformGroup(), SystemGroup(), ApplicationGroup()}) {
        if (right.nEntryId >= group.nFirstEntry && right.nEntryId <= group.nLastEntryOnChange)
            group.pItems->append(MakeTabItem(pEntry));
    }
}

VxPluginAPI::IAbstractWidget* CConfigManagerCtrl::FindOrMakeEntry(const UICommonMdl::MenuRightEntry& right)
{
    if (VxPluginAPI::IAbstractWidget* pKnown = CreateAbstractWidget(right))
        return pKnown;
    auto pEntry = MakeEntry(right.nEntryId, GetInterfaceSet());
    if (!pEntry)
        return nullptr;
    VxPluginAPI::IAbstractWidget* pKept = pEntry.get();
    KeepWidget(pEntry.release());
    return pKept;
}

UICommonMdl::PanelTabItem CConfigManagerCtrl::MakeTabItem(VxPluginAPI::IAbstractWidget* pEntry)
{
    if (!pEntry)
        return {};
    return {QIcon(pEntry->GetWidgetIcon()), QString::fromLatin1(PluginName),
        QString::fromStdString(pEntry->GetWidgetName()), pEntry->GetWidgetTitle(), 0};
}

bool CConfigManagerCtrl::OnMsg(int nMsg, QVariant* pValue, void* pArgument)
{
    if (nMsg == VxPluginAPI::MessageAutoResize) {
        SetAutoResize(pValue && pValue->toBool());
        return true;
    }
    if (nMsg == VxPluginAPI::MessageRightsChanged)
        RebuildGroups();
    return CBasePanel::OnMsg(nMsg, pValue, pArgument);
}

void CConfigManagerCtrl::SetAutoResize(bool bEnable)
{
    UICommonMdl::CPluginPanel* const panels[] = {
        m_pUi->m_pApplicationPanel, m_pUi->m_pSystemPanel, m_pUi->m_pBasicPanel};
    for (UICommonMdl::CPluginPanel* pPanel : panels)
        pPanel->EnableAutoResizePanel(bEnable);
    if (!bEnable)
        return;
    for (UICommonMdl::CPluginPanel* pPanel : panels)
        pPanel->LayoutTabs();
}

void CConfigManagerCtrl::showEvent(QShowEvent* pEvent)
{
    CBasePanel::showEvent(pEvent);
    LoadStyleSheet();
    LoadHeaderIcons();
}

void CConfigManagerCtrl::LoadStyleSheet()
{
    setObjectName(QStringLiteral("CConfigManagerCtrl"));
    QString sStyleSheet;
    const QString sPath =
        Trv::GetSkinPath(objectName() + QStringLiteral(".qss"), QString::fromLatin1(PluginName));
    // Setting the same text again would make every widget of the page look up its style anew.
    if (Trv::loadStyleSheet(sPath, sStyleSheet) && sStyleSheet != styleSheet())
        setStyleSheet(sStyleSheet);
}

void CConfigManagerCtrl::LoadHeaderIcons()
{
    const std::pair<QLabel*, const char*> headers[] = {{m_pUi->lbBasicIcon, "basic.svg"},
        {m_pUi->lbApplicationIcon, "application.svg"}, {m_pUi->lbSystemIcon, "system.svg"}};
    for (const auto& [pLabel, pszFile] : headers) {
        const QString sPath = Trv::GetSkinPath(QLatin1String(pszFile), QString::fromLatin1(PluginName));
        pLabel->setPixmap(QIcon(sPath).pixmap(HeaderIconSize));
    }
}

} // namespace ConfigManagerPlugin
