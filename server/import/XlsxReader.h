#pragma once

#include "SheetFile.h"

namespace Platform {

/// The first sheet of an Office Open XML workbook (ECMA-376), within SheetFile's limits. Throws ServiceError.
std::vector<SheetRow> ReadXlsx(const QByteArray& baFile);

} // namespace Platform
