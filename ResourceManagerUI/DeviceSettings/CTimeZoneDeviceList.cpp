#include "CTimeZoneDeviceList.h"

#include "TimeZoneRules.h"

#include <UICommonMdl/CErrorCode.h>

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QStyle>

#include <algorithm>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevTimeZone)
};

enum Column : int
{
    ColumnName,
    ColumnStatus,
    ColumnText
};

constexpr int MarkSize = 12; ///< pixels

/// The words beside the mark.
QString GetStateText(const RemoteConfigLogical::TimeZoneResult_t& result)
{
    switch (result.nState) {
    case RemoteConfigLogical::TimeZoneSending:
        return Text::tr("Sending...");
    case RemoteConfigLogical::TimeZoneDone:
        return Text::tr("Success");
    case RemoteConfigLogical::TimeZoneNotSupported:
        return UICommonMdl::CErrorCode::GetErroCodeInfor(UICommonMdl::ErrorDeviceNotSupported);
    case RemoteConfigLogical::TimeZoneFailed:
        return result.nErrorCode == UICommonMdl::ErrorNone
            ? Text::tr("Failed")
            : UICommonMdl::CErrorCode::GetErroCodeInfor(result.nErrorCode);
    default:
        return {};
    }
}

} // namespace

CTimeZoneDeviceList::CTimeZoneDeviceList(QWidget* pParent)
    : QTreeWidget(pParent)
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setHeaderLabels({Text::tr("Device Name"), Text::tr("Status"), Text::tr("Details")});
    setColumnWidth(ColumnName, 200);
    setColumnWidth(ColumnStatus, 72);
}

void CTimeZoneDeviceList::SetDevices(const QVector<QPair<QString, QString>>& vecDevices)
{
    for (const auto& [sId, sName] : vecDevices) {
        Device& device = m_mapDevices[sId];
        m_listIds.append(sId);
        device.pItem = new QTreeWidgetItem(this, {sName});
        device.pItem->setToolTip(ColumnName, sName);
        setItemWidget(device.pItem, ColumnStatus, MakeMark(sId, device));
        ShowMark(device);
    }
}

QWidget* CTimeZoneDeviceList::MakeMark(const QString& sDeviceId, Device& device)
{
    auto* const pCell = new QWidget(this);
    device.pMark = new QLabel(pCell);
    device.pMark->setObjectName(QStringLiteral("lbStatusMark_") + sDeviceId);
    device.pMark->setFixedSize(MarkSize, MarkSize);
    auto* const pLayout = new QHBoxLayout(pCell);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(device.pMark, 0, Qt::AlignCenter);
    return pCell;
}

void CTimeZoneDeviceList::ShowMark(const Device& device)
{
    const std::optional<StatusMark> optMark = GetStatusMark(device.nState);
    if (!optMark)
        return;
    device.pMark->setProperty("Status", optMark->sStatus);
    device.pMark->setToolTip(optMark->sToolTip);
    device.pMark->style()->unpolish(device.pMark);
    device.pMark->style()->polish(device.pMark);
}

void CTimeZoneDeviceList::SetResult(const RemoteConfigLogical::TimeZoneResult_t& result)
{
    const auto it = m_mapDevices.find(QString::fromStdString(result.sDeviceId));
    if (it == m_mapDevices.end() || !GetStatusMark(result.nState))
        return;
    it->nState = result.nState;
    ShowMark(*it);
    const QString sText = GetStateText(result);
    it->pItem->setText(ColumnText, sText);
    it->pItem->setToolTip(ColumnText, it->pMark->toolTip().isEmpty() ? sText : it->pMark->toolTip());
    it->pItem->setData(ColumnStatus, Qt::AccessibleTextRole, sText);
}

int CTimeZoneDeviceList::GetState(const QString& sDeviceId) const
{
    return m_mapDevices.value(sDeviceId).nState;
}

std::vector<std::string> CTimeZoneDeviceList::GetIds() const
{
    std::vector<std::string> vecIds;
    for (const QString& sId : m_listIds)
        vecIds.push_back(sId.toStdString());
    return vecIds;
}

std::vector<std::string> CTimeZoneDeviceList::GetIdsNotIn(int nState) const
{
    std::vector<std::string> vecIds;
    for (const QString& sId : m_listIds) {
        if (GetState(sId) != nState)
            vecIds.push_back(sId.toStdString());
    }
    return vecIds;
}

int CTimeZoneDeviceList::CountState(int nState) const
{
    return static_cast<int>(std::count_if(m_mapDevices.begin(), m_mapDevices.end(),
        [nState](const Device& device) { return device.nState == nState; }));
}

} // namespace ResourceManagerUI
