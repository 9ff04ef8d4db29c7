// The person page on a real server: what an operator builds is there after a restart.

#include "LiveClient.h"

#include <CardReader/SimulatedCardReader.h>
#include <Credentials/CBatchIssueCard.h>
#include <Credentials/CFingerName.h>
#include <Credentials/CInputFinger.h>
#include <FingerprintReader/SimulatedFingerprintReader.h>
#include <PersonEdit/CPersonnelInfoUI.h>
#include <PersonManager/CDisplayQRcodeDlg.h>
#include <PersonManager/CMovePersonTree.h>
#include <PersonManager/CPersonGroupEditUI.h>
#include <PersonManager/CPersonManagerCtrl.h>
#include <PersonManager/CPersonModel.h>
#include <PersonManager/CPersonnelListView.h>
#include <UICommonMdl/CCodeTreeModel.h>
#include <UICommonMdl/ILocalConfig.h>
#include <VxGUI/VxLineEdit.h>
#include <VxGUI/VxNotification.h>
#include <common/CSearchTreeView.h>
#include <tests/support/core/QtWarnings.h>
#include <tests/support/server/FieldDevices.h>

#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>

#include <gmock/gmock.h>

using namespace BasicInfoManagerUI;
using TestSupport::FieldDevices;
using TestSupport::TestServer;
using TestSupport::TestServerOptions;

namespace {

// Without a display a pop-up can be shown, but neither raised nor given the keyboard.
const QString PopUpWarning = QStringLiteral("This plugin does not support");

class LivePersons : public testing::Test
{
protected:
    LivePersons()
    {
        CardReader::Simulation::Reset();
        CardReader::Simulation::StopOwnCards();
        FingerprintReader::Simulation::Reset();
        FingerprintReader::Simulation::SetFingerAtOnce();
        m_client.Client().GetLocalConfig()->SetValue(
            QStringLiteral("AuthenFinger/type"), CInputFinger::ReaderUsb);
        m_client.Client().GetLocalConfig()->SetValue(QStringLiteral("AuthenCard/type"), 2);
    }
    void Open()
    {
        m_pPage = std::make_unique<CPersonManagerCtrl>(m_client.Interfaces());
        m_pList = std::make_unique<PageDriver>(
            *m_pPage->findChild<QWidget*>(QStringLiteral("pagePersons")), QSize(1500, 850));
        m_pPage->resize(1500, 850);
        m_client.WaitIdle();
    }
    void Close()
    {
        m_vecDrivers.clear();
        m_pList.reset();
        m_pPage.reset();
    }
    void TearDown() override
    {
        Close();
        CardReader::Simulation::Reset();
        FingerprintReader::Simulation::Reset();
    }

