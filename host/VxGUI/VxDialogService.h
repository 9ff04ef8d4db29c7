#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QString>

class QDialog;
class QWidget;

namespace VxGUI {

/// What a dialog says and asks, for a service that answers without showing it.
struct DialogSummary
{
    bool bQuestion; ///< it is answered with OK or Cancel; otherwise only closed
    QString sText;
    QString sDetails; ///< what is listed below the text, one line an item
};

/// Every modal question and every file choice goes through the one current service, so that it can be
/// replaced as a whole (by tests, by a host with dialogs of its own). User-interface thread.
class VXGUI_EXPORT VxDialogService
{
public:
    virtual ~VxDialogService() = default;

    /// A question with OK and Cancel; true for OK.
    virtual bool Question(QWidget* pParent, const QString& sTitle, const QString& sText) = 0;
    /// A message with OK. sDetails, when not empty, is shown below it in a scrolling area.
    virtual void Message(
        QWidget* pParent, const QString& sTitle, const QString& sText, const QString& sDetails) = 0;
    /// Shows a dialog of a page's own (owned by the caller) until it is closed; true when it was accepted.
    /// The dialog may be gone then, with its parent.
    virtual bool Show(QDialog* pDialog, const DialogSummary& summary) = 0;
    /// Path to save to, empty when the user gave up. sFilter as QFileDialog takes it.
    virtual QString SaveFile(
        QWidget* pParent, const QString& sTitle, const QString& sProposal, const QString& sFilter) = 0;
    /// Path of an existing file, empty when the user gave up.
    virtual QString OpenFile(
        QWidget* pParent, const QString& sTitle, const QString& sFolder, const QString& sFilter) = 0;

    /// The service in use; never null.
    static VxDialogService* Current();
    /// Replaces the service (borrowed); null brings the built-in one back. Answers the replacement that was
    /// in use, null when it was the built-in one.
    static VxDialogService* SetCurrent(VxDialogService* pService);
};

} // namespace VxGUI
