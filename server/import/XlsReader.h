#pragma once

#include "SheetFile.h"

namespace Platform {

/// The first sheet of a BIFF workbook (".xls"), within SheetFile's limits. The library tells values only, so
/// that a formula's result is taken as its text. Throws ServiceError.
std::vector<SheetRow> ReadXls(const QByteArray& baFile);

} // namespace Platform
