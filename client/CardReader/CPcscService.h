#pragma once

#include <string>
#include <vector>

#include <winscard.h>

namespace CardReader {

/// The UID that a reader answered, as a card number: hexadecimal digits, upper case, at most 16. Empty when
/// the answer is none of success or has no UID.
std::string GetCardNo(const std::vector<unsigned char>& vecAnswer);

/// The PC/SC service of the machine; its calls may take long. One thread.
class CPcscService
{
public:
    CPcscService() = default;
    ~CPcscService() { Release(); }
    CPcscService(const CPcscService&) = delete;
    CPcscService& operator=(const CPcscService&) = delete;

    /// Empty also when the service does not run.
    std::vector<std::string> ListReaders();
    /// Reads the card on the reader, when it was put there since the last call. False: the reader is gone.
    bool ReadNewCard(const std::string& sReader, std::string& sCardNo);
    /// Gives the connection to the service up; the next call makes a new one.
    void Release();

private:
    bool Connect();
    std::string ReadCard(const std::string& sReader);

    bool m_bConnected = false;
    SCARDCONTEXT m_context = 0;
    std::string m_sLastReader;
    unsigned m_nLastPut = 0; ///< the reader's count of cards put and taken, at the last card
    int m_nTries = 0; ///< to read the card that is there
};

} // namespace CardReader
