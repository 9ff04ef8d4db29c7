#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QAbstractButton>

namespace VxGUI {

/// An on/off switch: a checkable button that is drawn as a sliding knob. User-interface thread.
class VXGUI_EXPORT VxSwitchButton : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(QColor trackColor MEMBER m_trackColor)
    Q_PROPERTY(QColor checkedColor MEMBER m_checkedColor)
    Q_PROPERTY(QColor knobColor MEMBER m_knobColor)

public:
    explicit VxSwitchButton(QWidget* pParent = nullptr);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    QColor m_trackColor;
    QColor m_checkedColor;
    QColor m_knobColor;
};

} // namespace VxGUI
