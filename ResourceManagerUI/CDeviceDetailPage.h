#pragma once

#include <GroupLogical/IGroupManager.h>
#include <common/CRequests.h>

#include <QWidget>

#include <memory>

namespace Ui {
class CDeviceDetailPage;
}
namespace Common {
class CGroupManagerAdapter;
}

namespace ResourceManagerUI {

/// One device in full, and the configuration that refers to it. User-interface thread.
class CDeviceDetailPage : public QWidget
{
    Q_OBJECT

public:
    explicit CDeviceDetailPage(QWidget* pParent = nullptr);
    ~CDeviceDetailPage() override;

    /// Borrowed; may be null.
    void SetGroupManager(GroupLogical::IGroupManager* pManager);
    /// Asks for the device; sOrgName is shown as its organisation.
    void ShowDevice(const QString& sDeviceId, const QString& sOrgName);

    /// Whether the user may see who has access to the device.
    void SetAccessOffered(bool bOffered);

Q_SIGNALS:
    void SignalShowAccess(const QString& sDeviceId);
    /// Back to the list.
    void SignalFirstBtnClicked();

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    void OnAnswer(const GroupLogical::IGroupManagerObserver::Param& param);
    void OnDetail(const GroupLogical::IGroupManagerObserver::Param& param);
    void OnReferences(const GroupLogical::IGroupManagerObserver::Param& param);
    void ShowFailure(int nErrorCode);
    void AddLine(const QString& sCaption, const QString& sText);

    std::unique_ptr<Ui::CDeviceDetailPage> m_pUi;
    GroupLogical::IGroupManager* m_pManager = nullptr;
    QString m_sDeviceId;
    QString m_sOrgName;
    Common::CRequests<GroupLogical::IGroupManagerObserver::Param> m_requests;
    std::unique_ptr<Common::CGroupManagerAdapter> m_pAdapter;
};

} // namespace ResourceManagerUI
