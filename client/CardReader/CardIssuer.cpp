#include <CardReader/CardIssuer.h>

#include "CPcscReader.h"
#include "CSimulatedReader.h"

#include <QCoreApplication>

namespace CardReader {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CardIssuer)
};

// Kept in the settings of clients: the numbers stay as they are.
constexpr int TypePcsc = 1;
constexpr int TypeSimulated = 2;

std::unique_ptr<IReader> MakeReader(int nType)
{
    if (nType == TypePcsc)
        return std::make_unique<CPcscReader>();
    if (nType == TypeSimulated)
        return std::make_unique<CSimulatedReader>();
    return nullptr;
}

} // namespace

CardIssuer::CardIssuer() = default;
CardIssuer::~CardIssuer() = default;

QVector<ReaderType_t> CardIssuer::GetReaderTypes()
{
    return {{TypePcsc, Text::tr("USB Reader (PC/SC)")}, {TypeSimulated, Text::tr("Simulated Reader")}};
}

bool CardIssuer::FindReadCardDevice(int nType)
{
    if (nType != m_nType || !m_pReader) {
        m_pReader = MakeReader(nType);
        m_nType = nType;
    }
    return m_pReader && !m_pReader->Find().isEmpty();
}

QStringList CardIssuer::GetReaderNames() const
{
    return m_pReader ? m_pReader->GetNames() : QStringList();
}

bool CardIssuer::OpenReadCardDevice(const QString& sName)
{
    if (!m_pReader)
        return false;
    m_pReader->Stop();
    const QStringList listNames = m_pReader->GetNames();
    if (listNames.isEmpty() || (!sName.isEmpty() && !listNames.contains(sName)))
        return false;
    return m_pReader->Open(sName.isEmpty() ? listNames.first() : sName);
}

QString CardIssuer::ReadIDICCardNo()
{
    return m_pReader ? m_pReader->TakeCardNo() : QString();
}

bool CardIssuer::IsOpen() const
{
    return m_pReader && m_pReader->IsOpen();
}

void CardIssuer::SendSuccessPrompt()
{
    if (m_pReader)
        m_pReader->Prompt();
}

void CardIssuer::StopReadCard()
{
    if (m_pReader)
        m_pReader->Stop();
}

} // namespace CardReader
