#pragma once

#include <VxPluginAPI/IAbstractWidget.h>

#include <QObject>
#include <QPointer>

namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace ConfigManagerPlugin {

class CConfigManagerCtrl;

/// The top-level widget of the plug-in: creates the home page on demand and forwards the host's messages to
/// it. The page belongs to the parent widget that the host gave.
class CConfigManagerWidget : public QObject, public VxPluginAPI::IAbstractWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CConfigManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
    ~CConfigManagerWidget() override;

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

    /// The entry object of that name, null while there is no home page or it does not know the name.
    VxPluginAPI::IAbstractWidget* FindPage(const std::string& sName) const;

private:
    QPointer<CConfigManagerCtrl> m_pHomePage;
    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
};

} // namespace ConfigManagerPlugin
