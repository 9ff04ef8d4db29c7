#pragma once

#include "CPersonSection.h"

#include <memory>

namespace Ui {
class CLiftControlInfo;
}

namespace BasicInfoManagerUI {

/// The section "Lift Controller Permission". User-interface thread.
class CLiftControlInfo : public CPersonSection
{
    Q_OBJECT

public:
    explicit CLiftControlInfo(QWidget* pParent = nullptr);
    ~CLiftControlInfo() override;

    QString GetTitle() const override;
    void SetPerson(const AccessControlLogical::Person_t& person) override;
    void FillPerson(AccessControlLogical::Person_t& person) const override;
    void SetReadOnly(bool bReadOnly) override;
    void SetChoices(const std::vector<AccessControlLogical::LiftFloor_t>& vecFloors);

private:
    std::unique_ptr<Ui::CLiftControlInfo> m_pUi;
};

} // namespace BasicInfoManagerUI
