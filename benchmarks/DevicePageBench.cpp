// Turning pages of the device list on the whole road: page, network, server, database and
// back to the painted rows.

#include "Bench.h"
#include "LiveServer.h"

#include <ResourceManagerUI/CDeviceManagerCtrl.h>
#include <UICommonMdl/ILocalConfig.h>
#include <server/services/DevicePages.h>
#include <server/store/Database.h>

#include <QHeaderView>
#include <QStandardItemModel>
#include <QToolButton>
#include <QTreeView>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int PageSize = 100;
constexpr int ManyDevices = 100000;
constexpr int FewDevices = 1000;
constexpr int Turns = 40;
constexpr int IdColumn = 1;
constexpr QSize WindowSize(1280, 900);

using GroupLogical::DevicePageRequest_t;

/// A device page that is signed in to a server of its own.
class LivePage
{
public:
    explicit LivePage(int nDevices)
        : m_live({QStringLiteral("--seed-devices"), QString::number(nDevices)})
    {
        m_live.Config()->SetValue(QStringLiteral("DeviceManager/PageSize"), PageSize);
        m_pPage = std::make_unique<ResourceManagerUI::CDeviceManagerCtrl>(m_live.Interfaces(), nullptr);
        m_pPage->resize(WindowSize);
        m_pPage->show();
        m_pTable = m_pPage->findChild<QTreeView*>(QStringLiteral("treeDevice"));
        WaitUntil([this] { return m_pTable->model()->rowCount() == PageSize; });
    }

    QString DatabasePath() const { return m_live.DatabasePath(); }

    /// From the click to the painted rows: the next page, and from the last of ten back to the first.
    void TurnPage()
    {
        const bool bBack = m_nPage == FewDevices / PageSize;
        m_nPage = bBack ? 1 : m_nPage + 1;
        const QString sBefore = FirstId();
        m_pPage
            ->findChild<QToolButton*>(bBack ? QStringLiteral("btnFirstPage") : QStringLiteral("btnNextPage"))
            ->click();
        WaitPainted([&] { return FirstId() != sBefore; });
    }

private:
    QString FirstId() const { return m_pTable->model()->index(0, IdColumn).data().toString(); }

    void WaitPainted(const std::function<bool()>& condition)
    {
        WaitUntil(condition);
        m_pTable->viewport()->repaint();
    }

    LiveServer m_live;
    std::unique_ptr<ResourceManagerUI::CDeviceManagerCtrl> m_pPage;
    QTreeView* m_pTable = nullptr;
    int m_nPage = 1;
};

/// The bare reference: the statement of the server in process, into a standard item model behind a tree view.
class BarePage
{
public:
    explicit BarePage(const QString& sDatabase)
        : m_database(Platform::DatabaseAddress{sDatabase})
    {
        m_view.setModel(&m_model);
        m_view.setRootIsDecorated(false);
        m_view.resize(WindowSize);
        m_view.show();
    }

    void Fill()
    {
        DevicePageRequest_t request;
        request.nPageSize = PageSize;
        const auto [sSql, values] =
            Platform::DevicePages::FirstPageStatement(m_database, Platform::DeviceScope::All(), request);
        m_model.clear();
        Platform::Rows rows = m_database.Run(sSql, values);
        while (rows.Next()) {
            QList<QStandardItem*> listItems;
            for (int nColumn = 0; nColumn < 13; ++nColumn)
                listItems << new QStandardItem(QString::fromStdString(rows.Text(nColumn)));
            m_model.appendRow(listItems);
        }
        m_view.viewport()->repaint();
    }

private:
    Platform::Database m_database;
    QStandardItemModel m_model;
    QTreeView m_view;
};

} // namespace

std::vector<BenchResult> BenchDevicePage()
{
    const QString sMs = QStringLiteral("ms");
    LivePage many(ManyDevices);
    std::vector<BenchResult> vecResults;
    {
        LivePage few(FewDevices);
        const Medians turns = MedianPairMs(
            Turns, [&] { many.TurnPage(); }, [&] { few.TurnPage(); });
        vecResults.push_back({QStringLiteral("device page: turn with 100,000 devices, against 1,000"),
            turns.dFirst, turns.dSecond, sMs, 1.2});
    }
    BarePage bare(many.DatabasePath());
    const Medians turns = MedianPairMs(
        Turns, [&] { many.TurnPage(); }, [&] { bare.Fill(); });
    vecResults.push_back(
        {QStringLiteral("device page: turn with 100,000 devices, against bare SQL, model and view"),
            turns.dFirst, turns.dSecond, sMs, 2.0});
    return vecResults;
}
