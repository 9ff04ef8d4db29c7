#include "ImportRules.h"

#include "services/Catalog.h"
#include "services/DeviceRules.h"
#include "services/TextRules.h"

#include <UICommonMdl/ErrorCodes.h>

#include <charconv>
#include <optional>

namespace Platform::ImportRules {

using GroupLogical::DeviceAddInfo_t;
using GroupLogical::ImportRow_t;

namespace {

constexpr const char* DefaultCategory = "1";
constexpr const char* DefaultProtocol = "Private";
constexpr const char* DefaultManufacturer = "Other";

/// nullopt unless the whole text is a number.
std::optional<int> ToNumber(const std::string& sText)
{
    const std::string sTrimmed = Trimmed(sText);
    int nValue = 0;
    const char* const pEnd = sTrimmed.data() + sTrimmed.size();
    const auto [pStop, fault] = std::from_chars(sTrimmed.data(), pEnd, nValue);
    if (fault != std::errc() || pStop != pEnd)
        return std::nullopt;
    return nValue;
}

/// Key of the dictionary item whose key or text that is, whatever its case; empty: there is none.
std::string KeyOf(const std::vector<RemoteConfigLogical::DictionaryItem_t>& vecItems,
    const std::string& sText, const char* szDefault)
{
    const std::string sFolded = FoldCase(Trimmed(sText));
    if (sFolded.empty())
        return szDefault;
    for (const auto& item : vecItems)
        if (FoldCase(item.sKey) == sFolded || FoldCase(item.sText) == sFolded)
            return item.sKey;
    return {};
}

/// Puts the row's texts into the record; answers the first field whose text means nothing.
std::string Fill(const ImportRow_t& row, DeviceAddInfo_t& device)
{
    const auto& dictionary = Catalog::Dictionary();
    const std::optional<int> optMode =
        Trimmed(row.sConnect).empty() ? GroupLogical::AddByIp : ToNumber(row.sConnect);
    const std::optional<int> optPort = Trimmed(row.sPort).empty() ? 0 : ToNumber(row.sPort);
    device.sName = row.sName;
    device.sIp = row.sAddress;
    device.sDomain = row.sDomain;
    device.sRegisterId = row.sRegisterId;
    device.sUserName = row.sUserName;
    device.sPassword = row.sPassword;
    device.sModel = row.sModel;
    device.sSerialNumber = row.sSerialNumber;
    const std::string sCategory = KeyOf(dictionary.vecCategories, row.sCategory, DefaultCategory);
    device.sProtocol = KeyOf(dictionary.vecProtocols, row.sProtocol, DefaultProtocol);
    device.sManufacturer = KeyOf(dictionary.vecManufacturers, row.sManufacturer, DefaultManufacturer);
    device.nAddMode = optMode.value_or(0);
    device.nPort = optPort.value_or(-1);
    device.nCategory = sCategory.empty() ? 0 : std::stoi(sCategory);
    if (!optMode || device.nAddMode == GroupLogical::AddBySegment)
        return "nAddMode";
    return !optPort && device.nAddMode < GroupLogical::AddByRegister ? "nPort" : std::string();
}

} // namespace

void OrganizationNames::Add(const std::string& sCode, const std::string& sName)
{
    m_mapCodes[sCode] = sCode;
    const auto [it, bNew] = m_mapNames.try_emplace(FoldCase(sName), sCode);
    if (!bNew)
        it->second.clear();
}

std::string OrganizationNames::Find(const std::string& sText) const
{
    const auto itName = m_mapNames.find(FoldCase(sText));
    if (itName != m_mapNames.end() && !itName->second.empty())
        return itName->second;
    const auto itCode = m_mapCodes.find(sText);
    return itCode == m_mapCodes.end() ? std::string() : itCode->second;
}

Converted Convert(const ImportRow_t& row, const std::string& sSource, const std::string& sOrgCode,
    const OrganizationNames& organizations)
{
    Converted result;
    DeviceAddInfo_t& device = result.device;
    result.sField = Fill(row, device);
    const std::string sOrganization = Trimmed(row.sOrganization);
    device.sOrgCode = organizations.Find(sOrganization.empty() ? sOrgCode : sOrganization);
    device.nVersion = 1;
    device = DeviceRules::Cleaned(device);
    if (result.sField.empty())
        result.sField = DeviceRules::FaultyField(
            device, sSource == "p2p" ? DeviceRules::Secrets::Optional : DeviceRules::Secrets::Required);
    if (!result.sField.empty()) {
        result.nErrorCode = UICommonMdl::ErrorInvalidInput;
    } else if (device.sOrgCode.empty()) {
        result.sField = "sOrgCode";
        result.nErrorCode = UICommonMdl::ErrorNotFound;
    }
    return result;
}

std::string FieldHeading(const std::string& sField)
{
    static const std::unordered_map<std::string, std::string> s_mapHeadings{{"sName", "Device Name"},
        {"nAddMode", "Connect"}, {"sIp", "IP Address"}, {"sDomain", "Domain"}, {"nPort", "Port"},
        {"sUserName", "User Name"}, {"sPassword", "Password"}, {"nCategory", "Category"},
        {"sProtocol", "Protocol"}, {"sManufacturer", "Manufacturer"}, {"sModel", "Device Model"},
        {"sSerialNumber", "SN"}, {"sRegisterId", "Register ID"}, {"sOrgCode", "Organization"}};
    const auto it = s_mapHeadings.find(sField);
    return it == s_mapHeadings.end() ? sField : it->second;
}

const std::string& AddressOf(const ImportRow_t& row)
{
    for (const std::string* pText : {&row.sAddress, &row.sDomain, &row.sSerialNumber})
        if (!pText->empty())
            return *pText;
    return row.sRegisterId;
}

std::pair<int, std::string> DuplicateFinder::Add(const DeviceAddInfo_t& device, int nLine)
{
    // Keys of all four kinds live in one map; the first character tells them apart.
    std::vector<std::pair<std::string, std::string>> vecKeys{{'n' + FoldCase(device.sName), "sName"}};
    const std::string& sAddress = DeviceRules::AddressOf(device);
    if (!sAddress.empty())
        vecKeys.emplace_back('a' + AddressSortKey(sAddress) + ':' + std::to_string(device.nPort),
            DeviceRules::AddressField(device));
    if (!device.sRegisterId.empty())
        vecKeys.emplace_back('r' + device.sRegisterId, "sRegisterId");
    if (device.nAddMode == GroupLogical::AddByP2P)
        vecKeys.emplace_back('s' + device.sSerialNumber, "sSerialNumber");
    for (const auto& [sKey, sField] : vecKeys)
        if (const auto it = m_mapLines.find(sKey); it != m_mapLines.end())
            return {it->second, sField};
    for (auto& [sKey, sField] : vecKeys)
        m_mapLines.emplace(std::move(sKey), nLine);
    return {0, {}};
}

} // namespace Platform::ImportRules
