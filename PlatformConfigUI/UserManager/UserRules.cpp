#include "UserRules.h"

#include <UICommonMdl/CErrorCode.h>

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

namespace PlatformConfigUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(UserRules)
};
} // namespace

QString CheckMacAddresses(const std::vector<std::string>& vecAddresses, bool bBound)
{
    if (vecAddresses.size() > UserLogical::MacAddressLimit)
        return Text::tr("The number of MAC address cannot exceed %1.").arg(UserLogical::MacAddressLimit);
    if (vecAddresses.empty() && bBound)
        return Text::tr("Please enter MAC address.");
    const bool bRight = std::all_of(vecAddresses.begin(), vecAddresses.end(), UserLogical::IsMacAddress);
    return bRight ? QString() : Text::tr("Invalid MAC format.");
}

QDateTime GetDefaultExpiry()
{
    const QDateTime now = QDateTime::currentDateTime();
    return QDateTime(now.date().addYears(1), QTime(now.time().hour(), now.time().minute()));
}

QString GetUserTypeText(int nUserType)
{
    return nUserType == UserLogical::UserTypeDomain ? Text::tr("Domain User") : Text::tr("Normal User");
}

QString GetOnlineText(bool bOnline)
{
    return bOnline ? Text::tr("Online") : Text::tr("Offline");
}

QString GetPasswordExpirationText(bool bInterval, qint64 nChanged, int nDays)
{
    if (!bInterval)
        return Text::tr("Never");
    if (!UserLogical::PasswordDays.Allows(nDays))
        return QStringLiteral("-");
    const QDateTime end = QDateTime::fromMSecsSinceEpoch(nChanged).addDays(nDays);
    return end.toString(QStringLiteral("yyyy-MM-dd HH:mm"));
}

QVector<Common::Failure> GetFailures(const std::vector<UserLogical::UserFailure_t>& vecFailed)
{
    QVector<Common::Failure> vecFailures;
    for (const UserLogical::UserFailure_t& failure : vecFailed)
        vecFailures.append({QString::fromStdString(failure.sUserName),
            UICommonMdl::CErrorCode::GetErroCodeInfor(failure.nErrorCode)});
    return vecFailures;
}

std::vector<std::string> ToNames(const QStringList& listNames)
{
    std::vector<std::string> vecNames;
    for (const QString& sName : listNames)
        vecNames.push_back(sName.toStdString());
    return vecNames;
}

QStringList FromNames(const std::vector<std::string>& vecNames)
{
    QStringList listNames;
    for (const std::string& sName : vecNames)
        listNames.append(QString::fromStdString(sName));
    return listNames;
}

} // namespace PlatformConfigUI
