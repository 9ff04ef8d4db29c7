#pragma once

#include <QString>

class QRegularExpression;
namespace VxGUI {
class VxLineEdit;
}

namespace PlatformConfigUI {

/// Lets nothing be typed or pasted that the whole pattern cannot match any more. sMessage, when not empty, is
/// shown under the field on each refusal.
void RefuseOtherInput(
    VxGUI::VxLineEdit* pField, const QRegularExpression& pattern, const QString& sMessage = QString());

} // namespace PlatformConfigUI
