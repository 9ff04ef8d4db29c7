#include "CPermissionList.h"

#include <Trv/QSkin.h>
#include <common/CChosenTable.h>

#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

QVector<ChoiceRow> MakeChoiceRows(const std::vector<AccessControlLogical::Choice_t>& vecChoices)
{
    QVector<ChoiceRow> vecRows;
    for (const AccessControlLogical::Choice_t& choice : vecChoices)
        vecRows.append({QString::fromStdString(choice.sId), {QString::fromStdString(choice.sName)}});
    return vecRows;
}

CPermissionList::CPermissionList(QWidget* pParent)
    : QWidget(pParent)
    , m_pTable(new Common::CChosenTable(this))
    , m_pAdd(new QPushButton(this))
{
    m_pAdd->setIcon(Trv::GetIcon(QStringLiteral("add")));
    auto* const pButtons = new QHBoxLayout;
    pButtons->addWidget(m_pAdd);
    pButtons->addStretch(1);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(8);
    pLayout->addWidget(m_pTable);
    pLayout->addLayout(pButtons);
    connect(m_pAdd, &QPushButton::clicked, this, &CPermissionList::SignalAdd);
    connect(m_pTable, &Common::CChosenTable::SignalRemoved, this, &CPermissionList::SignalChanged);
}

void CPermissionList::SetUp(
    const QStringList& listHeaders, const QString& sEmptyText, const QString& sAddText)
{
    m_listHeaders = listHeaders;
    m_pTable->SetUp(listHeaders, sEmptyText);
    m_pTable->GetView()->setAccessibleName(listHeaders.first());
    m_pAdd->setText(sAddText);
}

void CPermissionList::SetChoices(const QVector<ChoiceRow>& vecChoices)
{
    m_vecChoices = vecChoices;
    QHash<QString, QStringList> mapTexts;
    for (const ChoiceRow& choice : vecChoices)
        mapTexts.insert(choice.sId, choice.listTexts);
    m_pTable->SetRowTexts([mapTexts](const QString& sId) { return mapTexts.value(sId, {sId}); });
}

void CPermissionList::SetIds(const QStringList& listIds)
{
    delete m_pAdder;
    m_pTable->SetIds(listIds);
}

QStringList CPermissionList::GetIds() const
{
    return m_pTable->GetIds();
}

void CPermissionList::SetReadOnly(bool bReadOnly)
{
    m_pTable->SetReadOnly(bReadOnly);
    m_pAdd->setVisible(!bReadOnly);
}

void CPermissionList::OpenAdder()
{
    QVector<ChoiceRow> vecOffered;
    for (const ChoiceRow& choice : qAsConst(m_vecChoices)) {
        if (!m_pTable->GetIds().contains(choice.sId))
            vecOffered.append(choice);
    }
    m_pAdder = new CChoiceDlg(m_pAdd->text(), m_listHeaders, vecOffered, this);
    connect(m_pAdder, &CChoiceDlg::SignalChosen, this, [this](const QStringList& listIds) {
        m_pTable->SetIds(m_pTable->GetIds() + listIds);
        Q_EMIT SignalChanged();
    });
    m_pAdder->open();
}

} // namespace BasicInfoManagerUI
