#include "UserPageFixture.h"

#include <UserManager/CImportDominUserDlg.h>
#include <UserManager/CSyncDominUserDlg.h>

#include <QCheckBox>
#include <QTreeView>

using namespace PlatformConfigUI;
using namespace UserLogical;
using UserPageTest::IsUsable;
using UserPageTest::Part;
using UserPageTest::PopUpWarning;
using UserPageTest::Press;
using UserPageTest::StateTitle;
using UserPageTest::Type;

namespace {

std::vector<DomainUser_t> Directory(const std::string& sPrefix, int nCount)
{
    std::vector<DomainUser_t> vecUsers;
    for (int n = 1; n <= nCount; ++n) {
        const std::string sName = sPrefix + std::to_string(n);
        vecUsers.push_back({sName, "uid=" + sName + ",dc=example,dc=org"});
    }
    return vecUsers;
}

} // namespace

class ImportDomainUsers : public UserPageTest::Fixture
{
protected:
    void OpenDialog()
    {
        Users().AnswerAlways<wire::QueryDomainUsers>([](const auto& request, auto& answer) {
            const std::string& sText = request.sSearchText;
            answer = {Directory(sText.empty() ? "user" : sText, 3), sText.empty()};
        });
        Open();
        Click("btnImportDomain");
        m_pDialog = FindDialog<CImportDominUserDlg>();
        ASSERT_TRUE(m_pDialog);
    }
    QTreeView* Table() { return Part<QTreeView>(m_pDialog, "tableDomain"); }
    void TickUser(int nRow)
    {
        QTest::mouseClick(Table()->viewport(), Qt::LeftButton, Qt::NoModifier,
            Table()->visualRect(Table()->model()->index(nRow, 0)).center());
        PageDriver::Settle();
    }
    void SearchDirectory(const QString& sText)
    {
        auto* const pEdit = Part<QLineEdit>(m_pDialog, "edtSearchDomain");
        Type(pEdit, sText);
        QTest::keyClick(pEdit, Qt::Key_Return);
        PageDriver::Settle();
    }
    void ChooseAllRoles()
    {
        const ExpectWarning warning(PopUpWarning);
        Press(m_pDialog, "btnAddRole");
        auto* const pAll = Part<QCheckBox>(m_pDialog, "chkAllRoles");
        Press(pAll->window(), "chkAllRoles");
        QTest::keyClick(pAll->window(), Qt::Key_Escape);
        PageDriver::Settle();
    }
    QString DialogNotice() { return VxGUI::VxNotification::CurrentText(m_pDialog); }

    QPointer<CImportDominUserDlg> m_pDialog;
};

TEST_F(ImportDomainUsers, TickedUsersOfSeveralSearchesGetTheRoles)
{
    OpenDialog();
    EXPECT_TRUE(Part(m_pDialog, "lbTruncated")->isVisible());
    Press(m_pDialog, "btnNext");
    EXPECT_EQ(DialogNotice(), QStringLiteral("Please select user name."));
    TickUser(1);
    SearchDirectory(QStringLiteral("agent"));
    EXPECT_FALSE(Part(m_pDialog, "lbTruncated")->isVisible());
    Press(m_pDialog, "chkAllUsers");
    TickUser(0);
    EXPECT_EQ(Part<QCheckBox>(m_pDialog, "chkAllUsers")->checkState(), Qt::PartiallyChecked);
    EXPECT_FALSE(IsUsable(m_pDialog, "btnPrevious"));
    Press(m_pDialog, "btnNext");
    EXPECT_EQ(Part<QPushButton>(m_pDialog, "btnNext")->text(), QStringLiteral("OK"));
    Press(m_pDialog, "btnNext");
    EXPECT_EQ(DialogNotice(), QStringLiteral("Please select role."));
    ChooseAllRoles();
    Press(m_pDialog, "btnPrevious");
    Press(m_pDialog, "btnNext");
    Press(m_pDialog, "btnNext");
    const auto added = Users().LastRequest<wire::AddDomainUsers>();
    EXPECT_EQ(added.vecUserNames, (Names{"agent2", "agent3", "user2"}));
    EXPECT_EQ(added.vecRoleIds, (Names{"1", "2", "3"}));
    EXPECT_FALSE(IsUsable(m_pDialog, "btnNext")) << "one at a time";
    const int nQueries = Queries();
    Answer<wire::AddDomainUsers>();
    EXPECT_FALSE(m_pDialog);
    EXPECT_EQ(Queries(), nQueries + 1);
}

TEST_F(ImportDomainUsers, ThoseThatFailAreToldAndCanBeTriedAgain)
{
    OpenDialog();
    Press(m_pDialog, "chkAllUsers");
    Press(m_pDialog, "btnNext");
    ChooseAllRoles();
    Press(m_pDialog, "btnNext");
    Answer<wire::AddDomainUsers>(UICommonMdl::ErrorDirectoryUnreachable);
    EXPECT_TRUE(DialogNotice().startsWith(QStringLiteral("Failed to add domain user. ")));
    Press(m_pDialog, "btnNext");
    Answer<wire::AddDomainUsers>({{{"user3", UICommonMdl::ErrorNameExists}}});
    EXPECT_EQ(m_dialogs.Shown().last(),
        QStringLiteral(
            "Failed to add domain user: Failed to add domain user.\nThe list of domain users that are "
            "failed to add is as follows:\nuser3: ")
            + UICommonMdl::CErrorCode::GetErroCodeInfor(UICommonMdl::ErrorNameExists));
    ASSERT_TRUE(m_pDialog);
    Press(m_pDialog, "btnNext");
    Press(m_pDialog, "btnNext");
    EXPECT_EQ(Users().LastRequest<wire::AddDomainUsers>().vecUserNames, Names{"user3"});
    const FakeCall late = Users().Last<wire::AddDomainUsers>();
    Press(m_pDialog, "btnCancel");
    Users().Answer<wire::AddDomainUsers>(late);
    PageDriver::Settle();
    EXPECT_FALSE(m_pDialog);
}

