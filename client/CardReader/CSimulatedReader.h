#pragma once

#include "IReader.h"

namespace CardReader {

/// A reader without hardware, for demonstrations; Simulation says what happens at it.
class CSimulatedReader : public IReader
{
public:
    ~CSimulatedReader() override;

    QStringList Find() override;
    QStringList GetNames() const override { return m_listNames; }
    bool Open(const QString& sName) override;
    QString TakeCardNo() override;
    bool IsOpen() const override;
    void Prompt() override;
    void Stop() override;

private:
    QStringList m_listNames;
    int m_nPlugging = 0; ///< at which plugging-in it was opened; 0: closed
};

} // namespace CardReader
