#include "CPersonDetailInfo.h"

#include "PersonFields.h"
#include "ui_CPersonDetailInfo.h"

#include <QCoreApplication>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonDetailInfo)
};

using Form = Ui::CPersonDetailInfo;
const struct
{
    VxGUI::VxLineEdit* Form::*pEdit;
    PersonField field;
    std::string Person_t::*pMember;
    const char* pszMember;
} Fields[] = {{&Form::m_pEditNickname, PersonField::Nickname, &Person_t::sNickname, "sNickname"},
    {&Form::m_pEditCompany, PersonField::Company, &Person_t::sCompany, "sCompany"},
    {&Form::m_pEditPosition, PersonField::Position, &Person_t::sPosition, "sPosition"}};
const struct
{
    Common::COptionalDateEdit* Form::*pEdit;
    std::string Person_t::*pMember;
    const char* pszMember;
} Dates[] = {{&Form::m_pBirthday, &Person_t::sBirthday, "sBirthday"},
    {&Form::m_pEntryDate, &Person_t::sEntryDate, "sEntryDate"}};

} // namespace

CPersonDetailInfo::CPersonDetailInfo(QWidget* pParent)
    : CPersonSection(pParent)
    , m_pUi(std::make_unique<Form>())
{
    m_pUi->setupUi(this);
    for (const auto& field : Fields) {
        VxGUI::VxLineEdit* const pEdit = *m_pUi.*field.pEdit;
        PersonFields::DeclareChecks(pEdit, field.field);
        connect(pEdit, &VxGUI::VxLineEdit::textEdited, this, &CPersonSection::SignalChanged);
        connect(pEdit, &VxGUI::VxLineEdit::returnPressed, this, &CPersonSection::SignalSubmit);
    }
    m_pUi->m_pBirthday->SetCaption(Text::tr("Birthday"));
    m_pUi->m_pEntryDate->SetCaption(Text::tr("Entry Date"));
    for (const auto& date : Dates)
        connect(*m_pUi.*date.pEdit, &Common::COptionalDateEdit::SignalChanged, this,
            &CPersonSection::SignalChanged);
}

CPersonDetailInfo::~CPersonDetailInfo() = default;

QString CPersonDetailInfo::GetTitle() const
{
    return Text::tr("Extended Info");
}

void CPersonDetailInfo::SetPerson(const Person_t& person)
{
    for (const auto& field : Fields)
        PersonFields::SetText(*m_pUi.*field.pEdit, person.*field.pMember);
    for (const auto& date : Dates)
        (*m_pUi.*date.pEdit)->SetDate(TextToDate(person.*date.pMember));
}

void CPersonDetailInfo::FillPerson(Person_t& person) const
{
    for (const auto& field : Fields)
        person.*field.pMember = PersonFields::GetText(*m_pUi.*field.pEdit);
    for (const auto& date : Dates)
        person.*date.pMember = DateToText((*m_pUi.*date.pEdit)->GetDate()).toStdString();
}

QString CPersonDetailInfo::CheckInput()
{
    for (const auto& field : Fields) {
        QString sFailure = PersonFields::Check(*m_pUi.*field.pEdit, field.field);
        if (!sFailure.isEmpty())
            return sFailure;
    }
    return {};
}

void CPersonDetailInfo::SetReadOnly(bool bReadOnly)
{
    for (const auto& field : Fields)
        (*m_pUi.*field.pEdit)->setReadOnly(bReadOnly);
    for (const auto& date : Dates)
        (*m_pUi.*date.pEdit)->SetReadOnly(bReadOnly);
}

bool CPersonDetailInfo::ShowRefusal(const std::string& sMember, const QString& sText)
{
    for (const auto& field : Fields) {
        if (sMember == field.pszMember) {
            PersonFields::ShowHint(*m_pUi.*field.pEdit, sText);
            return true;
        }
    }
    for (const auto& date : Dates) {
        if (sMember == date.pszMember) {
            (*m_pUi.*date.pEdit)->SetErrorHint(sText);
            (*m_pUi.*date.pEdit)->setFocus();
            return true;
        }
    }
    return false;
}

} // namespace BasicInfoManagerUI
