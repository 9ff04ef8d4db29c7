#include "CSimulatedReader.h"

#include "SimulatedCardReader.h"

#include <VxGUI/VxSingleton.h>

#include <QRandomGenerator>

#include <deque>

namespace CardReader {

namespace {

struct Desk
{
    bool bOwnCards = true;
    bool bPlugged = true;
    bool bOpenFails = false;
    int nPlugging = 1; ///< raised by each plugging-in: what was open before is lost
    int nOpen = 0;
    int nPrompts = 0;
    int nReads = 0;
    std::deque<QString> queCards;
};

Desk& TheDesk()
{
    return *VxGUI::VxSingleton<Desk>::Instance();
}

QString MakeCardNo()
{
    return QStringLiteral("%1")
        .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'))
        .toUpper();
}

} // namespace

CSimulatedReader::~CSimulatedReader()
{
    CSimulatedReader::Stop();
}

QStringList CSimulatedReader::Find()
{
    m_listNames.clear();
    if (TheDesk().bPlugged)
        m_listNames.append(QStringLiteral("Simulated Reader 1"));
    return m_listNames;
}

bool CSimulatedReader::Open(const QString&)
{
    Desk& desk = TheDesk();
    if (!desk.bPlugged || desk.bOpenFails)
        return false;
    m_nPlugging = desk.nPlugging;
    ++desk.nOpen;
    return true;
}

QString CSimulatedReader::TakeCardNo()
{
    Desk& desk = TheDesk();
    if (!IsOpen())
        return {};
    ++desk.nReads;
    if (!desk.queCards.empty()) {
        QString sCardNo = desk.queCards.front();
        desk.queCards.pop_front();
        return sCardNo;
    }
    return desk.bOwnCards && desk.nReads % 2 == 0 ? MakeCardNo() : QString();
}

bool CSimulatedReader::IsOpen() const
{
    return m_nPlugging != 0 && TheDesk().bPlugged && m_nPlugging == TheDesk().nPlugging;
}

void CSimulatedReader::Prompt()
{
    if (IsOpen())
        ++TheDesk().nPrompts;
}

void CSimulatedReader::Stop()
{
    if (m_nPlugging != 0)
        --TheDesk().nOpen;
    m_nPlugging = 0;
}

namespace Simulation {

void Reset()
{
    const int nOpen = TheDesk().nOpen;
    const int nPlugging = TheDesk().nPlugging;
    TheDesk() = Desk();
    TheDesk().nOpen = nOpen;
    TheDesk().nPlugging = nPlugging;
}

void StopOwnCards()
{
    TheDesk().bOwnCards = false;
}

void PutCard(const QString& sCardNo)
{
    TheDesk().queCards.push_back(sCardNo);
}

void SetPlugged(bool bPlugged)
{
    Desk& desk = TheDesk();
    if (bPlugged && !desk.bPlugged)
        ++desk.nPlugging;
    desk.bPlugged = bPlugged;
}

void SetOpenFails(bool bFails)
{
    TheDesk().bOpenFails = bFails;
}

int GetOpenCount()
{
    return TheDesk().nOpen;
}

int GetPromptCount()
{
    return TheDesk().nPrompts;
}

int GetReadCount()
{
    return TheDesk().nReads;
}

} // namespace Simulation

} // namespace CardReader
