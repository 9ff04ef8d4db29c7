// What every editor does around its record: saving, and what it tells when the answer does not say what
// became of it.

#include <UICommonMdl/ErrorCodes.h>
#include <common/CEditor.h>
#include <common/CSaveNotice.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

using namespace UICommonMdl;

struct Note_t
{
    std::string sId;
    std::string sName;
    std::string sRemark;
    std::string sSecret;
    std::vector<std::string> vecTags;
    std::int64_t nVersion = 0;

    bool operator==(const Note_t&) const = default;
};

/// A form of a note. It keeps what it is asked for; the test answers.
class NoteForm : public QWidget, public Common::IRecordForm<Note_t>
{
public:
    explicit NoteForm(const CInterfaceSetManager* pInterfaceSet)
        : m_session(pInterfaceSet, this)
        , m_editor(m_session, this, *this)
        , m_pName(new QLineEdit(this))
        , m_pRemark(new QLineEdit(this))
        , m_pNotice(new Common::CSaveNotice(this))
    {
        auto* const pLayout = new QVBoxLayout(this);
        for (QWidget* const pPart : std::initializer_list<QWidget*>{m_pNotice, m_pName, m_pRemark})
            pLayout->addWidget(pPart);
        m_editor.Fields().Add(QStringLiteral("Name"), &Note_t::sName);
        m_editor.Fields().Add(QStringLiteral("Remark"), &Note_t::sRemark);
        m_editor.Fields().Add(QStringLiteral("Tags"), &Note_t::vecTags);
        m_editor.Fields().AddSecret(QStringLiteral("Secret"), &Note_t::sSecret);
        m_editor.SetNotice(m_pNotice);
        m_editor.SetSecondLook({});
        m_editor.SetClose([this] { ++m_nClosed; });
        show();
    }

    void ShowRecord(const Note_t& record) override
    {
        m_pName->setText(QString::fromStdString(record.sName));
        m_pRemark->setText(QString::fromStdString(record.sRemark));
    }
    Note_t GetEdited() const override
    {
        Note_t edited = m_editor.GetLoaded();
        edited.sName = m_pName->text().toStdString();
        edited.sRemark = m_pRemark->text().toStdString();
        edited.sSecret = m_sSecret;
        return edited;
    }
    bool CheckInput() override { return !m_pName->text().isEmpty(); }
    void Send(const Note_t& record, bool) override { m_vecSent.push_back(record); }
    void Fetch(const Note_t&, bool) override { ++m_nFetches; }
    void OnSaved(const Note_t& record) override { m_vecSaved.push_back(record); }
    bool ShowRefusal(int nErrorCode, const std::string&) override
    {
        m_vecRefusals.push_back(nErrorCode);
        return true;
    }

    QString Notice() const { return m_pNotice->findChild<QLabel*>()->text(); }

    Common::CSession m_session;
    Common::CEditor<Note_t> m_editor;
    QLineEdit* m_pName;
    QLineEdit* m_pRemark;
    Common::CSaveNotice* m_pNotice;
    std::string m_sSecret;
    std::vector<Note_t> m_vecSent;
    std::vector<Note_t> m_vecSaved;
    std::vector<int> m_vecRefusals;
    int m_nFetches = 0;
    int m_nClosed = 0;
};

class Editor : public testing::Test
{
protected:
    static Note_t Loaded() { return {"1", "Gate", "old", "", {"b", "a"}, 4}; }
    /// Somebody's change of the remark.
    static Note_t Theirs() { return {"1", "Gate", "theirs", "", {"a", "b"}, 5}; }

    void Rename(bool bNew)
    {
        if (bNew)
            Edit().BeginNew({"", "", "old", "", {"b", "a"}, 0});
        else
            Edit().BeginEdit(Loaded());
        m_form.m_pName->setText(QStringLiteral("Door"));
        Edit().Save();
    }
    Common::CEditor<Note_t>& Edit() { return m_form.m_editor; }
    /// Also to the second look, when there is one.
    void Fetched(int nErrorCode, const Note_t* pFound)
    {
        for (int nLook = 0; nLook < 2; ++nLook) {
            Edit().OnFetched(nErrorCode, pFound);
            PageDriver::Settle();
        }
    }
    bool IsUnknown() const { return m_form.m_editor.GetState() == Common::CEditorBase::State::Unknown; }
    void Connect(bool bConnected)
    {
        m_host.PushConnected(bConnected);
        PageDriver::Settle();
    }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    NoteForm m_form{&m_host.interfaceSet};
};

