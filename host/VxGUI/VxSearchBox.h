#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QLineEdit>

namespace VxGUI {

/// A search field with a background text, a search button and a clear button. User-interface thread.
class VXGUI_EXPORT VxSearchBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit VxSearchBox(QWidget* pParent = nullptr);

    void SetBackgroundText(const QString& sText);

Q_SIGNALS:
    /// The search button or Enter; also when the clear button emptied the field.
    void SignalSearch();

private:
    QAction* m_pSearchAction;
};

} // namespace VxGUI
