#pragma once

#include "IServerConnection.h"
#include "PlatformLogicExport.h"

#include <string_view>

namespace PlatformLogic {

/// Reads the body of one answer as it comes, cut anywhere, so that a long one is never held whole: neither
/// its text nor its tree. Long lists of its data are handed out in parts.
class PLATFORMLOGIC_EXPORT AnswerReader
{
public:
    /// Text of a list is handed out when there is that much of it, in bytes.
    static constexpr std::size_t PartSize = 65536;

    AnswerReader(
        int nSequence, IServerConnection::DataHandler onData, IServerConnection::AnswerHandler onEnd);

    /// Takes the next bytes of the body, of which there will be nWhole; 0: nobody knows.
    void Feed(std::string_view text, std::size_t nWhole);
    /// There is no more; nErrorCode tells whether the body was read whole (0) or why not. Tells the answer,
    /// once; a body that cannot be read is ErrorBadAnswer.
    void End(int nErrorCode);

private:
    void Take(char c);
    /// Hands out what there is of the list that is open; the list goes on in a text of its own.
    void CutList();
    void ReadText(double dWhole);

    ServerAnswer m_answer;
    IServerConnection::DataHandler m_onData;
    IServerConnection::AnswerHandler m_onEnd;
    std::string m_sText; ///< what was not handed out yet, always as an answer begins
    std::string m_sOpen; ///< brackets that are open
    std::string m_sQuoted; ///< the last text in quotes, with them
    std::string m_sList; ///< name of the list that is open
    bool m_bInData = false;
    bool m_bInQuotes = false;
    bool m_bEscaped = false;
    std::size_t m_nRead = 0; ///< bytes
    std::size_t m_nWhole = 0; ///< bytes; 0: unknown
};

} // namespace PlatformLogic