    /// A driver hides the window when it goes: it lives as long as the page.
    template <class Widget>
    PageDriver* Drive()
    {
        auto* const pWidget = m_pPage->findChild<Widget*>();
        EXPECT_TRUE(pWidget);
        m_vecDrivers.push_back(std::make_unique<PageDriver>(*pWidget, m_pPage->size()));
        return m_vecDrivers.back().get();
    }
    void Click(PageDriver& driver, const char* pszName)
    {
        driver.Click(QLatin1String(pszName));
        m_client.WaitIdle();
    }
    void Click(const char* pszName) { Click(*m_pList, pszName); }
    Common::CSearchTreeView* Tree()
    {
        return m_pPage->findChild<Common::CSearchTreeView*>(QStringLiteral("m_pTreeWnd"));
    }
    CPersonnelListView* List() { return m_pPage->findChild<CPersonnelListView*>(); }
    QString CodeOf(const char* pszName)
    {
        Tree()->expandAll();
        return UICommonMdl::CCodeTreeModel::GetCode(m_pList->FindRow(Tree(), 0, QLatin1String(pszName)));
    }
    void SelectGroup(const char* pszName)
    {
        Tree()->expandAll();
        m_pList->ClickIndex(Tree(), m_pList->FindRow(Tree(), 0, QLatin1String(pszName)));
        m_client.WaitIdle();
    }
    void AddGroup(const char* pszParent, const char* pszName)
    {
        SelectGroup(pszParent);
        Click("m_btnAddOrg");
        auto* const pDialog = m_pPage->findChild<CPersonGroupEditUI*>();
        ASSERT_TRUE(pDialog);
        QTest::keyClicks(
            pDialog->findChild<VxGUI::VxLineEdit*>(QStringLiteral("m_pEditGroupName"))->GetLineEdit(),
            QLatin1String(pszName));
        QTest::mouseClick(pDialog->findChild<QPushButton*>(QStringLiteral("m_pBtnAdd")), Qt::LeftButton);
        m_client.WaitIdle();
        ASSERT_FALSE(m_pPage->findChild<CPersonGroupEditUI*>());
    }
    QStringList Column(int nColumn)
    {
        QStringList listTexts;
        for (int nRow = 0; nRow < List()->model()->rowCount(); ++nRow)
            listTexts << List()->model()->index(nRow, nColumn).data().toString();
        return listTexts;
    }
    void Check(const char* pszId)
    {
        const QModelIndex index = m_pList->FindRow(List(), PersonColumnId, QLatin1String(pszId));
        m_pList->ClickIndex(List(), index.siblingAtColumn(PersonColumnCheck));
    }
    QString Notice() { return VxGUI::VxNotification::CurrentText(m_pPage.get()); }
    QVariant Sql(const char* pszText) { return m_server.QuerySql(QLatin1String(pszText)); }

