#pragma once

#include "CPage.h"

class QStackedWidget;
class QTabBar;

namespace VxGUI {
class VxEmptyState;
}

namespace Common {

class CNavigationStrip;

/// One entry of a module page.
struct ModuleEntry
{
    using Factory = std::function<QWidget*(UICommonMdl::CInterfaceSetManager*, QWidget* pParent)>;

    const char* pszRight; ///< code of the right that offers it
    QString sTitle; ///< translated
    QString sName; ///< its page is "page" and this, its button "btn" and this
    Factory make = nullptr; ///< of the page; none: one that says that this version has no such page
    QString sIconFolder = QString(); ///< of the skin
    QString sIcon = QString(); ///< stem of the icon's files; empty: none
};

/// What an entry of the home page opens: the pages of a table, each made when it is shown for the first time,
/// and a strip or tabs to choose from those that the user has the right to. User-interface thread.
class CModulePage : public CPage
{
    Q_OBJECT

public:
    enum class Look
    {
        Strip, ///< at the left, with icons
        Tabs ///< above the page
    };
    struct Description
    {
        QString sObjectName;
        QString sSkinFolder; ///< of its style sheet; empty: none
        QString sTitle; ///< translated, for those who do not see the tabs
        Look look;
    };

    /// pInterfaceSet is borrowed and outlives the page.
    CModulePage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, const Description& description,
        const QVector<ModuleEntry>& vecEntries, QWidget* pParent = nullptr);

    bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) override;

    /// ModuleEntry::make of that page.
    template <class Page>
    static QWidget* Make(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    {
        return new Page(pInterfaceSet, pParent);
    }

private:
    static constexpr int None = -1;

    QWidget* MakeNavigation(const Description& description);
    void MakePage(int nEntry);
    void OnRightsChanged() override;
    void OfferEntries(bool bOffered);
    void ShowEntry(int nEntry);
    int FindAllowed(int nFirst) const;

    QVector<ModuleEntry> m_vecEntries;
    QVector<QWidget*> m_vecFrames; ///< of the entries; each holds the page once it was shown
    CNavigationStrip* m_pStrip = nullptr; ///< one of the two is there
    QTabBar* m_pTabs = nullptr;
    QWidget* m_pNavigation; ///< that one
    QStackedWidget* m_pStack;
    VxGUI::VxEmptyState* m_pNoRight; ///< in place of the pages for who has the right to none
    int m_nShown = None;
};

} // namespace Common
