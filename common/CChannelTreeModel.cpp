#include "CChannelTreeModel.h"

#include <GroupLogical/ChannelCounts.h>
#include <Trv/QSkin.h>

#include <QCoreApplication>
#include <QScopedValueRollback>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CChannelTreeModel)
};

constexpr int RoleDeviceId = Qt::UserRole + 1;
constexpr int RoleLoad = Qt::UserRole + 2;
constexpr int RoleChannel = Qt::UserRole + 3;

} // namespace

QString Channel::GetKey() const
{
    return QStringLiteral("%1/%2/%3").arg(sDeviceId).arg(nKind).arg(nNumber);
}

QString Channel::GetText() const
{
    switch (nKind) {
    case UserLogical::ChannelAlarmInput:
        return Text::tr("Alarm Input %1").arg(nNumber);
    case UserLogical::ChannelAlarmOutput:
        return Text::tr("Alarm Output %1").arg(nNumber);
    case UserLogical::ChannelAccess:
        return Text::tr("Door %1").arg(nNumber);
    case UserLogical::ChannelDecode:
        return Text::tr("Decoding Channel %1").arg(nNumber);
    case UserLogical::ChannelLift:
        return Text::tr("Lift %1").arg(nNumber);
    case UserLogical::ChannelPos:
        return Text::tr("POS Channel %1").arg(nNumber);
    default:
        return Text::tr("Channel %1").arg(nNumber);
    }
}

CChannelTreeModel::CChannelTreeModel(const QVector<int>& vecKinds, QObject* pParent)
    : QStandardItemModel(pParent)
    , m_vecKinds(vecKinds)
{
    connect(this, &QStandardItemModel::itemChanged, this, &CChannelTreeModel::OnItemChanged);
}

void CChannelTreeModel::SetDevices(const std::vector<GroupLogical::DeviceInfo_t>& vecDevices)
{
    const QScopedValueRollback<bool> showing(m_bShowing, true);
    clear();
    const QIcon icon = Trv::GetIcon(QStringLiteral("device"));
    for (const GroupLogical::DeviceInfo_t& device : vecDevices) {
        auto* const pItem = new QStandardItem(icon, QString::fromStdString(device.sName));
        pItem->setToolTip(QString::fromStdString(device.sName + ", " + device.sIp + ", " + device.sOrgName));
        pItem->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        pItem->setData(QString::fromStdString(device.sDeviceId), RoleDeviceId);
        pItem->setData(int(Load::None), RoleLoad);
        pItem->setCheckState(GetDeviceState(pItem));
        appendRow(pItem);
    }
}

void CChannelTreeModel::SetChannels(const GroupLogical::DeviceAddInfo_t& device)
{
    QStandardItem* const pDevice = FindDevice(QString::fromStdString(device.sDeviceId));
    if (!pDevice)
        return;
    const bool bCheck = GetLoad(pDevice) == Load::RunningToCheck;
    {
        const QScopedValueRollback<bool> showing(m_bShowing, true);
        pDevice->setData(int(Load::Done), RoleLoad);
        QList<QStandardItem*> listItems;
        for (const int nKind : qAsConst(m_vecKinds)) {
            for (int nNumber = 1; nNumber <= GroupLogical::ChannelCountOf(device, nKind); ++nNumber) {
                const Channel channel{
                    pDevice->data(RoleDeviceId).toString(), pDevice->text(), nKind, nNumber};
                auto* const pItem = new QStandardItem(channel.GetText());
                pItem->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable
                    | Qt::ItemNeverHasChildren);
                pItem->setData(QVariant::fromValue(channel), RoleChannel);
                pItem->setCheckState(m_setChosen.contains(channel.GetKey()) ? Qt::Checked : Qt::Unchecked);
                listItems.append(pItem);
            }
        }
        pDevice->appendRows(listItems);
        pDevice->setCheckState(GetDeviceState(pDevice));
    }
    if (bCheck)
        Q_EMIT SignalToggled(GetChannels(pDevice), true);
}

void CChannelTreeModel::SetChannelsFailed(const QString& sDeviceId)
{
    const QScopedValueRollback<bool> showing(m_bShowing, true);
    if (QStandardItem* const pDevice = FindDevice(sDeviceId)) {
        pDevice->setData(int(Load::None), RoleLoad);
        pDevice->setCheckState(GetDeviceState(pDevice));
    }
}

