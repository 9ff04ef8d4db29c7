#include "CPersonChooser.h"

#include "CFilterHeaderView.h"
#include "CListStatus.h"
#include "CListView.h"
#include "CTreeComboBox.h"
#include "PersonGroups.h"

#include <UICommonMdl/CNumberPageCtrl.h>
#include <VxGUI/VxSearchBox.h>

#include <QCoreApplication>
#include <QHBoxLayout>

namespace Common {

using AccessControlLogical::IAccessControlManager;
using AccessControlLogical::PersonInfo_t;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonChooser)
};

constexpr int ColumnCheck = 0;
constexpr int ColumnId = 1;
constexpr int ColumnName = 2;
constexpr int NameMinimum = 140;
constexpr int GroupMinimum = 100;
constexpr int GroupWidth = 220;
constexpr int SearchWidth = 260;
constexpr int SearchLimit = 30;

QVector<Column> MakeColumns()
{
    using Width = ColumnWidth;
    constexpr int NotSorted = Column::NotSorted;
    return {{QString(), true, Width::Fixed}, {Text::tr("ID"), true, Width::Content, NotSorted, false},
        {Text::tr("Name"), true, Width::Stretch, NotSorted, false, NameMinimum},
        {Text::tr("Group"), true, Width::Stretch, NotSorted, false, GroupMinimum}};
}

/// A double click or Enter checks the row.
class PersonChoiceView : public CListView
{
public:
    PersonChoiceView()
    {
        setObjectName(QStringLiteral("treePersons"));
        setAccessibleName(Text::tr("Persons"));
        auto* const pModel = new CTableModel(MakeColumns(), ColumnId, ColumnCheck, this);
        pModel->KeepChecks(ColumnName);
        SetUp(pModel, new CFilterHeaderView(this), {ColumnCheck, ColumnName, -1}, {});
    }
    void Replace(const QVector<CTableModel::Row>& vecRows)
    {
        ReplaceRows([&] { GetTable()->SetRows(vecRows); });
    }

protected:
    void OpenRow(const QModelIndex& index) override
    {
        QStandardItem* const pCheck = GetTable()->item(index.row(), ColumnCheck);
        pCheck->setCheckState(pCheck->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    }
};

} // namespace

CPersonChooser::CPersonChooser(UICommonMdl::CInterfaceSetManager* pInterfaceSet, int nLimit, QWidget* pParent)
    : CListPage(pInterfaceSet, QString(), pParent)
    , m_nLimit(nLimit)
    , m_pGroup(new CTreeComboBox)
    , m_pSearch(new VxGUI::VxSearchBox)
    , m_calls(pInterfaceSet, this)
    , m_groupCalls(pInterfaceSet, this)
{
    setObjectName(QStringLiteral("CPersonChooser"));
    SetTexts({Text::tr("Loading persons"), Text::tr("Failed to get the persons"),
        Text::tr("You have no permission to see persons."), Text::tr("There is no person."),
        Text::tr("No person matches the search.")});
    auto* const pList = new PersonChoiceView;
    GetFrame()->SetList(pList);
    GetFrame()->AddTitle(MakeFilters());
    GetToolBar()->hide();
    GetFrame()->GetStatus()->SetTotalText(Text::tr("Persons: %1"));
    connect(pList, &CListView::SignalChecksChanged, this, &CPersonChooser::OnChecksChanged);
    connect(m_pGroup, &CTreeComboBox::SignalCodeChanged, this, [this] { QueryFirstPage(); });
    connect(m_pSearch, &VxGUI::VxSearchBox::SignalSearch, this, [this] {
        m_sSearchText = m_pSearch->text().trimmed();
        QueryFirstPage();
    });
    m_calls.OnPush(AccessControlLogical::IPersonManagerObserver::ResultPersonsChanged,
        [this](const auto&) { QueryLater(); });
    Start();
}

