#pragma once

#include <UserLogical/UserRecords.h>
#include <common/CListView.h>

namespace PlatformConfigUI {

class CAuditModel;

/// The entries of the log. User-interface thread.
class CAuditListView : public Common::CListView
{
    Q_OBJECT

public:
    explicit CAuditListView(QWidget* pParent = nullptr);

    void SetEntries(const std::vector<UserLogical::AuditEntry_t>& vecEntries);

Q_SIGNALS:
    /// The user wants to see the whole entry.
    void SignalDetails(const UserLogical::AuditEntry_t& entry);

protected:
    void RaiseOperation(int nRole, const QModelIndex& index) override;
    void OpenRow(const QModelIndex& index) override;

private:
    CAuditModel* m_pModel;
};

} // namespace PlatformConfigUI
