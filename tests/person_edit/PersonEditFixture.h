#pragma once

#include <PersonEdit/CPersonnelInfoUI.h>
#include <UICommonMdl/ErrorCodes.h>
#include <VxGUI/VxLineEdit.h>
#include <VxGUI/VxNotification.h>
#include <common/CChosenTable.h>
#include <common/CTreeComboBox.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTreeView>

#include <gtest/gtest.h>

#include <memory>

/// A page of the persons of a host that serves a small site.
template <class Page>
class PersonPageFixture : public testing::Test
{
protected:
    using Person = AccessControlLogical::Person_t;

    void SetUp() override { m_host.site.ServePersons(); }
    void TearDown() override
    {
        m_pDriver.reset();
        m_pPage.reset();
    }

    Page& MakePage()
    {
        m_pPage = std::make_unique<Page>(&m_host.interfaceSet);
        m_pDriver = std::make_unique<PageDriver>(*m_pPage, QSize(1200, 900));
        return *m_pPage;
    }

    void Type(const char* pszField, const char* pszText)
    {
        m_pDriver->Type(QLatin1String(pszField), QString::fromUtf8(pszText));
    }
    void Click(const char* pszButton)
    {
        m_pDriver->Click(QLatin1String(pszButton));
        PageDriver::Settle();
    }
    void Choose(const char* pszCombo, const char* pszText)
    {
        m_pDriver->Choose(QLatin1String(pszCombo), QLatin1String(pszText));
    }
    /// The button of the dialog that is open.
    void ClickInDialog(const char* pszDialog, QDialogButtonBox::StandardButton button)
    {
        auto* const pDialog = m_pDriver->template Find<QDialog>(QLatin1String(pszDialog));
        ASSERT_TRUE(pDialog);
        QTest::mouseClick(pDialog->findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
        PageDriver::Settle();
    }
    VxGUI::VxLineEdit* Field(const char* pszField)
    {
        return m_pDriver->template Find<VxGUI::VxLineEdit>(QLatin1String(pszField));
    }
    std::string Content(const char* pszField) { return Field(pszField)->text().toStdString(); }
    std::string Hint(const char* pszField) { return Field(pszField)->GetErrorHint().toStdString(); }
    std::string LabelText(const char* pszLabel)
    {
        return m_pDriver->template Find<QLabel>(QLatin1String(pszLabel))->text().toStdString();
    }
    std::string Notice() { return VxGUI::VxNotification::CurrentText(m_pPage.get()).toStdString(); }
    bool IsShown(const char* pszName) { return m_pDriver->IsShown(QLatin1String(pszName)); }
    bool IsUsable(const char* pszName) { return m_pDriver->IsUsable(QLatin1String(pszName)); }
    void Screenshot(const char* pszName) { m_pDriver->Screenshot(QLatin1String(pszName)); }

    /// The table of that name, of a list with a button too.
    Common::CChosenTable* Table(const char* pszName)
    {
        auto* const pWidget = m_pDriver->template Find<QWidget>(QLatin1String(pszName));
        auto* const pTable = qobject_cast<Common::CChosenTable*>(pWidget);
        return pTable ? pTable : pWidget->template findChild<Common::CChosenTable*>();
    }
    /// The texts of a table, "|" between columns and the id left out.
    std::vector<std::string> Rows(const char* pszTable)
    {
        const QAbstractItemModel* const pModel = Table(pszTable)->GetView()->model();
        std::vector<std::string> vecRows;
        for (int nRow = 0; nRow < pModel->rowCount(); ++nRow) {
            QStringList listTexts;
            for (int nColumn = 1; nColumn < pModel->columnCount() - 1; ++nColumn)
                listTexts << pModel->index(nRow, nColumn).data().toString();
            vecRows.push_back(listTexts.join(QLatin1Char('|')).toStdString());
        }
        return vecRows;
    }
    void RemoveRow(const char* pszTable, int nRow)
    {
        QTableView* const pView = Table(pszTable)->GetView();
        const QRect cell = pView->visualRect(pView->model()->index(nRow, pView->model()->columnCount() - 1));
        m_pDriver->ClickAt(pView, QPoint(cell.left() + 12, cell.center().y()));
        PageDriver::Settle();
    }
    /// Checks the rows of the open adder by their first text.
    void CheckInAdder(std::initializer_list<const char*> texts)
    {
        auto* const pView = m_pDriver->template Find<QTreeView>(QStringLiteral("tblChoices"));
        for (const char* const pszText : texts) {
            const QModelIndex index = m_pDriver->FindRow(pView, 2, QString::fromUtf8(pszText));
            m_pDriver->ClickIndex(pView, index.siblingAtColumn(0));
        }
    }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    std::unique_ptr<Page> m_pPage;
    std::unique_ptr<PageDriver> m_pDriver;
};

class PersonEditorFixture : public PersonPageFixture<BasicInfoManagerUI::CPersonnelInfoUI>
{
protected:
    using Editor = BasicInfoManagerUI::CPersonnelInfoUI;

    static Person MakePerson()
    {
        Person person;
        person.sPersonId = "4711";
        person.sName = "Ada Reader";
        person.nGender = AccessControlLogical::GenderFemale;
        person.sGroupCode = "1001";
        person.sGroupName = "Engineering";
        person.sTelephone = "+49-555";
        person.sEmail = "ada@example.com";
        person.sRemark = "Day shift";
        person.nValidFrom = 1767225601;
        person.sNickname = "A";
        person.sBirthday = "1990-02-28";
        person.sCompany = "Works";
        person.sPosition = "Engineer";
        person.nPersonType = AccessControlLogical::PersonVip;
        person.nExtendTime = 7;
        person.nCardTimes = 3;
        person.bDeviceLogin = true;
        person.vecAccessGroups = {"2", "99"};
        person.vecLiftFloors = {"1"};
        person.vecFaceGroups = {"1"};
        person.sRoomNo = "102";
        person.vecPlates = {"AB 123"};
        person.nVersion = 8;
        return person;
    }

    Editor& Open()
    {
        Editor& page = MakePage();
        QObject::connect(&page, &Editor::SignalBack, &page, [this] { ++m_nBack; });
        QObject::connect(&page, &Editor::SignalPersonSaved, &page,
            [this](const QString& sId) { m_vecSaved.push_back(sId.toStdString()); });
        return page;
    }
    void OpenAdd()
    {
        Open().AddPerson(QStringLiteral("1001"));
        PageDriver::Settle();
    }
    void OpenEdit(const Person& person)
    {
        m_host.site.vecDetails = {person};
        Open().EditPerson(QString::fromStdString(person.sPersonId));
        PageDriver::Settle();
    }
    void FillRequired()
    {
        Type("m_pEditId", "12");
        Type("m_pEditName", "Grace");
    }
    template <class Save>
    Person Sent()
    {
        return m_host.server.LastRequest<Save>();
    }
    /// Answers the save that is under way.
    template <class Save>
    void AnswerSave(int nErrorCode = 0, const std::string& sDetail = {})
    {
        // The server answers with the record as it keeps it.
        if (nErrorCode == 0)
            m_host.server.AnswerLast<Save>(m_host.server.LastRequest<Save>());
        else
            m_host.server.FailLast<Save>(nErrorCode, sDetail);
        PageDriver::Settle();
    }
    bool HasFocus(const char* pszField) { return Field(pszField)->GetLineEdit()->hasFocus(); }

    std::vector<std::string> m_vecSaved;
    int m_nBack = 0;
};
