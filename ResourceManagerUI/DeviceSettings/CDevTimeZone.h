#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

#include <QDialog>
#include <QPair>
#include <QVector>

#include <memory>

namespace Ui {
class CDevTimeZone;
}

namespace ResourceManagerUI {

/// Shows the platform's time zone and daylight-saving rule and pushes them, or others, to devices. The mark
/// of each device tells what became of it; devices that failed can be sent to again. Deletes itself when it
/// is closed. User-interface thread.
class CDevTimeZone : public QDialog
{
    Q_OBJECT

public:
    using Devices = QVector<QPair<QString, QString>>; ///< device ID and name

    /// pInterfaceSet is borrowed.
    CDevTimeZone(
        const UICommonMdl::CInterfaceSetManager* pInterfaceSet, const Devices& vecDevices, QWidget* pParent);
    ~CDevTimeZone() override;

    /// Shows the dialog and reads the platform's zone. When that fails the dialog says so by SignalShowNotify
    /// and closes.
    void Start();

    /// Pushes the setting; the dialog stays.
    void accept() override;

Q_SIGNALS:
    void SignalShowNotify(const QString& sText);

private:
    using SystemParam = RemoteConfigLogical::ISystemConfigObserver::Param;
    using RemoteParam = RemoteConfigLogical::IRemoteDeviceObserver::Param;

    void QueryZone();
    void QueryServers();
    void OnZone(const SystemParam& param);
    void OnReport(const RemoteParam& param);
    void OnFinished(const RemoteParam& param);
    /// The devices that the setting goes to.
    std::vector<std::string> ChooseTargets(const RemoteConfigLogical::TimeZoneSetting_t& setting) const;
    void SetStates(const std::vector<std::string>& vecIds, int nState, int nErrorCode);
    void UpdateEnabled();
    void ShowSummary();

    std::unique_ptr<Ui::CDevTimeZone> m_pUi;
    RemoteConfigLogical::TimeZoneSetting_t m_sent; ///< what the marks are about
    Common::CSession m_session;
    Common::CCalls<RemoteConfigLogical::ISystemConfigObserver> m_systemCalls;
    Common::CCalls<RemoteConfigLogical::IRemoteDeviceObserver> m_deviceCalls;
};

} // namespace ResourceManagerUI
