#include "COnlineDeviceModel.h"

#include "DiscoveryRules.h"

#include <DeviceEdit/DeviceFormRules.h>
#include <Trv/QSkin.h>

#include <QCoreApplication>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAutoSearchOnlineDev)
};

QString InitText(int nInitState)
{
    switch (nInitState) {
    case RemoteConfigLogical::InitMissing:
        return Text::tr("Uninitialized");
    case RemoteConfigLogical::InitDone:
        return Text::tr("Initialized");
    default:
        return Text::tr("Unknown");
    }
}

} // namespace

COnlineDeviceModel::COnlineDeviceModel(QObject* pParent)
    : QAbstractTableModel(pParent)
{
}

int COnlineDeviceModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_vecRows.size());
}

int COnlineDeviceModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(OnlineColumnCount);
}

QVariant COnlineDeviceModel::GetText(const Row& row, int nColumn) const
{
    switch (nColumn) {
    case OnlineColumnInit:
        return InitText(row.device.nInitState);
    case OnlineColumnAddress:
        return QString::fromStdString(row.device.sIp);
    case OnlineColumnModel:
        return QString::fromStdString(row.device.sModel);
    case OnlineColumnPort:
        return row.device.nPort;
    case OnlineColumnMac:
        return QString::fromStdString(row.device.sMac);
    case OnlineColumnOperation:
        if (row.state == FoundManaged)
            return Text::tr("Managed");
        return row.state == FoundAdding ? Text::tr("Adding") : QString();
    default:
        return {};
    }
}

QVariant COnlineDeviceModel::GetSortKey(const Row& row, int nColumn) const
{
    if (nColumn == OnlineColumnAddress)
        return qulonglong(ToNumber(QString::fromStdString(row.device.sIp))) << 16
            | qulonglong(row.device.nPort);
    if (nColumn == OnlineColumnInit)
        return row.device.nInitState;
    return nColumn == OnlineColumnOperation ? QVariant(int(row.state)) : GetText(row, nColumn);
}

QVariant COnlineDeviceModel::data(const QModelIndex& index, int nRole) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = m_vecRows[std::size_t(index.row())];
    switch (nRole) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::ToolTipRole:
        return GetText(row, index.column());
    case Qt::CheckStateRole:
        if (index.column() == OnlineColumnInit)
            return int(row.bChecked ? Qt::Checked : Qt::Unchecked);
        return {};
    case Qt::ForegroundRole:
        if (row.state != FoundNew)
            return Trv::GetColor(QStringLiteral("text-muted"));
        if (index.column() == OnlineColumnInit && row.device.nInitState == RemoteConfigLogical::InitMissing)
            return Trv::GetColor(QStringLiteral("warning"));
        return {};
    case SortRole:
        return GetSortKey(row, index.column());
    case KeyRole:
        return GetDeviceKey(row.device);
    case OperationsRole:
        if (row.state != FoundNew)
            return int(OperationsNone);
        return int(row.device.nInitState == RemoteConfigLogical::InitMissing ? OperationsUninitialized
                                                                             : OperationsInitialized);
    default:
        return {};
    }
}

QVariant COnlineDeviceModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const
{
    if (orientation != Qt::Horizontal || nRole != Qt::DisplayRole)
        return QAbstractTableModel::headerData(nSection, orientation, nRole);
    const QString headers[] = {Text::tr("Initialization Status"), Text::tr("IP Address"),
        Text::tr("Device Model"), Text::tr("Port"), Text::tr("MAC Address"), Text::tr("Operation")};
    return nSection >= 0 && nSection < OnlineColumnCount ? headers[nSection] : QVariant();
}

Qt::ItemFlags COnlineDeviceModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid())
        return flags;
    if (m_vecRows[std::size_t(index.row())].state != FoundNew)
        return index.column() == OnlineColumnInit ? flags & ~Qt::ItemFlags(Qt::ItemIsEnabled) : flags;
    if (index.column() == OnlineColumnInit)
        flags |= Qt::ItemIsUserCheckable;
    if (index.column() == OnlineColumnAddress)
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool COnlineDeviceModel::setData(const QModelIndex& index, const QVariant& vValue, int nRole)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    Row& row = m_vecRows[std::size_t(index.row())];
    if (nRole == Qt::CheckStateRole && flags(index).testFlag(Qt::ItemIsUserCheckable)) {
        row.bChecked = vValue.toInt() == Qt::Checked;
        Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
        return true;
    }
    const QString sNewIp = vValue.toString();
    if (nRole == Qt::EditRole && flags(index).testFlag(Qt::ItemIsEditable) && IsIpv4(sNewIp)
        && sNewIp.toStdString() != row.device.sIp)
        Q_EMIT SignalAddressEdited(GetDeviceKey(row.device), sNewIp);
    return false;
}

