#include "CredentialFixture.h"

#include <Credentials/CBatchIssueCard.h>
#include <Credentials/CPersonAuthenticationInfo.h>
#include <tests/support/gui/Look.h>

#include <QDialog>
#include <QVBoxLayout>

using namespace BasicInfoManagerUI;
using namespace AccessControlLogical;

namespace {

class CredentialLooks : public testing::TestWithParam<Look>
{
protected:
    void ExpectReadable(QWidget& widget, const char* pszName) { m_look.ExpectReadable(widget, pszName); }

    LookScope m_look{GetParam()};
    FakeHost m_host;
};

TEST_P(CredentialLooks, SectionAndItsDialogs)
{
    m_host.site.ServeDevices();
    QDialog window;
    CPersonAuthenticationInfo section(&m_host.interfaceSet, &window);
    (new QVBoxLayout(&window))->addWidget(&section);
    PageDriver driver(section, m_look.Scaled({820, 560}));
    ExpectReadable(window, "section-empty");
    Person_t person;
    person.vecCards = {{"04A1B2C3", true, false, false}, {"0123456789ABCDEF", false, true, true}, {"B2"}};
    person.vecFingerprints = {{1, "Finger 1", false, {}}, {2, "Thumb", true, {}}};
    person.bUnlockPassword = true;
    section.SetPerson(person);
    section.ShowClashes({{ClashCardNo, "B2"}});
    PageDriver::Settle();
    ExpectReadable(window, "section");
    m_look.ExpectFocusSeen(window);
    driver.Click(QStringLiteral("m_pBtnReaderManager"));
    PageDriver::Settle();
    ExpectReadable(*section.findChild<QDialog*>(), "reader-manager");
    QTest::keyClick(section.findChild<QDialog*>(), Qt::Key_Escape);
    for (const int nType : {0, 1, 2}) {
        m_host.config.mapValues[QStringLiteral("AuthenFinger/type")] = nType;
        PageDriver::Settle();
        driver.Click(QStringLiteral("m_pBtnAddFingerprint"));
        PageDriver::Settle();
        auto* const pDialog = section.findChild<QDialog*>();
        if (nType == 1) {
            driver.Click(QStringLiteral("m_pBtnStart"));
            PageDriver::WaitFor(
                [&] { return driver.Find<QWidget>(QStringLiteral("wgtPress2"))->property("done").toBool(); });
        }
        ExpectReadable(*pDialog, nType == 0 ? "finger-none" : nType == 1 ? "finger-usb" : "finger-device");
        QTest::keyClick(pDialog, Qt::Key_Escape);
        PageDriver::Settle();
    }
    section.SetReadOnly(true);
    PageDriver::Settle();
    ExpectReadable(window, "section-readonly");
}

TEST_P(CredentialLooks, BatchPage)
{
    m_host.site.ServePersons();
    CBatchIssueCard page(&m_host.interfaceSet);
    PageDriver driver(page, m_look.Scaled({1000, 560}));
    ExpectReadable(page, "batch-empty");
    page.SetPersons(m_host.site.vecPersons);
    m_host.PushConnected(false);
    PageDriver::Settle();
    PageDriver::Settle();
    auto* const pTable = driver.Find<QTreeView>(QStringLiteral("tableIssueCard"));
    pTable->model()->setData(pTable->model()->index(0, 1), QStringLiteral("04a1b2c3"));
    driver.ClickIndex(pTable, pTable->model()->index(1, 1));
    driver.Type(QStringLiteral("edtCardNo"), QStringLiteral("12af"));
    driver.Click(QStringLiteral("m_ckEffective"));
    driver.ClickIndex(pTable, pTable->model()->index(2, 1));
    PageDriver::Settle();
    ExpectReadable(page, "batch");
    m_look.ExpectFocusSeen(page);
}

INSTANTIATE_TEST_SUITE_P(Every, CredentialLooks, EveryLook, NameOf);

} // namespace
