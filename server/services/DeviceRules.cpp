#include "DeviceRules.h"

#include "Catalog.h"
#include "TextRules.h"

#include <arpa/inet.h>

#include <algorithm>
#include <initializer_list>

namespace Platform::DeviceRules {

using GroupLogical::DeviceAddInfo_t;

namespace {

bool IsIpv6(const std::string& sAddress)
{
    in6_addr bytes{};
    return inet_pton(AF_INET6, sAddress.c_str(), &bytes) == 1;
}

bool IsOneOf(const std::vector<RemoteConfigLogical::DictionaryItem_t>& vecItems, const std::string& sKey)
{
    return std::any_of(vecItems.begin(), vecItems.end(), [&](const auto& item) { return item.sKey == sKey; });
}

std::string FaultyAddress(const DeviceAddInfo_t& device)
{
    const bool bHasPort = device.nAddMode < GroupLogical::AddByRegister;
    switch (device.nAddMode) {
    case GroupLogical::AddByIp:
        if (!UICommonMdl::IsIpv4(device.sIp) && !IsIpv6(device.sIp))
            return "sIp";
        break;
    case GroupLogical::AddBySegment:
        if (SegmentAddresses(device.sIpStart, device.sIpEnd).empty())
            return "sIpEnd";
        break;
    case GroupLogical::AddByDomain:
        if (!Holds(GroupLogical::DeviceDomain, device.sDomain))
            return "sDomain";
        break;
    case GroupLogical::AddByRegister:
        if (!Holds(GroupLogical::DeviceRegisterId, device.sRegisterId))
            return "sRegisterId";
        break;
    case GroupLogical::AddByP2P:
        if (device.sSerialNumber.empty())
            return "sSerialNumber";
        break;
    default:
        return "nAddMode";
    }
    return bHasPort && !GroupLogical::DevicePort.Allows(device.nPort) ? "nPort" : std::string();
}

std::string FaultyChoice(const DeviceAddInfo_t& device)
{
    const RemoteConfigLogical::Dictionary_t& dictionary = Catalog::Dictionary();
    if (!IsOneOf(dictionary.vecCategories, std::to_string(device.nCategory)))
        return "nCategory";
    if (!IsOneOf(dictionary.vecProtocols, device.sProtocol))
        return "sProtocol";
    if (!IsOneOf(dictionary.vecManufacturers, device.sManufacturer))
        return "sManufacturer";
    if (!device.sDeviceType.empty() && !IsOneOf(dictionary.vecDeviceTypes, device.sDeviceType))
        return "sDeviceType";
    if (!device.sSeries.empty() && !IsOneOf(dictionary.vecSeries, device.sSeries))
        return "sSeries";
    if (!device.sServerId.empty()
        && std::none_of(Catalog::VideoServers().begin(), Catalog::VideoServers().end(),
            [&](const auto& server) { return server.sServerId == device.sServerId; }))
        return "sServerId";
    if (device.nLedType != 0
        && (device.nLedType < GroupLogical::LedFreeParking || device.nLedType > GroupLogical::LedCharge))
        return "nLedType";
    return device.nAccessDirection < 0 || device.nAccessDirection > 3 ? "nAccessDirection" : std::string();
}

std::string FaultyCount(const DeviceAddInfo_t& device)
{
    const std::initializer_list<std::pair<const char*, int>> counts{{"nVideoChannels", device.nVideoChannels},
        {"nAlarmInputs", device.nAlarmInputs}, {"nAlarmOutputs", device.nAlarmOutputs},
        {"nAccessChannels", device.nAccessChannels}, {"nDecodeChannels", device.nDecodeChannels},
        {"nLifts", device.nLifts}, {"nLiftFloors", device.nLiftFloors},
        {"nPosChannels", device.nPosChannels}};
    for (const auto& [szName, nCount] : counts)
        if (!GroupLogical::DeviceCount.Allows(nCount))
            return szName;
    return {};
}

} // namespace

const std::string& AddressOf(const DeviceAddInfo_t& device)
{
    return device.nAddMode == GroupLogical::AddByDomain ? device.sDomain : device.sIp;
}

const char* AddressField(const DeviceAddInfo_t& device)
{
    return device.nAddMode == GroupLogical::AddByDomain ? "sDomain" : "sIp";
}

std::vector<std::string> SegmentAddresses(const std::string& sStart, const std::string& sEnd)
{
    if (!UICommonMdl::IsIpv4(sStart) || !UICommonMdl::IsIpv4(sEnd))
        return {};
    const std::string sHead = sStart.substr(0, sStart.rfind('.') + 1);
    const int nFirst = std::stoi(sStart.substr(sHead.size()));
    const int nLast = std::stoi(sEnd.substr(sEnd.rfind('.') + 1));
    if (sEnd.rfind(sHead, 0) != 0 || sEnd.find('.', sHead.size()) != std::string::npos || nLast <= nFirst)
        return {};
    std::vector<std::string> vecAddresses;
    for (int n = nFirst; n <= nLast; ++n)
        vecAddresses.push_back(sHead + std::to_string(n));
    return vecAddresses;
}

DeviceAddInfo_t Cleaned(DeviceAddInfo_t device)
{
    for (std::string* pText : {&device.sName, &device.sIp, &device.sDomain, &device.sRegisterId,
             &device.sModel, &device.sSerialNumber, &device.sSipId})
        *pText = Trimmed(*pText);
    const int nMode = device.nAddMode;
    if (nMode != GroupLogical::AddByIp)
        device.sIp.clear();
    if (nMode != GroupLogical::AddBySegment)
        device.sIpStart = device.sIpEnd = {};
    if (nMode != GroupLogical::AddByDomain)
        device.sDomain.clear();
    if (nMode != GroupLogical::AddByRegister)
        device.sRegisterId.clear();
    if (nMode >= GroupLogical::AddByRegister)
        device.nPort = 0;
    return device;
}

std::string FaultyField(const DeviceAddInfo_t& device, Secrets secrets)
{
    if (!Holds(GroupLogical::DeviceName, device.sName))
        return "sName";
    if (std::string sField = FaultyAddress(device); !sField.empty())
        return sField;
    if (!Holds(GroupLogical::DeviceUserName, device.sUserName))
        return "sUserName";
    if (!HoldsIfFilled(GroupLogical::DevicePassword, device.sPassword)
        || (secrets == Secrets::Required && device.sPassword.empty()))
        return "sPassword";
    if (!Holds(GroupLogical::DeviceModel, device.sModel))
        return "sModel";
    if (!HoldsIfFilled(GroupLogical::DeviceSerialNumber, device.sSerialNumber))
        return "sSerialNumber";
    if (!Holds(GroupLogical::DeviceSipId, device.sSipId))
        return "sSipId";
    if (!Holds(GroupLogical::DeviceSipPassword, device.sSipPassword))
        return "sSipPassword";
    if (!Holds(GroupLogical::DeviceRemark, device.sRemark))
        return "sRemark";
    if (std::string sField = FaultyChoice(device); !sField.empty())
        return sField;
    return FaultyCount(device);
}

} // namespace Platform::DeviceRules
