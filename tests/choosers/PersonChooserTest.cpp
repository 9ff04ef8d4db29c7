#include <UICommonMdl/CNumberPageCtrl.h>
#include <VxGUI/VxNotification.h>
#include <common/CListView.h>
#include <common/CPersonChooser.h>
#include <common/CTreeComboBox.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>

#include <QLabel>

#include <gtest/gtest.h>

#include <memory>

namespace {

using Request = AccessControlLogical::PersonPageRequest_t;

/// 70 persons with the IDs 100 to 169, of whom no more than 5 can be chosen.
class PersonChooser : public testing::Test
{
protected:
    void SetUp() override
    {
        m_host.site.ServePersons();
        m_host.server.AnswerAlways<wire::QueryPersonList>([](const Request& request, auto& page) {
            page.nTotal = 70;
            page.nPage = request.nPage;
            const int nFirst = (request.nPage - 1) * request.nPageSize;
            for (int n = nFirst; n < qMin(70, nFirst + request.nPageSize); ++n) {
                AccessControlLogical::PersonInfo_t person;
                person.sPersonId = std::to_string(100 + n);
                person.sName = "Person " + person.sPersonId;
                page.vecPersons.push_back(person);
            }
        });
        m_pChooser = std::make_unique<Common::CPersonChooser>(&m_host.interfaceSet, 5);
        m_pDriver = std::make_unique<PageDriver>(*m_pChooser, QSize(700, 500));
        PageDriver::Settle();
        QObject::connect(m_pChooser.get(), &Common::CPersonChooser::SignalChosenChanged, m_pChooser.get(),
            [this] { ++m_nTold; });
    }
    void TearDown() override
    {
        m_pDriver.reset();
        m_pChooser.reset();
    }

    Common::CListView* List() { return m_pDriver->Find<Common::CListView>(QStringLiteral("treePersons")); }
    void Toggle(int nRow) { List()->GetTable()->item(nRow, 0)->setCheckState(Qt::Checked); }
    void TurnTo(int nPage)
    {
        auto* const pPager = m_pChooser->findChild<UICommonMdl::CNumberPageCtrl*>();
        pPager->SetCurrentPage(nPage);
        Q_EMIT pPager->SignalCurrentPageChanged(nPage);
        PageDriver::Settle();
    }
    QStringList Chosen()
    {
        QStringList listIds;
        for (const Common::CheckedItem& chosen : m_pChooser->GetChosen())
            listIds << chosen.sId;
        listIds.sort();
        return listIds;
    }
    Request LastRequest() { return m_host.server.LastRequest<wire::QueryPersonList>(); }

    FakeHost m_host;
    std::unique_ptr<Common::CPersonChooser> m_pChooser;
    std::unique_ptr<PageDriver> m_pDriver;
    int m_nTold = 0;
};

TEST_F(PersonChooser, WhoIsChosenStaysSoOnOtherPagesAndUnderOtherFilters)
{
    m_pChooser->SetChosen({{QStringLiteral("165"), QStringLiteral("Person 165"), {}}});
    EXPECT_EQ(m_nTold, 0) << "the owner knows";
    Toggle(0);
    TurnTo(4);
    EXPECT_EQ(List()->GetTable()->item(5, 0)->checkState(), Qt::Checked) << "165";
    Toggle(6);
    m_pDriver->Type(QStringLiteral("editPersonSearch"), QStringLiteral("Per"));
    m_pDriver->Key(QStringLiteral("editPersonSearch"), Qt::Key_Return);
    PageDriver::Settle();
    EXPECT_EQ(LastRequest().sSearchKey, "Per");
    EXPECT_EQ(LastRequest().nPage, 1);
    EXPECT_EQ(Chosen(), (QStringList{QStringLiteral("100"), QStringLiteral("165"), QStringLiteral("166")}));
    EXPECT_EQ(m_pDriver->Find<QLabel>(QStringLiteral("lbChecked"))->text(), QStringLiteral("3 checked"));
    EXPECT_EQ(m_nTold, 2);
    m_pDriver->Screenshot(QStringLiteral("person-chooser"));
    m_pDriver->Click(QStringLiteral("btnClearChecks"));
    EXPECT_TRUE(Chosen().isEmpty());
    EXPECT_EQ(m_nTold, 3);
}

TEST_F(PersonChooser, NoMoreThanTheLimitAreChosen)
{
    TurnTo(2);
    Toggle(1);
    TurnTo(1);
    List()->GetTable()->SetAllChecked(true);
    EXPECT_EQ(Chosen(),
        (QStringList{QStringLiteral("100"), QStringLiteral("101"), QStringLiteral("102"),
            QStringLiteral("103"), QStringLiteral("121")}));
    EXPECT_EQ(VxGUI::VxNotification::CurrentText(m_pChooser.get()),
        QStringLiteral("At most 5 persons can be chosen."));
    EXPECT_EQ(m_nTold, 2);
    Toggle(9);
    EXPECT_EQ(Chosen().size(), 5);
    EXPECT_EQ(m_nTold, 2);
}

TEST_F(PersonChooser, AsksBelowTheChosenGroup)
{
    EXPECT_EQ(LastRequest().sGroupCode, AccessControlLogical::RootDepartmentCode);
    auto* const pGroup = m_pDriver->Find<Common::CTreeComboBox>(QStringLiteral("cmbPersonGroup"));
    pGroup->SetCode(QStringLiteral("1001"));
    Q_EMIT pGroup->SignalCodeChanged();
    PageDriver::Settle();
    EXPECT_EQ(LastRequest().sGroupCode, "1001");
    EXPECT_TRUE(LastRequest().bSubGroups);
}

} // namespace
