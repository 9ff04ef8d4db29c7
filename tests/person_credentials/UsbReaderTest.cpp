#include <Credentials/CReadUSB.h>
#include <Credentials/CredentialRules.h>
#include <FingerprintReader/SimulatedFingerprintReader.h>
#include <tests/support/gui/PageDriver.h>

#include <QElapsedTimer>
#include <QSemaphore>

#include <gmock/gmock.h>

#include <atomic>

using namespace BasicInfoManagerUI;
namespace Simulation = FingerprintReader::Simulation;
using Simulation::Call;

namespace {

/// The worker at the simulated reader; every call is counted by name.
class UsbReader : public testing::Test
{
protected:
    void SetUp() override
    {
        Simulation::Reset();
        Simulation::SetFingerAtOnce();
    }
    void TearDown() override
    {
        m_pReader.reset();
        Simulation::Reset();
    }
    void Start()
    {
        if (!m_pReader) {
            m_pReader = std::make_unique<CReadUSB>(Counted());
            QObject::connect(m_pReader.get(), &CReadUSB::SignalPlaySound, qApp,
                [this](int nPress) { m_vecPresses.push_back(nPress); });
            QObject::connect(m_pReader.get(), &CReadUSB::SignalFingerData, qApp,
                [this](int nResult, const QString& sData) {
                    m_vecResults.push_back(nResult);
                    m_listData.append(sData);
                });
        }
        m_pReader->StartCollect();
    }
    bool Enrol()
    {
        const auto nBefore = m_vecResults.size();
        Start();
        return PageDriver::WaitFor([&] { return m_vecResults.size() > nBefore; })
            && m_vecResults.back() == CReadUSB::ResultCollected;
    }
    FingerReaderCalls Counted()
    {
        FingerReaderCalls calls;
        calls.open = [this, real = calls.open](int* pError) {
            ++m_nOpened;
            return real(pError);
        };
        calls.takeImage = [this, real = calls.takeImage](int* pError) {
            ++m_nImages;
            m_inImage.release();
            return real(pError);
        };
        calls.makeFeatures = [this, real = calls.makeFeatures](int nBuffer, int* pError) {
            m_vecBuffers.push_back(nBuffer);
            return real(nBuffer, pError);
        };
        return calls;
    }

