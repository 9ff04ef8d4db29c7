#include "CLiftControlInfo.h"

#include "PersonFieldRules.h"
#include "ui_CLiftControlInfo.h"

#include <QCoreApplication>
#include <QPushButton>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CLiftControlInfo)
};
} // namespace

CLiftControlInfo::CLiftControlInfo(QWidget* pParent)
    : CPersonSection(pParent)
    , m_pUi(std::make_unique<Ui::CLiftControlInfo>())
{
    m_pUi->setupUi(this);
    m_pUi->m_pLiftFloors->SetUp({Text::tr("Device Name"), Text::tr("Channel Name"), Text::tr("Floor")},
        Text::tr("No lift controller permissions configured."), Text::tr("Add Lift Controller Permission"));
    m_pUi->m_pLiftFloors->GetAddButton()->setObjectName(QStringLiteral("m_pBtnAddLift"));
    connect(
        m_pUi->m_pLiftFloors, &CPermissionList::SignalAdd, m_pUi->m_pLiftFloors, &CPermissionList::OpenAdder);
    connect(m_pUi->m_pLiftFloors, &CPermissionList::SignalChanged, this, &CPersonSection::SignalChanged);
}

CLiftControlInfo::~CLiftControlInfo() = default;

QString CLiftControlInfo::GetTitle() const
{
    return Text::tr("Lift Controller Permission");
}

void CLiftControlInfo::SetPerson(const Person_t& person)
{
    m_pUi->m_pLiftFloors->SetIds(ToStringList(person.vecLiftFloors));
}

void CLiftControlInfo::FillPerson(Person_t& person) const
{
    person.vecLiftFloors = ToStdList(m_pUi->m_pLiftFloors->GetIds());
}

void CLiftControlInfo::SetReadOnly(bool bReadOnly)
{
    m_pUi->m_pLiftFloors->SetReadOnly(bReadOnly);
}

void CLiftControlInfo::SetChoices(const std::vector<LiftFloor_t>& vecFloors)
{
    QVector<ChoiceRow> vecRows;
    for (const LiftFloor_t& floor : vecFloors)
        vecRows.append({QString::fromStdString(floor.sId),
            ToStringList({floor.sDeviceName, floor.sChannelName, floor.sFloor})});
    m_pUi->m_pLiftFloors->SetChoices(vecRows);
}

} // namespace BasicInfoManagerUI
