#include "DeviceRules.h"

#include <UICommonMdl/CErrorCode.h>

#include <QCoreApplication>
#include <QUrl>

#include <algorithm>

namespace ResourceManagerUI {

namespace {

constexpr const char* Context = "CBatchDeleteDeviceDlg";

struct ReferenceLabel
{
    int nKind;
    const char* pszLabel;
};

constexpr ReferenceLabel ReferenceLabels[] = {
    {GroupLogical::RefAdminPassword, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Admin Password Config:")},
    {GroupLogical::RefAntiPassback, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Anti-passback Config:")},
    {GroupLogical::RefAttendancePoint,
        QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Attendance Point Config:")},
    {GroupLogical::RefDoorGroup, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Door Group Config:")},
    {GroupLogical::RefEvent, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Event Config:")},
    {GroupLogical::RefFirstCardUnlock,
        QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "First Card Unlock Config:")},
    {GroupLogical::RefInterDoorLock, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Inter-Door Lock Config:")},
    {GroupLogical::RefKeyboardCode, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Keyboard Code Config:")},
    {GroupLogical::RefMultiCardUnlock,
        QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Multi-card Unlock Config:")},
    {GroupLogical::RefParkingLot, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Parking Lot Config:")},
    {GroupLogical::RefPersonList, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Person List:")},
    {GroupLogical::RefRecordPlan, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Record/Retrieval Plan:")},
    {GroupLogical::RefRemoteVerification,
        QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Remote Verification Config:")},
    {GroupLogical::RefTvWall, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "TV Wall Config:")},
    {GroupLogical::RefVideoBind, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Video Bind Config:")},
    {GroupLogical::RefAlarmScheme, QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "Alarm Scheme:")},
};

struct FailureText
{
    int nErrorCode;
    const char* pszText;
};

constexpr FailureText FailureTexts[] = {
    {UICommonMdl::ErrorDeviceExtractingLogs,
        QT_TRANSLATE_NOOP(
            "CBatchDeleteDeviceDlg", "The platform is extracting device logs. Please delete later.")},
    {UICommonMdl::ErrorDeviceExtractingPersons,
        QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg",
            "The platform is extracting device person information. Please delete later.")},
    {UICommonMdl::ErrorDeviceGettingRecordings,
        QT_TRANSLATE_NOOP(
            "CBatchDeleteDeviceDlg", "The platform is getting device recordings. Please delete later.")},
    {UICommonMdl::ErrorDeviceUpdating,
        QT_TRANSLATE_NOOP("CBatchDeleteDeviceDlg", "The platform is updating device. Please delete later.")},
};

} // namespace

GroupLogical::DevicePageRequest_t BuildPageRequest(const DeviceQuery& query)
{
    GroupLogical::DevicePageRequest_t request;
    request.nPage = std::max(query.nPage, 1);
    request.nPageSize = query.nPageSize;
    request.sOrgCode = query.sOrgCode.toStdString();
    request.bAscending = query.sortOrder != Qt::DescendingOrder;
    request.nSortField = query.nSortField;
    request.nOnlineState = query.nOnlineState;
    request.nCategory = query.nCategory;
    if (!query.sSearchText.isEmpty())
        request.sSearchText = QUrl::toPercentEncoding(query.sSearchText).toStdString();
    return request;
}

std::vector<std::string> TakeDeleteBatch(std::vector<std::string>& vecIds)
{
    const auto itEnd = vecIds.begin() + std::min<std::ptrdiff_t>(vecIds.size(), DeleteBatchSize);
    std::vector<std::string> vecBatch(vecIds.begin(), itEnd);
    vecIds.erase(vecIds.begin(), itEnd);
    return vecBatch;
}

bool IsHeldByConfiguration(int nErrorCode)
{
    return nErrorCode == UICommonMdl::ErrorDeviceUsedByRecordPlan
        || nErrorCode == UICommonMdl::ErrorDeviceUsedByAlarmScheme;
}

QString GetDeleteFailureText(const GroupLogical::FailedItem_t& item)
{
    const QString sName = QString::fromStdString(item.sName);
    if (item.nErrorCode == UICommonMdl::ErrorDeviceUsedByRecordPlan)
        return sName + QCoreApplication::translate(Context, " Used by record plan, you cannot delete!");
    if (item.nErrorCode == UICommonMdl::ErrorDeviceUsedByAlarmScheme)
        return sName + QCoreApplication::translate(Context, " Used by alarm scheme, you cannot delete!");
    for (const FailureText& failure : FailureTexts) {
        if (failure.nErrorCode == item.nErrorCode)
            return QCoreApplication::translate(Context, failure.pszText);
    }
    const QString sText = UICommonMdl::CErrorCode::GetErroCodeInfor(item.nErrorCode);
    return sText.isEmpty() ? QCoreApplication::translate(Context, "Unknown error") : sText;
}

QStringList GetReferenceLines(const std::vector<GroupLogical::DeviceReference_t>& vecReferences)
{
    QStringList listLines;
    for (const ReferenceLabel& label : ReferenceLabels) {
        QStringList listNames;
        for (const GroupLogical::DeviceReference_t& reference : vecReferences) {
            if (reference.nKind == label.nKind)
                listNames.append(QStringLiteral("    ") + QString::fromStdString(reference.sName));
        }
        if (!listNames.isEmpty())
            listLines << QCoreApplication::translate(Context, label.pszLabel) << listNames;
    }
    return listLines;
}

QString GetRoleNames(const UserLogical::DeviceAccess_t& access)
{
    QStringList listNames;
    for (const std::string& sName : access.vecRoleNames)
        listNames.append(QString::fromStdString(sName));
    return listNames.join(QStringLiteral(", "));
}

std::vector<UserLogical::DeviceAccess_t> FindAccess(
    const std::vector<UserLogical::DeviceAccess_t>& vecAccess, const QString& sText)
{
    const QString sKey = sText.trimmed();
    std::vector<UserLogical::DeviceAccess_t> vecFound;
    for (const UserLogical::DeviceAccess_t& access : vecAccess) {
        if (QString::fromStdString(access.sUserName).contains(sKey, Qt::CaseInsensitive)
            || GetRoleNames(access).contains(sKey, Qt::CaseInsensitive))
            vecFound.push_back(access);
    }
    return vecFound;
}

} // namespace ResourceManagerUI
