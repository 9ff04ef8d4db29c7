#include "AccountRules.h"

#include "ServiceError.h"
#include "services/TextRules.h"

#include <algorithm>
#include <charconv>

namespace Platform::AccountRules {

using UserLogical::Role_t;
using UserLogical::User_t;

namespace {

void Require(bool bHolds, const char* szField)
{
    if (!bHolds)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, szField);
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
    Require(Holds(UserLogical::UserName, user.sUserName), "sUserName");
    Require(Holds(UserLogical::UserRemark, user.sRemark), "sRemark");
    Require(!user.bPasswordInterval || UserLogical::PasswordDays.Allows(user.nPasswordDays), "nPasswordDays");
    Require(UserLogical::PtzLevel.Allows(user.nPtzLevel), "nPtzLevel");
    Require(Holds(UserLogical::UserEmail, user.sEmail)
            && (user.sEmail.empty() || UICommonMdl::IsMailAddress(user.sEmail)),
        "sEmail");
    const std::size_t nAddresses = user.vecMacAddresses.size();
    Require(
        nAddresses <= UserLogical::MacAddressLimit && (nAddresses > 0 || !user.bBindMac), "vecMacAddresses");
    for (std::string& sMac : user.vecMacAddresses) {
        sMac = FoldCase(sMac);
        Require(UserLogical::IsMacAddress(sMac), "vecMacAddresses");
    }
    CheckBatch(user.vecRoleIds.size(), "vecRoleIds");
    return user;
}

Role_t Checked(Role_t role)
{
    role.sName = Trimmed(role.sName);
    role.sRemark = Trimmed(role.sRemark);
    Require(Holds(UserLogical::RoleName, role.sName), "sName");
    Require(Holds(UserLogical::RoleRemark, role.sRemark), "sRemark");
    return role;
}

void CheckBatch(std::size_t nCount, const char* szField)
{
    Require(nCount > 0 && nCount <= BatchLimit, szField);
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
