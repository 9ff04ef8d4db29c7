#include "DeviceCategory.h"

#include <GroupLogical/GroupRecords.h>

#include <QCoreApplication>

#include <iterator>

namespace Common {

namespace {

constexpr const char* Context = "CDeviceManagerCtrl";

struct CodeText
{
    int nCode;
    const char* pszText;
};

constexpr CodeText CategoryTexts[] = {
    {1, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Encoder")},
    {2, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Decoder")},
    {3, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Alarm Control Panel")},
    {4, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "TV Wall")},
    {5, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "ANPR Device")},
    {6, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Matrix")},
    {7, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Intelligent Device")},
    {8, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Access Control")},
    {16, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "LED Device")},
    {21, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Video Intercom")},
    {34, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Emergency")},
    {43, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Radar")},
    {45, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "VideoWall Control")},
};
constexpr int CategoryPos = 40;

constexpr CodeText DirectionTexts[] = {
    {0, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Undefine")},
    {1, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Direct")},
    {2, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Pull")},
    {3, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Push")},
};

constexpr CodeText ReasonTexts[] = {
    {GroupLogical::ReasonNotProbed, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Not checked yet")},
    {GroupLogical::ReasonRefused, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Connection refused")},
    {GroupLogical::ReasonTimeOut, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Connection timed out")},
    {GroupLogical::ReasonUnreachable, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Network unreachable")},
    {GroupLogical::ReasonAddressUnknown, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "Host name not found")},
    {GroupLogical::ReasonNoAddress, QT_TRANSLATE_NOOP("CDeviceManagerCtrl", "No address")},
};

template <std::size_t Size>
QString Find(const CodeText (&table)[Size], int nCode)
{
    for (const CodeText& entry : table) {
        if (entry.nCode == nCode)
            return QCoreApplication::translate(Context, entry.pszText);
    }
    return {};
}

} // namespace

QString GetCategoryText(int nCategory)
{
    if (nCategory == CategoryPos)
        return QStringLiteral("POS");
    return Find(CategoryTexts, nCategory);
}

QString GetCategoryFilterText(int nCategory)
{
    if (nCategory == CategoryAll)
        return QCoreApplication::translate(Context, "All");
    if (nCategory == CategoryLiftController)
        return QCoreApplication::translate(Context, "Lift Controller");
    return GetCategoryText(nCategory);
}

QString GetAccessDirectionText(int nDirection)
{
    return Find(DirectionTexts, nDirection);
}

QString GetOfflineReasonText(int nReason)
{
    return Find(ReasonTexts, nReason);
}

} // namespace Common
