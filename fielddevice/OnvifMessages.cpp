#include "OnvifMessages.h"

#include <arpa/inet.h>

#include <bit>
#include <charconv>
#include <ctime>

namespace FieldDevice::OnvifMessages {

namespace {

namespace SoapXml = Platform::SoapXml;
constexpr const char* SoapType = "application/soap+xml; charset=utf-8";
constexpr const char* ErrorPrefix = R"(<s:Subcode xmlns:ter="http://www.onvif.org/ver10/error"><s:Value>)";

std::string Element(const std::string& sName, const std::string& sContent)
{
    return '<' + sName + '>' + sContent + "</" + sName + '>';
}

std::string TextElement(const std::string& sName, const std::string& sText)
{
    return Element(sName, SoapXml::Escape(sText));
}

std::string Number(const std::string& sName, int nNumber)
{
    return TextElement(sName, std::to_string(nNumber));
}

int PrefixLength(const std::string& sMask)
{
    in_addr mask{};
    inet_pton(AF_INET, sMask.c_str(), &mask);
    return std::countl_one(static_cast<std::uint32_t>(ntohl(mask.s_addr)));
}

} // namespace

Answer Reply(const pugi::xml_node& call, const std::string& sContent)
{
    const std::string sPrefix = SoapXml::Namespace(call).ends_with("media/wsdl") ? "trt:" : "tds:";
    const std::string sName = sPrefix + std::string(SoapXml::LocalName(call.name())) + "Response";
    return {200, SoapXml::Envelope({}, Element(sName, sContent)), SoapType};
}

Answer Fault(const char* szCode, const char* szSubcode, const std::string& sReason)
{
    const int nStatus = std::string_view(szCode) == "s:Sender" ? 400 : 500;
    return {nStatus,
        SoapXml::Envelope({},
            Element("s:Fault",
                Element("s:Code",
                    TextElement("s:Value", szCode) + ErrorPrefix + szSubcode + "</s:Value></s:Subcode>")
                    + Element(
                        "s:Reason", R"(<s:Text xml:lang="en">)" + SoapXml::Escape(sReason) + "</s:Text>"))),
        SoapType};
}

std::string SystemTime(std::int64_t nTime, const std::string& sTimeZone)
{
    const std::time_t nSeconds = nTime;
    std::tm parts{};
    gmtime_r(&nSeconds, &parts);
    return Element("tds:SystemDateAndTime",
        "<tt:DateTimeType>Manual</tt:DateTimeType><tt:DaylightSavings>false</tt:DaylightSavings>"
            + Element("tt:TimeZone", TextElement("tt:TZ", sTimeZone))
            + Element("tt:UTCDateTime",
                Element("tt:Time",
                    Number("tt:Hour", parts.tm_hour) + Number("tt:Minute", parts.tm_min)
                        + Number("tt:Second", parts.tm_sec))
                    + Element("tt:Date",
                        Number("tt:Year", parts.tm_year + 1900) + Number("tt:Month", parts.tm_mon + 1)
                            + Number("tt:Day", parts.tm_mday))));
}

std::string Information(const DeviceSpec& spec)
{
    return TextElement("tds:Manufacturer", spec.manufacturer) + TextElement("tds:Model", spec.model)
        + TextElement("tds:FirmwareVersion", "1.0") + TextElement("tds:SerialNumber", spec.serial)
        + TextElement("tds:HardwareId", spec.model);
}

std::string Capabilities(const DeviceSpec& spec, const std::string& sDeviceUrl, const std::string& sMediaUrl)
{
    const std::string sConnectors = Number("tt:InputConnectors", spec.channels.alarm_inputs)
        + Number("tt:RelayOutputs", spec.channels.alarm_outputs);
    const std::string sMedia =
        spec.channels.video > 0 ? Element("tt:Media", TextElement("tt:XAddr", sMediaUrl)) : std::string();
    return Element("tds:Capabilities",
        Element("tt:Device", TextElement("tt:XAddr", sDeviceUrl) + Element("tt:IO", sConnectors)) + sMedia);
}

std::string NetworkInterface(const DeviceSpec& spec, const DeviceState& state)
{
    const std::string sManual = Element("tt:Manual",
        TextElement("tt:Address", state.address) + Number("tt:PrefixLength", PrefixLength(state.mask)));
    std::string sInterface = R"(<tds:NetworkInterfaces token=")";
    sInterface.append(InterfaceToken).append(R"("><tt:Enabled>true</tt:Enabled>)");
    sInterface +=
        Element("tt:Info", TextElement("tt:Name", InterfaceToken) + TextElement("tt:HwAddress", spec.mac));
    sInterface += Element("tt:IPv4",
        "<tt:Enabled>true</tt:Enabled>" + Element("tt:Config", sManual + "<tt:DHCP>false</tt:DHCP>"));
    return sInterface + "</tds:NetworkInterfaces>";
}

std::string Profiles(int nSources)
{
    std::string sProfiles;
    for (int i = 0; i < 2 * nSources; ++i) {
        const std::string sSource = std::to_string(i / 2);
        const std::string sNumber = std::to_string(i);
        sProfiles += R"(<trt:Profiles token="profile)" + sNumber + R"(" fixed="true"><tt:Name>Profile )"
            + sNumber + R"(</tt:Name><tt:VideoSourceConfiguration token="config)" + sSource
            + R"("><tt:Name>Config</tt:Name><tt:UseCount>2</tt:UseCount>)"
            + TextElement("tt:SourceToken", "source" + sSource)
            + "</tt:VideoSourceConfiguration></trt:Profiles>";
    }
    return sProfiles;
}

std::string MaskOf(const std::string& sPrefixLength)
{
    int nLength = 0;
    std::from_chars(sPrefixLength.data(), sPrefixLength.data() + sPrefixLength.size(), nLength);
    if (nLength < 1 || nLength > 32)
        return {};
    const in_addr mask{htonl(~std::uint32_t{0} << static_cast<unsigned>(32 - nLength))};
    char buffer[INET_ADDRSTRLEN];
    return inet_ntop(AF_INET, &mask, buffer, sizeof(buffer));
}

} // namespace FieldDevice::OnvifMessages
