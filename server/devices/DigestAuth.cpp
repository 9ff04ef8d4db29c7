#include "DigestAuth.h"

#include "Crypto.h"

#include <algorithm>
#include <cctype>

namespace Platform::DigestAuth {

namespace {

constexpr std::string_view Scheme = "digest";
constexpr std::string_view SessionSuffix = "-sess";

std::string Lower(std::string_view sText)
{
    std::string sLower(sText);
    std::transform(sLower.begin(), sLower.end(), sLower.begin(),
        [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return sLower;
}

/// In quotation marks. Control characters would break out of the header.
std::string Quoted(const std::string& sText)
{
    std::string sQuoted = "\"";
    for (const char c : sText) {
        if (c == '"' || c == '\\')
            sQuoted += '\\';
        if (std::iscntrl(static_cast<unsigned char>(c)) == 0)
            sQuoted += c;
    }
    return sQuoted + '"';
}

/// Walks over the text of a header.
class Reader
{
public:
    explicit Reader(std::string_view sText)
        : m_sText(sText)
    {
    }

    bool AtEnd() const { return m_sText.empty(); }
    void Skip(std::string_view sAnyOf)
    {
        m_sText.remove_prefix(std::min(m_sText.find_first_not_of(sAnyOf), m_sText.size()));
    }
    bool Take(char c)
    {
        if (m_sText.empty() || m_sText.front() != c)
            return false;
        m_sText.remove_prefix(1);
        return true;
    }
    std::string Token()
    {
        const std::size_t nSize = std::min(m_sText.find_first_of(" \t,="), m_sText.size());
        std::string sToken(m_sText.substr(0, nSize));
        m_sText.remove_prefix(nSize);
        return sToken;
    }
    /// After the opening mark; nullopt when there is no closing one.
    std::optional<std::string> RestOfQuoted()
    {
        std::string sText;
        for (std::size_t i = 0; i < m_sText.size(); ++i) {
            if (m_sText[i] == '"') {
                m_sText.remove_prefix(i + 1);
                return sText;
            }
            if (m_sText[i] == '\\' && i + 1 < m_sText.size())
                ++i;
            sText += m_sText[i];
        }
        return std::nullopt;
    }

private:
    std::string_view m_sText;
};

bool Offers(const std::string& sQop, std::string_view sKind)
{
    Reader reader(sQop);
    for (reader.Skip(" ,"); !reader.AtEnd(); reader.Skip(" ,=")) {
        if (Lower(reader.Token()) == sKind)
            return true;
    }
    return false;
}

} // namespace

std::optional<std::map<std::string, std::string>> ReadFields(std::string_view sHeader)
{
    Reader reader(sHeader);
    reader.Skip(" \t");
    if (Lower(reader.Token()) != Scheme)
        return std::nullopt;
    std::map<std::string, std::string> mapFields;
    for (reader.Skip(" \t,"); !reader.AtEnd(); reader.Skip(" \t,")) {
        const std::string sKey = Lower(reader.Token());
        reader.Skip(" \t");
        if (sKey.empty() || !reader.Take('='))
            return std::nullopt;
        reader.Skip(" \t");
        const auto optValue = reader.Take('"') ? reader.RestOfQuoted() : reader.Token();
        if (!optValue)
            return std::nullopt;
        mapFields.try_emplace(sKey, *optValue);
    }
    return mapFields;
}

std::optional<std::string> Response(const Terms& terms)
{
    std::string sAlgorithm = Lower(terms.sAlgorithm);
    const bool bSession = sAlgorithm.ends_with(SessionSuffix);
    if (bSession)
        sAlgorithm.resize(sAlgorithm.size() - SessionSuffix.size());
    if (!sAlgorithm.empty() && sAlgorithm != "md5" && sAlgorithm != "sha-256")
        return std::nullopt;
    const Crypto::Hash hash = sAlgorithm == "sha-256" ? Crypto::Hash::Sha256 : Crypto::Hash::Md5;
    const auto digest = [hash](const std::string& sText) { return Crypto::Hex(Crypto::Digest(hash, sText)); };

    std::string sSecret = digest(terms.sUserName + ':' + terms.sRealm + ':' + terms.sPassword);
    if (bSession)
        sSecret = digest(sSecret + ':' + terms.sNonce + ':' + terms.sClientNonce);
    const std::string sRequest = digest(terms.sMethod + ':' + terms.sUri);
    if (terms.sQop.empty())
        return digest(sSecret + ':' + terms.sNonce + ':' + sRequest);
    return digest(sSecret + ':' + terms.sNonce + ':' + terms.sCount + ':' + terms.sClientNonce + ':'
        + terms.sQop + ':' + sRequest);
}

std::optional<std::string> Answer(std::string_view sChallenge, Terms terms)
{
    auto optFields = ReadFields(sChallenge);
    if (!optFields || (*optFields)["nonce"].empty())
        return std::nullopt;
    const std::string& sQop = (*optFields)["qop"];
    if (!sQop.empty() && !Offers(sQop, "auth"))
        return std::nullopt;
    terms.sQop = sQop.empty() ? "" : "auth";
    terms.sCount = "00000001";
    terms.sRealm = (*optFields)["realm"];
    terms.sNonce = (*optFields)["nonce"];
    terms.sAlgorithm = (*optFields)["algorithm"];
    const auto optResponse = Response(terms);
    if (!optResponse)
        return std::nullopt;
    std::string sAnswer = "Digest username=" + Quoted(terms.sUserName) + ", realm=" + Quoted(terms.sRealm)
        + ", nonce=" + Quoted(terms.sNonce) + ", uri=" + Quoted(terms.sUri) + ", response=\"" + *optResponse
        + '"';
    if (!terms.sAlgorithm.empty())
        sAnswer += ", algorithm=" + terms.sAlgorithm;
    if (const std::string& sOpaque = (*optFields)["opaque"]; !sOpaque.empty())
        sAnswer += ", opaque=" + Quoted(sOpaque);
    if (!terms.sQop.empty() || Lower(terms.sAlgorithm).ends_with(SessionSuffix))
        sAnswer += ", cnonce=" + Quoted(terms.sClientNonce);
    if (!terms.sQop.empty())
        sAnswer += ", qop=auth, nc=" + terms.sCount;
    return sAnswer;
}

bool IsStale(std::string_view sChallenge)
{
    auto optFields = ReadFields(sChallenge);
    return optFields && Lower((*optFields)["stale"]) == "true";
}

} // namespace Platform::DigestAuth
