#pragma once

#include "CPersonSection.h"

namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace BasicInfoManagerUI {

class CPersonAuthenticationInfo;

/// The section "Authentication Info" as one of the editor's. User-interface thread.
class CCredentialsSection : public CPersonSection
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the section.
    CCredentialsSection(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent);

    QString GetTitle() const override;
    void SetPerson(const AccessControlLogical::Person_t& person) override;
    void FillPerson(AccessControlLogical::Person_t& person) const override;
    QString CheckInput() override;
    void SetReadOnly(bool bReadOnly) override;
    void SetConnected(bool bConnected) override;
    void ShowClashes(const std::vector<AccessControlLogical::PersonClash_t>& vecClashes);

private:
    CPersonAuthenticationInfo* m_pInfo;
};

} // namespace BasicInfoManagerUI
