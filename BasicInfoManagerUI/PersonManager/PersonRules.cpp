#include "PersonRules.h"

#include <UICommonMdl/CCodeTreeModel.h>
#include <UICommonMdl/CErrorCode.h>
#include <common/Prompt.h>

#include <QAbstractItemModel>
#include <QCoreApplication>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonManagerCtrl)
};

struct ReportText
{
    Q_DECLARE_TR_FUNCTIONS(CPersonAuthorizeAbnormalDlg)
};

int GetHeight(const QModelIndex& index)
{
    int nBelow = 0;
    for (int nRow = 0; nRow < index.model()->rowCount(index); ++nRow)
        nBelow = qMax(nBelow, GetHeight(index.model()->index(nRow, 0, index)));
    return nBelow + 1;
}

} // namespace

QString GetCredentialText(int nCredential)
{
    switch (nCredential) {
    case CredentialCard:
        return ReportText::tr("Card");
    case CredentialFace:
        return ReportText::tr("Face");
    case CredentialFingerprint:
        return ReportText::tr("Fingerprint");
    case CredentialPassword:
        return ReportText::tr("Unlock Password");
    default:
        return ReportText::tr("Person");
    }
}

QString GetExceptionSection(int nCredential)
{
    switch (nCredential) {
    case CredentialCard:
        return ReportText::tr("Card Exception:");
    case CredentialFace:
        return ReportText::tr("Face Exception");
    case CredentialFingerprint:
        return ReportText::tr("Fingerprint Exception");
    case CredentialPassword:
        return ReportText::tr("PIN Code Exception");
    default:
        return ReportText::tr("Person Exception");
    }
}

QString GetExceptionTabTitle(int nCredential, bool bAbnormal)
{
    const QString sTitle = GetCredentialText(nCredential);
    return bAbnormal ? ReportText::tr("%1%2%3").arg(sTitle, QStringLiteral(" - "), ReportText::tr("Abnormal"))
                     : sTitle;
}

QString GetExceptionReason(const AuthorizeException_t& exception)
{
    const QString sDetail = QString::fromStdString(exception.sDetail);
    switch (exception.nErrorCode) {
    case UICommonMdl::ErrorDisconnected:
        return ReportText::tr("Server is offline");
    case UICommonMdl::ErrorDeviceUnreachable:
        return ReportText::tr("Device offline");
    case UICommonMdl::ErrorNone:
        return sDetail.isEmpty() ? ReportText::tr("Unknown reason") : sDetail;
    default:
        break;
    }
    const QString sReason = UICommonMdl::CErrorCode::GetErroCodeInfor(exception.nErrorCode);
    return sDetail.isEmpty() ? sReason : sReason + QLatin1Char(' ') + sDetail;
}

QString GetExceptionOperation(const AuthorizeException_t& exception)
{
    if (exception.bRemoval)
        return ReportText::tr("Removal error");
    // The device did not take the right, or nobody knows whether it did.
    const bool bUnheard = exception.nErrorCode == UICommonMdl::ErrorDisconnected
        || exception.nErrorCode == UICommonMdl::ErrorTimeOut
        || exception.nErrorCode == UICommonMdl::ErrorDeviceUnreachable
        || exception.nErrorCode == UICommonMdl::ErrorDeviceTimeOut;
    return bUnheard ? ReportText::tr("Issue Abnormal") : ReportText::tr("Issue error");
}

QString GetReissueFailure(int nErrorCode, int nBefore, int nLeft)
{
    if (nErrorCode != UICommonMdl::ErrorNone)
        return Common::FailureText(Text::tr("Failed to re-release right"), nErrorCode);
    if (nLeft == 0)
        return {};
    return nLeft < nBefore ? Text::tr("Failed to sync partial persons.")
                           : Text::tr("Failed to sync personnel");
}

bool CanBeParent(const QModelIndex& parent, const QModelIndex& moved)
{
    for (QModelIndex index = parent; index.isValid() && moved.isValid(); index = index.parent()) {
        if (index == moved)
            return false;
    }
    const int nHeight = moved.isValid() ? GetHeight(moved) : 1;
    return UICommonMdl::CCodeTreeModel::GetLevel(parent) + nHeight <= DepartmentLevelLimit;
}

} // namespace BasicInfoManagerUI
