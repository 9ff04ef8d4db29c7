#include "PersonPageFixture.h"

#include <PersonManager/CDisplayQRcodeDlg.h>
#include <PersonManager/CPersonAuthorizeAbnormalDlg.h>

#include <QTabWidget>

using namespace BasicInfoManagerUI;
using namespace AccessControlLogical;

template <class Dialog>
class PersonDialog : public PersonPageTest::Fixture
{
protected:
    void OpenDialog(const char* pszId, int nButton)
    {
        Open();
        ClickRowButton(pszId, nButton);
        m_pDialog = m_pPage->findChild<Dialog*>();
        ASSERT_TRUE(m_pDialog);
    }
    template <class Widget = QWidget>
    Widget* Part(const char* pszName)
    {
        return m_pDialog->template findChild<Widget*>(QLatin1String(pszName));
    }
    void Press(const char* pszName)
    {
        ASSERT_TRUE(Part(pszName)->isEnabled() && Part(pszName)->isVisible()) << pszName;
        QTest::mouseClick(Part(pszName), Qt::LeftButton);
        PageDriver::Settle();
    }
    void Connect(bool bConnected)
    {
        m_host.PushConnected(bConnected);
        PageDriver::Settle();
    }
    QString DialogNotice() { return VxGUI::VxNotification::CurrentText(m_pDialog); }

    QPointer<Dialog> m_pDialog;
};

class QrCode : public PersonDialog<CDisplayQRcodeDlg>
{
protected:
    void Serve(const char* pszText) { m_host.server.AnswerAlways<wire::QueryQrCode>({pszText, 1750000000}); }
    qint64 Picture() { return Part<QLabel>("lbQrCode")->pixmap(Qt::ReturnByValue).cacheKey(); }
    VxGUI::VxEmptyState* State() { return Part<VxGUI::VxEmptyState>("wgtQrState"); }
    int Queries() { return m_host.server.Count<wire::QueryQrCode>(); }
};

TEST_F(QrCode, AFreshOneComesEveryTwoMinutes)
{
    Serve("person 103, first");
    OpenDialog("103", 4);
    EXPECT_EQ(m_pDialog->size(), QSize(400, 300));
    PageDriver::Settle();
    EXPECT_TRUE(Part("lbQrCode")->isVisible());
    PersonPageTest::Screenshot(m_pDialog, QStringLiteral("person-qr-code"));
    const qint64 nFirst = Picture();
    auto* pTimer = m_pDialog->findChild<QTimer*>(QStringLiteral("timerQrCode"));
    ASSERT_TRUE(pTimer && pTimer->isActive());
    EXPECT_EQ(pTimer->interval(), 120000);
    pTimer->start(0);
    PageDriver::WaitFor([&] { return Queries() > 1; });
    pTimer->start(CDisplayQRcodeDlg::RefreshMs);
    PageDriver::Settle();
    EXPECT_NE(Picture(), nFirst);
}

TEST_F(QrCode, FailureCanBeTriedAgain)
{
    OpenDialog("103", 4);
    EXPECT_EQ(State()->GetKind(), VxGUI::VxEmptyState::Kind::Loading);
    m_host.server.FailLast<wire::QueryQrCode>(UICommonMdl::ErrorServerBusy);
    PageDriver::Settle();
    EXPECT_EQ(State()->GetKind(), VxGUI::VxEmptyState::Kind::Failed);
    PersonPageTest::Screenshot(m_pDialog, QStringLiteral("person-qr-code-failed"));
    Serve("person 103");
    QTest::mouseClick(State()->findChild<QPushButton*>(), Qt::LeftButton);
    PageDriver::Settle();
    EXPECT_TRUE(Part("lbQrCode")->isVisible());
    const int nQueries = Queries();
    Connect(false);
    EXPECT_TRUE(Part("lbQrCode")->isVisible()) << "it is still good";
    Connect(true);
    EXPECT_EQ(Queries(), nQueries + 1);
    m_host.server.Refuse<wire::QueryQrCode>();
    Connect(false);
    Connect(true);
    EXPECT_EQ(State()->GetTitle(), QStringLiteral("Failed to get the QR code"));
}

class Abnormal : public PersonDialog<CPersonAuthorizeAbnormalDlg>
{
protected:
    static AuthorizeException_t Exception(int nCredential, const char* pszDevice)
    {
        return {"102", "Person 2", nCredential, "1", pszDevice, "Door 1", UICommonMdl::ErrorDeviceUnreachable,
            "", false};
    }
    void Serve(const std::vector<AuthorizeException_t>& vecExceptions)
    {
        m_host.server.AnswerAlways<wire::QueryAuthorizeException>({vecExceptions});
    }
    void AnswerResend(int nErrorCode, const std::vector<AuthorizeException_t>& vecLeft)
    {
        m_host.server.ReportLast<wire::ReissuePersonRight>(MakeReport(vecLeft, true, nErrorCode));
        PageDriver::Settle();
    }
    QTabWidget* Tabs() { return Part<QTabWidget>("m_pTabs"); }
    int Rows(int nKind)
    {
        const QString sName = QStringLiteral("tableExceptions%1").arg(nKind);
        return m_pDialog->findChild<QTreeView*>(sName)->model()->rowCount();
    }
};

