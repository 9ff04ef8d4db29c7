#include <UICommonMdl/CGlobalInfo.h>

#include "WeakPasswords.h"

namespace UICommonMdl {

CGlobalInfo* CGlobalInfo::Instance()
{
    return VxGUI::VxSingleton<CGlobalInfo>::Instance();
}

QString CGlobalInfo::GetClientStrLanguage() const
{
    return m_sLanguage;
}

void CGlobalInfo::SetClientStrLanguage(const QString& sLanguage)
{
    m_sLanguage = sLanguage;
}

bool CGlobalInfo::CheckWeakPassword(const QString& sPassword) const
{
    return WeakPasswords().contains(sPassword.toLower());
}

} // namespace UICommonMdl
