#include "PageDriver.h"
#include "RecordingDialogService.h"

#include <VxGUI/VxEmptyState.h>
#include <VxGUI/VxMessageBox.h>
#include <VxGUI/VxNotification.h>
#include <VxGUI/VxWaitDialog.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

using VxGUI::NotificationKind;
using VxGUI::VxMessageBox;
using VxGUI::VxNotification;

class Notification : public testing::Test
{
protected:
    Notification()
    {
        auto* pLayout = new QVBoxLayout(&m_window);
        pLayout->addWidget(&m_edit);
        m_pDriver = std::make_unique<PageDriver>(m_window, QSize(640, 300));
        m_window.activateWindow();
        m_edit.setFocus();
        PageDriver::Settle();
    }

    QFrame* Shown() const { return m_window.findChild<QFrame*>(QStringLiteral("VxNotification")); }

    QWidget m_window;
    QLineEdit m_edit;
    std::unique_ptr<PageDriver> m_pDriver;
};

TEST_F(Notification, ReplacesTheOneBeforeAndLeavesTheFocusAlone)
{
    VxNotification::Show(&m_edit, QStringLiteral("first"), NotificationKind::Success);
    VxNotification::Show(&m_window, QStringLiteral("second"), NotificationKind::Error);
    EXPECT_EQ(VxNotification::CurrentText(&m_edit), QStringLiteral("second"));
    EXPECT_EQ(m_window.findChildren<QFrame*>(QStringLiteral("VxNotification")).size(), 1);
    EXPECT_EQ(Shown()->property("kind").toString(), QStringLiteral("error"));
    EXPECT_EQ(QApplication::focusWidget(), &m_edit);
}

TEST_F(Notification, GoesOnAClickAndByItself)
{
    VxNotification::Show(&m_edit, QStringLiteral("clicked away"));
    QTest::mouseClick(Shown(), Qt::LeftButton);
    EXPECT_EQ(VxNotification::CurrentText(&m_edit), QString());

    VxNotification::Show(&m_edit, QStringLiteral("x"));
    EXPECT_EQ(VxNotification::CurrentText(&m_edit), QStringLiteral("x"));
    PageDriver::WaitFor([this] { return VxNotification::CurrentText(&m_edit).isEmpty(); });
}

TEST_F(Notification, LongTextStaysInsideTheWindowAlsoAfterAResize)
{
    VxNotification::Show(&m_edit, QStringLiteral("The platform is extracting device logs. ").repeated(6));
    EXPECT_TRUE(m_window.rect().contains(Shown()->geometry()));
    m_window.resize(360, 300);
    PageDriver::Settle();
    EXPECT_TRUE(m_window.rect().contains(Shown()->geometry()));
    const auto* pText = Shown()->findChildren<QLabel*>().last();
    EXPECT_GE(pText->height(), pText->heightForWidth(pText->width())) << "text is cut";
}

TEST_F(Notification, WindowsHaveTheirOwn)
{
    QWidget other;
    VxNotification::Show(&other, QStringLiteral("there"));
    EXPECT_EQ(VxNotification::CurrentText(&m_edit), QString());
    EXPECT_EQ(VxNotification::CurrentText(&other), QStringLiteral("there"));
}

TEST(MessageBox, PagesGoThroughTheServiceInUse)
{
    RecordingDialogService service;
    service.AnswerNext(true);
    service.AnswerNext(false);
    const QString sTitle = QStringLiteral("Prompt");
    EXPECT_TRUE(VxMessageBox::Question(nullptr, sTitle, QStringLiteral("Delete?")));
    EXPECT_FALSE(VxMessageBox::Question(nullptr, sTitle, QStringLiteral("Leave?")));
    VxMessageBox::Message(nullptr, sTitle, QStringLiteral("Failed"), QStringLiteral("Gate 1"));
    EXPECT_EQ(service.Shown(),
        QStringList({QStringLiteral("Prompt: Delete?"), QStringLiteral("Prompt: Leave?"),
            QStringLiteral("Prompt: Failed\nGate 1")}));
}

