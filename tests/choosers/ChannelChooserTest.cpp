#include <VxGUI/VxNotification.h>
#include <common/CChannelChooser.h>
#include <common/CChosenTable.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>

#include <QLabel>
#include <QTreeView>

#include <gtest/gtest.h>

#include <memory>

namespace {

/// Twelve devices, each with two doors and a lift among other channels; no more than four can be chosen.
class ChannelChooser : public testing::Test
{
protected:
    void SetUp() override
    {
        m_host.site.ServeDevices();
        m_host.server.AnswerAlways<wire::QueryDeviceDetail>([](const auto& request, auto& device) {
            device.sDeviceId = request.sDeviceId;
            device.nVideoChannels = 5;
            device.nAccessChannels = 2;
            device.nLifts = 1;
        });
        const auto texts = [](const Common::Channel& channel) {
            return QStringList{channel.sDeviceName, channel.GetText()};
        };
        m_pChooser = std::make_unique<Common::CChannelChooser>(&m_host.interfaceSet,
            Common::CChannelChooser::Options{{UserLogical::ChannelAccess, UserLogical::ChannelLift}, 4,
                {{QStringLiteral("Device"), QStringLiteral("Door")}, texts}});
        m_pDriver = std::make_unique<PageDriver>(*m_pChooser, QSize(900, 500));
        PageDriver::Settle();
        QObject::connect(m_pChooser.get(), &Common::CChannelChooser::SignalChosenChanged, m_pChooser.get(),
            [this] { ++m_nTold; });
    }
    void TearDown() override
    {
        m_pDriver.reset();
        m_pChooser.reset();
    }

    QTreeView* Tree() { return m_pDriver->Find<QTreeView>(QStringLiteral("treeChannels")); }
    QModelIndex Node(int nDevice, int nChannel = -1)
    {
        const QModelIndex device = Tree()->model()->index(nDevice, 0);
        return nChannel < 0 ? device : Tree()->model()->index(nChannel, 0, device);
    }
    void Check(const QModelIndex& node, bool bChecked = true)
    {
        Tree()->model()->setData(node, bChecked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        PageDriver::Settle();
    }
    static int State(const QModelIndex& node) { return node.data(Qt::CheckStateRole).toInt(); }
    QStringList Chosen() const
    {
        QStringList listKeys;
        for (const Common::Channel& channel : m_pChooser->GetChosen())
            listKeys << channel.GetKey();
        return listKeys;
    }

    FakeHost m_host;
    std::unique_ptr<Common::CChannelChooser> m_pChooser;
    std::unique_ptr<PageDriver> m_pDriver;
    int m_nTold = 0;
};

TEST_F(ChannelChooser, ChannelsAreAskedForWhenTheirDeviceIsUnfoldedAndOnce)
{
    EXPECT_EQ(m_host.server.Count<wire::QueryDeviceDetail>(), 0);
    Tree()->expand(Node(1));
    PageDriver::Settle();
    ASSERT_EQ(Tree()->model()->rowCount(Node(1)), 3) << "those of the kinds that are wanted";
    EXPECT_EQ(Node(1, 2).data().toString(), QStringLiteral("Lift 1"));
    Tree()->collapse(Node(1));
    Tree()->expand(Node(1));
    Check(Node(1, 1));
    EXPECT_EQ(m_host.server.Count<wire::QueryDeviceDetail>(), 1);
    EXPECT_EQ(Chosen(), QStringList{QStringLiteral("1002/4/2")});
    EXPECT_EQ(State(Node(1)), Qt::PartiallyChecked);

    m_host.server.FailAlways<wire::QueryDeviceDetail>(UICommonMdl::ErrorServerBusy);
    Check(Node(0));
    EXPECT_EQ(State(Node(0)), Qt::Unchecked);
    EXPECT_TRUE(VxGUI::VxNotification::CurrentText(m_pChooser.get())
                    .startsWith(QStringLiteral("Failed to get the channels: ")));
}

TEST_F(ChannelChooser, ACheckedDeviceChoosesItsChannelsUpToTheLimit)
{
    Check(Node(0));
    EXPECT_EQ(Chosen().size(), 3) << "without having been unfolded";
    EXPECT_EQ(State(Node(0)), Qt::Checked);
    m_pDriver->Screenshot(QStringLiteral("channel-chooser"));
    Check(Node(1));
    EXPECT_EQ(Chosen().size(), 4);
    EXPECT_EQ(State(Node(1)), Qt::PartiallyChecked);
    EXPECT_EQ(VxGUI::VxNotification::CurrentText(m_pChooser.get()),
        QStringLiteral("At most 4 channels can be chosen."));
    EXPECT_EQ(m_pDriver->Find<QLabel>(QStringLiteral("lbChecked"))->text(), QStringLiteral("4 chosen"));
    Check(Node(0), false);
    EXPECT_EQ(Chosen(), QStringList{QStringLiteral("1002/4/1")});
    EXPECT_EQ(m_nTold, 3);
}

TEST_F(ChannelChooser, WhatIsChosenStaysWhenOtherDevicesAreShown)
{
    m_pChooser->SetChosen(
        {{QStringLiteral("1003"), QStringLiteral("Camera 3"), UserLogical::ChannelAccess, 2}});
    EXPECT_EQ(m_nTold, 0) << "the owner knows";
    EXPECT_EQ(State(Node(2)), Qt::PartiallyChecked) << "before its channels are known";
    m_pDriver->Type(QStringLiteral("editChannelSearch"), QStringLiteral("a b"));
    m_pDriver->Key(QStringLiteral("editChannelSearch"), Qt::Key_Return);
    PageDriver::Settle();
    EXPECT_EQ(m_host.server.LastRequest<wire::QueryDevicePage>().sSearchText, "a%20b");
    EXPECT_EQ(Chosen().size(), 1);
    auto* const pChosen = m_pDriver->Find<Common::CChosenTable>(QStringLiteral("wgtChosenChannels"));
    EXPECT_EQ(pChosen->GetIds(), Chosen());
    Q_EMIT pChosen->SignalRemoved(Chosen().first());
    EXPECT_EQ(State(Node(2)), Qt::Unchecked);
    Check(Node(4));
    m_pDriver->Click(QStringLiteral("btnClearChosen"));
    EXPECT_TRUE(Chosen().isEmpty());
    EXPECT_EQ(State(Node(4)), Qt::Unchecked);
}

} // namespace
