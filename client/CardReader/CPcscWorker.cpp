#include "CPcscWorker.h"

namespace CardReader {

namespace {
constexpr std::chrono::milliseconds LookInterval{150};
/// How long a caller waits for the service. It may have to be started first.
constexpr std::chrono::milliseconds Moment{200};
} // namespace

void CPcscWorker::Run()
{
    Lock lock(m_mutex);
    while (!m_bEnd) {
        if (m_nFindsDone != m_nFindsAsked)
            ListReaders(lock);
        else if (!m_sReader.empty())
            LookAtReader(lock);
        const auto isDue = [this] { return m_bEnd || m_nFindsDone != m_nFindsAsked; };
        if (m_sReader.empty())
            m_wake.wait(lock, [&] { return isDue() || !m_sReader.empty(); });
        else
            m_wake.wait_for(lock, LookInterval, isDue);
    }
    lock.unlock();
    m_service.Release();
    lock.lock();
    m_bEnded = true;
    m_done.notify_all();
}

void CPcscWorker::End()
{
    Lock lock(m_mutex);
    m_bEnd = true;
    m_wake.notify_all();
    m_done.wait_for(lock, Moment, [this] { return m_bEnded; });
}

std::vector<std::string> CPcscWorker::FindReaders()
{
    Lock lock(m_mutex);
    if (m_nFindsDone != m_nFindsAsked)
        return {};
    // What came too late for the last call is as good as new.
    if (std::exchange(m_bLate, false))
        return m_vecReaders;
    ++m_nFindsAsked;
    m_wake.notify_all();
    m_bLate = !m_done.wait_for(lock, Moment, [this] { return m_nFindsDone == m_nFindsAsked; });
    return m_bLate ? std::vector<std::string>() : m_vecReaders;
}

void CPcscWorker::Open(const std::string& sReader)
{
    const Lock lock(m_mutex);
    m_sReader = sReader;
    m_sCardNo.clear();
    m_wake.notify_all();
}

bool CPcscWorker::IsOpen()
{
    const Lock lock(m_mutex);
    return !m_sReader.empty();
}

std::string CPcscWorker::TakeCardNo()
{
    const Lock lock(m_mutex);
    return std::exchange(m_sCardNo, {});
}

void CPcscWorker::ListReaders(Lock& lock)
{
    const int nAsked = m_nFindsAsked;
    lock.unlock();
    std::vector<std::string> vecReaders = m_service.ListReaders();
    lock.lock();
    m_vecReaders = std::move(vecReaders);
    m_nFindsDone = nAsked;
    m_done.notify_all();
}

void CPcscWorker::LookAtReader(Lock& lock)
{
    const std::string sReader = m_sReader;
    lock.unlock();
    std::string sCardNo;
    const bool bThere = m_service.ReadNewCard(sReader, sCardNo);
    lock.lock();
    if (sReader != m_sReader)
        return;
    if (!bThere)
        m_sReader.clear();
    else if (!sCardNo.empty())
        m_sCardNo = sCardNo;
}

} // namespace CardReader
