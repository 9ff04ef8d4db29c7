#include <PersonEdit/PhotoRules.h>

#include <AccessControlLogical/PersonRecords.h>
#include <tests/support/core/QtWarnings.h>

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

using namespace BasicInfoManagerUI;

namespace {

QByteArray MakeJpeg(const QImage& image, const char* pszFormat = "jpg")
{
    QByteArray baFile;
    QBuffer buffer(&baFile);
    EXPECT_TRUE(image.save(&buffer, pszFormat));
    return baFile;
}

QImage MakeImage(int nWidth, int nHeight, Qt::GlobalColor color = Qt::red)
{
    QImage image(nWidth, nHeight, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

/// The file with another size in its frame header.
QByteArray WithSize(QByteArray baJpeg, int nWidth, int nHeight)
{
    const int nFrame = baJpeg.indexOf("\xff\xc0");
    EXPECT_GT(nFrame, 0);
    const int values[] = {nHeight, nWidth};
    for (int n = 0; n < 2; ++n) {
        baJpeg[nFrame + 5 + 2 * n] = char(values[n] >> 8);
        baJpeg[nFrame + 6 + 2 * n] = char(values[n] & 0xff);
    }
    return baJpeg;
}

TEST(PhotoFile, OnlyWholeJpegFilesOfABearableSizeAreRead)
{
    const QByteArray baGood = MakeJpeg(MakeImage(300, 400));
    const struct
    {
        const char* pszWhat;
        QByteArray baFile;
        bool bRead;
    } cases[] = {{"whole", baGood, true}, {"empty", {}, false}, {"text", "no picture", false},
        {"other format", MakeJpeg(MakeImage(300, 400), "png"), false},
        {"cut off", baGood.left(baGood.size() / 2), false},
        {"400 million pixels", WithSize(baGood, 20000, 20000), false},
        {"more than 20 MB", baGood + QByteArray(20 * 1024 * 1024, '\0') + QByteArray("\xff\xd9"), false}};
    const QTemporaryDir folder;
    for (const auto& testCase : cases) {
        QFile file(folder.filePath(QStringLiteral("picture.jpg")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(testCase.baFile);
        file.close();
        EXPECT_EQ(!ReadPhotoFile(file.fileName()).isNull(), testCase.bRead) << testCase.pszWhat;
    }
    EXPECT_TRUE(ReadPhotoFile(folder.filePath(QStringLiteral("missing.jpg"))).isNull());
}

TEST(PhotoFile, LargePicturesComeSmaller)
{
    const QImage image = ReadPhotoData(MakeJpeg(MakeImage(6000, 3000)));
    EXPECT_EQ(image.size(), QSize(2048, 1024));
    EXPECT_EQ(qRed(image.pixel(1000, 500)), 254);
}

TEST(PhotoFrame, KeepsItsRatioAndThePicture)
{
    const QSizeF wide(800, 400);
    const QRectF first = MakeFirstFrame(wide);
    EXPECT_EQ(first, QRectF(250, 0, 300, 400));
    EXPECT_EQ(MakeFirstFrame({300, 1000}), QRectF(0, 300, 300, 400));

    EXPECT_EQ(MoveFrame(first, {100, 50}, wide), QRectF(350, 0, 300, 400));
    EXPECT_EQ(MoveFrame(first, {-999, -9}, wide), QRectF(0, 0, 300, 400));

    const struct
    {
        FrameCorner corner;
        QPointF target;
        QRectF expected;
    } cases[] = {{FrameCorner::BottomRight, {400, 100}, {250, 0, 150, 200}},
        {FrameCorner::TopLeft, {400, 300}, {400, 200, 150, 200}},
        {FrameCorner::TopRight, {250, 400}, {250, 360, 30, 40}},
        {FrameCorner::BottomLeft, {-500, 900}, {250, 0, 300, 400}}};
    for (const auto& testCase : cases)
        EXPECT_EQ(ResizeFrame(first, testCase.corner, testCase.target, wide), testCase.expected)
            << int(testCase.corner);

    EXPECT_EQ(ScaleFrame({250, 0, 300, 400}, 2, wide), QRectF(250, 0, 300, 400));
    EXPECT_EQ(ScaleFrame({0, 0, 150, 200}, 2, wide), QRectF(0, 0, 300, 400));
}

TEST(PhotoCut, IsAJpegOfFixedSizeThatTheServerTakes)
{
    QImage image = MakeImage(800, 400, Qt::blue);
    QPainter(&image).fillRect(100, 0, 300, 400, Qt::green);
    const QImage cut = QImage::fromData(CutPhoto(image, {100, 0, 300, 400}), "jpg");
    EXPECT_EQ(cut.size(), QSize(PhotoWidth, PhotoHeight));
    EXPECT_GT(qGreen(cut.pixel(240, 320)), 240);
    EXPECT_LT(qBlue(cut.pixel(470, 320)), 60) << "what is outside of the frame";

    QImage noise(480, 640, QImage::Format_RGB32);
    std::mt19937 random(1);
    for (int y = 0; y < noise.height(); ++y) {
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, random());
    }
    const int nSize = CutPhoto(noise, {0, 0, 480, 640}).size();
    EXPECT_GT(nSize, 0);
    EXPECT_LE(std::size_t(nSize), AccessControlLogical::PhotoSizeLimit);
    EXPECT_TRUE(CutPhoto({}, {0, 0, 10, 10}).isEmpty());
}

} // namespace
