#pragma once

#include "CPersonSection.h"

#include <memory>

namespace Ui {
class CVehicleInfo;
}

namespace BasicInfoManagerUI {

/// The section "Vehicle Information". User-interface thread.
class CVehicleInfo : public CPersonSection
{
    Q_OBJECT

public:
    explicit CVehicleInfo(QWidget* pParent = nullptr);
    ~CVehicleInfo() override;

    QString GetTitle() const override;
    void SetPerson(const AccessControlLogical::Person_t& person) override;
    void FillPerson(AccessControlLogical::Person_t& person) const override;
    QString CheckInput() override;
    void SetReadOnly(bool bReadOnly) override;
    bool ShowRefusal(const std::string& sMember, const QString& sText) override;
    /// Where the Tab key leaves the section.
    QWidget* GetLastField() const;

private:
    /// Adds what was typed; the message that stands at the field when it cannot be.
    QString AddTyped();

    std::unique_ptr<Ui::CVehicleInfo> m_pUi;
};

} // namespace BasicInfoManagerUI
