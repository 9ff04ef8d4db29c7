#pragma once

#include <QString>
#include <QStringList>

namespace CardReader {

/// One kind of reader behind CardIssuer, whose calls these are.
class IReader
{
public:
    virtual ~IReader() = default;

    virtual QStringList Find() = 0;
    virtual QStringList GetNames() const = 0;
    virtual bool Open(const QString& sName) = 0;
    virtual QString TakeCardNo() = 0;
    virtual bool IsOpen() const = 0;
    virtual void Prompt() = 0;
    virtual void Stop() = 0;
};

} // namespace CardReader
