#include "CPersonBasicInfo.h"

#include "PersonFields.h"
#include "ui_CPersonBasicInfo.h"

#include <VxGUI/RequiredMark.h>
#include <common/PersonGroups.h>
#include <common/Wheel.h>

#include <QCoreApplication>
#include <QLineEdit>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonBasicInfo)
};

const struct
{
    VxGUI::VxLineEdit* Ui::CPersonBasicInfo::*pEdit;
    PersonField field;
    std::string Person_t::*pMember;
    const char* pszMember;
} Fields[] = {{&Ui::CPersonBasicInfo::m_pEditId, PersonField::Id, &Person_t::sPersonId, "sPersonId"},
    {&Ui::CPersonBasicInfo::m_pEditName, PersonField::Name, &Person_t::sName, "sName"},
    {&Ui::CPersonBasicInfo::m_pEditTelephone, PersonField::Telephone, &Person_t::sTelephone, "sTelephone"},
    {&Ui::CPersonBasicInfo::m_pEditEmail, PersonField::Email, &Person_t::sEmail, "sEmail"},
    {&Ui::CPersonBasicInfo::m_pEditRemark, PersonField::Remark, &Person_t::sRemark, "sRemark"}};

} // namespace

CPersonBasicInfo::CPersonBasicInfo(QWidget* pParent)
    : CPersonSection(pParent)
    , m_pUi(std::make_unique<Ui::CPersonBasicInfo>())
{
    m_pUi->setupUi(this);
    SetUpFields();
}

CPersonBasicInfo::~CPersonBasicInfo() = default;

void CPersonBasicInfo::SetUpFields()
{
    for (const auto& field : Fields) {
        VxGUI::VxLineEdit* const pEdit = *m_pUi.*field.pEdit;
        PersonFields::DeclareChecks(pEdit, field.field);
        connect(pEdit, &VxGUI::VxLineEdit::textEdited, this, &CPersonSection::SignalChanged);
        connect(pEdit, &VxGUI::VxLineEdit::returnPressed, this, &CPersonSection::SignalSubmit);
    }
    // In the order of the codes 0, 1 and 2.
    m_pUi->m_pCmbGender->addItems({Text::tr("Unknown"), Text::tr("Male"), Text::tr("Female")});
    Common::KeepFromWheel(m_pUi->m_pCmbGender);
    m_pUi->m_pValidFrom->SetCaption(Text::tr("Valid From"));
    m_pUi->m_pValidTo->SetCaption(Text::tr("Valid To"));
    const QDate today = QDate::currentDate();
    m_pUi->m_pValidFrom->SetProposal(today.startOfDay());
    m_pUi->m_pValidTo->SetProposal(QDateTime(today.addYears(1), QTime(23, 59, 59)));
    for (Common::COptionalDateEdit* const pDate : {m_pUi->m_pValidFrom, m_pUi->m_pValidTo}) {
        pDate->SetPrecision(Common::COptionalDateEdit::Precision::Second);
        connect(pDate, &Common::COptionalDateEdit::SignalChanged, this, &CPersonSection::SignalChanged);
    }
    connect(m_pUi->m_pCmbGender, qOverload<int>(&QComboBox::activated), this, &CPersonSection::SignalChanged);
    Common::ShowPersonGroups(m_pUi->m_pCmbGroup);
    m_pUi->m_pCmbGroup->SetKeepsUnknown(true);
    connect(m_pUi->m_pCmbGroup, &Common::CTreeComboBox::SignalCodeChanged, this, [this] {
        m_pUi->lbGroupHint->hide();
        Q_EMIT SignalChanged();
    });
    connect(m_pUi->m_pPhoto, &CPersonPhoto::SignalChanged, this, &CPersonSection::SignalChanged);
    m_pUi->lbGroupHint->setProperty("hint", true);
}

QString CPersonBasicInfo::GetTitle() const
{
    return Text::tr("Basic Information");
}

