#include "CDeviceModel.h"

#include <Trv/QSkin.h>
#include <common/COrganizationModel.h>
#include <common/DeviceCategory.h>

#include <QCoreApplication>
#include <QMimeData>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceManagerCtrl)
};

constexpr int MaxAddressWidth = 280; // domain names are longer than addresses
constexpr int MinNameWidth = 140;

QVector<Common::Column> MakeColumns()
{
    using Width = Common::ColumnWidth;
    constexpr int NotSorted = Common::Column::NotSorted;
    QVector<Common::Column> vecColumns{{QString(), true, Width::Fixed}, {Text::tr("Device ID"), false},
        {Text::tr("IP Address"), true, Width::Content, GroupLogical::SortByIp, true, 0, MaxAddressWidth},
        {Text::tr("Device Name"), true, Width::Stretch, GroupLogical::SortByName, true, MinNameWidth},
        {Text::tr("Device Type"), true}, {Text::tr("Device Model"), false, Width::Text},
        {Text::tr("Organization"), true, Width::Text}, {Text::tr("Online Status"), true},
        {Text::tr("Offline Reason"), true, Width::Text}, {Text::tr("Manufacturer"), false, Width::Text},
        {Text::tr("Access Protocol"), false},
        {Text::tr("Operation"), true, Width::Content, NotSorted, false}};
    // The server sorts by address and by name; every other column means the name.
    for (int nColumn = ColumnId; nColumn < ColumnOperation; ++nColumn) {
        if (vecColumns[nColumn].nSortKey == NotSorted)
            vecColumns[nColumn].nSortKey = GroupLogical::SortByName;
    }
    return vecColumns;
}

QIcon StatusIcon(const QString& sFile)
{
    return QIcon(Trv::GetSkinPath(sFile, QStringLiteral("ResourceManagerUI/DeviceManager")));
}

QString ReasonText(int nOnlineState, int nReason)
{
    return nOnlineState == GroupLogical::StateOnline ? QString() : Common::GetOfflineReasonText(nReason);
}

} // namespace

CDeviceModel::CDeviceModel(QObject* pParent)
    : CTableModel(MakeColumns(), ColumnId, ColumnCheck, pParent)
    , m_onlineIcon(StatusIcon(QStringLiteral("StatusOnline.png")))
    , m_offlineIcon(StatusIcon(QStringLiteral("StatusOffline.png")))
{
    KeepChecks(ColumnName);
}

QStringList CDeviceModel::GetTexts(const GroupLogical::DeviceInfo_t& device)
{
    return {QString(), QString::fromStdString(device.sDeviceId), QString::fromStdString(device.sIp),
        QString::fromStdString(device.sName), Common::GetCategoryText(device.nCategory),
        QString::fromStdString(device.sModel), QString::fromStdString(device.sOrgName),
        GetOnlineText(device.nOnlineState), ReasonText(device.nOnlineState, device.nOfflineReason),
        QString::fromStdString(device.sManufacturer), QString::fromStdString(device.sProtocol), QString()};
}

QString CDeviceModel::GetOnlineText(int nOnlineState)
{
    return nOnlineState == GroupLogical::StateOnline ? Text::tr("Online") : Text::tr("Offline");
}

const QIcon& CDeviceModel::GetOnlineIcon(int nOnlineState) const
{
    return nOnlineState == GroupLogical::StateOnline ? m_onlineIcon : m_offlineIcon;
}

void CDeviceModel::SetDevices(const std::vector<GroupLogical::DeviceInfo_t>& vecDevices)
{
    QVector<Row> vecRows;
    vecRows.reserve(int(vecDevices.size()));
    for (const GroupLogical::DeviceInfo_t& device : vecDevices) {
        Row row;
        row.reserve(ColumnCount);
        for (const QString& sText : GetTexts(device))
            row.append(MakeItem(sText));
        row[ColumnOnline]->setIcon(GetOnlineIcon(device.nOnlineState));
        vecRows.append(row);
    }
    SetRows(vecRows);
}

bool CDeviceModel::UpdateState(const RemoteConfigLogical::DeviceState_t& state)
{
    const int nRow = FindRow(QString::fromStdString(state.sDeviceId));
    if (nRow < 0)
        return false;
    item(nRow, ColumnOnline)->setText(GetOnlineText(state.nOnlineState));
    item(nRow, ColumnOnline)->setIcon(GetOnlineIcon(state.nOnlineState));
    item(nRow, ColumnOfflineReason)->setText(ReasonText(state.nOnlineState, state.nOfflineReason));
    return true;
}

QStringList CDeviceModel::mimeTypes() const
{
    return {QString::fromLatin1(Common::DeviceIdsMimeType)};
}

QMimeData* CDeviceModel::mimeData(const QModelIndexList& listIndexes) const
{
    QStringList listIds;
    for (const QModelIndex& index : listIndexes) {
        const QString sId = GetId(index.row());
        if (!listIds.contains(sId))
            listIds.append(sId);
    }
    if (listIds.isEmpty())
        return nullptr;
    const QStringList listChecked = GetCheckedIds();
    const auto isChecked = [&](const QString& sId) { return listChecked.contains(sId); };
    if (std::any_of(listIds.cbegin(), listIds.cend(), isChecked))
        listIds = listChecked;
    auto* pData = new QMimeData;
    pData->setData(QString::fromLatin1(Common::DeviceIdsMimeType), listIds.join(QLatin1Char('\n')).toUtf8());
    return pData;
}

} // namespace ResourceManagerUI
