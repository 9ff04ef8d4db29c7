#include <CardReader/SimulatedCardReader.h>
#include <Credentials/CCardReadManager.h>
#include <Credentials/CCardReaderBar.h>
#include <VxGUI/VxNotification.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <gmock/gmock.h>

using namespace BasicInfoManagerUI;
namespace Simulation = CardReader::Simulation;

namespace {

const QString Simulated = QStringLiteral("Simulated Reader");

class CardReaderBar : public testing::Test
{
protected:
    CardReaderBar()
    {
        Simulation::Reset();
        m_pBar->SetConfig(&m_host.config);
    }
    ~CardReaderBar() override { Simulation::Reset(); }

    void Choose(const QString& sType, bool bOk = true)
    {
        m_driver.Click(QStringLiteral("m_pBtnReaderManager"));
        PageDriver::Settle();
        m_driver.Choose(QStringLiteral("m_pCmbReaderType"), sType);
        auto* const pDialog = m_pBar->findChild<CCardReadManager*>();
        QTest::mouseClick(pDialog->findChild<QDialogButtonBox*>()->button(
                              bOk ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel),
            Qt::LeftButton);
        PageDriver::Settle();
    }
    void ClickRead() { m_driver.Click(QStringLiteral("m_pBtnReadCard")); }
    bool IsReading() { return m_driver.Find<QPushButton>(QStringLiteral("m_pBtnReadCard"))->isChecked(); }
    QString State() { return m_driver.Find<QLabel>(QStringLiteral("lbReaderState"))->text(); }
    QVariant& Setting(const char* pszKey) { return m_host.config.mapValues[QLatin1String(pszKey)]; }

    FakeHost m_host;
    QWidget m_window;
    CCardReaderBar* m_pBar = new CCardReaderBar(&m_window);
    PageDriver m_driver{m_window, {700, 200}};
};

TEST_F(CardReaderBar, ReaderIsChosenRememberedAndNeededForReading)
{
    ClickRead();
    EXPECT_EQ(VxGUI::VxNotification::CurrentText(m_pBar), "Please select a reader.");
    EXPECT_FALSE(IsReading());
    Choose(Simulated, false);
    EXPECT_FALSE(Setting("AuthenCard/type").isValid());
    Choose(Simulated);
    EXPECT_EQ(Setting("AuthenCard/type").toInt(), 2);
    EXPECT_EQ(Setting("AuthenCard/reader").toString(), "Simulated Reader 1");
    ClickRead();
    EXPECT_TRUE(IsReading());
    EXPECT_EQ(Simulation::GetOpenCount(), 1);
    Choose(QStringLiteral("None"));
    EXPECT_FALSE(IsReading());
    EXPECT_EQ(Simulation::GetOpenCount(), 0);
}

TEST_F(CardReaderBar, LostReaderIsToldAndFoundAgain)
{
    Setting("AuthenCard/type") = 2;
    QSignalSpy read(m_pBar, &CCardReaderBar::SignalCardNo);
    Simulation::StopOwnCards();
    ClickRead();
    Simulation::SetPlugged(false);
    ASSERT_TRUE(PageDriver::WaitFor([this] { return State() == "Card Reader Disconnected"; }));
    EXPECT_EQ(VxGUI::VxNotification::CurrentText(m_pBar), "Card Reader Disconnected");
    Simulation::SetPlugged(true);
    Simulation::PutCard(QStringLiteral("ab"));
    ASSERT_TRUE(PageDriver::WaitFor([&] { return read.count() == 1; }));
    EXPECT_EQ(read.first().first().toString(), "AB");
    EXPECT_NE(State(), "Card Reader Disconnected");
    // A page that goes out of sight lets the reader go.
    m_pBar->hide();
    EXPECT_EQ(Simulation::GetOpenCount(), 0);
}

TEST_F(CardReaderBar, ReaderThatIsNotThereYetIsWaitedFor)
{
    Setting("AuthenCard/type") = 2;
    Setting("AuthenCard/reader") = QStringLiteral("Simulated Reader 1");
    Simulation::SetPlugged(false);
    ClickRead();
    EXPECT_TRUE(IsReading());
    EXPECT_EQ(State(), "Card Reader Disconnected");
    Simulation::SetOpenFails(true);
    Simulation::SetPlugged(true);
    ClickRead();
    ClickRead();
    EXPECT_EQ(State(), "Card Reader Disconnected");
    Simulation::SetOpenFails(false);
    ASSERT_TRUE(PageDriver::WaitFor([] { return Simulation::GetOpenCount() == 1; }));
    Simulation::SetPlugged(false);
    ClickRead();
    Choose(Simulated);
    EXPECT_EQ(Setting("AuthenCard/reader").toString(), QString());
}

} // namespace
