#pragma once

#include <UICommonMdl/UICommonMdlExport.h>

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

namespace UICommonMdl {

/// Writes one table to an "xlsx" file. Every cell is text, so that no value is ever run as a formula. Any
/// thread.
class UICOMMONMDL_EXPORT CSpreadsheetWriter
{
public:
    /// Writes the header line and then the rows that next yields, until it answers false. The file appears
    /// under its name only when it is complete; an existing one is replaced. Answers an error text, empty on
    /// success.
    static QString Write(const QString& sPath, const QString& sSheetName, const QStringList& listHeader,
        const std::function<bool(QStringList& row)>& next);
};

} // namespace UICommonMdl
