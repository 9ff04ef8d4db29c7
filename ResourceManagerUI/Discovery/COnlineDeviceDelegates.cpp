#include "COnlineDeviceDelegates.h"

#include "COnlineDeviceModel.h"

#include <DeviceEdit/DeviceFormRules.h>
#include <Trv/QSkin.h>

#include <QCoreApplication>
#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAutoSearchOnlineDev)
};
} // namespace

COnlineOperationDelegate::COnlineOperationDelegate(QObject* pParent)
    : QStyledItemDelegate(pParent)
{
    QVector<Common::RowButton> vecButtons{
        {OperationModifyIp, Trv::GetIcon(QStringLiteral("edit")), Text::tr("Modify IP")},
        {OperationAdd, Trv::GetIcon(QStringLiteral("add")), Text::tr("Add to Management")}};
    m_pInitialized = new Common::CRowButtonDelegate(vecButtons, this);
    vecButtons.append(
        {OperationInitialize, Trv::GetIcon(QStringLiteral("password")), Text::tr("Initialize")});
    m_pUninitialized = new Common::CRowButtonDelegate(vecButtons, this);
    for (const Common::CRowButtonDelegate* pButtons : {m_pInitialized, m_pUninitialized})
        connect(pButtons, &Common::CRowButtonDelegate::SignalButtonClicked, this,
            &COnlineOperationDelegate::SignalButtonClicked);
}

Common::CRowButtonDelegate* COnlineOperationDelegate::Buttons(const QModelIndex& index) const
{
    switch (index.data(COnlineDeviceModel::OperationsRole).toInt()) {
    case COnlineDeviceModel::OperationsInitialized:
        return m_pInitialized;
    case COnlineDeviceModel::OperationsUninitialized:
        return m_pUninitialized;
    default:
        return nullptr;
    }
}

QRect COnlineOperationDelegate::GetButtonRect(
    const QRect& cell, const QFontMetrics& metrics, OnlineOperation operation) const
{
    return m_pUninitialized->GetButtonRect(cell, metrics, operation - OperationModifyIp);
}

void COnlineOperationDelegate::paint(
    QPainter* pPainter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (const Common::CRowButtonDelegate* pButtons = Buttons(index))
        pButtons->paint(pPainter, option, index);
    else
        QStyledItemDelegate::paint(pPainter, option, index);
}

QSize COnlineOperationDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return m_pUninitialized->sizeHint(option, index);
}

bool COnlineOperationDelegate::editorEvent(
    QEvent* pEvent, QAbstractItemModel* pModel, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    Common::CRowButtonDelegate* pButtons = Buttons(index);
    return pButtons && pButtons->editorEvent(pEvent, pModel, option, index);
}

bool COnlineOperationDelegate::helpEvent(QHelpEvent* pEvent, QAbstractItemView* pView,
    const QStyleOptionViewItem& option, const QModelIndex& index)
{
    Common::CRowButtonDelegate* pButtons = Buttons(index);
    return pButtons ? pButtons->helpEvent(pEvent, pView, option, index)
                    : QStyledItemDelegate::helpEvent(pEvent, pView, option, index);
}

QWidget* CAddressDelegate::createEditor(
    QWidget* pParent, const QStyleOptionViewItem&, const QModelIndex&) const
{
    auto* pEdit = new QLineEdit(pParent);
    pEdit->setObjectName(QStringLiteral("edtOnlineAddress"));
    pEdit->setAccessibleName(Text::tr("IP Address"));
    pEdit->setAttribute(Qt::WA_InputMethodEnabled, false);
    pEdit->setValidator(new QRegularExpressionValidator(QRegularExpression(GetIpExpression()), pEdit));
    return pEdit;
}

} // namespace ResourceManagerUI
