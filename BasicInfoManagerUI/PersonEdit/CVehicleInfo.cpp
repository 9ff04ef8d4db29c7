#include "CVehicleInfo.h"

#include "PersonFields.h"
#include "ui_CVehicleInfo.h"

#include <Trv/QSkin.h>

#include <QCoreApplication>
#include <QTableView>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CVehicleInfo)
};
} // namespace

CVehicleInfo::CVehicleInfo(QWidget* pParent)
    : CPersonSection(pParent)
    , m_pUi(std::make_unique<Ui::CVehicleInfo>())
{
    m_pUi->setupUi(this);
    const QString sHeader = Text::tr("Plate Number");
    m_pUi->m_pPlates->SetUp({sHeader}, Text::tr("No vehicles configured."));
    m_pUi->m_pPlates->GetView()->setAccessibleName(sHeader);
    m_pUi->m_pBtnAddPlate->setIcon(Trv::GetIcon(QStringLiteral("add")));
    PersonFields::DeclareChecks(m_pUi->m_pEditPlate, PersonField::Plate);
    connect(m_pUi->m_pBtnAddPlate, &QAbstractButton::clicked, this, &CVehicleInfo::AddTyped);
    connect(m_pUi->m_pEditPlate, &VxGUI::VxLineEdit::returnPressed, this, &CVehicleInfo::AddTyped);
    connect(m_pUi->m_pEditPlate, &VxGUI::VxLineEdit::textEdited, this, &CPersonSection::SignalChanged);
    connect(m_pUi->m_pPlates, &Common::CChosenTable::SignalRemoved, this, &CPersonSection::SignalChanged);
}

CVehicleInfo::~CVehicleInfo() = default;

QString CVehicleInfo::GetTitle() const
{
    return Text::tr("Vehicle Information");
}

void CVehicleInfo::SetPerson(const Person_t& person)
{
    PersonFields::SetText(m_pUi->m_pEditPlate, {});
    m_pUi->m_pPlates->SetIds(ToStringList(person.vecPlates));
}

void CVehicleInfo::FillPerson(Person_t& person) const
{
    person.vecPlates = ToStdList(m_pUi->m_pPlates->GetIds());
    // What was typed and not yet added is input too.
    const std::string sTyped = PersonFields::GetText(m_pUi->m_pEditPlate);
    if (!sTyped.empty())
        person.vecPlates.push_back(sTyped);
}

QWidget* CVehicleInfo::GetLastField() const
{
    return m_pUi->m_pPlates->GetView();
}

QString CVehicleInfo::AddTyped()
{
    QString sFailure = PersonFields::Check(m_pUi->m_pEditPlate, PersonField::Plate);
    if (!sFailure.isEmpty())
        return sFailure;
    const QString sPlate = m_pUi->m_pEditPlate->text().trimmed();
    sFailure = CheckPlate(sPlate, m_pUi->m_pPlates->GetIds());
    if (!sFailure.isEmpty()) {
        PersonFields::ShowHint(m_pUi->m_pEditPlate, sFailure);
        return sFailure;
    }
    m_pUi->m_pPlates->SetIds(QStringList(m_pUi->m_pPlates->GetIds()) << sPlate);
    PersonFields::SetText(m_pUi->m_pEditPlate, {});
    m_pUi->m_pEditPlate->setFocus();
    Q_EMIT SignalChanged();
    return {};
}

QString CVehicleInfo::CheckInput()
{
    return m_pUi->m_pEditPlate->text().trimmed().isEmpty() ? QString() : AddTyped();
}

void CVehicleInfo::SetReadOnly(bool bReadOnly)
{
    m_pUi->m_pEditPlate->setVisible(!bReadOnly);
    m_pUi->m_pBtnAddPlate->setVisible(!bReadOnly);
    m_pUi->m_pPlates->SetReadOnly(bReadOnly);
}

bool CVehicleInfo::ShowRefusal(const std::string& sMember, const QString& sText)
{
    if (sMember != "vecPlates")
        return false;
    PersonFields::ShowHint(m_pUi->m_pEditPlate, sText);
    return true;
}

} // namespace BasicInfoManagerUI
