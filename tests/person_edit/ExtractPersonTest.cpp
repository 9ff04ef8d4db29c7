#include "PersonEditFixture.h"

#include <VxGUI/VxEmptyState.h>

#include <QComboBox>

using namespace AccessControlLogical;

namespace {

class ExtractPerson : public PersonEditorFixture
{
protected:
    void SetUp() override
    {
        PersonEditorFixture::SetUp();
        GroupLogical::DevicePage_t page{std::vector<GroupLogical::DeviceInfo_t>(2), 2, 1};
        page.vecDevices[0].sDeviceId = "d1";
        page.vecDevices[0].sName = "Front door";
        page.vecDevices[1].sDeviceId = "d2";
        page.vecDevices[1].sName = "Back door";
        m_host.server.AnswerAlways<wire::QueryDevicePage>(page);
    }
    QString State()
    {
        auto* const pDialog = m_pDriver->Find<QDialog>(QStringLiteral("CExtractPersonDlg"));
        return pDialog->findChild<VxGUI::VxEmptyState*>()->GetTitle();
    }
    void Deliver(const std::vector<Person>& vecPersons, int nErrorCode = 0)
    {
        m_host.server.ReportLast<wire::ExtractPersons>(MakeEnd(wire::DevicePersons{vecPersons}, nErrorCode));
        PageDriver::Settle();
    }
    static std::vector<Person> MakeHeld()
    {
        std::vector<Person> vecPersons(2);
        vecPersons[0].sPersonId = "61";
        vecPersons[0].sName = "Held One";
        vecPersons[1].sPersonId = "62";
        vecPersons[1].sName = "Held Two";
        vecPersons[1].nPersonType = PersonGuest;
        return vecPersons;
    }
};

TEST_F(ExtractPerson, ChosenPersonFillsTheFormOfANewOne)
{
    OpenAdd();
    Click("m_pBtnExtract");
    const auto request = m_host.server.LastRequest<wire::QueryDevicePage>();
    EXPECT_EQ(request.nCategory, 8);
    Choose("m_pCmbExtractDevice", "Back door");
    Click("btnQueryDevice");
    EXPECT_EQ(m_host.server.LastRequest<wire::ExtractPersons>().sDeviceId, "d2");
    EXPECT_FALSE(IsUsable("btnQueryDevice"));
    Deliver(MakeHeld());
    Type("editExtractSearch", "two");
    auto* const pView = m_pDriver->Find<QTableView>(QStringLiteral("tblExtracted"));
    ASSERT_EQ(pView->model()->rowCount(), 1);
    m_pDriver->ClickIndex(pView, pView->model()->index(0, 2));
    ClickInDialog("CExtractPersonDlg", QDialogButtonBox::Ok);
    EXPECT_EQ(Content("m_pEditId"), "62");
    EXPECT_EQ(Content("m_pEditName"), "Held Two");
    EXPECT_TRUE(m_pPage->IsDirty());
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::AddPerson>().nPersonType, PersonGuest);
    EXPECT_EQ(Sent<wire::AddPerson>().sGroupCode, "1001");
}

TEST_F(ExtractPerson, EditedPersonKeepsItsIdAndTypedText)
{
    OpenEdit(MakePerson());
    Type("m_pEditRemark", "typed");
    Click("m_pBtnExtract");
    Click("btnQueryDevice");
    Deliver(MakeHeld());
    auto* const pView = m_pDriver->Find<QTableView>(QStringLiteral("tblExtracted"));
    m_pDriver->ClickIndex(pView, pView->model()->index(0, 2));
    ClickInDialog("CExtractPersonDlg", QDialogButtonBox::Ok);
    Click("m_pBtnOk");
    EXPECT_EQ(Sent<wire::ModifyPerson>().sPersonId, "4711");
    EXPECT_EQ(Sent<wire::ModifyPerson>().sName, "Held One");
    EXPECT_EQ(Sent<wire::ModifyPerson>().sRemark, "typed");
    EXPECT_EQ(Sent<wire::ModifyPerson>().nVersion, 8);
}

TEST_F(ExtractPerson, FailuresAreToldAndTriedAgain)
{
    OpenAdd();
    m_host.server.FailAlways<wire::QueryDevicePage>(UICommonMdl::ErrorServerBusy);
    Click("m_pBtnExtract");
    EXPECT_EQ(State(), QStringLiteral("Failed to get devices"));
    m_host.server.AnswerAlways<wire::QueryDevicePage>({});
    auto* const pDialog = m_pDriver->Find<QDialog>(QStringLiteral("CExtractPersonDlg"));
    auto* const pAgain = pDialog->findChild<QPushButton*>(QStringLiteral("btnStateAction"));
    QTest::mouseClick(pAgain, Qt::LeftButton);
    PageDriver::Settle();
    EXPECT_EQ(State(), QStringLiteral("There is no access control device."));
    EXPECT_FALSE(IsUsable("btnQueryDevice"));
    ClickInDialog("CExtractPersonDlg", QDialogButtonBox::Cancel);

    SetUp();
    Click("m_pBtnExtract");
    Click("btnQueryDevice");
    Deliver({}, UICommonMdl::ErrorDeviceUnreachable);
    EXPECT_EQ(State(), QStringLiteral("Failed to extract persons"));
    Screenshot("extract-failed-page");
    m_host.server.Refuse<wire::ExtractPersons>();
    Click("btnQueryDevice");
    EXPECT_EQ(State(), QStringLiteral("Failed to extract persons"));
    m_host.PushConnected(false);
    PageDriver::Settle();
    EXPECT_FALSE(IsUsable("btnQueryDevice"));
    ClickInDialog("CExtractPersonDlg", QDialogButtonBox::Cancel);
}

} // namespace
