#include "RightRules.h"

#include <UserLogical/UserRecords.h>

#include <QSet>

namespace PlatformConfigUI {

namespace {

constexpr int DigitsOfLevel = 3;

bool IsForAdministrators(const QString& sCode)
{
    static const QSet<QString> s_setCodes{QStringLiteral("003"), QStringLiteral("003003"),
        QStringLiteral("003001"), QStringLiteral("003001001"), QStringLiteral("003001002"),
        QStringLiteral("003004"), QStringLiteral("001"), QStringLiteral("001001"),
        QStringLiteral("001001001"), QStringLiteral("001001002"), QStringLiteral("001002"),
        QStringLiteral("001002001"), QStringLiteral("001002002"), QStringLiteral("001003"),
        QStringLiteral("001003001"), QStringLiteral("001003002"), QStringLiteral("001003003"),
        QStringLiteral("002006001"), QStringLiteral("002006002"), QStringLiteral("002006006"),
        QStringLiteral("002006003"), QStringLiteral("002006004")};
    return s_setCodes.contains(sCode);
}

bool IsForServices(const QString& sCode)
{
    static const QSet<QString> s_setCodes{QStringLiteral("003001001"), QStringLiteral("003001002"),
        QStringLiteral("003001"), QStringLiteral("003004")};
    return s_setCodes.contains(sCode);
}

} // namespace

int GetRightFilterMode(const std::string& sTypeText)
{
    if (sTypeText == "2")
        return RightFilterAdministrator;
    return sTypeText == "1" ? RightFilterKind : RightFilterOperator;
}

bool PassesRightFilter(int nMode, int nKind, bool bOwn, const QString& sCode)
{
    if (nMode == RightFilterOperator)
        return !IsForAdministrators(sCode);
    if (nMode == RightFilterAdministrator)
        return !IsForServices(sCode);
    return nKind == UserLogical::RightNodeAlways || (nKind == UserLogical::RightNodeChecked && bOwn);
}

QString GetParentCode(const QString& sCode)
{
    return sCode.left(sCode.size() - DigitsOfLevel);
}

} // namespace PlatformConfigUI
