#include "CAttendanceManagerWidget.h"

namespace AttendanceConfigUI {

CAttendanceManagerWidget::CAttendanceManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet)
    : CEntryWidget(pInterfaceSet,
        {"002007", "AttendanceManagerWidget", QT_TRANSLATE_NOOP("CAttendanceManagerWidget", "Attendance"),
            "CAttendanceManagerWidget", QStringLiteral("AttendanceConfigUI"),
            QStringLiteral("Attendance.png"), QString()})
{
}

} // namespace AttendanceConfigUI
