#pragma once

#include <common/CCalls.h>

#include <QFutureWatcher>
#include <QPointer>

namespace Common {
class CPage;
}
namespace VxGUI {
class VxWaitDialog;
}

namespace ResourceManagerUI {

class CDeviceListView;

/// Exports devices to a spreadsheet: asks where to, fetches them, writes the columns that the list shows, and
/// tells the outcome. The file is written on another thread. User-interface thread.
class CDeviceExporter : public QObject
{
    Q_OBJECT

public:
    /// The page owns this object; the list is borrowed.
    CDeviceExporter(Common::CPage* pPage, const CDeviceListView* pList);
    /// Waits for a file that is being written.
    ~CDeviceExporter() override;

    /// All devices that the request selects.
    void Start(const GroupLogical::DevicePageRequest_t& request);

private:
    using Answer = GroupLogical::IGroupManagerObserver::Answer;
    void OnAnswer(const QString& sPath, const Answer& pAnswer);
    void OnWritten();
    void CloseWaitDialog();

    Common::CPage* m_pPage;
    const CDeviceListView* m_pList;
    QFutureWatcher<QString> m_written; ///< an error text, empty on success
    QPointer<VxGUI::VxWaitDialog> m_pWaitDialog;
    Common::CCalls<GroupLogical::IGroupManagerObserver> m_calls;
};

} // namespace ResourceManagerUI
