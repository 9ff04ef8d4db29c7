#pragma once

#include <common/CCalls.h>
#include <common/CTransfer.h>

namespace Common {
class CPage;
}

namespace ResourceManagerUI {

class CDeviceListView;

/// Exports devices to a spreadsheet: asks where to, fetches them, writes the columns that the list shows, and
/// tells the outcome. User-interface thread.
class CDeviceExporter : public QObject
{
    Q_OBJECT

public:
    /// The page owns this object; the list is borrowed.
    CDeviceExporter(Common::CPage* pPage, const CDeviceListView* pList);

    /// All devices that the request selects.
    void Start(const GroupLogical::DevicePageRequest_t& request);

private:
    using Answer = GroupLogical::IGroupManagerObserver::Answer;
    void OnAnswer(const QString& sPath, const Answer& pAnswer);
    void OnWritten(const QString& sError);

    Common::CPage* m_pPage;
    const CDeviceListView* m_pList;
    Common::CCalls<GroupLogical::IGroupManagerObserver> m_calls;
    Common::CTransfer m_transfer;
};

} // namespace ResourceManagerUI
