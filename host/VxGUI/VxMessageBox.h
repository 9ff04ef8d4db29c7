#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QDialog>

class QDialogButtonBox;

namespace VxGUI {

/// The client's message box, shown through VxDialogService.
class VXGUI_EXPORT VxMessageBox : public QDialog
{
    Q_OBJECT

public:
    enum class Kind
    {
        Message,
        Question
    };
    VxMessageBox(QWidget* pParent, Kind kind, const QString& sTitle, const QString& sText,
        const QString& sDetails = QString());

    /// The two calls that pages use; both go through VxDialogService::Current.
    static bool Question(QWidget* pParent, const QString& sTitle, const QString& sText);
    static void Message(
        QWidget* pParent, const QString& sTitle, const QString& sText, const QString& sDetails = QString());
};

} // namespace VxGUI
