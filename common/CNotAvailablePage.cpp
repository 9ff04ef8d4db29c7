#include "CNotAvailablePage.h"

#include <QCoreApplication>

namespace Common {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CNotAvailablePage)
};
} // namespace

CNotAvailablePage::CNotAvailablePage(const QString& sTitle, QWidget* pParent)
    : VxEmptyState(pParent)
{
    setObjectName(QStringLiteral("CNotAvailablePage"));
    SetState(Kind::NotAvailable, sTitle, Text::tr("This page is not part of this version."));
}

} // namespace Common
