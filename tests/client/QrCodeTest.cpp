#include <UICommonMdl/CQrCode.h>

#include <gtest/gtest.h>

#include <zbar.h>

using UICommonMdl::CQrCode;

namespace {

/// What a scanner reads in the picture.
std::string Scan(const QImage& image)
{
    const QImage grey = image.convertToFormat(QImage::Format_Grayscale8);
    std::string sPixels;
    for (int nRow = 0; nRow < grey.height(); ++nRow)
        sPixels.append(reinterpret_cast<const char*>(grey.constScanLine(nRow)), std::size_t(grey.width()));
    zbar::Image scanned(
        unsigned(grey.width()), unsigned(grey.height()), "Y800", sPixels.data(), sPixels.size());
    zbar::ImageScanner scanner;
    scanner.set_config(zbar::ZBAR_QRCODE, zbar::ZBAR_CFG_ENABLE, 1);
    if (scanner.scan(scanned) != 1)
        return "not read";
    return scanned.symbol_begin()->get_data();
}

} // namespace

TEST(QrCode, AScannerReadsWhatWasEncoded)
{
    const std::string texts[] = {"4711", "P1:" + std::string(120, 'k'), std::string(500, '7')};
    for (const std::string& sText : texts)
        for (const int nSide : {240, 600}) {
            const QImage image = CQrCode::Encode(QString::fromStdString(sText), nSide);
            EXPECT_LE(image.width(), nSide);
            EXPECT_EQ(Scan(image), sText) << nSide;
        }
    EXPECT_TRUE(CQrCode::Encode(QString(5000, QLatin1Char('x')), 600).isNull());
}
