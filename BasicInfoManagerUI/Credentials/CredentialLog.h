#pragma once

#include <QLoggingCategory>

namespace BasicInfoManagerUI {

Q_DECLARE_LOGGING_CATEGORY(LogCredentials)

} // namespace BasicInfoManagerUI
