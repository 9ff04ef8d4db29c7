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
    : CRowButtonDelegate(
        {{OperationModifyIp, Trv::GetIcon(QStringLiteral("edit")), Text::tr("Modify IP")},
            {OperationAdd, Trv::GetIcon(QStringLiteral("add")), Text::tr("Add to Management")},
            {OperationInitialize, Trv::GetIcon(QStringLiteral("password")), Text::tr("Initialize")}},
        pParent)
{
    SetOfferRule([](const QModelIndex& index, int nRole) {
        switch (index.data(COnlineDeviceModel::OperationsRole).toInt()) {
        case COnlineDeviceModel::OperationsInitialized:
            return nRole != OperationInitialize;
        case COnlineDeviceModel::OperationsUninitialized:
            return true;
        default:
            return false;
        }
    });
}

QRect COnlineOperationDelegate::GetButtonRect(
    const QRect& cell, const QFontMetrics& metrics, OnlineOperation operation) const
{
    return GetButtonRect(cell, metrics, int(operation) - OperationModifyIp);
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