/// What a person does with the built-in question once it stands there.
bool AnswerQuestion(const std::function<void(QDialog*)>& answer)
{
    QTimer::singleShot(0, qApp, [&answer] {
        auto* pBox = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(pBox);
        EXPECT_EQ(pBox->windowTitle(), QStringLiteral("Prompt"));
        answer(pBox);
    });
    return VxMessageBox::Question(
        nullptr, QStringLiteral("Prompt"), QStringLiteral("Delete <Gate> & go on?"));
}

TEST(MessageBox, OnlyOkIsYes)
{
    const auto press = [](QDialogButtonBox::StandardButton button) {
        return [button](QDialog* pBox) {
            QTest::mouseClick(pBox->findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
        };
    };
    EXPECT_TRUE(AnswerQuestion(press(QDialogButtonBox::Ok)));
    EXPECT_FALSE(AnswerQuestion(press(QDialogButtonBox::Cancel)));
    EXPECT_FALSE(AnswerQuestion([](QDialog* pBox) { QTest::keyClick(pBox, Qt::Key_Escape); }));
    EXPECT_FALSE(AnswerQuestion([](QDialog* pBox) { pBox->close(); }));
}

TEST(MessageBox, NamesOfDevicesAreNoMarkup)
{
    const QString sText = QStringLiteral("<b>Gate</b> &amp; yard");
    VxMessageBox box(nullptr, VxMessageBox::Kind::Message, QStringLiteral("Prompt"), sText, sText);
    VxGUI::VxEmptyState state;
    state.SetState(VxGUI::VxEmptyState::Kind::Failed, sText, sText);
    VxGUI::VxWaitDialog wait(sText);
    for (const QWidget* pShown :
        {static_cast<QWidget*>(&box), static_cast<QWidget*>(&state), static_cast<QWidget*>(&wait)}) {
        for (const auto* pLabel : pShown->findChildren<QLabel*>()) {
            if (pLabel->text() == sText) {
                EXPECT_EQ(pLabel->textFormat(), Qt::PlainText) << pShown->metaObject()->className();
            }
        }
    }
}

TEST(EmptyState, OffersTheActionOnlyWhereThereIsOne)
{
    VxGUI::VxEmptyState state;
    PageDriver driver(state, {500, 400});
    const QSignalSpy actions(&state, &VxGUI::VxEmptyState::SignalAction);
    state.SetState(VxGUI::VxEmptyState::Kind::Failed, QStringLiteral("Failed to get device list"), QString(),
        QStringLiteral("Refresh"));
    driver.Click(QStringLiteral("btnStateAction"));
    EXPECT_EQ(actions.size(), 1);
    state.SetState(VxGUI::VxEmptyState::Kind::Loading, QStringLiteral("Loading"));
    EXPECT_FALSE(driver.IsShown(QStringLiteral("btnStateAction")));
    EXPECT_FALSE(driver.Find<QLabel>(QStringLiteral("lbStateIcon"))->pixmap(Qt::ReturnByValue).isNull());
}

TEST(WaitDialog, ClosesOnlyByItsOwnerOrByCancelWhereAllowed)
{
    VxGUI::VxWaitDialog dialog(QStringLiteral("Exporting"));
    PageDriver driver(dialog, {400, 160});
    const QSignalSpy cancels(&dialog, &VxGUI::VxWaitDialog::SignalCancelled);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    dialog.close();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(cancels.size(), 0);

    dialog.SetCancellable(true);
    driver.Click(QStringLiteral("btnCancel"));
    EXPECT_EQ(cancels.size(), 1);
}

TEST(WaitDialog, ProgressThatIsNotKnownIsShownAsBusy)
{
    VxGUI::VxWaitDialog dialog(QStringLiteral("Exporting"));
    const auto* pBar = dialog.findChild<QProgressBar*>();
    EXPECT_EQ(pBar->maximum(), 0);
    dialog.SetProgress(40);
    EXPECT_EQ(pBar->maximum(), 100);
    EXPECT_EQ(pBar->value(), 40);
    dialog.SetProgress(-1);
    EXPECT_EQ(pBar->maximum(), 0);
}

} // namespace
