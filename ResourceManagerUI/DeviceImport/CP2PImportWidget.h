#pragma once

#include <GroupLogical/GroupRecords.h>
#include <RemoteConfigLogical/IRemoteConfigManager.h>
#include <common/CRequests.h>
#include <common/ObserverAdapters.h>

#include <QWidget>

#include <memory>

namespace Ui {
class CP2PImportWidget;
}
namespace Common {
class CTableModel;
}

namespace ResourceManagerUI {

/// The devices of a cloud account, to choose from. User-interface thread.
class CP2PImportWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CP2PImportWidget(QWidget* pParent = nullptr);
    ~CP2PImportWidget() override;

    /// Called once, before anything else. pManager (borrowed) may be null.
    void SetManager(RemoteConfigLogical::IRemoteConfigManager* pManager);

    /// While it is not known what the platform offers.
    void ShowLoading();
    /// nErrorCode: why it is not known; 0: it is.
    void ShowFeatures(const RemoteConfigLogical::Features_t& features, int nErrorCode);
    void SetConnected(bool bConnected);
    /// Forgets the password and the devices; a late answer is ignored.
    void Clear();

Q_SIGNALS:
    void SignalRefresh();
    void SignalNotify(const QString& sText);
    void SignalImport(const std::vector<GroupLogical::ImportRow_t>& vecRows);

private:
    using Param = RemoteConfigLogical::IRemoteDeviceObserver::Param;
    void SetUpFields();
    void SetUpList();
    void OnQueryClicked();
    void OnDeviceList(const Param& param);
    void ShowDevices(const std::vector<RemoteConfigLogical::P2PDevice_t>& vecDevices);
    void OnImportClicked();
    void UpdateEnabled();

    std::unique_ptr<Ui::CP2PImportWidget> m_pUi;
    RemoteConfigLogical::IRemoteConfigManager* m_pManager = nullptr;
    Common::CTableModel* m_pModel;
    std::vector<RemoteConfigLogical::P2PDevice_t> m_vecDevices;
    bool m_bConnected = true;
    Common::CRequests<Param> m_requests;
    std::unique_ptr<Common::CRemoteDeviceAdapter> m_pAdapter;
};

} // namespace ResourceManagerUI
