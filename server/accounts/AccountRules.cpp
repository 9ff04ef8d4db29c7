#include "AccountRules.h"

#include "ServiceError.h"
#include "services/TextRules.h"

#include <algorithm>
#include <charconv>

namespace Platform::AccountRules {

using UserLogical::Role_t;
using UserLogical::User_t;

namespace {

constexpr std::size_t EmailLimit = 50;
constexpr std::size_t MacLength = 17;

void CheckText(const std::string& sText, std::size_t nLimit, const char* szField)
{
    if (CharacterCount(sText) > nLimit || sText.find_first_of("<>") != std::string::npos
        || HasControlCharacter(sText))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, szField);
}

void CheckRange(std::int64_t nValue, std::int64_t nMin, std::int64_t nMax, const char* szField)
{
    if (nValue < nMin || nValue > nMax)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, szField);
}

/// A "@" and a "." whose last one is at or after the first "@".
bool IsEmail(const std::string& sText)
{
    const std::size_t nAt = sText.find('@');
    const std::size_t nDot = sText.rfind('.');
    return nAt != std::string::npos && nDot != std::string::npos && nDot >= nAt;
}

void CheckMac(std::string& sMac)
{
    sMac = FoldCase(sMac);
    if (sMac.size() != MacLength || sMac.find_first_not_of("0123456789abcdef:") != std::string::npos)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "vecMacAddresses");
}

std::string FirstMissing(const std::set<std::string>& wanted, const std::set<std::string>& own)
{
    const auto it = std::find_if(
        wanted.begin(), wanted.end(), [&own](const std::string& sCode) { return own.count(sCode) == 0; });
    return it == wanted.end() ? std::string() : *it;
}

} // namespace

User_t Checked(User_t user)
{
    user.sUserName = Trimmed(user.sUserName);
    user.sEmail = Trimmed(user.sEmail);
    user.sRemark = Trimmed(user.sRemark);
    if (user.sUserName.empty())
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sUserName");
    CheckText(user.sUserName, NameLimit, "sUserName");
    CheckText(user.sRemark, RemarkLimit, "sRemark");
    if (user.bPasswordInterval)
        CheckRange(user.nPasswordDays, 1, 365, "nPasswordDays");
    CheckRange(user.nPtzLevel, 1, 10, "nPtzLevel");
    CheckText(user.sEmail, EmailLimit, "sEmail");
    if (!user.sEmail.empty() && !IsEmail(user.sEmail))
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sEmail");
    CheckRange(static_cast<std::int64_t>(user.vecMacAddresses.size()), user.bBindMac ? 1 : 0, MacLimit,
        "vecMacAddresses");
    for (std::string& sMac : user.vecMacAddresses)
        CheckMac(sMac);
    CheckBatch(user.vecRoleIds.size(), "vecRoleIds");
    return user;
}

Role_t Checked(Role_t role)
{
    role.sName = Trimmed(role.sName);
    role.sRemark = Trimmed(role.sRemark);
    if (role.sName.empty())
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sName");
    CheckText(role.sName, NameLimit, "sName");
    CheckText(role.sRemark, RemarkLimit, "sRemark");
    return role;
}

void CheckBatch(std::size_t nCount, const char* szField)
{
    if (nCount == 0 || nCount > BatchLimit)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, szField);
}

std::int64_t RoleNumber(const std::string& sRoleId)
{
    std::int64_t nId = 0;
    const char* const pEnd = sRoleId.data() + sRoleId.size();
    const auto [pStop, fault] = std::from_chars(sRoleId.data(), pEnd, nId);
    return fault == std::errc() && pStop == pEnd && std::to_string(nId) == sRoleId ? nId : 0;
}

void CheckManagerLeft(Database& database, std::int64_t nExcept)
{
    // An account that expires some day does not count: it would leave nobody behind.
    Rows rows = database.Run(
        QStringLiteral("SELECT 1 FROM account a WHERE a.id <> ? AND a.lock_state = 1 AND a.expires_at = 0 "
                       "AND (a.password_hash IS NOT NULL OR a.user_type = 2) AND EXISTS "
                       "(SELECT 1 FROM account_role ar JOIN role r ON r.id = ar.role_id "
                       "WHERE ar.account_id = a.id AND (r.has_all_rights = 1 OR EXISTS "
                       "(SELECT 1 FROM role_right rr WHERE rr.role_id = r.id AND rr.code = '001002001'))) "
                       "LIMIT 1"),
        {static_cast<qlonglong>(nExcept)});
    if (!rows.Next())
        throw ServiceError(UICommonMdl::ErrorLastManager);
}

void CheckNotAbove(Database& database, const Context& context, std::int64_t nAccountId)
{
    if (context.pRights->bEverything)
        return;
    const AccountRights other = RightsService::Read(database, nAccountId);
    if (other.bEverything)
        throw ServiceError(UICommonMdl::ErrorRightNotOwn);
    if (const std::string sCode = FirstMissing(other.setCodes, context.pRights->setCodes); !sCode.empty())
        throw ServiceError(UICommonMdl::ErrorRightNotOwn, sCode);
}

void CheckRoleGivable(Database& database, const Context& context, std::int64_t nRoleId)
{
    const QVariant role = static_cast<qlonglong>(nRoleId);
    bool bEverything = false;
    {
        Rows rows = database.Run(QStringLiteral("SELECT has_all_rights FROM role WHERE id = ?"), {role});
        if (!rows.Next())
            throw ServiceError(UICommonMdl::ErrorNotFound, "vecRoleIds");
        bEverything = rows.Int(0) != 0;
    }
    if (context.pRights->bEverything)
        return;
    std::set<std::string> setCodes;
    {
        Rows rows = database.Run(QStringLiteral("SELECT code FROM role_right WHERE role_id = ?"), {role});
        while (rows.Next())
            setCodes.insert(rows.Text(0));
    }
    const std::string sCode = FirstMissing(setCodes, context.pRights->setCodes);
    if (bEverything || !sCode.empty())
        throw ServiceError(UICommonMdl::ErrorRightNotOwn, sCode);
    QVariantList values{role};
    const QString sReached =
        context.Scope().DeviceTerm(QStringLiteral("x.device_id"), DeviceScope::Way::TestRows, values);
    Rows rows = database.Run(QStringLiteral("SELECT 1 FROM role_device x WHERE x.role_id = ? AND NOT ")
            + sReached + QLatin1String(" LIMIT 1"),
        values);
    if (rows.Next())
        throw ServiceError(UICommonMdl::ErrorRightNotOwn, "device");
}

} // namespace Platform::AccountRules