    void EnrolFinger(PageDriver& editor)
    {
        editor.Click(QStringLiteral("m_pBtnAddFingerprint"));
        m_client.WaitIdle();
        auto* const pDialog = m_pPage->findChild<CInputFinger*>();
        ASSERT_TRUE(pDialog);
        QTest::mouseClick(pDialog->findChild<QPushButton*>(QStringLiteral("m_pBtnStart")), Qt::LeftButton);
        ASSERT_TRUE(PageDriver::WaitFor([this] { return m_pPage->findChild<CFingerName*>() != nullptr; }));
        auto* const pName = m_pPage->findChild<CFingerName*>();
        QTest::mouseClick(
            pName->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
        PageDriver::Settle();
    }
    void AddCard(PageDriver& editor, const char* pszNumber)
    {
        editor.Type(QStringLiteral("m_pEditCardNo"), QLatin1String(pszNumber));
        editor.Click(QStringLiteral("m_pBtnConfirmCard"));
        PageDriver::Settle();
    }
    void UploadPhoto(PageDriver& editor)
    {
        QImage picture(400, 500, QImage::Format_RGB32);
        picture.fill(QColor(40, 120, 200));
        const QString sPath = m_folder.filePath(QStringLiteral("photo.jpg"));
        ASSERT_TRUE(picture.save(sPath));
        m_dialogs.ChooseNextFile(sPath);
        editor.Click(QStringLiteral("m_pBtnUpload"));
        ASSERT_TRUE(PageDriver::WaitFor(
            [this] { return m_pPage->findChild<QDialog*>(QStringLiteral("CCutPhotoDlg")) != nullptr; }));
        auto* const pDialog = m_pPage->findChild<QDialog*>(QStringLiteral("CCutPhotoDlg"));
        QTest::mouseClick(
            pDialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
        PageDriver::Settle();
    }

    static TestServerOptions Options()
    {
        TestServerOptions options;
        options.nDeviceTimeoutMs = 1000;
        return options;
    }

    QTemporaryDir m_folder;
    RecordingDialogService m_dialogs;
    TestServer m_server{Options()};
    LiveClient m_client{m_server};
    std::unique_ptr<CPersonManagerCtrl> m_pPage;
    std::unique_ptr<PageDriver> m_pList;
    std::vector<std::unique_ptr<PageDriver>> m_vecDrivers;
};

TEST_F(LivePersons, WhatAnOperatorBuildsIsThereAfterARestart)
{
    Open();
    AddGroup("All Persons", "Engineering");
    AddGroup("Engineering", "Testing");
    SelectGroup("Engineering");
    EXPECT_EQ(
        m_pList->Find<QLabel>(QStringLiteral("lbPersonGroupName"))->text(), QStringLiteral("Engineering"));

    Click("m_btnAdd");
    auto* editor = Drive<CPersonnelInfoUI>();
    editor->Type(QStringLiteral("m_pEditId"), QStringLiteral("4711"));
    editor->Type(QStringLiteral("m_pEditName"), QStringLiteral("Ada Reader"));
    UploadPhoto(*editor);
    AddCard(*editor, "0a1b");
    AddCard(*editor, "FFEE");
    for (int n = 0; n < 3; ++n)
        EnrolFinger(*editor);
    Click(*editor, "m_pAddAndContinue");
    EXPECT_EQ(editor->Find<VxGUI::VxLineEdit>(QStringLiteral("m_pEditId"))->text(), QString());
    editor->Type(QStringLiteral("m_pEditId"), QStringLiteral("4712"));
    editor->Type(QStringLiteral("m_pEditName"), QStringLiteral("Bob Second"));
    AddCard(*editor, "ffee");
    Click(*editor, "m_pBtnOk");
    EXPECT_TRUE(editor->IsShown(QStringLiteral("m_pBtnOk"))) << "the card is Ada's";
    EXPECT_TRUE(m_dialogs.LastText().contains(QStringLiteral("FFEE"))) << qPrintable(m_dialogs.LastText());
    AddCard(*editor, "BB");

    // The whole page starts anew on a restarted server.
    Close();
    m_server.Restart();
    ASSERT_TRUE(PageDriver::WaitFor([this] { return m_server.StreamCount() > 0; }));
    m_client.WaitIdle();
    Open();
    SelectGroup("Engineering");
    EXPECT_THAT(Column(PersonColumnId), testing::ElementsAre(QStringLiteral("4711")));
    EXPECT_EQ(Column(PersonColumnCards), QStringList{QStringLiteral("2")});
    EXPECT_EQ(Column(PersonColumnFingerprints), QStringList{QStringLiteral("3")});
    EXPECT_EQ(Sql("SELECT COUNT(*) FROM person_fingerprint WHERE template_sealed <> ''").toInt(), 3);
    // The photo comes from the server.
    EXPECT_TRUE(PageDriver::WaitFor([this] {
        const QVariant vPicture = List()->model()->index(0, PersonColumnPhoto).data(Qt::DecorationRole);
        const QImage image = vPicture.value<QIcon>().pixmap(32, 32).toImage();
        return !image.isNull() && qBlue(image.pixel(image.rect().center())) > 150;
    }));
    m_pList->Screenshot(QStringLiteral("person-page-live"));

    // Edited, moved, and deleted with its group.
    m_pList->ClickIndex(List(), List()->model()->index(0, PersonColumnName));
    QTest::keyClick(List(), Qt::Key_F2);
    m_client.WaitIdle();
    editor = Drive<CPersonnelInfoUI>();
    editor->Type(QStringLiteral("m_pEditName"), QStringLiteral("Ada Writer"));
    editor->Screenshot(QStringLiteral("person-editor-live"));
    Click(*editor, "m_pBtnOk");
    EXPECT_EQ(Column(PersonColumnName), QStringList{QStringLiteral("Ada Writer")});
    EXPECT_EQ(Sql("SELECT COUNT(*) FROM person_fingerprint WHERE template_sealed <> ''").toInt(), 3)
        << "an edit keeps what the page never saw";

    Check("4711");
    const ExpectWarning popUp(PopUpWarning);
    Click("btnMoveTo");
    auto* const pMove = m_pPage->findChild<CMovePersonTree*>();
    ASSERT_TRUE(pMove);
    auto* const pTree = pMove->findChild<Common::CSearchTreeView*>();
    pTree->SelectCode(CodeOf("Testing"));
    const auto listButtons = pMove->findChildren<QPushButton*>();
    for (QPushButton* pButton : listButtons) {
        if (pButton->text() == QStringLiteral("OK"))
            QTest::mouseClick(pButton, Qt::LeftButton);
    }
    m_client.WaitIdle();
    EXPECT_EQ(Column(PersonColumnGroup), QStringList{QStringLiteral("Testing")});
    m_pList->Find<QCheckBox>(QStringLiteral("cbContainSub"))->click();
    m_client.WaitIdle();
    EXPECT_TRUE(Column(PersonColumnId).isEmpty());

    SelectGroup("Testing");
    m_dialogs.AnswerNext(true);
    Click("m_btnDelOrg");
    EXPECT_EQ(Sql("SELECT COUNT(*) FROM person").toInt(), 0);
    EXPECT_EQ(Sql("SELECT COUNT(*) FROM person_group").toInt(), 2);
}

TEST_F(LivePersons, CardsAreIssuedInBatchAndReadFromTheReader)
{
    for (const char* szId : {"11", "12"})
        m_server.RunSql(
            QStringLiteral("INSERT INTO person (id, name, gender, group_code, telephone, email, remark, "
                           "valid_from, valid_to, nickname, birthday, entry_date, company, position, "
                           "person_type, extend_time, card_times, device_login, room_no, plates, "
                           "search_key) VALUES (?, 'Person', 0, '001', '', '', '', 0, 0, '', '', '', "
                           "'', '', 0, 5, 0, 0, '', '', 'person')"),
            {QString::fromLatin1(szId).toInt()});
    Open();
    Check("11");
    Check("12");
    Click("m_btnBatchIssuCard");
    auto* const issue = Drive<CBatchIssueCard>();
    CardReader::Simulation::PutCard(QStringLiteral("AB01"));
    CardReader::Simulation::PutCard(QStringLiteral("AB02"));
    issue->Click(QStringLiteral("m_pBtnReadCard"));
    auto* const pTable = issue->Find<QTreeView>(QStringLiteral("tableIssueCard"));
    EXPECT_TRUE(PageDriver::WaitFor(
        [&] { return pTable->model()->index(1, 1).data().toString() == QStringLiteral("AB02"); }));
    Click(*issue, "m_pBtnSaveBatch");
    EXPECT_EQ(Column(PersonColumnCards), (QStringList{QStringLiteral("1"), QStringLiteral("1")}));
    EXPECT_EQ(Sql("SELECT card_no FROM person_card WHERE person_id = 12").toString(), QStringLiteral("AB02"));
}

TEST_F(LivePersons, OfTwoOperatorsTheSecondIsToldAndLosesNothing)
{
    Open();
    AccessControlLogical::Person_t person;
    person.sPersonId = "55";
    person.sName = "Shared";
    person.sGroupCode = "001";
    m_client.Interfaces()->GetAccessControlManager()->AddPerson(person);
    ASSERT_TRUE(PageDriver::WaitFor([this] { return Column(PersonColumnId).size() == 1; })) << "pushed";
    m_pList->ClickIndex(List(), List()->model()->index(0, PersonColumnName));
    QTest::keyClick(List(), Qt::Key_F2);
    m_client.WaitIdle();
    auto* editor = Drive<CPersonnelInfoUI>();
    editor->Type(QStringLiteral("m_pEditName"), QStringLiteral("Mine"));
    person.sName = "Theirs";
    person.nVersion = 1;
    m_client.Interfaces()->GetAccessControlManager()->ModifyPerson(person);
    m_client.WaitIdle();
    m_dialogs.ClickNext(QStringLiteral("btnGoOn"));
    Click(*editor, "m_pBtnOk");
    EXPECT_EQ(editor->Find<VxGUI::VxLineEdit>(QStringLiteral("m_pEditName"))->text(), QStringLiteral("Mine"));
    EXPECT_TRUE(m_dialogs.LastDetails().contains(QStringLiteral("Theirs | Mine")));
    EXPECT_EQ(Sql("SELECT name FROM person").toString(), QStringLiteral("Theirs"));
    // While the server is away the input stays, and it can be saved afterwards as what it is: refused.
    m_server.Stop();
    ASSERT_TRUE(PageDriver::WaitFor([&] { return !editor->IsUsable(QStringLiteral("m_pBtnOk")); }));
    m_server.Start();
    ASSERT_TRUE(PageDriver::WaitFor([&] { return editor->IsUsable(QStringLiteral("m_pBtnOk")); }));
    EXPECT_EQ(editor->Find<VxGUI::VxLineEdit>(QStringLiteral("m_pEditName"))->text(), QStringLiteral("Mine"));
}

/// The same beside a simulated door controller, whose access permission group is "1".
class LiveDoors : public LivePersons
{
protected:
    LiveDoors()
    {
        GroupLogical::DeviceAddInfo_t device;
        device.sName = "Front Door";
        device.sIp = m_devices.Address(0);
        device.nPort = FieldDevices::Port;
        device.nCategory = 8;
        device.sOrgCode = "001";
        device.sManufacturer = "Other";
        device.sProtocol = "Private";
        device.sUserName = "admin";
        device.sPassword = FieldDevices::Password;
        m_client.Interfaces()->GetGroupManager()->AddDevice(device);
        m_client.WaitIdle();
        m_server.RunSql(QStringLiteral("INSERT INTO access_group (id, name) VALUES (1, 'Staff')"));
        m_server.RunSql(
            QStringLiteral("INSERT INTO access_group_door (group_id, device_id, channel, channel_name) "
                           "SELECT 1, id, 1, 'Door 1' FROM device"));
        m_client.Client().GetLocalConfig()->SetValue(
            QStringLiteral("AuthenFinger/type"), CInputFinger::ReaderDevice);
    }
    nlohmann::json OnDoor(const char* pszId) const
    {
        return m_devices.State(0)["persons"].value(pszId, nlohmann::json());
    }

    FieldDevices m_devices{1, {{{"category", 8}, {"channels", {{"access", 4}}}}}};
};

TEST_F(LiveDoors, AFingerOfTheDoorsReaderComesBackToItAsARight)
{
    m_devices.Change(0, {{"finger_ms", 50}});
    Open();
    Click("m_btnAdd");
    auto* editor = Drive<CPersonnelInfoUI>();
    editor->Type(QStringLiteral("m_pEditId"), QStringLiteral("77"));
    editor->Type(QStringLiteral("m_pEditName"), QStringLiteral("Door Person"));
    EnrolFinger(*editor);
    editor->Click(QStringLiteral("m_pBtnAddAccessGroup"));
    auto* const pChoices = editor->Find<QTreeView>(QStringLiteral("tblChoices"));
    editor->ClickIndex(pChoices, editor->FindRow(pChoices, 2, QStringLiteral("Staff")).siblingAtColumn(0));
    QTest::mouseClick(
        pChoices->window()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    Click(*editor, "m_pBtnOk");
    ASSERT_TRUE(PageDriver::WaitFor([this] { return !OnDoor("77").is_null(); }));
    EXPECT_EQ(OnDoor("77")["fingerprints"][0]["template"].get<std::string>().size(), 1080u);

    // The door refuses fingerprints now: the row is marked until a re-issue brings them.
    m_devices.Change(0, {{"refuse_fingerprints", true}});
    const auto markedIs = [this](bool bMarked) {
        return PageDriver::WaitFor([this, bMarked] {
            const auto* const pPerson = List()->GetPersons()->FindPerson(QStringLiteral("77"));
            return pPerson && pPerson->bAuthorizationError == bMarked;
        });
    };
    auto* const pManager = m_client.Interfaces()->GetAccessControlManager();
    pManager->ReissuePersonRight("77");
    EXPECT_TRUE(markedIs(true));
    m_devices.Change(0, {{"refuse_fingerprints", false}});
    pManager->ReissuePersonRight("77");
    EXPECT_TRUE(markedIs(false));
    Check("77");
    m_dialogs.AnswerNext(true);
    Click("m_btnDel");
    EXPECT_TRUE(PageDriver::WaitFor([this] { return OnDoor("77").is_null(); }));
}

} // namespace
