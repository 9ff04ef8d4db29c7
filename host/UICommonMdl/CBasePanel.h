#pragma once

#include <UICommonMdl/PanelTypes.h>
#include <UICommonMdl/UICommonMdlExport.h>

#include <QVariant>
#include <QWidget>

#include <map>
#include <memory>

namespace VxPluginAPI {
class IAbstractWidget;
}

namespace UICommonMdl {

class CInterfaceSetManager;

/// Base of a plug-in's home page: keeps the interface set and, by name, the entry objects of the pages.
/// User-interface thread.
class UICOMMONMDL_EXPORT CBasePanel : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the panel.
    CBasePanel(CInterfaceSetManager* pInterfaceSet, const QString& sPanelName, QWidget* pParent = nullptr);
    /// Destroys the entry objects; their pages belong to their parent widgets.
    ~CBasePanel() override;

    CInterfaceSetManager* GetInterfaceSet() const { return m_pInterfaceSet; }
    QString GetPanelName() const { return m_sPanelName; }

    /// Fills the list with the entries that the signed-in user may open; empty when nobody is signed in.
    void GetMenuRight(QVector<MenuRightEntry>& vecRights);
    /// The same after a change of rights.
    void UpdateMenuRight(QVector<MenuRightEntry>& vecRights);

    /// Takes pEntry (may be null): when vecRights holds the entry it is kept under its name and an item for
    /// it, made by pPage, is appended to vecItems; otherwise it is destroyed and nothing else happens.
    void AddWidgetByRight(CBasePanel* pPage, unsigned int nEntryId, VxPluginAPI::IAbstractWidget* pEntry,
        const QVector<MenuRightEntry>& vecRights, QVector<PanelTabItem>& vecItems);
    /// Takes pEntry (not null) and keeps it under its name.
    void KeepWidget(VxPluginAPI::IAbstractWidget* pEntry);
    /// The entry object that is kept under that name, null when there is none. Not owned.
    VxPluginAPI::IAbstractWidget* CreateAbstractWidget(const MenuRightEntry& entry) const;
    VxPluginAPI::IAbstractWidget* CreateAbstractWidget(const std::string& sName) const;

    /// The item by which a panel shows pEntry; an empty one for null.
    virtual PanelTabItem MakeTabItem(VxPluginAPI::IAbstractWidget* pEntry);

    /// A message of the host; the base passes it to the entry objects. True when one of them took it.
    virtual bool OnMsg(int nMsg, QVariant* pValue, void* pArgument);
    /// Called before the plug-in is unloaded; the base passes it to the entry objects.
    virtual void UninitUI();

    /// Asks the client to show the page of that entry.
    void OpenWidget(const QString& sWidgetName);

Q_SIGNALS:
    /// The client listens to this, shows the entry's page and owns it.
    void SignalOpenWidget(VxPluginAPI::IAbstractWidget* pEntry);

private:
    CInterfaceSetManager* m_pInterfaceSet;
    QString m_sPanelName;
    std::map<std::string, std::unique_ptr<VxPluginAPI::IAbstractWidget>> m_mapEntries;
};

} // namespace UICommonMdl
