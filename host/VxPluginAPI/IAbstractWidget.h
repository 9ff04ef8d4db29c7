#pragma once

#include <QString>
#include <QVariant>

#include <string>

class QWidget;

namespace VxPluginAPI {

/// The messages of a host that OnMsg of the top-level widget and of the entries takes.
enum HostMessage : int
{
    MessageRightsChanged = 7,
    MessageAutoResize = 36, ///< the panels of the home page share its width; the value says whether
    /// The host is about to leave the page, or to end it: pages with input that would be lost ask the user.
    /// The value is true, and set to false when the user stays.
    MessageLeave = 1000,
};

/// An entry: one page that the client can open. User-interface thread only. The order of the operations is
/// binary interface; the two operations named GetWidgetTitle stand apart on purpose.
class IAbstractWidget
{
public:
    virtual ~IAbstractWidget() = default;

    /// Right code that guards the entry: decimal digits, three a level ("001001").
    virtual std::string GetWidgetRight() = 0;
    /// Name by which the entry is looked up.
    virtual std::string GetWidgetName() = 0;
    /// The page, created as a child of pParent on the first call and after its parent destroyed it. The
    /// parent owns it.
    virtual QWidget* GetWidget(QWidget* pParent) = 0;
    /// Called before the plug-in is unloaded: stop work in progress, drop observers.
    virtual void UninitUI() = 0;
    /// Translated title; sContext and nFlag are the host's and may be ignored.
    virtual QString GetWidgetTitle(const QString& sContext, int nFlag) = 0;
    /// Path of the icon file; empty: none.
    virtual QString GetWidgetIcon() = 0;
    virtual QString GetWidgetTip() = 0;
    /// As above with the flag 0.
    virtual QString GetWidgetTitle(const QString& sContext) = 0;
    /// Further properties; invalid when there are none.
    virtual QVariant GetWidgetProperty() = 0;
    /// A message of the host; true when it was taken. pValue and pArgument are borrowed for the call.
    virtual bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) = 0;

    QString GetWidgetTitle() { return GetWidgetTitle(QString(), 0); }
};

} // namespace VxPluginAPI
