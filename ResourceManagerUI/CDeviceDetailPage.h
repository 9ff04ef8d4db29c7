#pragma once

#include <common/CCalls.h>

#include <QWidget>

#include <memory>

namespace Ui {
class CDeviceDetailPage;
}

namespace ResourceManagerUI {

/// One device in full, and the configuration that refers to it. User-interface thread.
class CDeviceDetailPage : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CDeviceDetailPage(
        const UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CDeviceDetailPage() override;

    /// Asks for the device; sOrgName is shown as its organisation.
    void ShowDevice(const QString& sDeviceId, const QString& sOrgName);

    /// Whether the user may see who has access to the device.
    void SetAccessOffered(bool bOffered);

Q_SIGNALS:
    void SignalShowAccess(const QString& sDeviceId);
    /// Back to the list.
    void SignalBack();

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    using Calls = Common::CCalls<GroupLogical::IGroupManagerObserver>;
    void OnDetail(const GroupLogical::IGroupManagerObserver::Param& param);
    void OnReferences(const GroupLogical::IGroupManagerObserver::Param& param);
    void ShowFailure(int nErrorCode);
    void AddLine(const QString& sCaption, const QString& sText);

    std::unique_ptr<Ui::CDeviceDetailPage> m_pUi;
    QString m_sDeviceId;
    QString m_sOrgName;
    Calls m_calls;
};

} // namespace ResourceManagerUI
