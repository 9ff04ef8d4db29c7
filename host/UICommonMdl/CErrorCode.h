#pragma once

#include <UICommonMdl/ErrorCodes.h>
#include <UICommonMdl/UICommonMdlExport.h>

#include <QString>

namespace UICommonMdl {

/// The texts of error codes.
class UICOMMONMDL_EXPORT CErrorCode
{
public:
    /// Translated text of the code; empty for ErrorNone, "Unknown error" for a code without a text. Any
    /// thread.
    static QString GetErroCodeInfor(int nErrorCode);
};

} // namespace UICommonMdl
