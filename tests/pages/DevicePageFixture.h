#pragma once

#include <ResourceManagerUI/CDeviceManagerCtrl.h>
#include <ResourceManagerUI/CDeviceModel.h>
#include <VxGUI/VxNotification.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QApplication>
#include <QTreeView>

#include <gtest/gtest.h>

#include <memory>

/// The device page of a host that serves a small site.
class DevicePageFixture : public testing::Test
{
protected:
    using Request = GroupLogical::DevicePageRequest_t;
    using Ids = std::vector<std::string>;

    void SetUp() override { m_host.site.ServeDevices(); }
    void TearDown() override { Close(); }

    void Open()
    {
        m_pPage = std::make_unique<ResourceManagerUI::CDeviceManagerCtrl>(&m_host.interfaceSet);
        m_pDriver = std::make_unique<PageDriver>(*m_pPage, QSize(1500, 760));
        PageDriver::Settle();
    }
    void Close()
    {
        m_pDriver.reset();
        m_pPage.reset();
    }
    /// From now on the second page holds other devices than the first one.
    void ServeTwoPages()
    {
        m_host.server.AnswerAlways<wire::QueryDevicePage>([this](const auto& request, auto& page) {
            std::vector<GroupLogical::DeviceInfo_t> vecDevices = m_host.site.vecDevices;
            for (GroupLogical::DeviceInfo_t& device : vecDevices) {
                if (request.nPage != 2)
                    break;
                device.sDeviceId[0] = '2';
                device.sName = "Door" + device.sName.substr(device.sName.find(' '));
            }
            page = {vecDevices, 40, request.nPage};
        });
    }
    /// Checks the first two devices of the first page and the first of the second one, which is shown then.
    void CheckOnTwoPages()
    {
        ServeTwoPages();
        Open();
        CheckRows(2);
        m_pDriver->Click(QStringLiteral("btnNextPage"));
        CheckRows(1);
    }
    QTreeView* Table() { return m_pDriver->Find<QTreeView>(QStringLiteral("treeDevice")); }
    ResourceManagerUI::CDeviceModel* Model()
    {
        return static_cast<ResourceManagerUI::CDeviceModel*>(Table()->model());
    }
    QString Cell(int nRow, int nColumn) { return Model()->index(nRow, nColumn).data().toString(); }
    /// Clicks the check boxes of the first nCount rows.
    void CheckRows(int nCount)
    {
        for (int nRow = 0; nRow < nCount; ++nRow) {
            const QModelIndex index = Model()->index(nRow, ResourceManagerUI::ColumnCheck);
            m_pDriver->ClickIndex(Table(), index);
            EXPECT_EQ(index.data(Qt::CheckStateRole).toInt(), Qt::Checked);
        }
    }
    Request LastRequest() { return m_host.server.LastRequest<wire::QueryDevicePage>(); }
    QString Notice() { return VxGUI::VxNotification::CurrentText(m_pPage.get()); }
    template <class Dialog>
    Dialog* FindDialog()
    {
        return m_pPage->findChild<Dialog*>();
    }
    void Trigger(const QString& sMenu, const QString& sText)
    {
        auto* pMenu = m_pPage->findChild<QMenu*>(sMenu);
        ASSERT_TRUE(pMenu) << qPrintable(sMenu);
        for (QAction* pAction : pMenu->actions()) {
            if (pAction->text() == sText) {
                pAction->trigger();
                pMenu->close();
                return;
            }
        }
        FAIL() << qPrintable(sText);
    }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    std::unique_ptr<ResourceManagerUI::CDeviceManagerCtrl> m_pPage;
    std::unique_ptr<PageDriver> m_pDriver;
};
