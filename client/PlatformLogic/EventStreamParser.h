#pragma once

#include "PlatformLogicExport.h"

#include <QByteArray>

#include <functional>
#include <string>

namespace PlatformLogic {

/// Reads a stream of server-sent events as it arrives, cut anywhere.
/// Source of the format: HTML Living Standard, section 9.2 "Server-sent events" (fields "event" and "data",
/// comments).
class PLATFORMLOGIC_EXPORT EventStreamParser
{
public:
    using Handler = std::function<void(const std::string& sName, const std::string& sData)>;

    explicit EventStreamParser(Handler handler);

    /// Calls the handler for each event that the new bytes complete. False when one line is longer than 16
    /// MiB: the stream is then not to be read any further.
    bool Feed(const QByteArray& bytes);

private:
    void TakeLine(QByteArray line);

    Handler m_handler;
    QByteArray m_pending;
    std::string m_sName;
    std::string m_sData;
    bool m_bHasData = false;
};

} // namespace PlatformLogic
