#pragma once

#include <UICommonMdl/UICommonMdlExport.h>

#include <QImage>
#include <QString>

namespace UICommonMdl {

/// Draws QR codes (ISO/IEC 18004). Any thread.
class UICOMMONMDL_EXPORT CQrCode
{
public:
    /// The code of the text (UTF-8), black on white with its quiet zone, in whole pixels a module and at most
    /// nSide pixels wide; null when the text is too long for one.
    static QImage Encode(const QString& sText, int nSide);
};

} // namespace UICommonMdl
