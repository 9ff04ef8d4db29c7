#include "CAccessControlInfo.h"

#include "PersonFields.h"
#include "ui_CAccessControlInfo.h"

#include <common/Wheel.h>

#include <QCoreApplication>
#include <QLineEdit>
#include <QPushButton>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAccessControlInfo)
};
} // namespace

CAccessControlInfo::CAccessControlInfo(QWidget* pParent)
    : CPersonSection(pParent)
    , m_pUi(std::make_unique<Ui::CAccessControlInfo>())
{
    m_pUi->setupUi(this);
    for (const int nType : GetAccessTypes())
        m_pUi->m_pCmbAccessType->addItem(GetPersonTypeText(nType), nType);
    Common::KeepFromWheel(m_pUi->m_pCmbAccessType);
    Common::KeepFromWheel(m_pUi->m_pSpbCardTimes);
    PersonFields::DeclareChecks(m_pUi->m_pEditExtendTime, PersonField::ExtendTime);
    m_pUi->m_pSpbCardTimes->setRange(CardTimes.nMin, CardTimes.nMax);
    m_pUi->m_pAccessGroups->SetUp({Text::tr("Access Permission Group Name")},
        Text::tr("No access permission groups configured."), Text::tr("Add Access Permission Group"));
    m_pUi->m_pAccessGroups->GetAddButton()->setObjectName(QStringLiteral("m_pBtnAddAccessGroup"));
    connect(
        m_pUi->m_pAccessGroups, &CPermissionList::SignalAdd, this, &CAccessControlInfo::SignalAddAccessGroup);
    connect(
        this, &CAccessControlInfo::SignalAddAccessGroup, m_pUi->m_pAccessGroups, &CPermissionList::OpenAdder);
    connect(m_pUi->m_pAccessGroups, &CPermissionList::SignalChanged, this, &CPersonSection::SignalChanged);
    connect(
        m_pUi->m_pCmbAccessType, qOverload<int>(&QComboBox::activated), this, &CPersonSection::SignalChanged);
    connect(m_pUi->m_pEditExtendTime, &VxGUI::VxLineEdit::textEdited, this, &CPersonSection::SignalChanged);
    connect(m_pUi->m_pEditExtendTime, &VxGUI::VxLineEdit::returnPressed, this, &CPersonSection::SignalSubmit);
    connect(m_pUi->m_pSpbCardTimes, qOverload<int>(&QSpinBox::valueChanged), this,
        &CPersonSection::SignalChanged);
    connect(m_pUi->ckAdmin, &QCheckBox::toggled, this, &CPersonSection::SignalChanged);
}

CAccessControlInfo::~CAccessControlInfo() = default;

QString CAccessControlInfo::GetTitle() const
{
    return Text::tr("Access Control Permission");
}

void CAccessControlInfo::SetPerson(const Person_t& person)
{
    const QSignalBlocker blocker(this);
    m_nLoadedType = person.nPersonType;
    // A type that is not offered stands there all the same, until another is chosen.
    m_pUi->m_pCmbAccessType->setPlaceholderText(GetPersonTypeText(person.nPersonType));
    m_pUi->m_pCmbAccessType->setCurrentIndex(m_pUi->m_pCmbAccessType->findData(person.nPersonType));
    PersonFields::SetText(m_pUi->m_pEditExtendTime, std::to_string(person.nExtendTime));
    m_pUi->m_pSpbCardTimes->setValue(person.nCardTimes);
    m_pUi->ckAdmin->setChecked(person.bDeviceLogin);
    m_pUi->m_pAccessGroups->SetIds(ToStringList(person.vecAccessGroups));
}

void CAccessControlInfo::FillPerson(Person_t& person) const
{
    const bool bChosen = m_pUi->m_pCmbAccessType->currentIndex() >= 0;
    person.nPersonType = bChosen ? m_pUi->m_pCmbAccessType->currentData().toInt() : m_nLoadedType;
    person.nExtendTime = m_pUi->m_pEditExtendTime->text().toInt();
    person.nCardTimes = m_pUi->m_pSpbCardTimes->value();
    person.bDeviceLogin = m_pUi->ckAdmin->isChecked();
    person.vecAccessGroups = ToStdList(m_pUi->m_pAccessGroups->GetIds());
}

QString CAccessControlInfo::CheckInput()
{
    return PersonFields::Check(m_pUi->m_pEditExtendTime, PersonField::ExtendTime);
}

void CAccessControlInfo::SetReadOnly(bool bReadOnly)
{
    m_pUi->m_pCmbAccessType->setEnabled(!bReadOnly);
    m_pUi->m_pEditExtendTime->setReadOnly(bReadOnly);
    m_pUi->m_pSpbCardTimes->setEnabled(!bReadOnly);
    m_pUi->ckAdmin->setEnabled(!bReadOnly);
    m_pUi->m_pAccessGroups->SetReadOnly(bReadOnly);
}

bool CAccessControlInfo::ShowRefusal(const std::string& sMember, const QString& sText)
{
    if (sMember != "nExtendTime")
        return false;
    PersonFields::ShowHint(m_pUi->m_pEditExtendTime, sText);
    return true;
}

void CAccessControlInfo::SetChoices(const std::vector<Choice_t>& vecGroups)
{
    m_pUi->m_pAccessGroups->SetChoices(MakeChoiceRows(vecGroups));
}

} // namespace BasicInfoManagerUI