TEST_F(ImportDomainUsers, TheListSaysWhyItIsEmpty)
{
    OpenDialog();
    const struct
    {
        int nErrorCode;
        VxGUI::VxEmptyState::Kind kind;
        QString sTitle;
    } cases[] = {{UICommonMdl::ErrorDirectoryNotConfigured, VxGUI::VxEmptyState::Kind::NotAvailable,
                     QStringLiteral("No directory is configured on the server.")},
        {UICommonMdl::ErrorDirectoryUnreachable, VxGUI::VxEmptyState::Kind::Failed,
            QStringLiteral("Failed to get the users of the directory.")},
        {UICommonMdl::ErrorNoRight, VxGUI::VxEmptyState::Kind::NoPermission,
            QStringLiteral("Failed to get the users of the directory.")},
        {UICommonMdl::ErrorNone, VxGUI::VxEmptyState::Kind::Empty,
            QStringLiteral("No user of the directory matches the search.")}};
    for (const auto& c : cases) {
        Users().FailAlways<wire::QueryDomainUsers>(c.nErrorCode);
        SearchDirectory(QStringLiteral("nobody"));
        auto* const pState = Part<VxGUI::VxEmptyState>(m_pDialog, "wgtDomainState");
        EXPECT_TRUE(pState->isVisible());
        EXPECT_EQ(pState->GetKind(), c.kind);
        EXPECT_EQ(pState->GetTitle(), c.sTitle);
        EXPECT_FALSE(IsUsable(m_pDialog, "btnNext"));
    }
    Users().Hold<wire::QueryDomainUsers>();
    Connect(false);
    EXPECT_TRUE(Part(m_pDialog, "lbConnection")->isVisible());
    Connect(true);
    EXPECT_EQ(StateTitle(m_pDialog, "wgtDomainState"), QStringLiteral("Reading the directory"));
    Users().Refuse<wire::QueryDomainUsers>();
    SearchDirectory(QString());
    EXPECT_EQ(
        StateTitle(m_pDialog, "wgtDomainState"), QStringLiteral("Failed to get the users of the directory."));
}

class SyncDomainUsers : public UserPageTest::Fixture
{
protected:
    void OpenDialog(int nInvalid)
    {
        Users().AnswerAlways<wire::QueryInvalidDomainUsers>({Directory("gone", nInvalid), false});
        Open();
        Click("btnSyncDomain");
        m_pDialog = FindDialog<CSyncDominUserDlg>();
        ASSERT_TRUE(m_pDialog);
    }

    QPointer<CSyncDominUserDlg> m_pDialog;
};

TEST_F(SyncDomainUsers, DeletesWhatIsListed)
{
    OpenDialog(2);
    EXPECT_TRUE(Part(m_pDialog, "lbSyncText")->isVisible());
    Press(m_pDialog, "btnDelete");
    EXPECT_EQ(Users().LastRequest<wire::DeleteInvalidDomainUsers>().vecUserNames, (Names{"gone1", "gone2"}));
    EXPECT_FALSE(IsUsable(m_pDialog, "btnDelete"));
    Answer<wire::DeleteInvalidDomainUsers>(UICommonMdl::ErrorServerBusy);
    EXPECT_TRUE(VxGUI::VxNotification::CurrentText(m_pDialog).startsWith(
        QStringLiteral("Failed to delete invalid domain user: ")));
    Press(m_pDialog, "btnDelete");
    Answer<wire::DeleteInvalidDomainUsers>({{{"gone2", UICommonMdl::ErrorLastManager}}});
    EXPECT_TRUE(m_dialogs.LastText().startsWith(QStringLiteral("Failed to delete invalid domain user\n")));
    EXPECT_TRUE(m_dialogs.LastText().contains(QStringLiteral("gone2: ")));
    Connect(false);
    EXPECT_FALSE(IsUsable(m_pDialog, "btnDelete"));
    Connect(true);
    const int nQueries = Queries();
    Press(m_pDialog, "btnDelete");
    Answer<wire::DeleteInvalidDomainUsers>();
    EXPECT_FALSE(m_pDialog);
    EXPECT_EQ(Queries(), nQueries + 1);
}

TEST_F(SyncDomainUsers, NothingInvalidHasNothingToDelete)
{
    OpenDialog(0);
    EXPECT_EQ(StateTitle(m_pDialog, "wgtInvalidState"), QStringLiteral("No invalid domain user."));
    EXPECT_FALSE(IsUsable(m_pDialog, "btnDelete"));
    EXPECT_FALSE(Part(m_pDialog, "lbSyncText")->isVisible());
    QTest::keyClick(m_pDialog, Qt::Key_Escape);
    PageDriver::Settle();
    EXPECT_FALSE(m_pDialog);
}
