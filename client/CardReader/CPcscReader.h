#pragma once

#include "IReader.h"

#include <memory>

namespace CardReader {

class CPcscWorker;

/// A reader of the PC/SC service: the number of a card is its UID. The service is talked to by a thread of
/// its own, so that nobody waits for a reader that hangs.
class CPcscReader : public IReader
{
public:
    CPcscReader();
    ~CPcscReader() override;

    /// Waits a moment for the service; what it does not answer by then is not there.
    QStringList Find() override;
    QStringList GetNames() const override { return m_listNames; }
    bool Open(const QString& sName) override;
    QString TakeCardNo() override;
    bool IsOpen() const override;
    /// PC/SC has no signal that readers share.
    void Prompt() override { }
    void Stop() override;

private:
    QStringList m_listNames;
    /// Shared with its thread, which may outlive the reader while a call of the service hangs.
    std::shared_ptr<CPcscWorker> m_pWorker;
};

} // namespace CardReader
