#pragma once

#include "CPersonSection.h"

#include <memory>

namespace Ui {
class CAccessControlInfo;
}

namespace BasicInfoManagerUI {

/// The section "Access Control Permission". User-interface thread.
class CAccessControlInfo : public CPersonSection
{
    Q_OBJECT

public:
    explicit CAccessControlInfo(QWidget* pParent = nullptr);
    ~CAccessControlInfo() override;

    QString GetTitle() const override;
    void SetPerson(const AccessControlLogical::Person_t& person) override;
    void FillPerson(AccessControlLogical::Person_t& person) const override;
    QString CheckInput() override;
    void SetReadOnly(bool bReadOnly) override;
    bool ShowRefusal(const std::string& sMember, const QString& sText) override;

    void SetChoices(const std::vector<AccessControlLogical::Choice_t>& vecGroups);

Q_SIGNALS:
    /// The user wants to add access permission groups; the section opens its adder itself.
    void SignalAddAccessGroup();

private:
    int m_nLoadedType = AccessControlLogical::PersonGeneral; ///< kept while no access type is chosen
    std::unique_ptr<Ui::CAccessControlInfo> m_pUi;
};

} // namespace BasicInfoManagerUI
