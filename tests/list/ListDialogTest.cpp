#include <common/CDeletePromptDlg.h>
#include <common/CFailureListDlg.h>
#include <common/Prompt.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QTreeView>

#include <gtest/gtest.h>

#include <memory>

namespace {

QVector<Common::Failure> MakeFailures(int nCount)
{
    QVector<Common::Failure> vecFailures;
    for (int n = 1; n <= nCount; ++n)
        vecFailures.append(
            {QStringLiteral("Camera %1").arg(n), QStringLiteral("The device does not answer.")});
    return vecFailures;
}

QStringList MakeNames(int nCount)
{
    QStringList listNames;
    for (int n = 1; n <= nCount; ++n)
        listNames.append(QStringLiteral("Camera %1").arg(n));
    return listNames;
}

} // namespace

TEST(FailureList, ManyFailuresScrollAndEachIsToldOnce)
{
    Common::CFailureListDlg dialog(
        QStringLiteral("Failed to move device"), MakeFailures(199) + MakeFailures(20));
    dialog.open();
    PageDriver::Settle();
    EXPECT_LE(dialog.height(), dialog.screen()->availableSize().height());
    EXPECT_LE(dialog.height(), 700);
    const auto* const pTable = dialog.findChild<QTreeView*>(QStringLiteral("treeFailures"));
    EXPECT_EQ(pTable->model()->rowCount(), 199);
    EXPECT_GE(pTable->viewport()->height(), 3 * pTable->sizeHintForRow(0));
    QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("btnCopy")), Qt::LeftButton);
    EXPECT_TRUE(dialog.isVisible());
    const QStringList listCopied = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    EXPECT_EQ(listCopied.size(), 199);
    EXPECT_EQ(listCopied.last(), QStringLiteral("Camera 199: The device does not answer."));
    dialog.hide();
}

TEST(FailureList, EnterAndEscCloseIt)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        Common::CFailureListDlg dialog(QStringLiteral("Failed"), MakeFailures(2));
        dialog.open();
        PageDriver::Settle();
        QTest::keyClick(&dialog, key);
        EXPECT_FALSE(dialog.isVisible()) << key;
    }
}

TEST(FailureList, ThePageMayGoWhileItIsOpen)
{
    auto pPage = std::make_unique<QWidget>();
    pPage->show();
    QTimer::singleShot(0, [&pPage] { pPage.reset(); });
    Common::ShowFailures(pPage.get(), QStringLiteral("Failed to delete user."), MakeFailures(3));
    EXPECT_FALSE(pPage);
}

TEST(FailureList, TheDialogServiceHearsWhatIsTold)
{
    RecordingDialogService dialogs;
    Common::ShowFailures(nullptr, QStringLiteral("Failed to delete user."),
        {{QStringLiteral("anna"), QStringLiteral("busy: later")}});
    EXPECT_EQ(dialogs.Shown(),
        QStringList{QStringLiteral(
            "Prompt: Failed to delete user.\nResult of failure is shown below:\nanna: busy: later")});
}

/// Whoever asks is gone by the time that the user says yes.
class LateYes : public RecordingDialogService
{
public:
    bool Question(QWidget* pParent, const QString&, const QString&) override
    {
        delete pParent;
        return true;
    }
    bool Show(QDialog* pDialog, const VxGUI::DialogSummary&) override
    {
        delete pDialog->parentWidget();
        return true;
    }
};

TEST(Prompts, NothingIsDoneForAPageThatIsGone)
{
    LateYes dialogs;
    EXPECT_FALSE(Common::AskPrompt(new QWidget, QStringLiteral("Are you sure to lock the user?")));
    EXPECT_FALSE(Common::AskPrompt(new QWidget, QString()));
    EXPECT_FALSE(Common::AskDelete(
        new QWidget, QStringLiteral("Are you sure to delete the user?"), {QStringLiteral("anna")}));
}

TEST(DeletePrompt, NamesTenAndCountsTheRest)
{
    const std::pair<int, QString> cases[] = {{1, QStringLiteral("Camera 1")},
        {10, QStringLiteral("Camera 10")}, {11, QStringLiteral("Camera 11")},
        {12, QStringLiteral("and 2 more")}, {37, QStringLiteral("and 27 more")}};
    for (const auto& [nNames, sLast] : cases)
        EXPECT_EQ(
            Common::CDeletePromptDlg::GetNameLines(MakeNames(nNames)).section(QLatin1Char('\n'), -1), sLast);
}

TEST(DeletePrompt, EnterAtOnceDoesNotDelete)
{
    Common::CDeletePromptDlg dialog(QStringLiteral("Prompt"), QStringLiteral("Are you sure?"),
        {QStringLiteral("<b>Gate</b>"), QString(400, QLatin1Char('x'))});
    dialog.open();
    PageDriver::Settle();
    EXPECT_LT(dialog.width(), 800) << "a long name does not make it wide";
    EXPECT_TRUE(
        dialog.findChild<QLabel*>(QStringLiteral("lbNames"))->text().startsWith(QStringLiteral("<b>")));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), int(QDialog::Rejected));
}

TEST(DeletePrompt, IsAnsweredThroughTheDialogService)
{
    RecordingDialogService dialogs;
    dialogs.AnswerNext(true);
    dialogs.AnswerNext(false);
    const QString sQuestion = QStringLiteral("Are you sure to delete the user?");
    EXPECT_TRUE(Common::AskDelete(nullptr, sQuestion, {QStringLiteral("anna")}));
    EXPECT_EQ(dialogs.LastText(), sQuestion);
    EXPECT_EQ(dialogs.LastDetails(), QStringLiteral("anna"));
    EXPECT_FALSE(Common::AskDelete(nullptr, sQuestion, {}));
}
