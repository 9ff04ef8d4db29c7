#pragma once

#include <CardReader/CardReaderExport.h>

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

namespace CardReader {

class IReader;

/// No reader type is chosen.
inline constexpr int ReaderTypeNone = 0;

/// A kind of card readers that the host can use.
struct ReaderType_t
{
    int nType; ///< above ReaderTypeNone; the same in every session, so that it can be remembered
    QString sName; ///< translated
};

/// One card-issuing reader: finds it, opens it, and reads the number of each card that is put on it.
///
/// All calls are made on one thread (the user-interface thread), throw nothing and return after a moment at
/// the latest: the reader itself is worked with elsewhere. Several issuers can exist at a time.
class CARDREADER_EXPORT CardIssuer
{
public:
    CardIssuer();
    /// Lets the reader go.
    ~CardIssuer();
    CardIssuer(const CardIssuer&) = delete;
    CardIssuer& operator=(const CardIssuer&) = delete;

    static QVector<ReaderType_t> GetReaderTypes();

    /// Looks for readers of that type; GetReaderNames answers them. False when there is none, the type is not
    /// known or its service does not run. A reader of another type that is open is let go.
    bool FindReadCardDevice(int nType);
    /// The readers that were found, in a steady order.
    QStringList GetReaderNames() const;
    /// Opens one of the readers that were found; an empty name opens the first. False when it is not there
    /// (any more) or does not let itself be opened. The reader that was open before is let go.
    bool OpenReadCardDevice(const QString& sName = QString());
    /// The number of the card that was put on the reader since the last call, each once: hexadecimal digits,
    /// upper case, 1 to 16. Empty: no card, or one that could not be read.
    QString ReadIDICCardNo();
    /// Whether a reader is open and there. False after it was unplugged: find and open it again.
    bool IsOpen() const;
    /// The reader beeps or lights after a good read, when it can.
    void SendSuccessPrompt();
    /// Lets the reader go; nothing happens when none is open.
    void StopReadCard();

private:
    int m_nType = ReaderTypeNone;
    std::unique_ptr<IReader> m_pReader;
};

} // namespace CardReader
