#pragma once

#include <GroupLogical/GroupRecords.h>

#include <QString>
#include <QVector>

namespace ResourceManagerUI {

/// The texts of a device form that have rules of their own.
enum class DeviceField
{
    Ip,
    SerialNumber,
    Domain,
    RegisterId,
    Port,
    UserName,
    Password,
    DeviceName,
    Model,
    SipId,
    SipPassword
};

/// One check of a field. Checks of a field run in their order; the first that fails is told.
struct FieldCheck
{
    enum Kind
    {
        Required, ///< blanks alone count as empty
        Limit,
        Forbidden,
        Address, ///< an IPv4 address
        Port
    };
    Kind kind;
    UICommonMdl::TextRule rule; ///< of a limit and of what is forbidden
    QString sMessage; ///< translated; "%1" of a limit is its number
};

QVector<FieldCheck> GetFieldChecks(DeviceField field);
/// Message of the first check that fails; empty when all hold.
QString CheckField(DeviceField field, const QString& sText);

/// A whole IPv4 address of four parts.
bool IsIpv4(const QString& sText);
/// What an address field takes while it is typed, as a regular expression.
QString GetIpExpression();
/// What a serial number is made of, as a regular expression.
QString GetSerialNumberExpression();

/// What is wrong with the two addresses of a segment, and with which of them.
struct SegmentFailure
{
    bool bEnd = false; ///< the end's field tells it
    QString sMessage; ///< empty: nothing is wrong
};
SegmentFailure CheckSegment(const QString& sStart, const QString& sEnd);
/// Addresses of a segment whose check holds.
int GetSegmentSize(const QString& sStart, const QString& sEnd);
/// The server appends a blank and the address to the name of a segment's devices: what a name has room for
/// then.
UICommonMdl::TextRule GetSegmentNameRule(const QString& sEnd);

/// Port that a form starts with for the number of an access protocol.
int GetDefaultPort(int nProtocolCode);

/// Which rows an add mode has.
struct ModeFields
{
    bool bIp = false;
    bool bSerialNumber = false;
    bool bSegment = false;
    bool bDomain = false;
    bool bRegisterId = false;
    bool bPort = false;
};
ModeFields GetModeFields(int nAddMode);

/// Which rows a device category has.
struct CategoryFields
{
    bool bVideo = false;
    bool bAlarmInput = false;
    bool bZone = false; ///< the alarm inputs are called zones
    bool bAlarmOutput = false;
    bool bAccess = false;
    bool bDecode = false;
    bool bLift = false; ///< lifts and their floors
    bool bPos = false;
    bool bCombine = false;
    bool bSip = false;
    bool bLed = false;
    QVector<int> vecDirections; ///< access directions to choose from; empty: none

    bool HasCounts() const
    {
        return bVideo || bAlarmInput || bAlarmOutput || bAccess || bDecode || bLift || bPos;
    }
};
CategoryFields GetCategoryFields(int nCategory);

/// The record of a form: what the add mode and the category do not have is taken from the record that was
/// loaded as long as the mode or the category is the same, and left empty else. What no form shows stays as
/// it was loaded.
GroupLogical::DeviceAddInfo_t BuildRecord(
    const GroupLogical::DeviceAddInfo_t& form, const GroupLogical::DeviceAddInfo_t& loaded);

} // namespace ResourceManagerUI
