#pragma once

#include <QLoggingCategory>

namespace ResourceManagerUI {

Q_DECLARE_LOGGING_CATEGORY(LogDeviceForm)

} // namespace ResourceManagerUI
