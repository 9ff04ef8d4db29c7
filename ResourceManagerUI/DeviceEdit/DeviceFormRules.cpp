#include "DeviceFormRules.h"

#include <RemoteConfigLogical/RemoteConfigRecords.h>
#include <common/DeviceCategory.h>

#include <QCoreApplication>
#include <QRegularExpression>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevAdd)
};

constexpr int DefaultPort = 37777;
constexpr int OnvifPort = 80;

enum Category : int
{
    Encoder = 1,
    Decoder = 2,
    AlarmPanel = 3,
    TvWall = 4,
    Anpr = 5,
    Matrix = 6,
    Intelligent = 7,
    AccessControl = 8,
    Led = 16,
    Intercom = 21,
    Emergency = 34,
    Pos = 40,
    Radar = 43,
    VideoWallControl = 45,
};

using UICommonMdl::TextRule;

FieldCheck Required(const QString& sMessage)
{
    return {FieldCheck::Required, {}, sMessage};
}

FieldCheck Limit(const TextRule& rule, const QString& sMessage)
{
    return {FieldCheck::Limit, rule, sMessage};
}

FieldCheck Forbidden(const TextRule& rule, const QString& sMessage)
{
    return {FieldCheck::Forbidden, rule, sMessage};
}

FieldCheck WithoutBrackets(const TextRule& rule)
{
    return Forbidden(rule, Text::tr("Special characters < and > are not allowed."));
}

QVector<FieldCheck> GetLoginChecks(DeviceField field)
{
    using namespace GroupLogical;
    if (field == DeviceField::UserName)
        return {Required(Text::tr("Please enter user name.")), WithoutBrackets(DeviceUserName),
            Limit(DeviceUserName, Text::tr("The user name cannot exceed %1 characters."))};
    return {Required(Text::tr("Please enter password.")),
        Forbidden(DevicePassword, Text::tr("Special characters including , ( ) are not allowed.")),
        Limit(DevicePassword, Text::tr("The password cannot exceed %1 characters."))};
}

QVector<FieldCheck> GetDescriptionChecks(DeviceField field)
{
    using namespace GroupLogical;
    if (field == DeviceField::DeviceName)
        return {Required(Text::tr("Device name cannot be empty!")),
            Forbidden(GroupLogical::DeviceName,
                Text::tr("Device name cannot contain special characters \\ / : * ? \" < > |.")),
            Limit(GroupLogical::DeviceName, Text::tr("The device name cannot exceed %1 characters."))};
    if (field == DeviceField::Model)
        return {WithoutBrackets(DeviceModel),
            Limit(DeviceModel, Text::tr("The device model cannot exceed %1 characters."))};
    if (field == DeviceField::SipId)
        return {Limit(DeviceSipId, Text::tr("The SIP ID cannot exceed %1 characters.")),
            WithoutBrackets(DeviceSipId)};
    return {Limit(DeviceSipPassword, Text::tr("The SIP password cannot exceed %1 characters.")),
        WithoutBrackets(DeviceSipPassword)};
}

bool Holds(const FieldCheck& check, const QString& sText)
{
    const std::string text = sText.toStdString();
    switch (check.kind) {
    case FieldCheck::Required:
        return !sText.trimmed().isEmpty();
    case FieldCheck::Limit:
        return !IsTooLong(check.rule, text);
    case FieldCheck::Forbidden:
        return !HasForbidden(check.rule, text);
    case FieldCheck::Address:
        return UICommonMdl::IsIpv4(text);
    case FieldCheck::Port:
        return UICommonMdl::IsNumber(GroupLogical::DevicePort, text);
    }
    return false;
}

/// The first three parts and the last one of an address, as far as it goes.
std::pair<QString, int> SplitAddress(const QString& sText)
{
    return {sText.section(QLatin1Char('.'), 0, 2), sText.section(QLatin1Char('.'), 3).toInt()};
}

} // namespace

