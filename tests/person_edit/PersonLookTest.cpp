#include "PersonEditFixture.h"

#include <PersonEdit/CAddFaceGroupDlg.h>
#include <PersonEdit/CChoiceDlg.h>
#include <PersonEdit/CCutPhotoDlg.h>
#include <PersonEdit/CPersonnelBatchAuthorizeUI.h>
#include <tests/support/gui/Look.h>

#include <QScrollArea>
#include <QScrollBar>

using namespace BasicInfoManagerUI;

namespace {

class PersonLook : public PersonEditorFixture, public testing::WithParamInterface<Look>
{
protected:
    void ExpectReadable(QWidget& widget, const char* pszName) { m_look.ExpectReadable(widget, pszName); }

    LookScope m_look{GetParam()};
};

/// Its captions have no room for larger texts.
class PersonEditorLook : public PersonLook
{
};

TEST_P(PersonEditorLook, ShowsItsTextsWhole)
{
    Person person = MakePerson();
    person.nPersonType = AccessControlLogical::PersonOther;
    OpenEdit(person);
    for (const QSize size : {QSize(1200, 900), QSize(900, 620)}) {
        m_pPage->resize(m_look.Scaled(size));
        const std::string sName = "editor-" + std::to_string(size.width());
        ExpectReadable(*m_pPage, sName.c_str());
    }
    m_pPage->resize(m_look.Scaled({1200, 900}));
    auto* const pBar = m_pDriver->Find<QScrollArea>(QStringLiteral("scrollPerson"))->verticalScrollBar();
    pBar->setValue(pBar->maximum() / 2);
    ExpectReadable(*m_pPage, "editor-middle");
    pBar->setValue(pBar->maximum());
    ExpectReadable(*m_pPage, "editor-end");
    m_look.ExpectFocusSeen(*m_pPage);
}

TEST_P(PersonLook, DialogsShowTheirTextsWhole)
{
    OpenAdd();
    m_pPage->resize(m_look.Scaled({1200, 900}));
    Click("m_pBtnAddAccessGroup");
    ExpectReadable(*m_pDriver->Find<QDialog>(QStringLiteral("CChoiceDlg")), "choices");
    ClickInDialog("CChoiceDlg", QDialogButtonBox::Cancel);
    Click("m_pBtnAddFaceGroup");
    ExpectReadable(*m_pDriver->Find<QDialog>(QStringLiteral("CAddFaceGroupDlg")), "face-group");
    ClickInDialog("CAddFaceGroupDlg", QDialogButtonBox::Cancel);
    Click("m_pBtnExtract");
    ExpectReadable(*m_pDriver->Find<QDialog>(QStringLiteral("CExtractPersonDlg")), "extract");
    ClickInDialog("CExtractPersonDlg", QDialogButtonBox::Cancel);
    QImage image(1200, 800, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    auto* const pCut = new CCutPhotoDlg(image, m_pPage.get());
    pCut->open();
    ExpectReadable(*pCut, "cut-photo");
    pCut->reject();
}

TEST_P(PersonLook, BatchPageShowsItsTextsWhole)
{
    CPersonnelBatchAuthorizeUI page(&m_host.interfaceSet);
    page.SetPersons(m_host.site.vecPersons);
    const PageDriver driver(page, m_look.Scaled({1200, 760}));
    ExpectReadable(page, "batch");
}

INSTANTIATE_TEST_SUITE_P(Every, PersonLook, EveryLook, NameOf);
INSTANTIATE_TEST_SUITE_P(Every, PersonEditorLook, EverySkin, NameOf);

} // namespace
