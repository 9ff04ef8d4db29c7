#include <Trv/QCommon.h>

#include <wire/PasswordRule.h>

#include <QCoreApplication>

namespace Trv {

namespace {

QString FaultText(wire::PasswordFault fault)
{
    const char* pszText = "";
    switch (fault) {
    case wire::PasswordFault::None:
        break;
    case wire::PasswordFault::Length:
        pszText = QT_TRANSLATE_NOOP("QCommon", "The password must have 8 to 32 characters.");
        break;
    case wire::PasswordFault::Classes:
        pszText = QT_TRANSLATE_NOOP("QCommon",
            "The password must combine at least two of: lower-case letters, upper-case letters, digits, "
            "others.");
        break;
    case wire::PasswordFault::Character:
        pszText = QT_TRANSLATE_NOOP(
            "QCommon", "Only letters, digits and common signs are allowed, without blanks and ' \" ; : &");
        break;
    case wire::PasswordFault::UserName:
        pszText = QT_TRANSLATE_NOOP(
            "QCommon", "The password must be neither the user name nor the user name backwards.");
        break;
    }
    return QCoreApplication::translate("QCommon", pszText);
}

} // namespace

bool QCommon::CheckPasswordVaild(const QString& sPassword, const QString& sUserName, QString& sMessage)
{
    const wire::PasswordFault fault = wire::CheckPassword(sPassword.toStdString(), sUserName.toStdString());
    if (fault == wire::PasswordFault::None)
        return true;
    sMessage = FaultText(fault);
    return false;
}

} // namespace Trv
