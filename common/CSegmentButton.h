#pragma once

#include <QPushButton>

namespace Common {

/// One segment of a filter bar: a button that stays pressed while its choice is in use. Screen readers are
/// told of a radio button. User-interface thread.
class CSegmentButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CSegmentButton(QWidget* pParent = nullptr);

protected:
    /// A choice in use stays so when it is chosen again.
    void nextCheckState() override { setChecked(true); }
};

} // namespace Common
