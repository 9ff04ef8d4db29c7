#pragma once

#include <UserLogical/UserRecords.h>
#include <common/Failure.h>

#include <QDateTime>
#include <QString>
#include <QStringList>

/// What holds for accounts: checks and the texts of their values.
namespace PlatformConfigUI {

inline constexpr int DefaultPasswordDays = 90;

/// The first thing that is wrong with the addresses that an account is bound to; empty: nothing.
QString CheckMacAddresses(const std::vector<std::string>& vecAddresses, bool bBound);
/// When an account ends if nothing else is said.
QDateTime GetDefaultExpiry();

QString GetUserTypeText(int nUserType);
QString GetOnlineText(bool bOnline);
/// Until when a password serves: "Never" ends it without an interval, nothing is said for a number of days
/// that is none. nChanged in milliseconds since 1970.
QString GetPasswordExpirationText(bool bInterval, qint64 nChanged, int nDays);
QVector<Common::Failure> GetFailures(const std::vector<UserLogical::UserFailure_t>& vecFailed);

std::vector<std::string> ToNames(const QStringList& listNames);
QStringList FromNames(const std::vector<std::string>& vecNames);

} // namespace PlatformConfigUI