void CChannelTreeModel::ShowChosen(const QSet<QString>& setKeys)
{
    m_setChosen = setKeys;
    const QScopedValueRollback<bool> showing(m_bShowing, true);
    for (int nDevice = 0; nDevice < rowCount(); ++nDevice) {
        QStandardItem* const pDevice = item(nDevice);
        for (int nRow = 0; nRow < pDevice->rowCount(); ++nRow) {
            QStandardItem* const pItem = pDevice->child(nRow);
            const bool bChosen = setKeys.contains(pItem->data(RoleChannel).value<Channel>().GetKey());
            pItem->setCheckState(bChosen ? Qt::Checked : Qt::Unchecked);
        }
        pDevice->setCheckState(GetDeviceState(pDevice));
    }
}

Qt::CheckState CChannelTreeModel::GetDeviceState(const QStandardItem* pDevice) const
{
    if (GetLoad(pDevice) != Load::Done) {
        const QString sPrefix = pDevice->data(RoleDeviceId).toString() + QLatin1Char('/');
        const bool bAny = std::any_of(m_setChosen.begin(), m_setChosen.end(),
            [&sPrefix](const QString& sKey) { return sKey.startsWith(sPrefix); });
        return bAny ? Qt::PartiallyChecked : Qt::Unchecked;
    }
    int nChosen = 0;
    for (int nRow = 0; nRow < pDevice->rowCount(); ++nRow)
        nChosen += pDevice->child(nRow)->checkState() == Qt::Checked ? 1 : 0;
    if (nChosen == 0)
        return Qt::Unchecked;
    return nChosen == pDevice->rowCount() ? Qt::Checked : Qt::PartiallyChecked;
}

void CChannelTreeModel::OnItemChanged(QStandardItem* pItem)
{
    if (m_bShowing)
        return;
    const bool bChecked = pItem->checkState() == Qt::Checked;
    if (pItem->parent())
        Q_EMIT SignalToggled({pItem->data(RoleChannel).value<Channel>()}, bChecked);
    else if (GetLoad(pItem) == Load::Done)
        Q_EMIT SignalToggled(GetChannels(pItem), bChecked);
    else
        Want(pItem, Load::RunningToCheck);
}

void CChannelTreeModel::Want(QStandardItem* pDevice, Load load)
{
    const bool bAsked = GetLoad(pDevice) != Load::None;
    {
        const QScopedValueRollback<bool> showing(m_bShowing, true);
        pDevice->setData(int(load), RoleLoad);
        pDevice->setCheckState(GetDeviceState(pDevice));
    }
    if (!bAsked)
        Q_EMIT SignalChannelsWanted(pDevice->data(RoleDeviceId).toString());
}

CChannelTreeModel::Load CChannelTreeModel::GetLoad(const QStandardItem* pDevice) const
{
    return Load(pDevice->data(RoleLoad).toInt());
}

QStandardItem* CChannelTreeModel::FindDevice(const QString& sDeviceId) const
{
    for (int nRow = 0; nRow < rowCount(); ++nRow) {
        if (item(nRow)->data(RoleDeviceId).toString() == sDeviceId)
            return item(nRow);
    }
    return nullptr;
}

QVector<Channel> CChannelTreeModel::GetChannels(const QStandardItem* pDevice) const
{
    QVector<Channel> vecChannels;
    for (int nRow = 0; nRow < pDevice->rowCount(); ++nRow)
        vecChannels.append(pDevice->child(nRow)->data(RoleChannel).value<Channel>());
    return vecChannels;
}

bool CChannelTreeModel::hasChildren(const QModelIndex& parent) const
{
    return canFetchMore(parent) || QStandardItemModel::hasChildren(parent);
}

bool CChannelTreeModel::canFetchMore(const QModelIndex& parent) const
{
    const QStandardItem* const pItem = itemFromIndex(parent);
    return pItem && !pItem->parent() && GetLoad(pItem) != Load::Done;
}

void CChannelTreeModel::fetchMore(const QModelIndex& parent)
{
    QStandardItem* const pItem = itemFromIndex(parent);
    if (pItem && GetLoad(pItem) == Load::None)
        Want(pItem, Load::Running);
}

} // namespace Common
