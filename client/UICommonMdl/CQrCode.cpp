#include <UICommonMdl/CQrCode.h>

#include <QByteArray>

#include <memory>

#include <qrencode.h>

namespace UICommonMdl {

namespace {
constexpr int QuietZone = 4; ///< modules, as the standard asks for
}

QImage CQrCode::Encode(const QString& sText, int nSide)
{
    const QByteArray baText = sText.toUtf8();
    const std::unique_ptr<QRcode, decltype(&QRcode_free)> pCode(
        QRcode_encodeString8bit(baText.constData(), 0, QR_ECLEVEL_M), &QRcode_free);
    if (!pCode)
        return {};
    const int nModules = pCode->width + 2 * QuietZone;
    QImage modules(nModules, nModules, QImage::Format_RGB32);
    modules.fill(Qt::white);
    for (int nY = 0; nY < pCode->width; ++nY) {
        for (int nX = 0; nX < pCode->width; ++nX) {
            if (pCode->data[nY * pCode->width + nX] & 1)
                modules.setPixelColor(nX + QuietZone, nY + QuietZone, Qt::black);
        }
    }
    const int nScale = qMax(1, nSide / nModules);
    return modules.scaled(nModules * nScale, nModules * nScale);
}

} // namespace UICommonMdl
