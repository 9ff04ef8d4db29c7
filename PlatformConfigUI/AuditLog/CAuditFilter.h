#pragma once

#include <UserLogical/UserRecords.h>

#include <QWidget>

#include <memory>
#include <optional>

namespace Ui {
class CAuditFilter;
}

namespace PlatformConfigUI {

/// The filters of the log: period, operation, user, address and object. They count when the user searches,
/// not while they are typed. User-interface thread.
class CAuditFilter : public QWidget
{
    Q_OBJECT

public:
    explicit CAuditFilter(QWidget* pParent = nullptr);
    ~CAuditFilter() override;

    /// What is entered, from the first page on; none while the start is not before the end, and the cursor
    /// stands in the start then.
    std::optional<UserLogical::AuditRequest_t> Read() const;
    void Reset();
    /// Leads to the first text.
    void FocusUser();

Q_SIGNALS:
    /// The user wants the entries for what is entered.
    void SignalSearch();

private:
    void SetUpChoices();
    void SetUpKeys();
    void OnPeriodChanged();
    int GetPeriod() const;

    std::unique_ptr<Ui::CAuditFilter> m_pUi;
};

} // namespace PlatformConfigUI
