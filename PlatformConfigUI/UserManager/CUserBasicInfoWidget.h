#pragma once

#include <UserLogical/UserRecords.h>
#include <common/RecordFields.h>

#include <QWidget>

#include <memory>

namespace VxGUI {
class VxLineEdit;
}
namespace Ui {
class CUserBasicInfoWidget;
}

namespace PlatformConfigUI {

/// The fields of an account but its roles. User-interface thread.
class CUserBasicInfoWidget : public QWidget
{
    Q_OBJECT

public:
    enum class Mode
    {
        Add,
        Modify,
        Details
    };

    explicit CUserBasicInfoWidget(QWidget* pParent = nullptr);
    ~CUserBasicInfoWidget() override;

    /// Names the fields that can be changed.
    void Describe(Common::RecordFields<UserLogical::User_t>& fields) const;
    void ShowUser(const UserLogical::User_t& user, Mode mode);
    /// The record as shown with what was entered; every text is trimmed.
    UserLogical::User_t GetEdited() const;
    /// Checks all fields in their order but the addresses; the first failure is shown where it is, with the
    /// keyboard there.
    bool CheckFields();
    /// The same for the addresses.
    bool CheckAddresses();
    /// What the server refused.
    void ShowUserNameExists(const QString& sText);
    void ShowPasswordRefused(const QString& sText);
    /// Puts the keyboard into the first field that can be edited.
    void StartInput();

private:
    void SetUpFields();
    void SetUpChecks();
    bool IsPasswordUsed() const;
    bool CheckPassword();
    bool FailsAt(VxGUI::VxLineEdit* pField) const;
    void TrimTexts();
    void UpdateFields();
    void UpdateExpiration();

    std::unique_ptr<Ui::CUserBasicInfoWidget> m_pUi;
    UserLogical::User_t m_loaded;
    Mode m_mode = Mode::Add;
};

} // namespace PlatformConfigUI
