#include "CUserListHeader.h"

#include "CDlgUserType.h"
#include "CUserModel.h"
#include "UserRules.h"

#include <Trv/QSkin.h>

#include <QCoreApplication>
#include <QMouseEvent>

namespace PlatformConfigUI {

using namespace UserLogical;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CUserManagerUserCtrl)
};

/// A click this near to a border of a column resizes it.
constexpr int GripWidth = 5;

QVector<Common::FilterOption> GetOptions(int nColumn)
{
    if (nColumn == UserColumnType)
        return {{UserTypeAll, Text::tr("All")}, {UserTypeNormal, GetUserTypeText(UserTypeNormal)},
            {UserTypeDomain, GetUserTypeText(UserTypeDomain)}};
    return {{OnlineFilterAll, Text::tr("All")}, {OnlineFilterOnline, GetOnlineText(true)},
        {OnlineFilterOffline, GetOnlineText(false)}};
}

} // namespace

CUserListHeader::CUserListHeader(QWidget* pParent)
    : CFilterHeaderView(pParent)
    , m_nOnline(OnlineFilterAll)
    , m_nType(UserTypeAll)
{
    SetFilterIcons(Trv::GetIcon(QStringLiteral("filter")), Trv::GetIcon(QStringLiteral("filter-active")));
    for (const int nColumn : {UserColumnStatus, UserColumnType}) {
        SetFilter(nColumn, GetOptions(nColumn));
        SetFilterValue(nColumn, 0);
    }
}

int CUserListHeader::FilterColumnAt(const QMouseEvent* pEvent) const
{
    const int nColumn = logicalIndexAt(pEvent->pos());
    if (pEvent->button() != Qt::LeftButton || (nColumn != UserColumnStatus && nColumn != UserColumnType))
        return -1;
    const int nOffset = pEvent->pos().x() - sectionViewportPosition(nColumn);
    return nOffset < GripWidth || nOffset > sectionSize(nColumn) - GripWidth ? -1 : nColumn;
}

void CUserListHeader::mousePressEvent(QMouseEvent* pEvent)
{
    m_nPressedColumn = FilterColumnAt(pEvent);
    if (m_nPressedColumn < 0)
        CFilterHeaderView::mousePressEvent(pEvent);
}

void CUserListHeader::mouseReleaseEvent(QMouseEvent* pEvent)
{
    const int nPressed = std::exchange(m_nPressedColumn, -1);
    if (nPressed < 0)
        CFilterHeaderView::mouseReleaseEvent(pEvent);
    else if (FilterColumnAt(pEvent) == nPressed)
        OpenFilter(nPressed);
}

void CUserListHeader::OpenFilter(int nColumn)
{
    const int nValue = nColumn == UserColumnType ? m_nType : m_nOnline;
    auto* const pPopup = new CDlgUserType(
        model()->headerData(nColumn, Qt::Horizontal).toString(), GetOptions(nColumn), nValue, this);
    connect(pPopup, &CDlgUserType::SignalChosen, this,
        [this, nColumn](int nChosen) { OnChosen(nColumn, nChosen); });
    pPopup->PopUp(viewport()->mapToGlobal(QPoint(sectionViewportPosition(nColumn), height())));
}

void CUserListHeader::ClearFilters()
{
    m_nOnline = OnlineFilterAll;
    m_nType = UserTypeAll;
    SetFilterValue(UserColumnStatus, m_nOnline);
    SetFilterValue(UserColumnType, m_nType);
}

void CUserListHeader::OnChosen(int nColumn, int nValue)
{
    int& nUsed = nColumn == UserColumnType ? m_nType : m_nOnline;
    if (std::exchange(nUsed, nValue) == nValue)
        return;
    SetFilterValue(nColumn, nValue);
    Q_EMIT SignalFilterChanged();
}

} // namespace PlatformConfigUI