void COnlineDeviceModel::Clear()
{
    beginResetModel();
    m_vecRows.clear();
    m_mapRows.clear();
    endResetModel();
}

void COnlineDeviceModel::Add(const Devices& vecDevices)
{
    std::vector<Row> vecNew;
    for (const RemoteConfigLogical::SearchDeviceInfo_t& device : vecDevices) {
        const QString sKey = GetDeviceKey(device);
        const int nKnown = m_mapRows.value(sKey, -1);
        const FoundState state = device.sDeviceId.empty() ? FoundNew : FoundManaged;
        if (nKnown < 0) {
            m_mapRows.insert(sKey, int(m_vecRows.size() + vecNew.size()));
            vecNew.push_back({device, state, false});
            continue;
        }
        const bool bOld = std::size_t(nKnown) < m_vecRows.size();
        Row& row = bOld ? m_vecRows[std::size_t(nKnown)] : vecNew[std::size_t(nKnown) - m_vecRows.size()];
        row.device = device;
        if (state == FoundManaged) {
            row.state = state;
            row.bChecked = false;
        }
        if (bOld)
            Changed(nKnown);
    }
    if (vecNew.empty())
        return;
    const int nFirst = int(m_vecRows.size());
    beginInsertRows({}, nFirst, nFirst + int(vecNew.size()) - 1);
    m_vecRows.insert(
        m_vecRows.end(), std::make_move_iterator(vecNew.begin()), std::make_move_iterator(vecNew.end()));
    endInsertRows();
}

void COnlineDeviceModel::Changed(int nRow)
{
    Q_EMIT dataChanged(index(nRow, 0), index(nRow, OnlineColumnCount - 1));
}

void COnlineDeviceModel::SetState(const QStringList& listKeys, FoundState state)
{
    for (const QString& sKey : listKeys) {
        const int nRow = m_mapRows.value(sKey, -1);
        if (nRow < 0)
            continue;
        Row& row = m_vecRows[std::size_t(nRow)];
        row.state = state;
        row.bChecked = row.bChecked && state != FoundManaged;
        Changed(nRow);
    }
}

void COnlineDeviceModel::SetInitialized(const QStringList& listKeys)
{
    for (const QString& sKey : listKeys) {
        const int nRow = m_mapRows.value(sKey, -1);
        if (nRow < 0)
            continue;
        m_vecRows[std::size_t(nRow)].device.nInitState = RemoteConfigLogical::InitDone;
        Changed(nRow);
    }
}

void COnlineDeviceModel::SetAddress(const QString& sKey, const QString& sNewIp)
{
    const int nRow = m_mapRows.value(sKey, -1);
    if (nRow < 0)
        return;
    Row& row = m_vecRows[std::size_t(nRow)];
    m_mapRows.remove(sKey);
    row.device.sIp = sNewIp.toStdString();
    m_mapRows.insert(GetDeviceKey(row.device), nRow);
    Changed(nRow);
}

COnlineDeviceModel::Devices COnlineDeviceModel::GetAll() const
{
    Devices vecDevices;
    for (const Row& row : m_vecRows)
        vecDevices.push_back(row.device);
    return vecDevices;
}

COnlineDeviceModel::Devices COnlineDeviceModel::GetChecked() const
{
    Devices vecDevices;
    for (const Row& row : m_vecRows) {
        if (row.bChecked && row.state == FoundNew)
            vecDevices.push_back(row.device);
    }
    std::sort(vecDevices.begin(), vecDevices.end(), [](const auto& left, const auto& right) {
        const auto key = [](const auto& device) {
            return std::pair(ToNumber(QString::fromStdString(device.sIp)), device.nPort);
        };
        return key(left) < key(right);
    });
    return vecDevices;
}

COnlineDeviceModel::Devices COnlineDeviceModel::GetOne(const QString& sKey) const
{
    const int nRow = m_mapRows.value(sKey, -1);
    return nRow < 0 ? Devices() : Devices{m_vecRows[std::size_t(nRow)].device};
}

void COnlineDeviceModel::SetAllChecked(bool bChecked)
{
    for (Row& row : m_vecRows)
        row.bChecked = bChecked && row.state == FoundNew;
    if (!m_vecRows.empty())
        Q_EMIT dataChanged(index(0, OnlineColumnInit), index(rowCount() - 1, OnlineColumnInit));
}

Qt::CheckState COnlineDeviceModel::GetCheckSummary() const
{
    int nChecked = 0;
    int nCheckable = 0;
    for (const Row& row : m_vecRows) {
        nCheckable += row.state == FoundNew ? 1 : 0;
        nChecked += row.state == FoundNew && row.bChecked ? 1 : 0;
    }
    if (nChecked == 0)
        return Qt::Unchecked;
    return nChecked == nCheckable ? Qt::Checked : Qt::PartiallyChecked;
}

} // namespace ResourceManagerUI
