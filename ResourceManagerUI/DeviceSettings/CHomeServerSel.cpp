#include "CHomeServerSel.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QHBoxLayout>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CHomeServerSel)
};
} // namespace

CHomeServerSel::CHomeServerSel(QWidget* pParent)
    : QWidget(pParent)
    , m_pServers(new QComboBox(this))
{
    m_pServers->setObjectName(QStringLiteral("cbxHomeSvrSel"));
    m_pServers->setAccessibleName(Text::tr("Server"));
    auto* const pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pServers);
    setFocusProxy(m_pServers);
    connect(m_pServers, qOverload<int>(&QComboBox::activated), this,
        [this] { Q_EMIT SignalServerChosen(m_pServers->currentData().toString()); });
    SetServers({});
}

void CHomeServerSel::SetServers(const std::vector<RemoteConfigLogical::VideoServer_t>& vecServers)
{
    m_pServers->clear();
    for (const RemoteConfigLogical::VideoServer_t& server : vecServers)
        m_pServers->addItem(QString::fromStdString(server.sName), QString::fromStdString(server.sServerId));
    if (vecServers.empty())
        m_pServers->addItem(Text::tr("Platform"));
}

} // namespace ResourceManagerUI
