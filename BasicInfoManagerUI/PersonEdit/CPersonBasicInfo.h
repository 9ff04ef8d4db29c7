#pragma once

#include "CPersonSection.h"

#include <memory>

namespace Ui {
class CPersonBasicInfo;
}

namespace BasicInfoManagerUI {

/// The section "Basic Information". User-interface thread.
class CPersonBasicInfo : public CPersonSection
{
    Q_OBJECT

public:
    explicit CPersonBasicInfo(QWidget* pParent = nullptr);
    ~CPersonBasicInfo() override;

    QString GetTitle() const override;
    void SetPerson(const AccessControlLogical::Person_t& person) override;
    void FillPerson(AccessControlLogical::Person_t& person) const override;
    QString CheckInput() override;
    void SetReadOnly(bool bReadOnly) override;
    void SetConnected(bool bConnected) override;
    bool ShowRefusal(const std::string& sMember, const QString& sText) override;

    /// The ID is the person's key: it is typed once.
    void SetIdEditable(bool bEditable);
    /// To where typing begins: the ID, or the name when there is one already.
    void FocusFirst();

private:
    void SetUpFields();

    bool m_bIdEditable = true;
    bool m_bReadOnly = false;
    std::unique_ptr<Ui::CPersonBasicInfo> m_pUi;
};

} // namespace BasicInfoManagerUI