TEST_F(Editor, LooksUpWhatTheAnswerDoesNotSay)
{
    enum Outcome
    {
        Saved,
        NotSaved,
        Refused,
        Unknown
    };
    const Note_t own{"7", "Door", "old", "", {"a", "b"}, 5};
    const Note_t other{"7", "Door", "of somebody else", "", {}, 1};
    const Note_t unchanged = Loaded();
    const struct
    {
        const char* pszWhat;
        bool bNew;
        int nAnswer;
        int nFetched;
        const Note_t* pFound;
        Outcome outcome;
        int nRefusal;
    } cases[] = {{"it was added", true, ErrorTimeOut, ErrorNone, &own, Saved, 0},
        {"it was changed", false, ErrorDisconnected, ErrorNone, &own, Saved, 0},
        {"it was not added", true, ErrorDisconnected, ErrorNone, nullptr, NotSaved, 0},
        {"not, in so many words", true, ErrorBadAnswer, ErrorNotFound, nullptr, NotSaved, 0},
        {"it was not changed", false, ErrorTimeOut, ErrorNone, &unchanged, NotSaved, 0},
        {"the name is another one's", true, ErrorTimeOut, ErrorNone, &other, Refused, ErrorNameExists},
        {"it is gone", false, ErrorTimeOut, ErrorNotFound, nullptr, Refused, ErrorNotFound},
        {"somebody entered the same", false, ErrorVersionConflict, ErrorNone, &own, Saved, 0},
        {"the look fails", false, ErrorTimeOut, ErrorDatabaseBusy, nullptr, Unknown, 0},
        {"a plain refusal", false, ErrorNameExists, -99, nullptr, Refused, ErrorNameExists}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszWhat);
        m_form.m_vecSaved.clear();
        m_form.m_vecRefusals.clear();
        Rename(c.bNew);
        Edit().OnAnswer(c.nAnswer, {}, nullptr);
        if (c.nFetched != -99)
            Fetched(c.nFetched, c.pFound);
        EXPECT_EQ(m_form.m_vecSaved.size(), c.outcome == Saved ? 1U : 0U);
        EXPECT_EQ(m_form.m_vecRefusals, c.nRefusal == 0 ? std::vector<int>{} : std::vector<int>{c.nRefusal});
        EXPECT_EQ(IsUnknown(), c.outcome == Unknown);
        EXPECT_EQ(m_form.Notice().startsWith(QStringLiteral("This was not saved.")), c.outcome == NotSaved);
        EXPECT_EQ(m_form.m_pNotice->isVisible(), c.outcome == NotSaved || c.outcome == Unknown);
        EXPECT_EQ(m_form.m_pName->text(), QStringLiteral("Door")) << "the input stays";
    }
}

TEST_F(Editor, WhatTheServerDoesAfterTheFirstLookIsSeenByTheSecond)
{
    const Note_t own{"7", "Door", "old", "", {"a", "b"}, 1};
    Rename(true);
    Edit().OnAnswer(ErrorTimeOut, {}, nullptr);
    Edit().OnFetched(ErrorNone, nullptr);
    PageDriver::Settle();
    EXPECT_EQ(m_form.m_nFetches, 2);
    Edit().OnFetched(ErrorNone, &own);
    EXPECT_EQ(m_form.m_vecSaved, (std::vector<Note_t>{own}));
    EXPECT_TRUE(m_form.m_vecRefusals.empty());
}

TEST_F(Editor, NeverClashesWithItsOwnSave)
{
    const Note_t own{"7", "Door", "old", "", {"a", "b"}, 1};
    Rename(true);
    Edit().OnAnswer(ErrorTimeOut, {}, nullptr);
    Fetched(ErrorNone, nullptr);
    // The server did it after all, later than the look.
    Edit().Save();
    Edit().OnAnswer(ErrorNameExists, {}, nullptr);
    Edit().OnFetched(ErrorNone, &own);
    EXPECT_EQ(m_form.m_vecSaved, (std::vector<Note_t>{own}));
    EXPECT_TRUE(m_form.m_vecRefusals.empty());
}

TEST_F(Editor, AConflictIsNotCalledUnknown)
{
    Rename(false);
    Edit().OnAnswer(ErrorVersionConflict, {}, nullptr);
    Edit().OnFetched(ErrorDatabaseBusy, nullptr);
    ASSERT_TRUE(IsUnknown());
    EXPECT_TRUE(m_form.Notice().startsWith(QStringLiteral("Somebody else has changed this")));
}

