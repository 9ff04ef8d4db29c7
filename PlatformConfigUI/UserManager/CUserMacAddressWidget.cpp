#include "CUserMacAddressWidget.h"

#include "UserRules.h"
#include "ui_CUserMacAddressWidget.h"

#include <Trv/QSkin.h>
#include <VxGUI/VxLineEdit.h>
#include <VxGUI/VxNotification.h>
#include <common/CRowButtonDelegate.h>

#include <QLineEdit>
#include <QStandardItemModel>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserMacAddressWidget)
};

enum Column : int
{
    ColumnAddress = 0,
    ColumnOperation
};

constexpr int AddressRole = Qt::UserRole; ///< not shown by the cell: the field in it shows the text
constexpr int OperationWidth = 88;
constexpr int ButtonDelete = 1;

} // namespace

CUserMacAddressWidget::CUserMacAddressWidget(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CUserMacAddressWidget>())
    , m_pModel(new QStandardItemModel(0, 2, this))
{
    m_pUi->setupUi(this);
    m_pUi->btnAddMac->setIcon(Trv::GetIcon(QStringLiteral("add")));
    m_pModel->setHorizontalHeaderLabels({Text::tr("MAC Address"), Text::tr("Operation")});
    QTreeView* const pTable = m_pUi->tableMac;
    pTable->setModel(m_pModel);
    pTable->header()->setStretchLastSection(false);
    pTable->header()->setSectionResizeMode(ColumnAddress, QHeaderView::Stretch);
    pTable->header()->setSectionResizeMode(ColumnOperation, QHeaderView::Fixed);
    pTable->header()->resizeSection(ColumnOperation, OperationWidth);
    auto* const pButtons = new Common::CRowButtonDelegate(
        {{ButtonDelete, Trv::GetIcon(QStringLiteral("delete")), Text::tr("Delete")}}, this);
    pButtons->setObjectName(QStringLiteral("rowButtonsMac"));
    pTable->setItemDelegateForColumn(ColumnOperation, pButtons);
    connect(pButtons, &Common::CRowButtonDelegate::SignalButtonClicked, this,
        [this](const QModelIndex& index) { m_pModel->removeRow(index.row()); });
    connect(m_pUi->btnAddMac, &QAbstractButton::clicked, this, &CUserMacAddressWidget::OnAddClicked);
    connect(m_pUi->swBindMac, &QAbstractButton::toggled, this, &CUserMacAddressWidget::OnMacSelectChanged);
    OnMacSelectChanged(false);
}

CUserMacAddressWidget::~CUserMacAddressWidget() = default;

void CUserMacAddressWidget::SetRecord(bool bBound, const std::vector<std::string>& vecAddresses)
{
    m_pModel->removeRows(0, m_pModel->rowCount());
    for (const std::string& sAddress : vecAddresses)
        AddRow(QString::fromStdString(sAddress));
    m_pUi->swBindMac->setChecked(bBound);
}

bool CUserMacAddressWidget::IsBound() const
{
    return m_pUi->swBindMac->isChecked();
}

std::vector<std::string> CUserMacAddressWidget::GetAddresses() const
{
    std::vector<std::string> vecAddresses;
    for (int nRow = 0; nRow < m_pModel->rowCount(); ++nRow) {
        const QString sAddress = m_pModel->index(nRow, ColumnAddress).data(AddressRole).toString();
        vecAddresses.push_back(sAddress.trimmed().toStdString());
    }
    return vecAddresses;
}

void CUserMacAddressWidget::SetReadOnly(bool bReadOnly)
{
    m_bReadOnly = bReadOnly;
    m_pUi->btnAddMac->setVisible(!bReadOnly);
    m_pUi->swBindMac->setAttribute(Qt::WA_TransparentForMouseEvents, bReadOnly);
    m_pUi->swBindMac->setFocusPolicy(bReadOnly ? Qt::NoFocus : Qt::StrongFocus);
    m_pUi->tableMac->setColumnHidden(ColumnOperation, bReadOnly);
    const auto listFields = m_pUi->tableMac->findChildren<VxGUI::VxLineEdit*>();
    for (VxGUI::VxLineEdit* pField : listFields)
        pField->setReadOnly(bReadOnly);
}

void CUserMacAddressWidget::StartInput()
{
    QWidget* const pField = m_pUi->tableMac->indexWidget(m_pModel->index(0, ColumnAddress));
    (pField ? pField : m_pUi->btnAddMac)->setFocus();
}

void CUserMacAddressWidget::OnAddClicked()
{
    const std::vector<std::string> vecAddresses = GetAddresses();
    if (std::find(vecAddresses.begin(), vecAddresses.end(), std::string()) != vecAddresses.end()) {
        VxGUI::VxNotification::Show(
            this, Text::tr(" Blank line exists. Cannot continue to add."), VxGUI::NotificationKind::Warning);
        return;
    }
    AddRow(QString());
    const QModelIndex added = m_pModel->index(m_pModel->rowCount() - 1, ColumnAddress);
    m_pUi->tableMac->scrollTo(added);
    m_pUi->tableMac->indexWidget(added)->setFocus();
}

void CUserMacAddressWidget::OnMacSelectChanged(bool bBound)
{
    m_pUi->lbMacNote->setText(bBound ? Text::tr("Sign-in is possible from these clients only.")
                                     : Text::tr("Sign-in is possible from every client."));
}

void CUserMacAddressWidget::AddRow(const QString& sAddress)
{
    auto* const pItem = new QStandardItem;
    pItem->setEditable(false);
    pItem->setData(sAddress, AddressRole);
    auto* const pOperation = new QStandardItem;
    pOperation->setEditable(false);
    m_pModel->appendRow({pItem, pOperation});

    auto* const pField = new VxGUI::VxLineEdit;
    pField->setPlaceholderText(QStringLiteral("xx:xx:xx:xx:xx:xx"));
    const UICommonMdl::TextRule& rule = UserLogical::MacAddress;
    pField->SetLimit(rule, Text::tr("MAC address cannot exceed %1 character(s)."));
    pField->SetTyped(QRegularExpression(QStringLiteral("[%1]*").arg(QLatin1String(rule.szAllowed))),
        Text::tr("Special characters are not allowed."));
    pField->setText(sAddress);
    pField->setReadOnly(m_bReadOnly);
    pField->GetLineEdit()->setAccessibleName(Text::tr("MAC Address"));
    connect(pField, &VxGUI::VxLineEdit::textChanged, this,
        [this, index = QPersistentModelIndex(pItem->index())](const QString& sText) {
            m_pModel->setData(index, sText, AddressRole);
            UpdateRowHeights();
        });
    connect(pField->GetLineEdit(), &QLineEdit::inputRejected, this, &CUserMacAddressWidget::UpdateRowHeights,
        Qt::QueuedConnection);
    m_pUi->tableMac->setIndexWidget(pItem->index(), pField);
}

void CUserMacAddressWidget::UpdateRowHeights()
{
    // The hint under a field comes after the change that causes it.
    QMetaObject::invokeMethod(
        m_pUi->tableMac, [this] { m_pUi->tableMac->doItemsLayout(); }, Qt::QueuedConnection);
}

} // namespace PlatformConfigUI
