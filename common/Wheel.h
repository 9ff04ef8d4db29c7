#pragma once

class QWidget;

namespace Common {

/// Wheels over a page that scrolls do not change its fields unless they have the focus. User-interface
/// thread.
void KeepFromWheel(QWidget* pField);

} // namespace Common
