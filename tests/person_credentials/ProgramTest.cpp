#include "PcscDaemon.h"

#include <CardReader/CardIssuer.h>
#include <Credentials/CReadCard.h>
#include <tests/support/gui/PageDriver.h>

#include <QElapsedTimer>

#include <gmock/gmock.h>

using BasicInfoManagerUI::CReadCard;
using CardReader::CardIssuer;

namespace {

const QString FirstReader = QStringLiteral("Test Reader 00 00");

int TypePcsc()
{
    return CardIssuer::GetReaderTypes().first().nType;
}

/// The reader of the real PC/SC service.
class PcscReader : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!PcscDaemon::CanRun())
            GTEST_SKIP() << "only root may give the service a network of its own";
    }
    QString Next(CardIssuer& issuer)
    {
        QString sCardNo;
        PageDriver::WaitFor([&] { return !(sCardNo = issuer.ReadIDICCardNo()).isEmpty(); });
        return sCardNo;
    }

    PcscDaemon m_daemon;
};

TEST_F(PcscReader, EachCardIsReadOnceAndTheNextOneAfterIt)
{
    ASSERT_TRUE(m_daemon.Start());
    CardIssuer issuer;
    ASSERT_TRUE(PageDriver::WaitFor([&] { return issuer.FindReadCardDevice(TypePcsc()); }));
    EXPECT_EQ(issuer.GetReaderNames().first(), FirstReader);
    EXPECT_FALSE(issuer.OpenReadCardDevice(QStringLiteral("No such reader")));
    ASSERT_TRUE(PageDriver::WaitFor([&] { return issuer.OpenReadCardDevice(); }));
    m_daemon.PutCard("04a1b2c3");
    EXPECT_EQ(Next(issuer), "04A1B2C3");
    m_daemon.PutCard("04112233445566778899");
    EXPECT_EQ(Next(issuer), "0411223344556677")
        << "not the first card a second time, and no more than 16 digits";
    m_daemon.TakeCardWhenRead();
    m_daemon.PutCard("0badc0de");
    ASSERT_TRUE(PageDriver::WaitFor([this] { return !m_daemon.HasCard(); }));
    m_daemon.PutCard("0a0b0c0d");
    EXPECT_EQ(Next(issuer), "0A0B0C0D");
    EXPECT_TRUE(issuer.IsOpen());
}

TEST_F(PcscReader, ServiceThatEndsLosesTheReaderAndOneThatIsBackHasItAgain)
{
    ASSERT_TRUE(m_daemon.Start());
    CReadCard readCard;
    QVector<bool> vecConnected;
    QStringList listRead;
    QObject::connect(
        &readCard, &CReadCard::SignalReaderConnected, qApp, [&](bool b) { vecConnected.append(b); });
    QObject::connect(
        &readCard, &CReadCard::SignalReadCardNO, qApp, [&](const QString& s) { listRead.append(s); });
    ASSERT_TRUE(readCard.Start(TypePcsc(), FirstReader));
    m_daemon.PutCard("01020304");
    ASSERT_TRUE(PageDriver::WaitFor([&] { return listRead.size() == 1; }));
    m_daemon.Kill();
    ASSERT_TRUE(PageDriver::WaitFor([&] { return vecConnected == QVector<bool>{false}; }));
    ASSERT_TRUE(m_daemon.Start());
    ASSERT_TRUE(PageDriver::WaitFor([&] { return vecConnected == QVector<bool>{false, true}; }));
    m_daemon.PutCard("05060708");
    ASSERT_TRUE(PageDriver::WaitFor([&] { return listRead.size() == 2; }));
    EXPECT_EQ(listRead, (QStringList{QStringLiteral("01020304"), QStringLiteral("05060708")}));
}

TEST(PcscWithoutService, IsNoReaderAndNothingWaits)
{
    QElapsedTimer clock;
    clock.start();
    {
        CardIssuer issuer;
        EXPECT_FALSE(issuer.FindReadCardDevice(TypePcsc()));
        EXPECT_FALSE(issuer.OpenReadCardDevice());
        EXPECT_EQ(issuer.ReadIDICCardNo(), QString());
    }
    EXPECT_LT(clock.elapsed(), 1000);
}

} // namespace
