#include "XmlText.h"

#include <QByteArray>
#include <QString>
#include <QXmlStreamReader>

#include <charconv>

namespace ResourceManagerUI {

namespace {

bool IsXmlCharacter(std::uint32_t nCode)
{
    if (nCode < 0x20)
        return nCode == '\t' || nCode == '\n' || nCode == '\r';
    return nCode < 0xD800 || (nCode >= 0xE000 && nCode <= 0x10FFFF && nCode != 0xFFFE && nCode != 0xFFFF);
}

} // namespace

std::size_t Utf8Length(std::string_view sText)
{
    const auto at = [&](std::size_t i) {
        return i < sText.size() ? static_cast<unsigned char>(sText[i]) : 0U;
    };
    const auto follows = [&](std::size_t i, unsigned nLow = 0x80, unsigned nHigh = 0xBF) {
        return at(i) >= nLow && at(i) <= nHigh;
    };
    const unsigned nLead = at(0);
    if (nLead < 0x80)
        return sText.empty() ? 0 : 1;
    if (nLead >= 0xC2 && nLead <= 0xDF)
        return follows(1) ? 2 : 0;
    if (nLead >= 0xE0 && nLead <= 0xEF) {
        // Neither overlong forms nor surrogates.
        const unsigned nLow = nLead == 0xE0 ? 0xA0 : 0x80;
        const unsigned nHigh = nLead == 0xED ? 0x9F : 0xBF;
        return follows(1, nLow, nHigh) && follows(2) ? 3 : 0;
    }
    if (nLead >= 0xF0 && nLead <= 0xF4) {
        const unsigned nLow = nLead == 0xF0 ? 0x90 : 0x80;
        const unsigned nHigh = nLead == 0xF4 ? 0x8F : 0xBF;
        return follows(1, nLow, nHigh) && follows(2) && follows(3) ? 4 : 0;
    }
    return 0;
}

XmlReference ReadReference(std::string_view sText)
{
    using namespace std::string_view_literals;
    constexpr std::pair<std::string_view, std::string_view> Named[] = {
        {"&amp;"sv, "&"sv}, {"&lt;"sv, "<"sv}, {"&gt;"sv, ">"sv}, {"&quot;"sv, "\""sv}, {"&apos;"sv, "'"sv}};
    for (const auto& [sName, sMeaning] : Named) {
        if (sText.substr(0, sName.size()) == sName)
            return {sName.size(), std::string(sMeaning)};
    }
    if (sText.substr(0, 2) != "&#")
        return {};
    const bool bHex = sText.substr(2, 1) == "x";
    const char* const pFirst = sText.data() + (bHex ? 3 : 2);
    std::uint32_t nCode = 0;
    const auto [pEnd, error] = std::from_chars(pFirst, sText.data() + sText.size(), nCode, bHex ? 16 : 10);
    if (error != std::errc() || pEnd == sText.data() + sText.size() || *pEnd != ';' || !IsXmlCharacter(nCode))
        return {};
    return {static_cast<std::size_t>(pEnd - sText.data()) + 1,
        QString::fromUcs4(&nCode, 1).toUtf8().toStdString()};
}

bool IsWellFormedXml(std::string_view sBytes)
{
    QXmlStreamReader reader(QByteArray::fromRawData(sBytes.data(), static_cast<int>(sBytes.size())));
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::DTD)
            return false;
        if (token == QXmlStreamReader::StartDocument) {
            const QString sEncoding = reader.documentEncoding().toString().toLower();
            if (!sEncoding.isEmpty() && sEncoding != QLatin1String("utf-8")
                && sEncoding != QLatin1String("us-ascii"))
                return false;
        }
    }
    return !reader.hasError();
}

} // namespace ResourceManagerUI
