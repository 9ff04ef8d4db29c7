#include <VxGUI/VxWaitDialog.h>
#include <common/CTransfer.h>
#include <tests/support/gui/PageDriver.h>

#include <QProgressBar>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>

namespace {

using Common::CTransfer;

class Transfer : public testing::Test
{
protected:
    void SetUp() override
    {
        m_window.show();
        m_pTransfer = std::make_unique<CTransfer>(&m_window, nullptr);
    }
    void Start(CTransfer::Shown shown = CTransfer::Shown::AtOnce)
    {
        m_pTransfer->Start(
            QStringLiteral("Working"), [this] { ++m_nCancels; }, shown);
    }
    VxGUI::VxWaitDialog* Window()
    {
        PageDriver::Settle();
        return m_window.findChild<VxGUI::VxWaitDialog*>();
    }

    QWidget m_window;
    std::unique_ptr<CTransfer> m_pTransfer;
    int m_nCancels = 0;
};

TEST_F(Transfer, IsGivenUpOnceByTheUserOrWithItsOwner)
{
    Start();
    ASSERT_TRUE(Window());
    m_pTransfer->SetProgress(1, 4);
    EXPECT_EQ(Window()->findChild<QProgressBar*>()->value(), 25);
    QTest::keyClick(Window(), Qt::Key_Escape);
    EXPECT_FALSE(Window());
    EXPECT_EQ(m_nCancels, 1);

    Start();
    m_pTransfer->Finish();
    EXPECT_FALSE(Window());
    EXPECT_EQ(m_nCancels, 1) << "what has ended is not given up";

    Start();
    m_pTransfer->End();
    m_pTransfer->End();
    EXPECT_EQ(m_nCancels, 2);
    Start();
    EXPECT_FALSE(Window()) << "nothing starts after the end";
}

TEST_F(Transfer, OfAMomentShowsNothingNorDoesOneOverAHiddenWindow)
{
    Start(CTransfer::Shown::AfterAMoment);
    EXPECT_FALSE(Window());
    PageDriver::WaitFor([this] { return Window() != nullptr; });
    EXPECT_TRUE(Window());
    m_pTransfer->Finish();
    m_window.hide();
    Start();
    EXPECT_FALSE(Window());
}

TEST_F(Transfer, TellsHowTheFileWasWrittenUnlessItsOwnerHasEnded)
{
    QStringList listTold;
    std::atomic<bool> bGoOn = false;
    const auto write = [&bGoOn] {
        while (!bGoOn)
            QThread::yieldCurrentThread();
        return QStringLiteral("No room");
    };
    const auto then = [&listTold](const QString& sError) { listTold << sError; };
    Start();
    m_pTransfer->Write(write, then);
    QTest::keyClick(Window(), Qt::Key_Escape);
    EXPECT_TRUE(Window()) << "a file that is being written is not given up";
    bGoOn = true;
    EXPECT_TRUE(PageDriver::WaitFor([&] { return !listTold.isEmpty(); }));
    EXPECT_EQ(listTold, QStringList{QStringLiteral("No room")});
    EXPECT_FALSE(Window());

    Start();
    m_pTransfer->Write(write, then);
    m_pTransfer->End();
    m_pTransfer.reset();
    PageDriver::Settle();
    EXPECT_EQ(listTold.size(), 1);
    EXPECT_EQ(m_nCancels, 0);
}

} // namespace
