#pragma once

#include <QPushButton>

namespace ResourceManagerUI {

/// A button at the side of a page, its text running downwards.
class CVerticalButton : public QPushButton
{
    Q_OBJECT

public:
    using QPushButton::QPushButton;
    QSize sizeHint() const override { return QPushButton::sizeHint().transposed(); }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* pEvent) override;
};

} // namespace ResourceManagerUI
