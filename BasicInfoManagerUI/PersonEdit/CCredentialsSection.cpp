#include "CCredentialsSection.h"

#include <Credentials/CPersonAuthenticationInfo.h>

#include <QCoreApplication>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonAuthenticationInfo)
};
} // namespace

CCredentialsSection::CCredentialsSection(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent)
    : CPersonSection(pParent)
    , m_pInfo(new CPersonAuthenticationInfo(pInterfaceSet, this))
{
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pInfo);
    connect(m_pInfo, &CPersonAuthenticationInfo::SignalChanged, this, &CPersonSection::SignalChanged);
}

QString CCredentialsSection::GetTitle() const
{
    return Text::tr("Authentication Info");
}

void CCredentialsSection::SetPerson(const AccessControlLogical::Person_t& person)
{
    m_pInfo->SetPerson(person);
}

void CCredentialsSection::FillPerson(AccessControlLogical::Person_t& person) const
{
    m_pInfo->FillPerson(person);
}

QString CCredentialsSection::CheckInput()
{
    return m_pInfo->CheckInput();
}

void CCredentialsSection::SetReadOnly(bool bReadOnly)
{
    m_pInfo->SetReadOnly(bReadOnly);
}

void CCredentialsSection::SetConnected(bool bConnected)
{
    m_pInfo->SetConnected(bConnected);
}

void CCredentialsSection::ShowClashes(const std::vector<AccessControlLogical::PersonClash_t>& vecClashes)
{
    m_pInfo->ShowClashes(vecClashes);
}

} // namespace BasicInfoManagerUI
