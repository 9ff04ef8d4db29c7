#include "EventStreamParser.h"

namespace PlatformLogic {

namespace {
constexpr int MaxLine = 16 * 1024 * 1024;
}

EventStreamParser::EventStreamParser(Handler handler)
    : m_handler(std::move(handler))
{
}

bool EventStreamParser::Feed(const QByteArray& bytes)
{
    m_pending += bytes;
    int nStart = 0;
    for (int nEnd = m_pending.indexOf('\n'); nEnd >= 0; nEnd = m_pending.indexOf('\n', nStart)) {
        TakeLine(m_pending.mid(nStart, nEnd - nStart));
        nStart = nEnd + 1;
    }
    m_pending.remove(0, nStart);
    return m_pending.size() <= MaxLine;
}

void EventStreamParser::TakeLine(QByteArray line)
{
    if (line.endsWith('\r'))
        line.chop(1);
    if (line.isEmpty()) {
        if (m_bHasData)
            m_handler(m_sName, m_sData);
        m_sName.clear();
        m_sData.clear();
        m_bHasData = false;
        return;
    }
    const int nColon = line.indexOf(':');
    const QByteArray field = nColon < 0 ? line : line.left(nColon);
    QByteArray value = nColon < 0 ? QByteArray() : line.mid(nColon + 1);
    if (value.startsWith(' '))
        value.remove(0, 1);
    if (field == "event") {
        m_sName = value.toStdString();
    } else if (field == "data") {
        if (m_bHasData)
            m_sData += '\n';
        m_sData += value.toStdString();
        m_bHasData = true;
    }
}

} // namespace PlatformLogic