QVector<FieldCheck> GetFieldChecks(DeviceField field)
{
    using namespace GroupLogical;
    switch (field) {
    case DeviceField::Ip:
        return {Required(Text::tr("IP can not be empty!")),
            {FieldCheck::Address, {}, Text::tr("IP address is illegal.")}};
    case DeviceField::SerialNumber:
        return {Required(Text::tr("SN can not be empty!")),
            Limit(DeviceSerialNumber, Text::tr("The sn cannot exceed %1 characters.")),
            Forbidden(DeviceSerialNumber, Text::tr("The sn can only contain letters, digits and . _ : -"))};
    case DeviceField::Domain:
        return {Required(Text::tr("Domain name can not be null.")),
            Limit(DeviceDomain, Text::tr("The domain name cannot exceed %1 characters.")),
            WithoutBrackets(DeviceDomain)};
    case DeviceField::RegisterId:
        return {Required(Text::tr("Register ID can not be empty!")),
            Limit(DeviceRegisterId, Text::tr("The register id cannot exceed %1 characters.")),
            WithoutBrackets(DeviceRegisterId)};
    case DeviceField::Port:
        return {Required(Text::tr("Device's port can not be empty!")),
            {FieldCheck::Port, {},
                Text::tr("Port no. cannot be over") + QLatin1Char(' ') + QString::number(DevicePort.nMax)}};
    case DeviceField::UserName:
    case DeviceField::Password:
        return GetLoginChecks(field);
    default:
        return GetDescriptionChecks(field);
    }
}

QString CheckField(DeviceField field, const QString& sText)
{
    for (const FieldCheck& check : GetFieldChecks(field)) {
        if (!Holds(check, sText))
            return QString(check.sMessage).replace(QLatin1String("%1"), QString::number(check.rule.nMax));
    }
    return {};
}

bool IsIpv4(const QString& sText)
{
    return UICommonMdl::IsIpv4(sText.toStdString());
}

QString GetIpExpression()
{
    return QStringLiteral(
        "^((25[0-5])|(2[0-4]\\d)|(1\\d\\d)|([1-9]\\d)|\\d)(\\.((25[0-5])|(2[0-4]\\d)|(1\\d\\d)|([1-9]"
        "\\d)|\\d)){3}$");
}

QString GetSerialNumberExpression()
{
    return QStringLiteral("[%1]*").arg(
        QRegularExpression::escape(QLatin1String(GroupLogical::DeviceSerialNumber.szAllowed)));
}

SegmentFailure CheckSegment(const QString& sStart, const QString& sEnd)
{
    if (sStart.isEmpty())
        return {false, Text::tr("Please enter start IP.")};
    if (sEnd.isEmpty())
        return {true, Text::tr("Please enter end IP.")};
    if (!CheckField(DeviceField::Ip, sStart).isEmpty())
        return {false, Text::tr("Invalid start IP.")};
    const auto [sStartNetwork, nStart] = SplitAddress(sStart);
    const auto [sEndNetwork, nEnd] = SplitAddress(sEnd);
    if (sStartNetwork != sEndNetwork)
        return {
            true, Text::tr("The first three parts of the end IP must be the same as that of the start IP.")};
    if (nEnd <= nStart)
        return {true, Text::tr("End IP cannot be smaller than or equal to start IP.")};
    if (!CheckField(DeviceField::Ip, sEnd).isEmpty())
        return {true, Text::tr("Invalid end IP.")};
    return {};
}

int GetSegmentSize(const QString& sStart, const QString& sEnd)
{
    return SplitAddress(sEnd).second - SplitAddress(sStart).second + 1;
}

UICommonMdl::TextRule GetSegmentNameRule(const QString& sEnd)
{
    TextRule rule = GroupLogical::DeviceName;
    rule.nMax -= 1 + sEnd.size();
    return rule;
}

int GetDefaultPort(int nProtocolCode)
{
    return nProtocolCode == RemoteConfigLogical::ProtocolOnvif ? OnvifPort : DefaultPort;
}

