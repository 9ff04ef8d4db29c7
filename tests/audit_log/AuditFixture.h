#pragma once

#include <AuditLog/AuditRules.h>
#include <AuditLog/CAuditDetailsDlg.h>
#include <AuditLog/CAuditLogCtrl.h>
#include <AuditLog/CAuditModel.h>
#include <Trv/QSkin.h>
#include <UICommonMdl/CNumberPageCtrl.h>
#include <UICommonMdl/ErrorCodes.h>
#include <VxGUI/VxEmptyState.h>
#include <VxGUI/VxNotification.h>
#include <VxGUI/VxWaitDialog.h>
#include <tests/support/core/QtWarnings.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QApplication>
#include <QDir>
#include <QTreeView>

#include <gtest/gtest.h>

/// The page of the log over a log of 2,500 entries.
class AuditFixture : public testing::Test
{
protected:
    using Request = UserLogical::AuditRequest_t;
    using Entry = UserLogical::AuditEntry_t;

    void SetUp() override { Serve(2500); }
    void TearDown() override { Close(); }

    static Entry MakeEntry(std::int64_t nId)
    {
        static const Entry kinds[] = {
            {0, 0, "alice", "192.168.7.21", "device/modify", "12",
                R"({"sName":"Gate","nPort":37777,"nVersion":3,"sPassword":"***","sRemark":""})",
                R"({"sName":"Gate North","nPort":37778,"nVersion":4,"sPassword":"***","sRemark":"moved"})"},
            {0, 0, "system", "127.0.0.1", "user/add", "bob", "",
                R"({"sUserName":"bob","bMultiLogin":true,"vecRoleIds":["2","3"],"nPtzLevel":5,"sRemark":""})"},
            {0, 0, "<b>mallory</b>", "10.0.0.99", "session/sign-in", "<b>mallory</b>", "",
                R"({"nErrorCode":21})"},
            {0, 0, "alice", "192.168.7.21", "role/delete", "Night Guard",
                R"({"sName":"Night Guard","vecFuncRights":["004001"],"sRemark":"Day and night"})", ""},
            {0, 0, "alice", "192.168.7.21", "session/sign-out", "alice", "", ""}};
        Entry entry = kinds[nId % 5];
        entry.nId = nId;
        entry.nTime = 1750000000000 + nId * 61000;
        return entry;
    }
    static UserLogical::AuditPage_t MakePage(const Request& request, int nCount)
    {
        UserLogical::AuditPage_t page;
        page.nTotal = nCount;
        page.nPage = qMin(request.nPage, (nCount - 1) / request.nPageSize + 1);
        std::int64_t nId = request.nBelowId > 0 ? request.nBelowId - 1 : nCount;
        nId -= std::int64_t(page.nPage - 1) * request.nPageSize;
        for (int n = 0; n < request.nPageSize && nId > 0; ++n)
            page.vecEntries.push_back(MakeEntry(nId--));
        return page;
    }
    /// Answers queries and exports from a log of that size.
    void Serve(int nCount)
    {
        const auto serve = [nCount](const auto& request, auto& page) { page = MakePage(request, nCount); };
        m_host.server.AnswerAlways<wire::QueryAuditPage>(serve);
        m_host.server.AnswerAlways<wire::ExportAudit>(serve);
    }
    void Open()
    {
        m_pPage = std::make_unique<PlatformConfigUI::CAuditLogCtrl>(&m_host.interfaceSet);
        m_pDriver = std::make_unique<PageDriver>(*m_pPage, QSize(1300, 720));
        PageDriver::Settle();
    }
    void Close()
    {
        m_pDriver.reset();
        m_pPage.reset();
    }
    void Click(const char* szName)
    {
        m_pDriver->Click(QLatin1String(szName));
        PageDriver::Settle();
    }
    void Type(const char* szName, const char* szText)
    {
        m_pDriver->Type(QLatin1String(szName), QString::fromUtf8(szText));
    }
    void Choose(const char* szName, const QString& sText) { m_pDriver->Choose(QLatin1String(szName), sText); }
    bool IsUsable(const char* szName) { return m_pDriver->IsUsable(QLatin1String(szName)); }
    QTreeView* List() { return m_pDriver->Find<QTreeView>(QStringLiteral("treeAudit")); }
    QString Cell(int nRow, int nColumn) { return List()->model()->index(nRow, nColumn).data().toString(); }
    QString State()
    {
        return m_pDriver->Find<VxGUI::VxEmptyState>(QStringLiteral("wgtListState"))->GetTitle();
    }
    QString Notice() { return VxGUI::VxNotification::CurrentText(m_pPage.get()); }
    Request LastRequest() { return m_host.server.LastRequest<wire::QueryAuditPage>(); }
    int Queries() { return m_host.server.Count<wire::QueryAuditPage>(); }
    void Connect(bool bConnected)
    {
        m_host.PushConnected(bConnected);
        PageDriver::Settle();
    }
    static void Screenshot(QWidget* pWidget, const char* szName)
    {
        const QString sFolder = qEnvironmentVariable("PRODUCT_SCREENSHOT_DIR");
        if (sFolder.isEmpty())
            return;
        QDir().mkpath(sFolder);
        EXPECT_TRUE(pWidget->grab().save(
            sFolder + QLatin1Char('/') + QLatin1String(szName) + QStringLiteral(".png")));
    }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    std::unique_ptr<PlatformConfigUI::CAuditLogCtrl> m_pPage;
    std::unique_ptr<PageDriver> m_pDriver;
};
