// Pictures of the pages in both skins, and what a picture would show as wrong: cut texts.

#include "PersonEditFixture.h"

#include <PersonEdit/CAddFaceGroupDlg.h>
#include <PersonEdit/CChoiceDlg.h>
#include <PersonEdit/CCutPhotoDlg.h>
#include <PersonEdit/CPersonnelBatchAuthorizeUI.h>
#include <Trv/QSkin.h>

#include <QDir>
#include <QScrollArea>
#include <QScrollBar>

using namespace BasicInfoManagerUI;

namespace {

class PersonLook : public PersonEditorFixture, public testing::WithParamInterface<const char*>
{
protected:
    void SetUp() override
    {
        PersonEditorFixture::SetUp();
        m_sSkin = Trv::GetSkin();
        m_sSheet = qApp->styleSheet();
        ASSERT_TRUE(Trv::SetSkin(QLatin1String(GetParam())));
        QString sSheet;
        ASSERT_TRUE(Trv::loadStyleSheet(Trv::GetSkinPath(QStringLiteral("Client.qss"), QString()), sSheet));
        qApp->setStyleSheet(sSheet);
    }
    void TearDown() override
    {
        PersonEditorFixture::TearDown();
        Trv::SetSkin(m_sSkin);
        qApp->setStyleSheet(m_sSheet);
    }

    /// Every button that is shown has the place for its text.
    static void ExpectNothingCut(QWidget& widget, const char* pszPicture)
    {
        PageDriver::Settle();
        for (const auto* const pButton : widget.findChildren<QPushButton*>()) {
            if (pButton->isVisible()) {
                EXPECT_GE(pButton->width(), pButton->minimumSizeHint().width())
                    << qPrintable(pButton->objectName()) << ": " << qPrintable(pButton->text());
            }
        }
        for (const auto* const pLabel : widget.findChildren<QLabel*>()) {
            if (pLabel->isVisible() && !pLabel->text().isEmpty()) {
                EXPECT_GE(pLabel->height(), pLabel->heightForWidth(pLabel->width()))
                    << qPrintable(pLabel->text());
            }
        }
        const QString sFolder = qEnvironmentVariable("PRODUCT_SCREENSHOT_DIR");
        if (sFolder.isEmpty())
            return;
        QDir().mkpath(sFolder);
        EXPECT_TRUE(widget.grab().save(sFolder + QLatin1Char('/') + QLatin1String(GetParam())
            + QLatin1Char('-') + QLatin1String(pszPicture) + QStringLiteral(".png")));
    }

private:
    QString m_sSkin;
    QString m_sSheet;
};

TEST_P(PersonLook, EditorShowsItsTextsWhole)
{
    Person person = MakePerson();
    person.nPersonType = AccessControlLogical::PersonOther;
    OpenEdit(person);
    for (const QSize size : {QSize(1200, 900), QSize(900, 620)}) {
        m_pPage->resize(size);
        const std::string sName = "editor-" + std::to_string(size.width());
        ExpectNothingCut(*m_pPage, sName.c_str());
    }
    m_pPage->resize(1200, 900);
    auto* const pBar = m_pDriver->Find<QScrollArea>(QStringLiteral("scrollPerson"))->verticalScrollBar();
    pBar->setValue(pBar->maximum() / 2);
    ExpectNothingCut(*m_pPage, "editor-middle");
    pBar->setValue(pBar->maximum());
    ExpectNothingCut(*m_pPage, "editor-end");
}

TEST_P(PersonLook, DialogsShowTheirTextsWhole)
{
    OpenAdd();
    ExpectNothingCut(*m_pPage, "editor-new");
    Click("m_pBtnAddAccessGroup");
    ExpectNothingCut(*m_pDriver->Find<QDialog>(QStringLiteral("CChoiceDlg")), "choices");
    ClickInDialog("CChoiceDlg", QDialogButtonBox::Cancel);
    Click("m_pBtnAddFaceGroup");
    ExpectNothingCut(*m_pDriver->Find<QDialog>(QStringLiteral("CAddFaceGroupDlg")), "face-group");
    ClickInDialog("CAddFaceGroupDlg", QDialogButtonBox::Cancel);
    Click("m_pBtnExtract");
    ExpectNothingCut(*m_pDriver->Find<QDialog>(QStringLiteral("CExtractPersonDlg")), "extract");
    ClickInDialog("CExtractPersonDlg", QDialogButtonBox::Cancel);
    QImage image(1200, 800, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    auto* const pCut = new CCutPhotoDlg(image, m_pPage.get());
    pCut->open();
    ExpectNothingCut(*pCut, "cut-photo");
    pCut->reject();
}

TEST_P(PersonLook, BatchPageShowsItsTextsWhole)
{
    CPersonnelBatchAuthorizeUI page(&m_host.interfaceSet);
    page.SetPersons(m_host.access.vecPersons);
    const PageDriver driver(page, QSize(1200, 760));
    ExpectNothingCut(page, "batch");
}

INSTANTIATE_TEST_SUITE_P(Skins, PersonLook, testing::Values("light", "dark"));

} // namespace