ModeFields GetModeFields(int nAddMode)
{
    ModeFields fields;
    fields.bIp = nAddMode == GroupLogical::AddByIp;
    fields.bSerialNumber = nAddMode == GroupLogical::AddByP2P;
    fields.bSegment = nAddMode == GroupLogical::AddBySegment;
    fields.bDomain = nAddMode == GroupLogical::AddByDomain;
    fields.bRegisterId = nAddMode == GroupLogical::AddByRegister;
    fields.bPort = fields.bIp || fields.bSegment || fields.bDomain;
    return fields;
}

CategoryFields GetCategoryFields(int nCategory)
{
    CategoryFields fields;
    fields.bVideo = nCategory != Decoder && nCategory != AlarmPanel && nCategory != TvWall
        && nCategory != AccessControl && nCategory != Led && nCategory != Pos
        && nCategory != Common::CategoryLiftController;
    fields.bZone = nCategory == AlarmPanel;
    fields.bAccess = nCategory == AccessControl || nCategory == Intercom;
    fields.bAlarmOutput = (fields.bVideo && nCategory != Matrix && nCategory != VideoWallControl)
        || nCategory == AlarmPanel || nCategory == AccessControl;
    fields.bAlarmInput = fields.bAlarmOutput;
    fields.bCombine = nCategory == Decoder || nCategory == TvWall;
    fields.bDecode = fields.bCombine || nCategory == Matrix || nCategory == VideoWallControl;
    fields.bLift = nCategory == Common::CategoryLiftController;
    fields.bPos = nCategory == Pos;
    fields.bSip = nCategory == VideoWallControl || nCategory == Intercom;
    fields.bLed = nCategory == Led;
    if (nCategory == VideoWallControl)
        fields.vecDirections = {1, 2};
    else if (nCategory == Encoder)
        fields.vecDirections = {0, 1, 2, 3};
    return fields;
}

GroupLogical::DeviceAddInfo_t BuildRecord(
    const GroupLogical::DeviceAddInfo_t& form, const GroupLogical::DeviceAddInfo_t& loaded)
{
    GroupLogical::DeviceAddInfo_t record = form;
    record.sDeviceId = loaded.sDeviceId;
    record.sRemark = loaded.sRemark;
    record.nVersion = loaded.nVersion;

    const ModeFields mode = GetModeFields(form.nAddMode);
    const auto keepText = [](bool bKeep, std::string& sText) {
        if (!bKeep)
            sText.clear();
    };
    keepText(mode.bIp, record.sIp);
    // Devices of other modes can have one too, from where they were found; it is not theirs to edit.
    if (!mode.bSerialNumber)
        record.sSerialNumber = loaded.sSerialNumber;
    keepText(mode.bSegment, record.sIpStart);
    keepText(mode.bSegment, record.sIpEnd);
    keepText(mode.bDomain, record.sDomain);
    keepText(mode.bRegisterId, record.sRegisterId);
    if (!mode.bPort)
        record.nPort = 0;

    const GroupLogical::DeviceAddInfo_t empty;
    const GroupLogical::DeviceAddInfo_t& hidden = form.nCategory == loaded.nCategory ? loaded : empty;
    const CategoryFields category = GetCategoryFields(form.nCategory);
    const auto keep = [&](bool bShown, auto member) {
        if (!bShown)
            record.*member = hidden.*member;
    };
    using Record = GroupLogical::DeviceAddInfo_t;
    keep(category.bVideo, &Record::nVideoChannels);
    keep(category.bAlarmInput, &Record::nAlarmInputs);
    keep(category.bAlarmOutput, &Record::nAlarmOutputs);
    keep(category.bAccess, &Record::nAccessChannels);
    keep(category.bDecode, &Record::nDecodeChannels);
    keep(category.bLift, &Record::nLifts);
    keep(category.bLift, &Record::nLiftFloors);
    keep(category.bPos, &Record::nPosChannels);
    keep(category.bCombine, &Record::bCombine);
    keep(category.bSip, &Record::sSipId);
    keep(category.bLed, &Record::nLedType);
    keep(!category.vecDirections.isEmpty(), &Record::nAccessDirection);
    if (!category.bSip)
        record.sSipPassword.clear();
    return record;
}

} // namespace ResourceManagerUI
