#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QModelIndex>
#include <QString>

namespace BasicInfoManagerUI {

QString GetCredentialText(int nCredential);
/// Heading of the exceptions of that credential.
QString GetExceptionSection(int nCredential);
/// Title of the tab with the exceptions of that credential.
QString GetExceptionTabTitle(int nCredential, bool bAbnormal);
QString GetExceptionReason(const AccessControlLogical::AuthorizeException_t& exception);
/// What failed: sending the right, or taking it away.
QString GetExceptionOperation(const AccessControlLogical::AuthorizeException_t& exception);

/// What a new sending of a person's rights came to; empty when all of them arrived.
///   nBefore  exceptions that were known before, 0 when that is not known
///   nLeft    exceptions that are left
QString GetReissueFailure(int nErrorCode, int nBefore, int nLeft);

/// Whether the person group "moved" (of the tree of groups) may lie under "parent": not under itself, and not
/// so that anything of it lies too deep. An invalid "moved" is a new group.
bool CanBeParent(const QModelIndex& parent, const QModelIndex& moved);

} // namespace BasicInfoManagerUI
