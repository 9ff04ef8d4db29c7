#pragma once

#include "CPersonSection.h"

#include <memory>

namespace Ui {
class CPersonDetailInfo;
}

namespace BasicInfoManagerUI {

/// The section "Extended Info". User-interface thread.
class CPersonDetailInfo : public CPersonSection
{
    Q_OBJECT

public:
    explicit CPersonDetailInfo(QWidget* pParent = nullptr);
    ~CPersonDetailInfo() override;

    QString GetTitle() const override;
    void SetPerson(const AccessControlLogical::Person_t& person) override;
    void FillPerson(AccessControlLogical::Person_t& person) const override;
    QString CheckInput() override;
    void SetReadOnly(bool bReadOnly) override;
    bool ShowRefusal(const std::string& sMember, const QString& sText) override;

private:
    std::unique_ptr<Ui::CPersonDetailInfo> m_pUi;
};

} // namespace BasicInfoManagerUI
