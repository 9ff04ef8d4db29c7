#include "AnswerReader.h"

#include <UICommonMdl/ErrorCodes.h>
#include <wire/Records.h>

#include <algorithm>

namespace PlatformLogic {

namespace {

// What is to come is a guess from what came: room for a little more costs nothing until it is used, a little
// less would move the whole list.
constexpr double Margin = 1.1;
constexpr double UnknownWhole = 2;
// What the sender says of the length may be wrong: beyond so many bytes the list grows as it comes.
constexpr std::size_t LongestWhole = 268435456;

std::string Quote(const char* pszName)
{
    return '"' + std::string(pszName) + '"';
}

} // namespace

AnswerReader::AnswerReader(
    int nSequence, IServerConnection::DataHandler onData, IServerConnection::AnswerHandler onEnd)
    : m_onData(std::move(onData))
    , m_onEnd(std::move(onEnd))
{
    m_answer.nSequence = nSequence;
}

void AnswerReader::Feed(std::string_view text, std::size_t nWhole)
{
    m_nWhole = nWhole;
    for (const char c : text) {
        ++m_nRead;
        Take(c);
    }
}

void AnswerReader::Take(char c)
{
    if (m_bInQuotes) {
        m_sQuoted += c;
        m_bInQuotes = m_bEscaped || c != '"';
        m_bEscaped = !m_bEscaped && c == '\\';
    } else if (c == '"') {
        m_sQuoted = c;
        m_bInQuotes = true;
    } else if (c == '{' || c == '[') {
        if (m_sOpen == "{")
            m_bInData = m_sQuoted == Quote(wire::AnswerData);
        else if (m_sOpen == "{{")
            m_sList = m_sQuoted;
        m_sOpen += c;
    } else if ((c == '}' || c == ']') && !m_sOpen.empty()) {
        m_sOpen.pop_back();
    } else if (c == ',' && m_sText.size() >= PartSize && m_bInData && m_sOpen == "{{[") {
        CutList();
        return;
    }
    m_sText += c;
}

void AnswerReader::CutList()
{
    m_sText += "]}}";
    const double dWhole =
        static_cast<double>(std::min(m_nWhole, LongestWhole)) / static_cast<double>(m_nRead);
    ReadText(m_nWhole > 0 ? std::max(dWhole * Margin, 1.0) : UnknownWhole);
    m_sText = '{' + Quote(wire::AnswerCode) + ':' + std::to_string(m_answer.nErrorCode) + ','
        + Quote(wire::AnswerData) + ":{" + m_sList + ":[";
}

void AnswerReader::ReadText(double dWhole)
{
    const auto json = nlohmann::json::parse(m_sText, nullptr, false);
    if (!json.is_object() || !json.contains(wire::AnswerCode)
        || !json[wire::AnswerCode].is_number_integer()) {
        m_answer.nErrorCode = UICommonMdl::ErrorBadAnswer;
        return;
    }
    m_answer.nErrorCode = json[wire::AnswerCode].get<int>();
    if (const auto it = json.find(wire::AnswerDetail); it != json.end() && it->is_string())
        m_answer.sDetail = it->get<std::string>();
    if (m_answer.nErrorCode == UICommonMdl::ErrorNone)
        m_onData(json.contains(wire::AnswerData) ? json[wire::AnswerData] : nlohmann::json(), dWhole);
}

void AnswerReader::End(int nErrorCode)
{
    if (nErrorCode == UICommonMdl::ErrorNone)
        ReadText(1);
    else
        m_answer.nErrorCode = nErrorCode;
    m_onEnd(m_answer);
}

} // namespace PlatformLogic
