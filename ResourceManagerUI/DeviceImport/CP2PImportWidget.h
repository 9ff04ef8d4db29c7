#pragma once

#include <common/CCalls.h>

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

    /// Called once, before anything else. pInterfaceSet is borrowed.
    void SetInterfaceSet(const UICommonMdl::CInterfaceSetManager* pInterfaceSet);

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
    using Calls = Common::CCalls<RemoteConfigLogical::IRemoteDeviceObserver>;
    using Param = Calls::Param;
    void SetUpFields();
    void SetUpList();
    void OnQueryClicked();
    void OnDeviceList(const Param& param);
    void ShowDevices(const std::vector<RemoteConfigLogical::P2PDevice_t>& vecDevices);
    void OnImportClicked();
    void UpdateEnabled();

    std::unique_ptr<Ui::CP2PImportWidget> m_pUi;
    Common::CTableModel* m_pModel;
    std::vector<RemoteConfigLogical::P2PDevice_t> m_vecDevices;
    bool m_bConnected = true;
    std::unique_ptr<Calls> m_pCalls;
};

} // namespace ResourceManagerUI
