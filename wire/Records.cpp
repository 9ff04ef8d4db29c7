#define WIRE_DEFINE_RECORDS
#include <wire/Records.h>

#include <algorithm>

namespace wire {

void AppendJson(std::string& sJson, const std::string& sText)
{
    static constexpr char Digits[] = "0123456789abcdef";
    sJson += '"';
    for (const char c : sText) {
        if (c == '"' || c == '\\') {
            sJson += '\\';
            sJson += c;
        } else if (static_cast<unsigned char>(c) < ' ') {
            sJson += "\\u00";
            sJson += Digits[c >> 4];
            sJson += Digits[c & 0x0F];
        } else {
            sJson += c;
        }
    }
    sJson += '"';
}

std::string ClashText(const std::vector<AccessControlLogical::PersonClash_t>& vecClashes)
{
    std::string sText;
    for (const AccessControlLogical::PersonClash_t& clash : vecClashes)
        sText += std::to_string(clash.nKind) + ':' + clash.sValue + '\n';
    return sText;
}

std::vector<AccessControlLogical::PersonClash_t> ClashesOf(const std::string& sText)
{
    std::vector<AccessControlLogical::PersonClash_t> vecClashes;
    for (std::size_t nFrom = 0; nFrom < sText.size();) {
        const std::size_t nEnd = std::min(sText.find('\n', nFrom), sText.size());
        if (nEnd - nFrom >= 2 && sText[nFrom + 1] == ':')
            vecClashes.push_back({sText[nFrom] - '0', sText.substr(nFrom + 2, nEnd - nFrom - 2)});
        nFrom = nEnd + 1;
    }
    return vecClashes;
}

} // namespace wire
