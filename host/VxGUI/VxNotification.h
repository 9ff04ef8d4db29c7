#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QFrame>
#include <QTimer>

class QLabel;

namespace VxGUI {

enum class NotificationKind
{
    Information,
    Success,
    Warning,
    Error
};

/// A transient message at the top of a window: it never takes the focus and goes by itself. A new one
/// replaces the one that stands there. User-interface thread.
class VXGUI_EXPORT VxNotification : public QFrame
{
    Q_OBJECT

public:
    /// Shows sText in the window that pAnchor belongs to. The notification belongs to that window.
    static void Show(QWidget* pAnchor, const QString& sText, NotificationKind kind = NotificationKind::Error);
    /// The text that stands in the window of pAnchor now; empty when none does.
    static QString CurrentText(const QWidget* pAnchor);

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;

private:
    explicit VxNotification(QWidget* pWindow);
    void Place();

    QLabel* m_pIcon;
    QLabel* m_pText;
    QTimer m_timer;
};

} // namespace VxGUI
