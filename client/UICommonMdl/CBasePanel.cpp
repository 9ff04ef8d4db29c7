#include <UICommonMdl/CBasePanel.h>

#include <UICommonMdl/CInterfaceSetManager.h>
#include <UserLogical/IUserManager.h>
#include <VxPluginAPI/IAbstractWidget.h>

#include <algorithm>

namespace UICommonMdl {

CBasePanel::CBasePanel(CInterfaceSetManager* pInterfaceSet, const QString& sPanelName, QWidget* pParent)
    : QWidget(pParent)
    , m_pInterfaceSet(pInterfaceSet)
    , m_sPanelName(sPanelName)
{
}

CBasePanel::~CBasePanel() = default;

void CBasePanel::GetMenuRight(QVector<MenuRightEntry>& vecRights)
{
    vecRights.clear();
    UserLogical::IUserManager* pUserManager = m_pInterfaceSet ? m_pInterfaceSet->GetUserManager() : nullptr;
    if (!pUserManager)
        return;
    for (const UserLogical::MenuRight_t& right : pUserManager->GetMenuRights())
        vecRights.append({right.sWidgetName, right.nEntryId});
}

void CBasePanel::UpdateMenuRight(QVector<MenuRightEntry>& vecRights)
{
    GetMenuRight(vecRights);
}

void CBasePanel::AddWidgetByRight(CBasePanel* pPage, unsigned int nEntryId,
    VxPluginAPI::IAbstractWidget* pEntry, const QVector<MenuRightEntry>& vecRights,
    QVector<PanelTabItem>& vecItems)
{
    const bool bAllowed = std::any_of(vecRights.begin(), vecRights.end(),
        [nEntryId](const MenuRightEntry& right) { return right.nEntryId == nEntryId; });
    if (!pEntry || !bAllowed) {
        delete pEntry;
        return;
    }
    KeepWidget(pEntry);
    vecItems.append(pPage->MakeTabItem(pEntry));
}

void CBasePanel::KeepWidget(VxPluginAPI::IAbstractWidget* pEntry)
{
    m_mapEntries[pEntry->GetWidgetName()].reset(pEntry);
}

VxPluginAPI::IAbstractWidget* CBasePanel::CreateAbstractWidget(const MenuRightEntry& entry) const
{
    return CreateAbstractWidget(entry.sName);
}

VxPluginAPI::IAbstractWidget* CBasePanel::CreateAbstractWidget(const std::string& sName) const
{
    const auto it = m_mapEntries.find(sName);
    return it == m_mapEntries.end() ? nullptr : it->second.get();
}

PanelTabItem CBasePanel::MakeTabItem(VxPluginAPI::IAbstractWidget* pEntry)
{
    if (!pEntry)
        return {};
    return {QIcon(pEntry->GetWidgetIcon()), m_sPanelName, QString::fromStdString(pEntry->GetWidgetName()),
        pEntry->GetWidgetTitle(), 0};
}

bool CBasePanel::OnMsg(int nMsg, QVariant* pValue, void* pArgument)
{
    bool bTaken = false;
    for (const auto& [sName, pEntry] : m_mapEntries)
        bTaken = pEntry->OnMsg(nMsg, pValue, pArgument) || bTaken;
    return bTaken;
}

void CBasePanel::UninitUI()
{
    for (const auto& [sName, pEntry] : m_mapEntries)
        pEntry->UninitUI();
}

void CBasePanel::OpenWidget(const QString& sWidgetName)
{
    if (VxPluginAPI::IAbstractWidget* pEntry = CreateAbstractWidget(sWidgetName.toStdString()))
        Q_EMIT SignalOpenWidget(pEntry);
}

} // namespace UICommonMdl
