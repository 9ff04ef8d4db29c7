#include "DiscoveryRules.h"

#include <DeviceEdit/DeviceFormRules.h>
#include <VxGUI/TextInput.h>

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

namespace ResourceManagerUI {

namespace {

struct SearchText
{
    Q_DECLARE_TR_FUNCTIONS(CAutoSearchOnlineDev)
};
struct AddText
{
    Q_DECLARE_TR_FUNCTIONS(CBatchAddDiscoverDeviceDlg)
};
struct InitializeText
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceInitialize)
};
struct ModifyText
{
    Q_DECLARE_TR_FUNCTIONS(CModifyIP)
};

constexpr quint32 MaxRange = 65536;

/// A private or public address of one machine: neither loopback nor given by itself for lack of a server.
bool IsUsable(quint32 nAddress)
{
    return nAddress != 0 && (nAddress >> 24) != 127 && (nAddress >> 16) != 0xA9FE;
}

QString CutName(const QString& sName, const QString& sSuffix)
{
    return VxGUI::CutText(sName, GroupLogical::DeviceName.nMax - sSuffix.size()).trimmed() + sSuffix;
}

/// How many of lower-case letters, upper-case letters, digits and others there are.
int CountClasses(const QString& sPassword)
{
    bool found[4] = {};
    for (const QChar c : sPassword) {
        found[c.isLower() ? 0 : c.isUpper() ? 1 : c.isDigit() ? 2 : 3] = true;
    }
    return int(std::count(std::begin(found), std::end(found), true));
}

} // namespace

QString GetDeviceKey(const RemoteConfigLogical::SearchDeviceInfo_t& device)
{
    return QString::fromStdString(device.sIp) + QLatin1Char(':') + QString::number(device.nPort);
}

QString GetDeviceTitle(const RemoteConfigLogical::SearchDeviceInfo_t& device)
{
    return QString::fromStdString(device.sName.empty() ? device.sIp : device.sName);
}

quint32 ToNumber(const QString& sAddress)
{
    if (!IsIpv4(sAddress))
        return 0;
    quint32 nAddress = 0;
    const auto vecParts = sAddress.splitRef(QLatin1Char('.'));
    for (const QStringRef& sPart : vecParts)
        nAddress = nAddress << 8 | sPart.toUInt();
    return nAddress;
}

QString ToAddress(quint32 nAddress)
{
    return QStringLiteral("%1.%2.%3.%4")
        .arg(nAddress >> 24)
        .arg(nAddress >> 16 & 0xFF)
        .arg(nAddress >> 8 & 0xFF)
        .arg(nAddress & 0xFF);
}

NetworkSection GetLocalNetworkSection(const QStringList& listAddresses)
{
    for (const QString& sAddress : listAddresses) {
        const quint32 nAddress = ToNumber(sAddress);
        if (IsUsable(nAddress))
            return {sAddress, ToAddress(nAddress & 0xFFFFFF00U), ToAddress(nAddress | 0xFFU), true};
    }
    return {
        QStringLiteral("127.0.0.1"), QStringLiteral("192.168.1.1"), QStringLiteral("192.168.1.255"), false};
}

QString GetSectionExpression()
{
    return QStringLiteral("((25[0-5]|2[0-4]\\d|1\\d{2}|[1-9]\\d|\\d)\\.){3}"
                          "(25[0-5]|2[0-4]\\d|1\\d{2}|[1-9]\\d|[1-9])");
}

RangeFailure CheckSearchRange(const QString& sStart, const QString& sEnd)
{
    if (sStart.isEmpty() != sEnd.isEmpty())
        return {RangeFailure::Both, SearchText::tr("IP address must be all empty or not empty!")};
    if (sStart.isEmpty())
        return {};
    const QString sNoAddress = SearchText::tr("Please enter correct IP address.");
    if (!IsIpv4(sStart))
        return {RangeFailure::Start, sNoAddress};
    if (!IsIpv4(sEnd))
        return {RangeFailure::End, sNoAddress};
    if (ToNumber(sStart) > ToNumber(sEnd))
        return {RangeFailure::Both, SearchText::tr("Start ip can not be larger than end ip!")};
    if (ToNumber(sEnd) - ToNumber(sStart) >= MaxRange)
        return {RangeFailure::Both,
            SearchText::tr("The range cannot hold more than %1 addresses.").arg(MaxRange)};
    return {};
}

QStringList MakeDeviceNames(const RemoteConfigLogical::SearchDeviceInfoVec& vecDevices)
{
    static const QRegularExpression s_forbidden(
        QStringLiteral("[%1\\x00-\\x1f\\x7f]")
            .arg(QRegularExpression::escape(QLatin1String(GroupLogical::DeviceName.szForbidden))));
    QStringList listNames;
    QSet<QString> setTaken;
    for (const RemoteConfigLogical::SearchDeviceInfo_t& device : vecDevices) {
        const QString sAddress = QString::fromStdString(device.sIp);
        const auto clean = [](const std::string& sText) {
            return QString::fromStdString(sText).remove(s_forbidden).simplified();
        };
        QString sBase = clean(device.sName);
        if (sBase.isEmpty())
            sBase = CutName(clean(device.sModel), QLatin1Char(' ') + sAddress).trimmed();
        QString sName = CutName(sBase, QString());
        if (setTaken.contains(sName.toLower()))
            sName = CutName(sBase, QLatin1Char(' ') + sAddress);
        for (int n = 2; setTaken.contains(sName.toLower()); ++n)
            sName = CutName(sBase, QStringLiteral(" (%1)").arg(n));
        setTaken.insert(sName.toLower());
        listNames.append(sName);
    }
    return listNames;
}