TEST_F(Editor, AnEarlierDoubtDoesNotTakeAnothersSecretForItsOwn)
{
    Edit().BeginEdit(Loaded());
    m_form.m_sSecret = "1234";
    Edit().Save();
    Edit().OnAnswer(ErrorTimeOut, {}, nullptr);
    const Note_t unchanged = Loaded();
    Fetched(ErrorNone, &unchanged);
    Edit().Save();
    Edit().OnAnswer(ErrorVersionConflict, {}, nullptr);
    Note_t changed = Loaded();
    ++changed.nVersion;
    m_dialogs.ClickNext(QStringLiteral("btnGoOn"));
    Edit().OnFetched(ErrorNone, &changed);
    EXPECT_TRUE(m_form.m_vecSaved.empty()) << "whose secret it is cannot be seen";
}

TEST_F(Editor, AsksAgainWhenTheServerIsBackAndWhenItIsTold)
{
    Rename(false);
    Connect(false);
    Edit().OnAnswer(ErrorDisconnected, {}, nullptr);
    Edit().OnFetched(ErrorDisconnected, nullptr);
    EXPECT_TRUE(m_form.Notice().endsWith(QStringLiteral("as soon as the server is back.")));
    EXPECT_FALSE(Edit().CanSave());
    Connect(true);
    EXPECT_EQ(m_form.m_nFetches, 2);
    Edit().OnFetched(ErrorDatabaseBusy, nullptr);
    ASSERT_TRUE(IsUnknown());
    m_form.m_pNotice->findChild<QPushButton*>()->click();
    EXPECT_EQ(m_form.m_nFetches, 3);
    m_dialogs.AnswerNext(false);
    EXPECT_FALSE(Edit().Leave()) << "as long as it is not known it asks";
    const Note_t unchanged = Loaded();
    Fetched(ErrorNone, &unchanged);
    EXPECT_TRUE(Edit().CanSave());
    Edit().Save();
    EXPECT_EQ(m_form.m_vecSent.size(), 2U);
}

TEST_F(Editor, AConflictShowsWhatDiffersAndSavesOnlyWhatWasChanged)
{
    const Note_t theirs = Theirs();
    const auto meet = [&](const char* pszButton) {
        m_dialogs.ClickNext(QLatin1String(pszButton));
        Edit().OnAnswer(ErrorVersionConflict, {}, nullptr);
        Edit().OnFetched(ErrorNone, &theirs);
        EXPECT_EQ(
            m_dialogs.LastDetails(), QStringLiteral("Name: Gate | Door\nRemark: theirs | (not changed)"));
    };
    Rename(false);
    meet("btnGoOn");
    EXPECT_EQ(m_form.m_pName->text(), QStringLiteral("Door"));
    Edit().Save();
    EXPECT_EQ(m_form.m_vecSent.back(), (Note_t{"1", "Door", "old", "", {"b", "a"}, 4}))
        << "nothing was decided";
    meet("btnSaveMine");
    const Note_t merged{"1", "Door", "theirs", "", {"a", "b"}, 5};
    EXPECT_EQ(m_form.m_vecSent.back(), merged);
    Edit().OnAnswer(ErrorServerBusy, {}, nullptr);
    Edit().Save();
    EXPECT_EQ(m_form.m_vecSent.back().nVersion, 4) << "it is decided anew";
    meet("btnLoadAgain");
    EXPECT_EQ(m_form.m_pName->text(), QStringLiteral("Gate"));
    EXPECT_EQ(m_form.m_pRemark->text(), QStringLiteral("theirs"));
    EXPECT_FALSE(Edit().IsDirty());
}

TEST_F(Editor, KeysAreMergedOneByOne)
{
    Common::RecordFields<Note_t> fields;
    fields.AddKeys(QStringLiteral("Tags"), &Note_t::vecTags,
        [](const std::string& sKey) { return QString::fromStdString(sKey).toUpper(); });
    const Note_t base{"1", "", "", "", {"a", "b", "c"}, 1};
    const Note_t mine{"1", "", "", "", {"b", "c", "m"}, 1};
    const Note_t theirs{"1", "", "", "", {"a", "b", "t"}, 2};
    EXPECT_EQ(fields.Merge(base, mine, theirs).vecTags, (std::vector<std::string>{"b", "t", "m"}));
    const auto vecDifferences = fields.Compare(base, mine, theirs);
    ASSERT_EQ(vecDifferences.size(), 1);
    EXPECT_EQ(vecDifferences[0].sTheirs, QStringLiteral("also: A, T"));
    EXPECT_EQ(vecDifferences[0].sMine, QStringLiteral("also: C, M"));
}

