#pragma once

#include <VxPluginAPI/IAbstractWidget.h>

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <string>

namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace Common {

/// The constants of one entry.
struct EntryDescription
{
    std::string sRight; ///< right code, three digits a level
    std::string sName;
    const char* pszTitle; ///< translation source
    const char* pszContext; ///< translation context of the title
    QString sSkinFolder;
    QString sIconFile;
    /// File that is shown unless the user lacks the right; empty: the entry has one icon only.
    QString sIconFileDefault;
};

/// Base of the entry objects: the constants, the page on demand, and the way of the host's messages to it.
class CEntryWidget : public QObject, public VxPluginAPI::IAbstractWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and may be null only as long as no page is asked for.
    CEntryWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet, EntryDescription description);

    using VxPluginAPI::IAbstractWidget::GetWidgetTitle;
    std::string GetWidgetRight() override;
    std::string GetWidgetName() override;
    QWidget* GetWidget(QWidget* pParent) override;
    void UninitUI() override;
    QString GetWidgetTitle(const QString& sContext, int nFlag) override;
    QString GetWidgetIcon() override;
    QString GetWidgetTip() override;
    QString GetWidgetTitle(const QString& sContext) override;
    QVariant GetWidgetProperty() override;
    bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) override;

protected:
    /// Makes the page as a child of pParent. The base makes one that says that this version has no such page.
    virtual QWidget* CreatePage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent);

private:
    bool IsRightMissing() const;

    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    EntryDescription m_description;
    QPointer<QWidget> m_pPage;
};

} // namespace Common
