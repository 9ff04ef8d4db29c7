#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QWidget>

#include <memory>

class QAbstractButton;
namespace Ui {
class CUnlockPasswordUI;
}
namespace VxGUI {
class VxLineEdit;
}

namespace BasicInfoManagerUI {

/// The unlock password of one person: enters, replaces and deletes it; one that is stored is never shown.
/// User-interface thread.
class CUnlockPasswordUI : public QWidget
{
    Q_OBJECT

public:
    explicit CUnlockPasswordUI(QWidget* pParent = nullptr);
    ~CUnlockPasswordUI() override;

    /// What was being entered is dropped. Emits nothing.
    void SetPerson(const AccessControlLogical::Person_t& person);
    void FillPerson(AccessControlLogical::Person_t& person) const;
    /// A password that stands in the field is confirmed; the message, now at the field, when it cannot be.
    QString CheckInput();
    void SetReadOnly(bool bReadOnly);

Q_SIGNALS:
    void SignalChanged();

private:
    void SetUpField(VxGUI::VxLineEdit* pField, QAbstractButton* pConfirm);
    bool Confirm(VxGUI::VxLineEdit* pField);
    void Delete();
    void ShowPage();
    /// The field of the page that is shown; null on the finished page.
    VxGUI::VxLineEdit* CurrentField() const;

    std::unique_ptr<Ui::CUnlockPasswordUI> m_pUi;
    bool m_bHasPassword = false;
    QString m_sPassword; ///< a new one; empty: as stored
    bool m_bReadOnly = false;
};

} // namespace BasicInfoManagerUI
