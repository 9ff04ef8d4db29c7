#pragma once

#include <Trv/TrvExport.h>

#include <QString>

namespace Trv {

class TRV_EXPORT QCommon
{
public:
    /// The platform's password rule: 8 to 32 characters, printable ASCII, at least two of lower-case letters,
    /// upper-case letters, digits and other printable characters, no blank and none of ' " ; : &, and not the
    /// user name, forwards or backwards. On a failure sMessage is the translated reason. Any thread.
    static bool CheckPasswordVaild(const QString& sPassword, const QString& sUserName, QString& sMessage);
};

} // namespace Trv