TEST_F(Abnormal, EachCredentialHasItsTab)
{
    Serve({Exception(CredentialCard, "Lobby"), Exception(CredentialCard, "Yard"),
        Exception(CredentialPassword, "Lobby")});
    OpenDialog("102", 5);
    PageDriver::Settle();
    EXPECT_EQ(Tabs()->tabText(CredentialCard), QStringLiteral("Card - Abnormal"));
    EXPECT_EQ(Tabs()->tabText(CredentialFace), QStringLiteral("Face"));
    EXPECT_EQ(Tabs()->tabText(CredentialPassword), QStringLiteral("Unlock Password - Abnormal"));
    EXPECT_EQ(Tabs()->currentIndex(), CredentialCard) << "the first with rows";
    EXPECT_EQ(Rows(CredentialCard), 2);
    PersonPageTest::Screenshot(m_pDialog, QStringLiteral("person-abnormal"));
    QTest::keyClicks(Part("m_pSearch"), QStringLiteral("999"));
    EXPECT_EQ(Rows(CredentialCard), 0);
    EXPECT_EQ(Tabs()->tabText(CredentialCard), QStringLiteral("Card - Abnormal"));
    Part<QLineEdit>("m_pSearch")->clear();
    QTest::keyClicks(Part("m_pSearch"), QStringLiteral("person"));
    EXPECT_EQ(Rows(CredentialCard), 2);
}

TEST_F(Abnormal, ResendingTellsWhatIsLeft)
{
    const auto card = Exception(CredentialCard, "Lobby");
    const auto face = Exception(CredentialFace, "Lobby");
    Serve({card, face});
    OpenDialog("102", 5);
    PageDriver::Settle();
    Press("m_pBtnResend");
    EXPECT_EQ(m_host.server.LastRequest<wire::ReissuePersonRight>().sPersonId, "102");
    EXPECT_FALSE(Part("m_pBtnResend")->isEnabled());
    EXPECT_FALSE(Part("m_pBtnUpdate")->isEnabled());
    AnswerResend(UICommonMdl::ErrorServerBusy, {});
    EXPECT_TRUE(DialogNotice().startsWith(QStringLiteral("Failed to re-release right: ")));
    EXPECT_EQ(Rows(CredentialCard), 1) << "nothing is known to be better";
    Press("m_pBtnResend");
    AnswerResend(0, {card, face});
    EXPECT_EQ(DialogNotice(), QStringLiteral("Failed to sync personnel"));
    Press("m_pBtnResend");
    AnswerResend(0, {face});
    EXPECT_EQ(DialogNotice(), QStringLiteral("Failed to sync partial persons."));
    EXPECT_EQ(Tabs()->tabText(CredentialCard), QStringLiteral("Card"));
    Press("m_pBtnResend");
    AnswerResend(0, {});
    EXPECT_EQ(DialogNotice(), QStringLiteral("Information updated. No exceptions found."));
    EXPECT_FALSE(Part("m_pBtnResend")->isEnabled());
    const int nQueries = m_host.server.Count<wire::QueryPersonList>();
    Press("m_pBtnCancel");
    EXPECT_EQ(m_host.server.Count<wire::QueryPersonList>(), nQueries + 1) << "the row's mark may be gone";
}

TEST_F(Abnormal, QueryFailureKeepsWhatWasRead)
{
    m_host.server.FailAlways<wire::QueryAuthorizeException>(UICommonMdl::ErrorTimeOut);
    OpenDialog("102", 5);
    PageDriver::Settle();
    const QString sFailed =
        QStringLiteral("Failed to search access group authorization exception information");
    EXPECT_TRUE(DialogNotice().startsWith(sFailed));
    EXPECT_EQ(Part<VxGUI::VxEmptyState>("wgtState")->GetTitle(), sFailed);
    Serve({Exception(CredentialFace, "Lobby")});
    Press("m_pBtnUpdate");
    EXPECT_EQ(Rows(CredentialFace), 1);
    Connect(false);
    EXPECT_FALSE(Part("m_pBtnResend")->isEnabled());
    EXPECT_EQ(Rows(CredentialFace), 1);
    Serve({});
    Connect(true);
    EXPECT_EQ(Part<VxGUI::VxEmptyState>("wgtState")->GetTitle(),
        QStringLiteral("Information updated. No exceptions found."));
}
