#pragma once

#include <GroupLogical/GroupRecords.h>
#include <RemoteConfigLogical/RemoteConfigRecords.h>

#include <QSet>
#include <QString>
#include <QStringList>

namespace ResourceManagerUI {

/// "address:port": what a found device is known by, also in the answers.
QString GetDeviceKey(const RemoteConfigLogical::SearchDeviceInfo_t& device);
/// Its name, else its address: what messages call it.
QString GetDeviceTitle(const RemoteConfigLogical::SearchDeviceInfo_t& device);

/// An IPv4 address as a number, for comparing; 0 for a text that is none.
quint32 ToNumber(const QString& sAddress);
QString ToAddress(quint32 nAddress);

/// The network that a search proposes.
struct NetworkSection
{
    QString sLocal; ///< the machine's own address
    QString sStart;
    QString sEnd;
    bool bFound = false; ///< false: the machine has no usable address, and the section is a guess
};
/// listAddresses: all IPv4 addresses of the machine.
NetworkSection GetLocalNetworkSection(const QStringList& listAddresses);

/// What the search's fields take while they are typed, as a regular expression: the last part is never 0.
QString GetSectionExpression();
/// What is wrong with a search range.
struct RangeFailure
{
    enum Field
    {
        Both,
        Start,
        End
    };
    Field field = Both;
    QString sMessage; ///< empty: nothing is wrong
};
/// Both empty is right too: the search then goes by multicast.
RangeFailure CheckSearchRange(const QString& sStart, const QString& sEnd);

/// Names for devices that are added: the found name, else model and address; without what a name may not
/// have, not too long, and all different.
QStringList MakeDeviceNames(const RemoteConfigLogical::SearchDeviceInfoVec& vecDevices);
/// A message for each name that cannot stand, empty for the others.
QStringList CheckDeviceNames(const QStringList& listNames);
GroupLogical::ImportRow_t MakeImportRow(const RemoteConfigLogical::SearchDeviceInfo_t& device, int nLine,
    const QString& sName, const QString& sUserName, const QString& sPassword);

/// A device's first password: RemoteConfigLogical::FirstPassword of at least two of lower-case letters,
/// upper-case letters, digits and other characters. Empty when it holds, else the message.
QString CheckDevicePassword(const QString& sPassword);
/// Empty is right: a contact is optional.
QString CheckContact(const QString& sContact);

/// A subnet mask with 1 to 30 leading ones.
bool IsMask(const QString& sMask);
/// nCount addresses counted up from sStart.
QStringList CountAddresses(const QString& sStart, int nCount);
/// New addresses of devices.
struct AddressPlan
{
    QStringList listAddresses;
    QStringList listCurrent; ///< where the devices are now, in the same order
    QString sMask;
    QString sGateway; ///< may be empty
    QSet<QString> setUsed; ///< addresses of other devices
};
struct PlanFailure
{
    enum Field
    {
        Address,
        Mask,
        Gateway
    };
    Field field = Address;
    QString sMessage; ///< empty: nothing is wrong
};
PlanFailure CheckAddressPlan(const AddressPlan& plan);

} // namespace ResourceManagerUI
