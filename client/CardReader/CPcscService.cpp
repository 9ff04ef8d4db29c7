#include "CPcscService.h"

#include <algorithm>
#include <array>

namespace CardReader {

namespace {

constexpr std::size_t MaxDigits = 16;
constexpr std::size_t StatusSize = 2;
/// A card at the edge of the field answers at the second or third try.
constexpr int MaxTries = 5;
/// "Get data: UID", which contactless readers answer for the card.
constexpr std::array<unsigned char, 5> GetUid{0xFF, 0xCA, 0x00, 0x00, 0x00};

} // namespace

std::string GetCardNo(const std::vector<unsigned char>& vecAnswer)
{
    if (vecAnswer.size() <= StatusSize || vecAnswer[vecAnswer.size() - 2] != 0x90 || vecAnswer.back() != 0x00)
        return {};
    static constexpr char Digits[] = "0123456789ABCDEF";
    std::string sCardNo;
    for (std::size_t n = 0; n < vecAnswer.size() - StatusSize && sCardNo.size() < MaxDigits; ++n) {
        sCardNo += Digits[vecAnswer[n] >> 4];
        sCardNo += Digits[vecAnswer[n] & 0x0F];
    }
    return sCardNo;
}

bool CPcscService::Connect()
{
    if (!m_bConnected)
        m_bConnected =
            SCardEstablishContext(SCARD_SCOPE_SYSTEM, nullptr, nullptr, &m_context) == SCARD_S_SUCCESS;
    return m_bConnected;
}

void CPcscService::Release()
{
    if (m_bConnected)
        SCardReleaseContext(m_context);
    m_bConnected = false;
    m_sLastReader.clear();
}

std::vector<std::string> CPcscService::ListReaders()
{
    std::vector<std::string> vecReaders;
    // A service that was started anew does not know the connection to the one before.
    for (int nTry = 0; nTry < 2 && Connect(); ++nTry) {
        DWORD nSize = 0;
        LONG nResult = SCardListReaders(m_context, nullptr, nullptr, &nSize);
        std::string sNames(nSize, '\0');
        if (nResult == SCARD_S_SUCCESS)
            nResult = SCardListReaders(m_context, nullptr, sNames.data(), &nSize);
        if (nResult == SCARD_S_SUCCESS) {
            // Each name ends with a zero, the list with one more.
            for (const char* psz = sNames.c_str(); *psz != '\0'; psz += vecReaders.back().size() + 1)
                vecReaders.emplace_back(psz);
            break;
        }
        if (nResult == SCARD_E_NO_READERS_AVAILABLE)
            break;
        Release();
    }
    std::sort(vecReaders.begin(), vecReaders.end());
    return vecReaders;
}

bool CPcscService::ReadNewCard(const std::string& sReader, std::string& sCardNo)
{
    if (!Connect())
        return false;
    SCARD_READERSTATE state{};
    state.szReader = sReader.c_str();
    state.dwCurrentState = SCARD_STATE_UNAWARE;
    const LONG nResult = SCardGetStatusChange(m_context, 0, &state, 1);
    if (nResult != SCARD_S_SUCCESS && nResult != SCARD_E_TIMEOUT) {
        Release();
        return false;
    }
    constexpr DWORD Gone = SCARD_STATE_UNKNOWN | SCARD_STATE_UNAVAILABLE | SCARD_STATE_IGNORE;
    if (nResult == SCARD_S_SUCCESS && (state.dwEventState & Gone) != 0)
        return false;
    if ((state.dwEventState & SCARD_STATE_PRESENT) == 0)
        return true;
    const auto nPut = static_cast<unsigned>(state.dwEventState >> 16);
    const bool bSameCard = m_sLastReader == sReader && m_nLastPut == nPut;
    if (!bSameCard)
        m_nTries = MaxTries;
    m_sLastReader = sReader;
    m_nLastPut = nPut;
    if (m_nTries == 0)
        return true;
    --m_nTries;
    sCardNo = ReadCard(sReader);
    if (!sCardNo.empty())
        m_nTries = 0;
    return true;
}

std::string CPcscService::ReadCard(const std::string& sReader)
{
    SCARDHANDLE card = 0;
    DWORD nProtocol = 0;
    if (SCardConnect(m_context, sReader.c_str(), SCARD_SHARE_SHARED, SCARD_PROTOCOL_T0 | SCARD_PROTOCOL_T1,
            &card, &nProtocol)
        != SCARD_S_SUCCESS)
        return {};
    std::vector<unsigned char> vecAnswer(MAX_BUFFER_SIZE);
    DWORD nSize = vecAnswer.size();
    const SCARD_IO_REQUEST* const pProtocol = nProtocol == SCARD_PROTOCOL_T0 ? SCARD_PCI_T0 : SCARD_PCI_T1;
    const LONG nResult =
        SCardTransmit(card, pProtocol, GetUid.data(), GetUid.size(), nullptr, vecAnswer.data(), &nSize);
    SCardDisconnect(card, SCARD_LEAVE_CARD);
    if (nResult != SCARD_S_SUCCESS)
        return {};
    vecAnswer.resize(nSize);
    return GetCardNo(vecAnswer);
}

} // namespace CardReader
