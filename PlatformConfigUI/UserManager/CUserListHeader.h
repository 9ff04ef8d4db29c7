#pragma once

#include <common/CFilterHeaderView.h>

namespace PlatformConfigUI {

/// The header of the list of users: a click on a column with a filter pops up its choices. User-interface
/// thread.
class CUserListHeader : public Common::CFilterHeaderView
{
    Q_OBJECT

public:
    explicit CUserListHeader(QWidget* pParent = nullptr);

    /// Pops up the choices of that column, one of UserColumnStatus and UserColumnType.
    void OpenFilter(int nColumn);
    /// The values in use: UserLogical::OnlineFilter and UserLogical::UserType.
    int GetOnlineFilter() const { return m_nOnline; }
    int GetTypeFilter() const { return m_nType; }
    /// Nothing is filtered any more; emits nothing.
    void ClearFilters();

Q_SIGNALS:
    /// Another value is in use.
    void SignalFilterChanged();

protected:
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;

private:
    int FilterColumnAt(const QMouseEvent* pEvent) const;
    void OnChosen(int nColumn, int nValue);

    int m_nOnline;
    int m_nType;
    int m_nPressedColumn = -1;
};

} // namespace PlatformConfigUI
