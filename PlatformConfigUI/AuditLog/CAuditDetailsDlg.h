#pragma once

#include <UserLogical/UserRecords.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CAuditDetailsDlg;
}

namespace PlatformConfigUI {

/// One entry of the log in full: what was changed, one row a field. Deletes itself when it is closed.
/// User-interface thread.
class CAuditDetailsDlg : public QDialog
{
    Q_OBJECT

public:
    CAuditDetailsDlg(const UserLogical::AuditEntry_t& entry, QWidget* pParent);
    ~CAuditDetailsDlg() override;

private:
    void ShowHead(const UserLogical::AuditEntry_t& entry);
    void ShowChanges(const UserLogical::AuditEntry_t& entry);

    std::unique_ptr<Ui::CAuditDetailsDlg> m_pUi;
};

} // namespace PlatformConfigUI
