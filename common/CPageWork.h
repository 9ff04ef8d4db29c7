#pragma once

#include <QObject>

namespace Common {

/// Something that a page, or a widget or model below it, has under way: calls, a transfer, a registration. It
/// is made as a member of its owner and found through it, so that the page can end all that is going on below
/// it. User-interface thread.
class CPageWork : public QObject
{
    Q_OBJECT

public:
    /// Gives everything up: nothing is heard any more and nothing can be started. A second call does nothing.
    virtual void End() = 0;

Q_SIGNALS:
    /// End begins, or the work is destroyed: the last moment to stop what runs at the host.
    void SignalEnding();

public:
    /// Ends all work of pTop and of what lies below it.
    static void EndBelow(const QObject* pTop);

protected:
    explicit CPageWork(QObject* pOwner);
};

} // namespace Common
