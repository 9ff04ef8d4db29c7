#include "CResidentInfo.h"

#include "PersonFields.h"
#include "ui_CResidentInfo.h"

#include <common/Wheel.h>

#include <QCoreApplication>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CResidentInfo)
};
} // namespace

CResidentInfo::CResidentInfo(QWidget* pParent)
    : CPersonSection(pParent)
    , m_pUi(std::make_unique<Ui::CResidentInfo>())
{
    m_pUi->setupUi(this);
    m_pUi->lbRoomHint->setProperty("hint", true);
    Common::KeepFromWheel(m_pUi->m_pCmbRoom);
    connect(m_pUi->m_pCmbRoom, qOverload<int>(&QComboBox::activated), this, [this] {
        m_pUi->lbRoomHint->hide();
        Q_EMIT SignalChanged();
    });
}

CResidentInfo::~CResidentInfo() = default;

QString CResidentInfo::GetTitle() const
{
    return Text::tr("Resident Information");
}

void CResidentInfo::SetPerson(const Person_t& person)
{
    m_pUi->lbRoomHint->hide();
    ShowRoom(QString::fromStdString(person.sRoomNo));
}

void CResidentInfo::FillPerson(Person_t& person) const
{
    person.sRoomNo = m_pUi->m_pCmbRoom->currentData().toString().toStdString();
}

void CResidentInfo::SetReadOnly(bool bReadOnly)
{
    m_pUi->m_pCmbRoom->setEnabled(!bReadOnly);
}

bool CResidentInfo::ShowRefusal(const std::string& sMember, const QString& sText)
{
    if (sMember != "sRoomNo" || isHidden())
        return false;
    m_pUi->lbRoomHint->setText(sText);
    m_pUi->lbRoomHint->show();
    m_pUi->m_pCmbRoom->setFocus();
    return true;
}

void CResidentInfo::SetRooms(const std::vector<std::string>& vecRooms)
{
    const QString sRoom = m_pUi->m_pCmbRoom->currentData().toString();
    m_vecRooms = vecRooms;
    ShowRoom(sRoom);
}

void CResidentInfo::ShowRoom(const QString& sRoom)
{
    QComboBox* const pCombo = m_pUi->m_pCmbRoom;
    pCombo->clear();
    pCombo->addItem(Text::tr("None"), QString());
    for (const QString& sNumber : ToStringList(m_vecRooms))
        pCombo->addItem(sNumber, sNumber);
    if (pCombo->findData(sRoom) < 0)
        pCombo->addItem(sRoom, sRoom);
    pCombo->setCurrentIndex(pCombo->findData(sRoom));
}

} // namespace BasicInfoManagerUI
