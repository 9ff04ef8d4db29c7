#include "CredentialFixture.h"

#include <Credentials/CBatchIssueCard.h>
#include <Credentials/CPersonAuthenticationInfo.h>
#include <Trv/QSkin.h>

#include <QApplication>
#include <QDialog>
#include <QDir>

using namespace BasicInfoManagerUI;
using namespace AccessControlLogical;

namespace {

/// The pages in each skin: rules that Qt cannot read warn, texts that are cut are found.
class CredentialLooks : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override { UseSkin(QLatin1String(GetParam())); }
    void TearDown() override { UseSkin(m_sBefore); }
    static void UseSkin(const QString& sSkin)
    {
        ASSERT_TRUE(Trv::SetSkin(sSkin));
        QString sSheet;
        ASSERT_TRUE(Trv::loadStyleSheet(Trv::GetSkinPath(QStringLiteral("Client.qss"), QString()), sSheet));
        qApp->setStyleSheet(sSheet);
    }
    /// Texts of labels and buttons that do not fit where they stand.
    static QStringList CutTexts(const QWidget& page)
    {
        QStringList listCut;
        for (const auto* const pButton : page.findChildren<QAbstractButton*>()) {
            if (pButton->isVisible() && pButton->width() < pButton->minimumSizeHint().width())
                listCut << pButton->objectName();
        }
        return listCut;
    }
    static void Save(QWidget& widget, const char* pszName)
    {
        const QString sFolder = qEnvironmentVariable("PRODUCT_SCREENSHOT_DIR");
        if (!sFolder.isEmpty()) {
            const auto sFile = QStringLiteral("%1/%2-%3.png");
            EXPECT_TRUE(QDir().mkpath(sFolder)
                && widget.grab().save(sFile.arg(sFolder, QLatin1String(pszName), QLatin1String(GetParam()))));
        }
        EXPECT_EQ(CutTexts(widget), QStringList());
    }

    QString m_sBefore = Trv::GetSkin();
    FakeHost m_host;
};

TEST_P(CredentialLooks, SectionAndItsDialogs)
{
    m_host.group.ServeSite();
    CPersonAuthenticationInfo section(&m_host.interfaceSet);
    PageDriver driver(section, {820, 560});
    Save(section, "section-empty");
    Person_t person;
    person.vecCards = {{"04A1B2C3", true, false, false}, {"0123456789ABCDEF", false, true, true}, {"B2"}};
    person.vecFingerprints = {{1, "Finger 1", false, {}}, {2, "Thumb", true, {}}};
    person.bUnlockPassword = true;
    section.SetPerson(person);
    section.ShowClashes({{ClashCardNo, "B2"}});
    PageDriver::Settle();
    Save(section, "section");
    driver.Click(QStringLiteral("m_pBtnReaderManager"));
    PageDriver::Settle();
    Save(*section.findChild<QDialog*>(), "reader-manager");
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
        Save(*pDialog, nType == 0 ? "finger-none" : nType == 1 ? "finger-usb" : "finger-device");
        QTest::keyClick(pDialog, Qt::Key_Escape);
        PageDriver::Settle();
    }
    section.SetReadOnly(true);
    PageDriver::Settle();
    Save(section, "section-readonly");
}

TEST_P(CredentialLooks, BatchPage)
{
    m_host.access.ServeSite();
    CBatchIssueCard page(&m_host.interfaceSet);
    PageDriver driver(page, {1000, 560});
    Save(page, "batch-empty");
    page.SetPersons(m_host.access.vecPersons);
    m_host.remote.PushConnected(false);
    PageDriver::Settle();
    PageDriver::Settle();
    auto* const pTable = driver.Find<QTreeView>(QStringLiteral("tableIssueCard"));
    pTable->model()->setData(pTable->model()->index(0, 1), QStringLiteral("04a1b2c3"));
    driver.ClickIndex(pTable, pTable->model()->index(1, 1));
    driver.Type(QStringLiteral("edtCardNo"), QStringLiteral("12af"));
    driver.Click(QStringLiteral("m_ckEffective"));
    driver.ClickIndex(pTable, pTable->model()->index(2, 1));
    PageDriver::Settle();
    Save(page, "batch");
}

INSTANTIATE_TEST_SUITE_P(Looks, CredentialLooks, testing::Values("light", "dark"));

} // namespace