QWidget* CPersonChooser::MakeFilters()
{
    m_pGroup->setObjectName(QStringLiteral("cmbPersonGroup"));
    m_pGroup->setAccessibleName(Text::tr("Person Group"));
    m_pGroup->setFixedWidth(GroupWidth);
    ShowPersonGroups(m_pGroup);
    // The tree may come later.
    m_pGroup->SetKeepsUnknown(true);
    m_pGroup->SetCode(QLatin1String(AccessControlLogical::RootDepartmentCode), Text::tr("All Persons"));
    m_pSearch->setObjectName(QStringLiteral("editPersonSearch"));
    m_pSearch->SetBackgroundText(Text::tr("ID/Name/Plate No."));
    m_pSearch->setMaximumWidth(SearchWidth);
    m_pSearch->setMaxLength(SearchLimit);
    auto* const pRow = new QWidget;
    auto* const pLayout = new QHBoxLayout(pRow);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pGroup);
    pLayout->addStretch();
    pLayout->addWidget(m_pSearch, 1);
    return pRow;
}

void CPersonChooser::QueryAll()
{
    // The tree reaches the combo box by the model that all pages share.
    m_groupCalls.Latest<&IAccessControlManager::QueryDepartmentTree>([](const auto&) {});
    QueryRows();
}

void CPersonChooser::Query()
{
    AccessControlLogical::PersonPageRequest_t request;
    request.sGroupCode = m_pGroup->GetCode().toStdString();
    request.bSubGroups = true;
    request.sSearchKey = m_sSearchText.toStdString();
    request.nPage = qMax(1, GetFrame()->GetPager()->GetCurrentPage());
    request.nPageSize = GetFrame()->GetPager()->GetPageSize();
    m_calls.Latest<&IAccessControlManager::QueryPersonList>(request, [this](const Param& param) {
        ShowAnswer(param.nErrorCode, param.personPage.nTotal, param.personPage.nPage,
            [&] { ShowRows(param.personPage.vecPersons); });
    });
}

void CPersonChooser::ShowRows(const std::vector<PersonInfo_t>& vecPersons)
{
    QVector<CTableModel::Row> vecRows;
    for (const PersonInfo_t& person : vecPersons)
        vecRows.append(
            {CTableModel::MakeItem(), CTableModel::MakeItem(QString::fromStdString(person.sPersonId)),
                CTableModel::MakeItem(QString::fromStdString(person.sName)),
                CTableModel::MakeItem(QString::fromStdString(person.sGroupName))});
    static_cast<PersonChoiceView*>(GetFrame()->GetList())->Replace(vecRows);
}

bool CPersonChooser::IsFiltered() const
{
    return !m_sSearchText.isEmpty()
        || m_pGroup->GetCode() != QLatin1String(AccessControlLogical::RootDepartmentCode);
}

void CPersonChooser::ClearFilters()
{
    m_pSearch->clear();
    m_sSearchText.clear();
    m_pGroup->SetCode(QLatin1String(AccessControlLogical::RootDepartmentCode), Text::tr("All Persons"));
}

void CPersonChooser::SetChosen(const QVector<CheckedItem>& vecChosen)
{
    m_setChosen.clear();
    for (const CheckedItem& chosen : vecChosen)
        m_setChosen.insert(chosen.sId);
    GetFrame()->GetList()->GetTable()->SetChecked(vecChosen);
}

QVector<CheckedItem> CPersonChooser::GetChosen() const
{
    return GetFrame()->GetList()->GetTable()->GetChecked();
}

void CPersonChooser::OnChecksChanged()
{
    CTableModel* const pTable = GetFrame()->GetList()->GetTable();
    QStringList listNew = pTable->GetCheckedIds();
    const int nRoom = qMax(0, m_nLimit - m_setChosen.size());
    QSet<QString> setNow(listNew.begin(), listNew.end());
    listNew.erase(std::remove_if(listNew.begin(), listNew.end(),
                      [this](const QString& sId) { return m_setChosen.contains(sId); }),
        listNew.end());
    if (listNew.size() > nRoom && setNow.size() > m_nLimit) {
        // Told anew once these are unchecked.
        Notify(Text::tr("At most %1 persons can be chosen.").arg(m_nLimit), VxGUI::NotificationKind::Warning);
        pTable->ForgetIds(listNew.mid(nRoom));
        return;
    }
    if (setNow == m_setChosen)
        return;
    m_setChosen = setNow;
    Q_EMIT SignalChosenChanged();
}

} // namespace Common
