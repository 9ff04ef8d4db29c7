#pragma once

#include "CFoundDeviceDlg.h"

#include <common/CCalls.h>

#include <memory>

namespace Ui {
class CBatchAddDiscoverDeviceDlg;
}

namespace ResourceManagerUI {

/// Adds found devices under names that can be edited. Those that are refused stay open to be corrected and
/// tried again. User-interface thread.
class CBatchAddDiscoverDeviceDlg : public CFoundDeviceDlg
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    CBatchAddDiscoverDeviceDlg(const UICommonMdl::CInterfaceSetManager* pInterfaceSet, Devices vecDevices,
        const std::vector<GroupLogical::Organization_t>& vecOrganizations, const QString& sOrgCode,
        QWidget* pParent);
    ~CBatchAddDiscoverDeviceDlg() override;

Q_SIGNALS:
    /// nState is a FoundState of those devices.
    void SignalStateChanged(const QStringList& listKeys, int nState);
    /// Devices were added.
    void SignalAdded();
    void SignalShowNotify(QString sText);

protected:
    QString GetClosingQuestion() const override;
    void ShowBusy(bool bBusy) override;

private:
    using Param = GroupLogical::IGroupManagerObserver::Param;
    QStringList GetNames() const;
    bool CheckInput();
    void OnBtnAddClicked();
    void OnImportReport(const QVector<int>& vecRows, const Param& param);

    std::unique_ptr<Ui::CBatchAddDiscoverDeviceDlg> m_pUi;
    Common::CCalls<GroupLogical::IGroupManagerObserver> m_calls;
};

} // namespace ResourceManagerUI
