#pragma once

#include <common/CEntryWidget.h>

namespace AttendanceConfigUI {

/// The entry "Attendance".
class CAttendanceManagerWidget : public Common::CEntryWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CAttendanceManagerWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet);
};

} // namespace AttendanceConfigUI