void CPersonBasicInfo::SetPerson(const Person_t& person)
{
    for (const auto& field : Fields)
        PersonFields::SetText(*m_pUi.*field.pEdit, person.*field.pMember);
    m_pUi->m_pCmbGender->setCurrentIndex(
        person.nGender >= GenderUnknown && person.nGender <= GenderFemale ? person.nGender : GenderUnknown);
    m_pUi->m_pCmbGroup->SetCode(
        QString::fromStdString(person.sGroupCode), QString::fromStdString(person.sGroupName));
    m_pUi->lbGroupHint->hide();
    m_pUi->m_pValidFrom->SetSeconds(person.nValidFrom);
    m_pUi->m_pValidTo->SetSeconds(person.nValidTo);
    m_pUi->m_pPhoto->SetPerson(person);
}

void CPersonBasicInfo::FillPerson(Person_t& person) const
{
    for (const auto& field : Fields)
        person.*field.pMember = PersonFields::GetText(*m_pUi.*field.pEdit);
    person.nGender = m_pUi->m_pCmbGender->currentIndex();
    person.sGroupCode = m_pUi->m_pCmbGroup->GetCode().toStdString();
    person.nValidFrom = m_pUi->m_pValidFrom->GetSeconds();
    person.nValidTo = m_pUi->m_pValidTo->GetSeconds();
    m_pUi->m_pPhoto->FillPerson(person);
}

QString CPersonBasicInfo::CheckInput()
{
    // In the order in which the fields stand, with the period before the remark.
    const auto checkPeriod = [this] {
        QString sFailure =
            CheckValidPeriod(m_pUi->m_pValidFrom->GetSeconds(), m_pUi->m_pValidTo->GetSeconds());
        m_pUi->m_pValidTo->SetErrorHint(sFailure);
        if (!sFailure.isEmpty())
            m_pUi->m_pValidTo->FocusDate();
        return sFailure;
    };
    for (const auto& field : Fields) {
        QString sFailure;
        if (field.field == PersonField::Remark)
            sFailure = checkPeriod();
        if (sFailure.isEmpty())
            sFailure = PersonFields::Check(*m_pUi.*field.pEdit, field.field);
        if (!sFailure.isEmpty())
            return sFailure;
    }
    return {};
}

void CPersonBasicInfo::SetIdEditable(bool bEditable)
{
    m_bIdEditable = bEditable;
    SetReadOnly(m_bReadOnly);
}

void CPersonBasicInfo::FocusFirst()
{
    (m_bIdEditable ? m_pUi->m_pEditId : m_pUi->m_pEditName)->setFocus();
}

void CPersonBasicInfo::SetReadOnly(bool bReadOnly)
{
    m_bReadOnly = bReadOnly;
    for (const auto& field : Fields)
        (*m_pUi.*field.pEdit)->setReadOnly(bReadOnly || (field.field == PersonField::Id && !m_bIdEditable));
    m_pUi->m_pCmbGender->setEnabled(!bReadOnly);
    m_pUi->m_pCmbGroup->setEnabled(!bReadOnly);
    VxGUI::MarkRequired(m_pUi->m_pCmbGroup, !bReadOnly);
    m_pUi->m_pValidFrom->SetReadOnly(bReadOnly);
    m_pUi->m_pValidTo->SetReadOnly(bReadOnly);
    m_pUi->m_pPhoto->SetReadOnly(bReadOnly);
}

void CPersonBasicInfo::SetConnected(bool bConnected)
{
    m_pUi->m_pPhoto->SetConnected(bConnected);
}

bool CPersonBasicInfo::ShowRefusal(const std::string& sMember, const QString& sText)
{
    for (const auto& field : Fields) {
        if (sMember != field.pszMember)
            continue;
        PersonFields::ShowHint(*m_pUi.*field.pEdit, sText);
        return true;
    }
    if (sMember == "sGroupCode") {
        m_pUi->lbGroupHint->setText(sText);
        m_pUi->lbGroupHint->show();
        m_pUi->m_pCmbGroup->setFocus();
    } else if (sMember == "nValidFrom" || sMember == "nValidTo") {
        Common::COptionalDateEdit* const pDate =
            sMember == "nValidFrom" ? m_pUi->m_pValidFrom : m_pUi->m_pValidTo;
        pDate->SetErrorHint(sText);
        pDate->setFocus();
    } else if (sMember == "sPhotoData" || sMember == "sPhotoUrl") {
        m_pUi->m_pPhoto->ShowFailure(sText);
    } else {
        return false;
    }
    return true;
}

} // namespace BasicInfoManagerUI
