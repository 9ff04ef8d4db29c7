#pragma once

#include <UICommonMdl/CBasePanel.h>

#include <QVector>

#include <memory>

namespace Ui {
class CConfigManagerCtrl;
}
namespace UICommonMdl {
class CPluginPanel;
}

namespace ConfigManagerPlugin {

/// The home page of configuration: three groups of entries, those that the user's rights allow.
class CConfigManagerCtrl : public UICommonMdl::CBasePanel
{
    Q_OBJECT

public:
    CConfigManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent);
    ~CConfigManagerCtrl() override;

    UICommonMdl::PanelTabItem MakeTabItem(VxPluginAPI::IAbstractWidget* pEntry) override;
    /// Message 7: the user's rights changed. Message 36: panels share the width (value as bool).
    bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) override;

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    using Items = QVector<UICommonMdl::PanelTabItem>;
    /// One group with the numbers of its entries: those looked for at first, and those taken on a change of
    /// rights.
    struct Group
    {
        int nKind;
        unsigned int nFirstEntry;
        unsigned int nLastEntry;
        unsigned int nLastEntryOnChange;
        QWidget* pBlock;
        UICommonMdl::CPluginPanel* pPanel;
        Items* pItems;
    };

    void SetTexts();
    void BuildGroups();
    void BuildGroup(const Group& group, const QVector<UICommonMdl::MenuRightEntry>& vecRights);
    void RebuildGroups();
    void PlaceEntry(const UICommonMdl::MenuRightEntry& right);
    VxPluginAPI::IAbstractWidget* FindOrMakeEntry(const UICommonMdl::MenuRightEntry& right);
    void OrderTabs();
    void SetAutoResize(bool bEnable);
    void LoadStyleSheet();
    void LoadHeaderIcons();

    Group ApplicationGroup();
    Group PlatformGroup();
    Group SystemGroup();

    std::unique_ptr<Ui::CConfigManagerCtrl> m_pUi;
    Items m_vecApplicationItems;
    Items m_vecPlatformItems;
    Items m_vecSystemItems;
};

} // namespace ConfigManagerPlugin
