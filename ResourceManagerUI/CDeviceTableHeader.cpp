#include "CDeviceTableHeader.h"

#include "CDeviceModel.h"

#include <common/DeviceCategory.h>

#include <Trv/QSkin.h>

#include <QCoreApplication>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeviceManagerCtrl)
};
} // namespace

CDeviceTableHeader::CDeviceTableHeader(QWidget* pParent)
    : CFilterHeaderView(pParent)
{
    SetFilterIcons(Trv::GetIcon(QStringLiteral("filter")), Trv::GetIcon(QStringLiteral("filter-active")));
    SetCategories({});
    SetFilter(ColumnOnline,
        {{GroupLogical::StateAll, Text::tr("All")},
            {GroupLogical::StateOnline, CDeviceModel::GetOnlineText(GroupLogical::StateOnline)},
            {GroupLogical::StateOffline, CDeviceModel::GetOnlineText(GroupLogical::StateOffline)}});
    SetFilterValue(ColumnOnline, GroupLogical::StateAll);
    connect(this, &CFilterHeaderView::SignalFilterChosen, this, [this](int nSection, int nValue) {
        if (nSection == ColumnType)
            Q_EMIT SignalFilterTypeChanged(nValue);
        else
            Q_EMIT sgnBtnClicked(nValue);
    });
}

void CDeviceTableHeader::SetCategories(const std::vector<int>& vecCategories)
{
    QVector<Common::FilterOption> vecOptions{
        {Common::CategoryAll, Common::GetCategoryFilterText(Common::CategoryAll)}};
    for (const int nCategory : vecCategories) {
        const QString sText = Common::GetCategoryFilterText(nCategory);
        if (!sText.isEmpty())
            vecOptions.append({nCategory, sText});
    }
    SetFilter(ColumnType, vecOptions);
}

} // namespace ResourceManagerUI