QStringList CheckDeviceNames(const QStringList& listNames)
{
    QHash<QString, int> mapCounts;
    for (const QString& sName : listNames)
        ++mapCounts[sName.trimmed().toLower()];
    QStringList listMessages;
    for (const QString& sName : listNames) {
        QString sMessage = CheckField(DeviceField::DeviceName, sName.trimmed());
        if (sMessage.isEmpty() && mapCounts[sName.trimmed().toLower()] > 1)
            sMessage = AddText::tr("Another device of the list has this name.");
        listMessages.append(sMessage);
    }
    return listMessages;
}

GroupLogical::ImportRow_t MakeImportRow(const RemoteConfigLogical::SearchDeviceInfo_t& device, int nLine,
    const QString& sName, const QString& sUserName, const QString& sPassword)
{
    GroupLogical::ImportRow_t row;
    row.nLine = nLine;
    row.sName = sName.trimmed().toStdString();
    row.sConnect = std::to_string(GroupLogical::AddByIp);
    row.sAddress = device.sIp;
    row.sPort = std::to_string(device.nPort);
    row.sUserName = sUserName.trimmed().toStdString();
    row.sPassword = sPassword.toStdString();
    if (device.nCategory != 0)
        row.sCategory = std::to_string(device.nCategory);
    row.sProtocol = device.sProtocol;
    row.sManufacturer = device.sManufacturer;
    row.sModel = device.sModel;
    row.sSerialNumber = device.sSerialNumber;
    return row;
}

QString CheckDevicePassword(const QString& sPassword)
{
    if (sPassword.isEmpty())
        return InitializeText::tr("Please enter password.");
    const UICommonMdl::TextRule& rule = RemoteConfigLogical::FirstPassword;
    const std::string password = sPassword.toStdString();
    if (HasForbidden(rule, password))
        return InitializeText::tr(
            "The password can only contain letters, digits and special characters other than , ( ).");
    if (!Holds(rule, password))
        return InitializeText::tr("The password must have %1 to %2 characters.")
            .arg(rule.nMin)
            .arg(rule.nMax);
    if (CountClasses(sPassword) < 2)
        return InitializeText::tr("The password must contain at least two of lower-case letters, upper-case "
                                  "letters, digits and special characters.");
    return {};
}

QString CheckContact(const QString& sContact)
{
    if (sContact.isEmpty() || UICommonMdl::IsMailAddress(sContact.toStdString()))
        return {};
    return InitializeText::tr("Please enter a correct email address.");
}

bool IsMask(const QString& sMask)
{
    const quint32 nHost = ~ToNumber(sMask);
    // The host part is ones to the end: adding one carries through all of it.
    return IsIpv4(sMask) && (nHost & (nHost + 1)) == 0 && nHost >= 3 && nHost < 0x80000000U;
}

QStringList CountAddresses(const QString& sStart, int nCount)
{
    QStringList listAddresses;
    for (int n = 0; n < nCount && IsIpv4(sStart); ++n)
        listAddresses.append(ToAddress(ToNumber(sStart) + quint32(n)));
    return listAddresses;
}

PlanFailure CheckAddressPlan(const AddressPlan& plan)
{
    const QString sStart = plan.listAddresses.value(0);
    const QString sFailure = CheckField(DeviceField::Ip, sStart);
    if (!sFailure.isEmpty())
        return {PlanFailure::Address, sFailure};
    if (!IsMask(plan.sMask))
        return {PlanFailure::Mask, ModifyText::tr("Please enter a correct subnet mask.")};
    const quint32 nMask = ToNumber(plan.sMask);
    const quint32 nNetwork = ToNumber(sStart) & nMask;
    for (int n = 0; n < plan.listAddresses.size(); ++n) {
        const QString& sAddress = plan.listAddresses[n];
        const quint32 nAddress = ToNumber(sAddress);
        if ((nAddress & nMask) != nNetwork || nAddress == nNetwork || nAddress == (nNetwork | ~nMask))
            return {PlanFailure::Address,
                ModifyText::tr("The address %1 cannot be used in this network.").arg(sAddress)};
        const int nHolder = plan.listCurrent.indexOf(sAddress);
        if (plan.setUsed.contains(sAddress) || (nHolder >= 0 && nHolder != n))
            return {PlanFailure::Address,
                ModifyText::tr("The address %1 is used by another device.").arg(sAddress)};
    }
    if (plan.sGateway.isEmpty())
        return {};
    if (!IsIpv4(plan.sGateway) || (ToNumber(plan.sGateway) & nMask) != nNetwork)
        return {PlanFailure::Gateway, ModifyText::tr("The gateway must be an address of the same network.")};
    if (plan.listAddresses.contains(plan.sGateway))
        return {PlanFailure::Gateway, ModifyText::tr("The gateway cannot be one of the new addresses.")};
    return {};
}

} // namespace ResourceManagerUI
