#include "CFaceComparisonInfo.h"

#include "CAddFaceGroupDlg.h"
#include "PersonFieldRules.h"
#include "ui_CFaceComparisonInfo.h"

#include <Trv/QSkin.h>

#include <QCoreApplication>
#include <QTableView>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CFaceComparisonInfo)
};
} // namespace

CFaceComparisonInfo::CFaceComparisonInfo(QWidget* pParent)
    : CPersonSection(pParent)
    , m_pUi(std::make_unique<Ui::CFaceComparisonInfo>())
{
    m_pUi->setupUi(this);
    const QString sHeader = Text::tr("Face Comparison Group Name");
    m_pUi->m_pFaceGroups->SetUp({sHeader}, Text::tr("No face comparison groups configured."));
    m_pUi->m_pFaceGroups->GetView()->setAccessibleName(sHeader);
    m_pUi->m_pBtnAddFaceGroup->setIcon(Trv::GetIcon(QStringLiteral("add")));
    connect(m_pUi->m_pBtnAddFaceGroup, &QAbstractButton::clicked, this,
        &CFaceComparisonInfo::SignalAddFaceLibrary);
    connect(m_pUi->m_pFaceGroups, &Common::CChosenTable::SignalRemoved, this, &CPersonSection::SignalChanged);
}

CFaceComparisonInfo::~CFaceComparisonInfo() = default;

QString CFaceComparisonInfo::GetTitle() const
{
    return Text::tr("Face Comparison");
}

void CFaceComparisonInfo::SetPerson(const Person_t& person)
{
    delete m_pAdder;
    m_pUi->m_pFaceGroups->SetIds(ToStringList(person.vecFaceGroups));
}

void CFaceComparisonInfo::FillPerson(Person_t& person) const
{
    person.vecFaceGroups = ToStdList(m_pUi->m_pFaceGroups->GetIds());
}

void CFaceComparisonInfo::SetReadOnly(bool bReadOnly)
{
    m_pUi->m_pFaceGroups->SetReadOnly(bReadOnly);
    m_pUi->m_pBtnAddFaceGroup->setVisible(!bReadOnly);
}

void CFaceComparisonInfo::SetChoices(const std::vector<Choice_t>& vecGroups)
{
    m_vecGroups = vecGroups;
    QHash<QString, QString> mapNames;
    for (const Choice_t& group : vecGroups)
        mapNames.insert(QString::fromStdString(group.sId), QString::fromStdString(group.sName));
    m_pUi->m_pFaceGroups->SetRowTexts(
        [mapNames](const QString& sId) { return QStringList{mapNames.value(sId, sId)}; });
}

void CFaceComparisonInfo::OpenAdder()
{
    std::vector<Choice_t> vecOffered;
    for (const Choice_t& group : m_vecGroups) {
        if (!m_pUi->m_pFaceGroups->GetIds().contains(QString::fromStdString(group.sId)))
            vecOffered.push_back(group);
    }
    m_pAdder = new CAddFaceGroupDlg(m_pUi->m_pBtnAddFaceGroup->text(), vecOffered, this);
    connect(m_pAdder, &CAddFaceGroupDlg::SignalChosen, this, [this](const QString& sId) {
        m_pUi->m_pFaceGroups->SetIds(QStringList(m_pUi->m_pFaceGroups->GetIds()) << sId);
        Q_EMIT SignalChanged();
    });
    m_pAdder->open();
}

} // namespace BasicInfoManagerUI