TEST_F(Editor, WhatWasEmptiedIsToldAsChanged)
{
    const Note_t theirs = Theirs();
    Edit().BeginEdit(Loaded());
    m_form.m_pRemark->clear();
    Edit().Save();
    m_dialogs.ClickNext(QStringLiteral("btnGoOn"));
    Edit().OnAnswer(ErrorVersionConflict, {}, nullptr);
    Edit().OnFetched(ErrorNone, &theirs);
    EXPECT_EQ(m_dialogs.LastDetails(), QStringLiteral("Remark: theirs | (empty)"));
    Common::RecordFields<Note_t> fields;
    fields.Add(QStringLiteral("Tags"), &Note_t::vecTags);
    const auto vecDifferences = fields.Compare(Loaded(), {"1", "Gate", "old", "", {}, 4}, theirs);
    ASSERT_EQ(vecDifferences.size(), 1);
    EXPECT_TRUE(vecDifferences[0].bTouched);
}

/// Dialogs as those of the client are: they run the event loop, and go with their parent.
class WaitingService : public VxGUI::VxDialogService
{
public:
    WaitingService()
        : m_pBefore(SetCurrent(this))
    {
    }
    ~WaitingService() override { SetCurrent(m_pBefore); }
    bool Question(QWidget* pParent, const QString&, const QString&) override
    {
        const QPointer<QWidget> guard(pParent);
        meanwhile();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        bParentGone = !guard;
        return false;
    }
    void Message(QWidget*, const QString&, const QString&, const QString&) override { }
    bool Show(QDialog*, const VxGUI::DialogSummary&) override { return false; }
    QString SaveFile(QWidget*, const QString&, const QString&, const QString&) override { return {}; }
    QString OpenFile(QWidget*, const QString&, const QString&, const QString&) override { return {}; }

    std::function<void()> meanwhile;
    bool bParentGone = false;

private:
    VxGUI::VxDialogService* m_pBefore;
};

TEST_F(Editor, TheQuestionWhetherToLeaveGoesWhenTheSaveHasEnded)
{
    WaitingService service;
    service.meanwhile = [this] { Edit().OnAnswer(ErrorNone, {}, nullptr); };
    Rename(false);
    EXPECT_TRUE(Edit().Leave()) << "it is saved: nothing keeps the user";
    EXPECT_TRUE(service.bParentGone);
}

TEST_F(Editor, ASecretThatWasEnteredIsNeverTakenForSaved)
{
    // What the server has looks as it was sent, but the secret cannot be seen.
    const Note_t own{"1", "Door", "old", "", {"a", "b"}, 5};
    m_form.m_sSecret = "1234";
    Rename(false);
    m_dialogs.ClickNext(QStringLiteral("btnSaveMine"));
    Edit().OnAnswer(ErrorVersionConflict, {}, nullptr);
    Edit().OnFetched(ErrorNone, &own);
    EXPECT_TRUE(m_form.m_vecSaved.empty());
    EXPECT_FALSE(m_dialogs.LastDetails().contains(QStringLiteral("1234")));
    EXPECT_EQ(m_form.m_vecSent.back().sSecret, "1234");
}

TEST_F(Editor, LeavingAsksForInputOnlyAndEndsIt)
{
    EXPECT_TRUE(Common::CInputGuard::LeaveBelow(&m_form)) << "nothing was begun";
    Edit().BeginEdit(Loaded());
    EXPECT_TRUE(Common::CInputGuard::LeaveBelow(&m_form));
    EXPECT_EQ(m_form.m_nClosed, 0) << "what holds no input stays as it is";
    m_form.m_pRemark->setText(QStringLiteral("new"));
    m_dialogs.AnswerNext(false);
    EXPECT_FALSE(Common::CInputGuard::LeaveBelow(&m_form));
    m_dialogs.AnswerNext(true);
    EXPECT_TRUE(Common::CInputGuard::LeaveBelow(&m_form));
    EXPECT_EQ(m_form.m_nClosed, 1);
    EXPECT_TRUE(Common::CInputGuard::LeaveBelow(&m_form)) << "it was given up";
    Edit().BeginLoad(Loaded(), Common::CEditorBase::Purpose::Details);
    const Note_t loaded = Loaded();
    Fetched(ErrorNone, &loaded);
    m_form.m_pRemark->setText(QStringLiteral("new"));
    EXPECT_TRUE(Edit().Leave()) << "what is only shown is not lost";
}

} // namespace
