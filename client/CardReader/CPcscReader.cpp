#include "CPcscReader.h"

#include "CPcscWorker.h"

#include <thread>

namespace CardReader {

CPcscReader::CPcscReader()
    : m_pWorker(std::make_shared<CPcscWorker>())
{
    std::thread([pWorker = m_pWorker] { pWorker->Run(); }).detach();
}

CPcscReader::~CPcscReader()
{
    m_pWorker->End();
}

QStringList CPcscReader::Find()
{
    m_listNames.clear();
    for (const std::string& sName : m_pWorker->FindReaders())
        m_listNames.append(QString::fromStdString(sName));
    return m_listNames;
}

bool CPcscReader::Open(const QString& sName)
{
    m_pWorker->Open(sName.toStdString());
    return true;
}

QString CPcscReader::TakeCardNo()
{
    return QString::fromStdString(m_pWorker->TakeCardNo());
}

bool CPcscReader::IsOpen() const
{
    return m_pWorker->IsOpen();
}

void CPcscReader::Stop()
{
    m_pWorker->Open({});
}

} // namespace CardReader
