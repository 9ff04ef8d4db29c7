#pragma once

#include <ResourceManagerUI/Discovery/CAutoSearchOnlineDev.h>
#include <ResourceManagerUI/Discovery/COnlineDeviceDelegates.h>
#include <ResourceManagerUI/Discovery/COnlineDeviceModel.h>
#include <UICommonMdl/ErrorCodes.h>
#include <VxGUI/VxEmptyState.h>
#include <VxGUI/VxLineEdit.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

#include <gtest/gtest.h>

#include <memory>

/// The search panel over a server, with a range that finds what the test says.
class SearchPanelFixture : public testing::Test
{
protected:
    using Found = RemoteConfigLogical::SearchDeviceInfo_t;
    using FoundVec = RemoteConfigLogical::SearchDeviceInfoVec;
    using Results = RemoteConfigLogical::ModifyDevicePasswordResultInfoVec;

    void SetUp() override
    {
        m_host.site.ServeDevices();
        m_host.config.mapValues[QStringLiteral("AutoSearchIP/StartIP")] = QStringLiteral("10.0.0.1");
        m_host.config.mapValues[QStringLiteral("AutoSearchIP/EndIP")] = QStringLiteral("10.0.0.99");
    }
    void TearDown() override { Close(); }

    void Make()
    {
        using ResourceManagerUI::CAutoSearchOnlineDev;
        m_pPanel = std::make_unique<CAutoSearchOnlineDev>(&m_host.interfaceSet);
        m_pPanel->SetOrganizations(m_host.site.vecOrganizations, QStringLiteral("001002"));
        QObject::connect(m_pPanel.get(), &CAutoSearchOnlineDev::SignalShowNotify, m_pPanel.get(),
            [this](const QString& sText) { m_listNotices.append(sText); });
        QObject::connect(m_pPanel.get(), &CAutoSearchOnlineDev::SignalDevicesAdded, m_pPanel.get(),
            [this] { ++m_nAdded; });
    }
    void Open()
    {
        Make();
        m_pDriver = std::make_unique<PageDriver>(*m_pPanel, QSize(720, 620));
    }
    void Close()
    {
        m_pDriver.reset();
        m_pPanel.reset();
    }

    static Found MakeFound(int nLast, int nInitState = RemoteConfigLogical::InitDone)
    {
        Found device;
        device.sIp = "10.0.0." + std::to_string(nLast);
        device.nPort = 37777;
        device.sModel = "M" + std::to_string(nLast);
        device.sMac = "02:00:5e:10:00:01";
        device.nInitState = nInitState;
        device.sProtocol = "Private";
        device.nCategory = 1;
        return device;
    }
    void Report(const FakeCall& call, const FoundVec& vecFound, bool bFinal, int nErrorCode = 0)
    {
        m_host.server.Report(call, MakeReport(vecFound, bFinal, nErrorCode));
        PageDriver::Settle();
    }
    template <class Op>
    void ReportResults(const Results& vecResults, bool bFinal, int nErrorCode = 0)
    {
        m_host.server.ReportLast<Op>(MakeReport(vecResults, bFinal, nErrorCode));
        PageDriver::Settle();
    }
    FakeCall LastSearch() { return m_host.server.Last<wire::SearchOnlineDevice>(); }
    int Searches() { return m_host.server.Count<wire::SearchOnlineDevice>(); }
    /// Opens the panel and searches: an initialised, an uninitialised, a managed one and one of unknown
    /// state.
    void OpenAndFind()
    {
        Open();
        Click("btnAutoSearch");
        FoundVec vecFound{MakeFound(10), MakeFound(9, RemoteConfigLogical::InitMissing), MakeFound(11),
            MakeFound(12, RemoteConfigLogical::InitUnknown)};
        vecFound[2].sDeviceId = "1001";
        vecFound[0].sName = "Gate";
        Report(LastSearch(), vecFound, true);
    }

    void Click(const char* pszName) { m_pDriver->Click(QLatin1String(pszName)); }
    void Type(const char* pszName, const char* pszText)
    {
        m_pDriver->Type(QLatin1String(pszName), QLatin1String(pszText));
    }
    std::string LastNotice() { return m_listNotices.isEmpty() ? "" : m_listNotices.last().toStdString(); }
    QTreeView* Table() { return m_pDriver->Find<QTreeView>(QStringLiteral("tabViewOnlineDev")); }
    QModelIndex Cell(const char* pszAddress, int nColumn)
    {
        const QModelIndex index =
            m_pDriver->FindRow(Table(), ResourceManagerUI::OnlineColumnAddress, QLatin1String(pszAddress));
        return index.sibling(index.row(), nColumn);
    }
    std::string CellText(const char* pszAddress, int nColumn)
    {
        return Cell(pszAddress, nColumn).data().toString().toStdString();
    }
    bool IsChecked(const char* pszAddress)
    {
        return Cell(pszAddress, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }
    void Check(const char* pszAddress) { m_pDriver->ClickIndex(Table(), Cell(pszAddress, 0)); }
    void ClickOperation(const char* pszAddress, ResourceManagerUI::OnlineOperation operation)
    {
        const QModelIndex index = Cell(pszAddress, ResourceManagerUI::OnlineColumnOperation);
        Table()->scrollTo(index);
        const auto* pDelegate =
            qobject_cast<ResourceManagerUI::COnlineOperationDelegate*>(Table()->itemDelegateForColumn(5));
        m_pDriver->ClickAt(Table(),
            pDelegate->GetButtonRect(Table()->visualRect(index), Table()->fontMetrics(), operation).center());
    }
    template <class Dialog>
    Dialog* FindDialog()
    {
        const auto listDialogs = m_pPanel->findChildren<Dialog*>();
        return listDialogs.isEmpty() ? nullptr : listDialogs.last();
    }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    std::unique_ptr<ResourceManagerUI::CAutoSearchOnlineDev> m_pPanel;
    std::unique_ptr<PageDriver> m_pDriver;
    QStringList m_listNotices;
    int m_nAdded = 0;
};
