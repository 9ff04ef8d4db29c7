#include "CConnectionNotice.h"

#include "CSession.h"

#include <QCoreApplication>

namespace Common {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CConnectionNotice)
};
} // namespace

CConnectionNotice::CConnectionNotice(QWidget* pParent)
    : QLabel(pParent)
{
    setText(Text::tr(
        "The connection to the server is lost. Your input is kept; you can go on as soon as the server "
        "is back."));
    setWordWrap(true);
    hide();
}

void CConnectionNotice::Watch(const CSession& session)
{
    setVisible(!session.IsConnected());
    connect(&session, &CSession::SignalConnectionChanged, this,
        [this](bool bConnected) { setVisible(!bConnected); });
}

} // namespace Common
