#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QLabel>

class QMovie;

namespace VxGUI {

/// A label that plays an animated picture while it is visible. User-interface thread.
class VXGUI_EXPORT VxWaitAnimation : public QLabel
{
    Q_OBJECT

public:
    explicit VxWaitAnimation(QWidget* pParent = nullptr);
    /// Path of the animation; the label takes its size.
    void SetAnimation(const QString& sPath);

protected:
    void showEvent(QShowEvent* pEvent) override;
    void hideEvent(QHideEvent* pEvent) override;

private:
    QMovie* m_pMovie;
};

} // namespace VxGUI
