#include "CExtractPersonDlg.h"

#include "PersonFields.h"

#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <VxGUI/VxEmptyState.h>
#include <VxGUI/VxSearchBox.h>
#include <common/CTableModel.h>

#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CExtractPersonDlg)
};

using Kind = VxGUI::VxEmptyState::Kind;
constexpr int CategoryAccessControl = 8;
constexpr int DevicePageSize = 1000;
/// A device with many persons takes its time.
constexpr std::chrono::minutes ExtractTimeOut{3};

enum Column : int
{
    ColumnRow, ///< place in the answer
    ColumnId,
    ColumnName,
    ColumnCards,
    ColumnFingerprints
};

} // namespace

CExtractPersonDlg::CExtractPersonDlg(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : QDialog(pParent)
    , m_pDevices(new QComboBox(this))
    , m_pQuery(new QPushButton(Text::tr("Extract"), this))
    , m_pSearch(new VxGUI::VxSearchBox(this))
    , m_pStack(new QStackedWidget(this))
    , m_pView(new QTableView(m_pStack))
    , m_pState(new VxGUI::VxEmptyState(m_pStack))
    , m_pModel(new Common::CTableModel({{QString(), false}, {Text::tr("ID"), true}, {Text::tr("Name"), true},
                                           {Text::tr("Cards"), true}, {Text::tr("Fingerprints"), true}},
          ColumnRow, -1, this))
    , m_pProxy(new QSortFilterProxyModel(this))
    , m_session(pInterfaceSet, this)
    , m_personCalls(pInterfaceSet, this)
    , m_groupCalls(pInterfaceSet, this)
{
    setObjectName(QStringLiteral("CExtractPersonDlg"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setWindowTitle(Text::tr("Extract"));
    resize(620, 480);
    m_personCalls.SetLimit(ExtractTimeOut);
    SetUpList();
    SetUpLayout();
    connect(&m_session, &Common::CSession::SignalConnectionChanged, this, &CExtractPersonDlg::UpdateButtons);
    connect(m_pQuery, &QPushButton::clicked, this, &CExtractPersonDlg::QueryPersons);
    connect(m_pState, &VxGUI::VxEmptyState::SignalAction, this, [this] {
        if (m_pDevices->count() == 0)
            QueryDevices();
        else
            QueryPersons();
    });
    QueryDevices();
}

void CExtractPersonDlg::SetUpList()
{
    m_pProxy->setSourceModel(m_pModel);
    m_pProxy->setFilterKeyColumn(-1);
    m_pProxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_pView->setModel(m_pProxy);
    m_pView->setObjectName(QStringLiteral("tblExtracted"));
    m_pView->setAccessibleName(Text::tr("Persons of the device"));
    m_pView->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pView->setSelectionMode(QAbstractItemView::SingleSelection);
    m_pView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pView->setShowGrid(false);
    m_pView->setTabKeyNavigation(false);
    m_pView->verticalHeader()->hide();
    m_pView->hideColumn(ColumnRow);
    m_pView->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_pView->horizontalHeader()->setHighlightSections(false);
    m_pView->horizontalHeader()->setSectionResizeMode(ColumnName, QHeaderView::Stretch);
    connect(m_pView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
        &CExtractPersonDlg::UpdateButtons);
    connect(m_pView, &QTableView::doubleClicked, this, &CExtractPersonDlg::accept);
}

void CExtractPersonDlg::SetUpLayout()
{
    m_pDevices->setObjectName(QStringLiteral("m_pCmbExtractDevice"));
    m_pDevices->setAccessibleName(Text::tr("Access Control Device"));
    m_pQuery->setObjectName(QStringLiteral("btnQueryDevice"));
    m_pSearch->setObjectName(QStringLiteral("editExtractSearch"));
    m_pSearch->SetBackgroundText(Text::tr("ID/Name"));
    m_pSearch->setAccessibleName(Text::tr("Search"));
    connect(m_pSearch, &QLineEdit::textChanged, m_pProxy, [this](const QString& sText) {
        m_pProxy->setFilterFixedString(sText.trimmed());
        UpdateButtons();
    });
    auto* const pLabel = new QLabel(Text::tr("Access Control Device"), this);
    pLabel->setBuddy(m_pDevices);
    auto* const pTop = new QHBoxLayout;
    pTop->setSpacing(8);
    pTop->addWidget(pLabel);
    pTop->addWidget(m_pDevices, 1);
    pTop->addWidget(m_pQuery);
    m_pStack->addWidget(m_pView);
    m_pStack->addWidget(m_pState);
    auto* const pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_pOk = pButtons->button(QDialogButtonBox::Ok);
    PersonFields::MakePrimary(m_pOk);
    m_pQuery->setAutoDefault(false);
    connect(pButtons, &QDialogButtonBox::accepted, this, &CExtractPersonDlg::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(16, 16, 16, 16);
    pLayout->setSpacing(12);
    pLayout->addLayout(pTop);
    pLayout->addWidget(m_pSearch);
    pLayout->addWidget(m_pStack, 1);
    pLayout->addWidget(pButtons);
}

void CExtractPersonDlg::QueryDevices()
{
    ShowState(Kind::Loading, Text::tr("Loading"));
    GroupLogical::DevicePageRequest_t request;
    request.nPageSize = DevicePageSize;
    request.nCategory = CategoryAccessControl;
    m_groupCalls.Latest<&GroupLogical::IGroupManager::QueryDevicePage>(
        request, [this](const GroupParam& param) { OnDevices(param); });
    UpdateButtons();
}

void CExtractPersonDlg::OnDevices(const GroupParam& param)
{
    m_pDevices->clear();
    for (const GroupLogical::DeviceInfo_t& device : param.devicePage.vecDevices)
        m_pDevices->addItem(QString::fromStdString(device.sName), QString::fromStdString(device.sDeviceId));
    if (param.nErrorCode != UICommonMdl::ErrorNone)
        ShowState(param.nErrorCode == UICommonMdl::ErrorNoRight ? Kind::NoPermission : Kind::Failed,
            Text::tr("Failed to get devices"), UICommonMdl::CErrorCode::GetErroCodeInfor(param.nErrorCode));
    else if (m_pDevices->count() == 0)
        ShowState(Kind::Empty, Text::tr("There is no access control device."));
    else
        ShowState(Kind::Empty, Text::tr("Choose a device and extract its persons."));
    UpdateButtons();
}

void CExtractPersonDlg::QueryPersons()
{
    m_vecPersons.clear();
    m_pModel->SetRows({});
    ShowState(Kind::Loading, Text::tr("The device is asked for its persons."));
    m_personCalls.Latest<&IAccessControlManager::ExtractPersons>(
        m_pDevices->currentData().toString().toStdString(),
        [this](const PersonParam& param) { OnPersons(param); });
    UpdateButtons();
}

void CExtractPersonDlg::OnPersons(const PersonParam& param)
{
    m_vecPersons = param.vecPersons;
    QVector<Common::CTableModel::Row> vecRows;
    for (std::size_t n = 0; n < m_vecPersons.size(); ++n) {
        const Person_t& person = m_vecPersons[n];
        Common::CTableModel::Row row;
        for (const QString& sText : {QString::number(n), QString::fromStdString(person.sPersonId),
                 QString::fromStdString(person.sName), QString::number(person.vecCards.size()),
                 QString::number(person.vecFingerprints.size())})
            row.append(Common::CTableModel::MakeItem(sText));
        vecRows.append(row);
    }
    m_pModel->SetRows(vecRows);
    if (param.nErrorCode != UICommonMdl::ErrorNone)
        ShowState(Kind::Failed, Text::tr("Failed to extract persons"),
            UICommonMdl::CErrorCode::GetErroCodeInfor(param.nErrorCode));
    else if (m_vecPersons.empty())
        ShowState(Kind::Empty, Text::tr("The device holds no persons."));
    else
        m_pStack->setCurrentWidget(m_pView);
    UpdateButtons();
}

void CExtractPersonDlg::ShowState(VxGUI::VxEmptyState::Kind kind, const QString& sTitle, const QString& sText)
{
    m_pState->SetState(kind, sTitle, sText, kind == Kind::Failed ? Text::tr("Refresh") : QString());
    m_pStack->setCurrentWidget(m_pState);
}

void CExtractPersonDlg::UpdateButtons()
{
    const bool bBusy = m_personCalls.IsPending() || m_groupCalls.IsPending();
    const bool bUsable = m_session.IsConnected() && !bBusy;
    m_pDevices->setEnabled(!bBusy && m_pDevices->count() > 0);
    m_pQuery->setEnabled(bUsable && m_pDevices->count() > 0);
    m_pState->setEnabled(m_session.IsConnected());
    m_pSearch->setVisible(m_pStack->currentWidget() == m_pView);
    m_pOk->setEnabled(GetSelected() != nullptr);
}

const Person_t* CExtractPersonDlg::GetSelected() const
{
    const QModelIndexList listRows = m_pView->selectionModel()->selectedRows(ColumnRow);
    if (m_pStack->currentWidget() != m_pView || listRows.isEmpty())
        return nullptr;
    return &m_vecPersons[listRows.first().data().toUInt()];
}

void CExtractPersonDlg::accept()
{
    if (const Person_t* const pSelected = GetSelected()) {
        Q_EMIT SignalPerson(*pSelected);
        QDialog::accept();
    }
}

} // namespace BasicInfoManagerUI
