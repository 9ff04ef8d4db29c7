#pragma once

#include "CPersonSection.h"

#include <memory>

namespace Ui {
class CResidentInfo;
}

namespace BasicInfoManagerUI {

/// The section "Resident Information". User-interface thread.
class CResidentInfo : public CPersonSection
{
    Q_OBJECT

public:
    explicit CResidentInfo(QWidget* pParent = nullptr);
    ~CResidentInfo() override;

    QString GetTitle() const override;
    void SetPerson(const AccessControlLogical::Person_t& person) override;
    void FillPerson(AccessControlLogical::Person_t& person) const override;
    void SetReadOnly(bool bReadOnly) override;
    bool ShowRefusal(const std::string& sMember, const QString& sText) override;
    /// The rooms to choose from; what the person has stays chosen.
    void SetRooms(const std::vector<std::string>& vecRooms);

private:
    void ShowRoom(const QString& sRoom);

    std::vector<std::string> m_vecRooms;
    std::unique_ptr<Ui::CResidentInfo> m_pUi;
};

} // namespace BasicInfoManagerUI
