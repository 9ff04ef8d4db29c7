#include "CPersonBatchSelectUI.h"

#include "PersonFieldRules.h"
#include "ui_CPersonBatchSelectUI.h"

#include <QCoreApplication>
#include <QSet>
#include <QTableView>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonBatchSelectUI)
};
} // namespace

CPersonBatchSelectUI::CPersonBatchSelectUI(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CPersonBatchSelectUI>())
{
    m_pUi->setupUi(this);
    m_pUi->m_pSelected->SetUp(
        {Text::tr("Person ID"), Text::tr("Person Name")}, Text::tr("No person is selected."));
    m_pUi->m_pSelected->SetFilling();
    m_pUi->m_pSelected->GetView()->setAccessibleName(Text::tr("Selected"));
    connect(m_pUi->m_pSelected, &Common::CChosenTable::SignalRemoved, this, [this] {
        ShowCount();
        Q_EMIT SignalChanged();
    });
}

CPersonBatchSelectUI::~CPersonBatchSelectUI() = default;

void CPersonBatchSelectUI::SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons)
{
    QStringList listIds;
    QHash<QString, QString> mapNames;
    for (const AccessControlLogical::PersonInfo_t& person : vecPersons) {
        listIds << QString::fromStdString(person.sPersonId);
        mapNames.insert(listIds.last(), QString::fromStdString(person.sName));
    }
    m_pUi->m_pSelected->SetIds({});
    m_pUi->m_pSelected->SetRowTexts([mapNames](const QString& sId) {
        return QStringList{sId, mapNames.value(sId)};
    });
    m_pUi->m_pSelected->SetIds(listIds);
    ShowCount();
}

std::vector<std::string> CPersonBatchSelectUI::GetPersonIds() const
{
    return ToStdList(m_pUi->m_pSelected->GetIds());
}

void CPersonBatchSelectUI::RemovePersons(const std::vector<std::string>& vecPersonIds)
{
    const QStringList listGone = ToStringList(vecPersonIds);
    const QSet<QString> setGone(listGone.begin(), listGone.end());
    QStringList listLeft;
    for (const QString& sId : m_pUi->m_pSelected->GetIds()) {
        if (!setGone.contains(sId))
            listLeft << sId;
    }
    m_pUi->m_pSelected->SetIds(listLeft);
    ShowCount();
}

void CPersonBatchSelectUI::SetReadOnly(bool bReadOnly)
{
    m_pUi->m_pSelected->SetReadOnly(bReadOnly);
}

void CPersonBatchSelectUI::ShowCount()
{
    m_pUi->lbSelectedCount->setText(Text::tr("(%1)").arg(m_pUi->m_pSelected->GetIds().size()));
}

} // namespace BasicInfoManagerUI
