#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QWidget>

class QLabel;
class QPushButton;

namespace VxGUI {

/// What stands where content would: nothing there, loading, failed, no permission, not available in this
/// version. Each has its own icon; the texts are the page's. User-interface thread.
class VXGUI_EXPORT VxEmptyState : public QWidget
{
    Q_OBJECT

public:
    enum class Kind
    {
        Empty,
        Loading,
        Failed,
        NoPermission,
        NotAvailable
    };

    explicit VxEmptyState(QWidget* pParent = nullptr);
    /// sAction, when not empty, is the caption of a button below the texts ("Refresh", say).
    void SetState(Kind kind, const QString& sTitle, const QString& sText = QString(),
        const QString& sAction = QString());
    Kind GetKind() const { return m_kind; }
    QString GetTitle() const;

Q_SIGNALS:
    void SignalAction();

private:
    Kind m_kind = Kind::Empty;
    QLabel* m_pIcon;
    QLabel* m_pTitle;
    QLabel* m_pText;
    QPushButton* m_pAction;
};

} // namespace VxGUI
