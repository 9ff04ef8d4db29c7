#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QLineEdit>

namespace VxGUI {

class FieldValidator;

/// A search field with a background text, a search button and a clear button. User-interface thread.
class VXGUI_EXPORT VxSearchBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit VxSearchBox(QWidget* pParent = nullptr);

    void SetBackgroundText(const QString& sText);
    /// Characters (code points) that can be entered.
    void setMaxLength(int nMaxLength);

    bool event(QEvent* pEvent) override;

Q_SIGNALS:
    /// The search button or Enter; also when the clear button emptied the field.
    void SignalSearch();

private:
    FieldValidator* m_pValidator = nullptr; ///< null: no limit. First: the action below is an event already
    QAction* m_pSearchAction;
};

} // namespace VxGUI