    std::unique_ptr<CReadUSB> m_pReader;
    std::atomic<int> m_nOpened = 0;
    std::atomic<int> m_nImages = 0;
    QSemaphore m_inImage;
    std::vector<int> m_vecBuffers; ///< of the worker until it has reported
    std::vector<int> m_vecPresses;
    std::vector<int> m_vecResults;
    QStringList m_listData;
};

TEST_F(UsbReader, ThreePressesMakeATemplateAndTheReaderIsOpenedOnce)
{
    ASSERT_TRUE(Enrol());
    ASSERT_TRUE(Enrol());
    EXPECT_EQ(m_nOpened, 1);
    EXPECT_THAT(m_vecBuffers, testing::ElementsAre(1, 2, 3, 1, 2, 3));
    EXPECT_THAT(m_vecPresses, testing::ElementsAre(1, 2, 3, 1, 2, 3));
    EXPECT_TRUE(CredentialRules::IsTemplate(m_listData.first().toStdString()));
    EXPECT_NE(m_listData.first(), m_listData.last());
}

TEST_F(UsbReader, EachFailingCallEndsTheEnrolmentOnceAndTheNextOneIsGoodAgain)
{
    const struct
    {
        Call call;
        int nResult;
        int nPresses;
    } cases[] = {{Call::Open, CReadUSB::ResultOpenFailed, 0}, {Call::Delete, CReadUSB::ResultFailed, 0},
        {Call::Image, CReadUSB::ResultFailed, 0}, {Call::Generate, CReadUSB::ResultFailed, 0},
        {Call::Merge, CReadUSB::ResultFailed, 3}, {Call::Store, CReadUSB::ResultFailed, 3},
        {Call::Read, CReadUSB::ResultFailed, 3}};
    for (const auto& testCase : cases) {
        SCOPED_TRACE(int(testCase.call));
        Simulation::Reset();
        Simulation::SetFingerAtOnce();
        m_vecPresses.clear();
        m_vecResults.clear();
        m_pReader.reset();
        Simulation::SetFails(testCase.call, FingerprintReader::ErrorPackage);
        EXPECT_FALSE(Enrol());
        EXPECT_THAT(m_vecResults, testing::ElementsAre(testCase.nResult));
        EXPECT_EQ(int(m_vecPresses.size()), testCase.nPresses);
        EXPECT_TRUE(m_listData.last().isEmpty());
        Simulation::Reset();
        Simulation::SetFingerAtOnce();
        EXPECT_TRUE(Enrol());
    }
}

TEST_F(UsbReader, WrongValuesOfMergeAndStoreAreFailures)
{
    const std::pair<int, int> cases[] = {{99, 0}, {0, 0}, {100, 100}, {100, 1}};
    for (const auto& [nMerge, nStore] : cases) {
        Simulation::SetValues(nMerge, nStore);
        EXPECT_FALSE(Enrol()) << nMerge << ' ' << nStore;
    }
    Simulation::SetValues(100, 0);
    EXPECT_TRUE(Enrol());
}

TEST_F(UsbReader, FiveEmptyImagesInARowEndItAndFourDoNot)
{
    Simulation::SetNoFinger(4);
    EXPECT_TRUE(Enrol());
    EXPECT_EQ(m_nImages, 4 + 3);
    m_nImages = 0;
    Simulation::SetNoFinger(5);
    EXPECT_FALSE(Enrol());
    EXPECT_EQ(m_nImages, 5);
    EXPECT_EQ(m_vecResults.back(), CReadUSB::ResultFailed);
    // The reader itself did nothing wrong: it stays open.
    EXPECT_TRUE(Enrol());
    EXPECT_EQ(m_nOpened, 1);
}

TEST_F(UsbReader, UnpluggedInTheMiddleItFailsAndWorksAgainWhenPluggedIn)
{
    Simulation::UnplugAtImage(2);
    EXPECT_FALSE(Enrol());
    EXPECT_THAT(m_vecPresses, testing::ElementsAre(1));
    EXPECT_FALSE(Enrol());
    EXPECT_EQ(m_vecResults.back(), CReadUSB::ResultOpenFailed);
    Simulation::SetPlugged(true);
    EXPECT_TRUE(Enrol());
}

TEST_F(UsbReader, DestroyedWhileItWaitsItEndsAtOnceAndSaysNothing)
{
    Simulation::SetNoFinger(1000);
    Start();
    ASSERT_TRUE(m_inImage.tryAcquire(1, 10000));
    QElapsedTimer clock;
    clock.start();
    m_pReader.reset();
    // Less than the pause between two images, which it is in or about to begin.
    EXPECT_LT(clock.elapsed(), 400);
    PageDriver::Settle();
    EXPECT_TRUE(m_vecResults.empty());

    // Neither started nor running, and started but not yet awake.
    CReadUSB idle;
    CReadUSB fresh(Counted());
    fresh.StartCollect();
}

TEST_F(UsbReader, DestroyedDuringACallItMakesNoOther)
{
    FingerReaderCalls calls = Counted();
    QSemaphore inCall;
    QSemaphore goOn;
    calls.clear = [&](int nSlot, int* pError) {
        inCall.release();
        goOn.acquire();
        return FingerprintReader::CmdDelChar(nSlot, pError);
    };
    m_pReader = std::make_unique<CReadUSB>(calls);
    m_pReader->StartCollect();
    ASSERT_TRUE(inCall.tryAcquire(1, 10000));
    m_pReader->StopCollect();
    goOn.release();
    m_pReader.reset();
    EXPECT_EQ(m_nImages, 0);
}

} // namespace
