#include "Look.h"
#include "QtWarnings.h"

#include <Trv/QSkin.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMap>
#include <QMovie>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <gtest/gtest.h>

namespace {

QString ReadText(const QString& sPath)
{
    QFile file(sPath);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(sPath);
    return QString::fromUtf8(file.readAll());
}

/// The targets of the map, as paths in a skin.
QStringList PicturesOfTheMap()
{
    static const QRegularExpression s_line(
        QStringLiteral("^([^# ]+) = [^ ]+"), QRegularExpression::MultilineOption);
    QStringList listPictures;
    for (auto it = s_line.globalMatch(ReadText(QStringLiteral(PRODUCT_SOURCE_DIR "/skin/icons.map")));
         it.hasNext();)
        listPictures << it.next().captured(1);
    return listPictures;
}

using SourceTexts = QMap<QString, QString>;

/// Path and text of every source and style sheet that may name pictures.
SourceTexts SourcesThatShowPictures()
{
    const QDir root(QStringLiteral(PRODUCT_SOURCE_DIR));
    QStringList listFolders = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const char* const pszOther :
        {"build", "benchmarks", "client", "fielddevice", "server", "tests", "wire"})
        listFolders.removeAll(QLatin1String(pszOther));
    for (const char* const pszLibrary : {"app", "Trv", "UICommonMdl", "VxGUI"})
        listFolders << QStringLiteral("client/") + QLatin1String(pszLibrary);
    SourceTexts sources;
    for (const QString& sFolder : qAsConst(listFolders)) {
        QDirIterator files(root.filePath(sFolder), {QStringLiteral("*.cpp"), QStringLiteral("*.qss.in")},
            QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString sFile = files.next();
            sources.insert(sFile, ReadText(sFile));
        }
    }
    return sources;
}

bool IsBlank(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0)
                return false;
        }
    }
    return true;
}

void ExpectSvgDraws(const QString& sPath)
{
    QSvgRenderer renderer(sPath);
    ASSERT_TRUE(renderer.isValid());
    QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    EXPECT_FALSE(IsBlank(image));
}

void ExpectPngInBothScales(const QString& sPath)
{
    const QImage single(sPath);
    const QImage twice(QString(sPath).replace(QStringLiteral(".png"), QStringLiteral("@2x.png")));
    ASSERT_FALSE(single.isNull());
    EXPECT_EQ(twice.size(), single.size() * 2);
    EXPECT_FALSE(IsBlank(twice));
}

class Skin : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        m_sBefore = Trv::GetSkin();
        ASSERT_TRUE(Trv::SetSkin(QLatin1String(GetParam())));
    }
    void TearDown() override { Trv::SetSkin(m_sBefore); }

    static QString Root() { return Trv::GetSkinPath(QString(), QString()); }

    static double Contrast(const char* pszOne, const char* pszOther)
    {
        const QColor one = Trv::GetColor(QLatin1String(pszOne));
        const QColor other = Trv::GetColor(QLatin1String(pszOther));
        EXPECT_TRUE(one.isValid() && other.isValid()) << pszOne << ", " << pszOther;
        return ContrastOf(one, other);
    }

private:
    QString m_sBefore;
};

TEST_P(Skin, EveryPictureOfTheMapIsThereAndShowsSomething)
{
    const QStringList listPictures = PicturesOfTheMap();
    EXPECT_FALSE(listPictures.isEmpty());
    for (const QString& sPicture : listPictures) {
        const QString sPath = Root() + sPicture;
        SCOPED_TRACE(qPrintable(sPath));
        if (sPath.endsWith(QLatin1String(".svg")))
            ExpectSvgDraws(sPath);
        else if (sPath.endsWith(QLatin1String(".png")))
            ExpectPngInBothScales(sPath);
        else
            EXPECT_GT(QMovie(sPath).frameCount(), 1);
    }
}

// Names that come from a table are seen by the tests of the pages: an icon that is not there warns.
TEST_P(Skin, IconsThatTheSourcesNameExist)
{
    static const QRegularExpression s_call(QStringLiteral("GetIcon(\\((?:[^()]|(?1))*\\))"));
    static const QRegularExpression s_name(QStringLiteral("\"([^\"]+)\""));
    int nNamed = 0;
    const SourceTexts sources = SourcesThatShowPictures();
    for (auto source = sources.begin(); source != sources.end(); ++source) {
        for (auto call = s_call.globalMatch(source.value()); call.hasNext();) {
            const QString sArguments = call.next().captured(1);
            for (auto it = s_name.globalMatch(sArguments); it.hasNext(); ++nNamed) {
                const QString sName = it.next().captured(1);
                EXPECT_FALSE(Trv::GetIcon(sName).isNull())
                    << qPrintable(sName + QLatin1String(" in ") + source.key());
            }
        }
    }
    EXPECT_GT(nNamed, 0);
    const ExpectWarning warning(QStringLiteral("no-such-icon"));
    EXPECT_TRUE(Trv::GetIcon(QStringLiteral("no-such-icon")).isNull());
}

TEST(Skins, HaveNoPicturesThatNobodyShows)
{
    const SourceTexts sources = SourcesThatShowPictures();
    const QString sAll = QStringList(sources.values()).join(QLatin1Char('\n'));
    static const QRegularExpression s_state(QStringLiteral("-[nhp]$"));
    const QStringList listPictures = PicturesOfTheMap();
    for (const QString& sPicture : listPictures) {
        const QFileInfo file(sPicture);
        const QString sStem = file.completeBaseName().remove(s_state);
        const bool bShown = sAll.contains(QStringLiteral("url(skin:") + sPicture)
            || sAll.contains(file.fileName() + QLatin1Char('"'))
            || sAll.contains(QLatin1Char('"') + sStem + QLatin1Char('"'));
        EXPECT_TRUE(bShown) << qPrintable(sPicture);
    }
}

TEST_P(Skin, StyleSheetsAreCompleteAndTheirPicturesExist)
{
    static const QRegularExpression s_picture(QStringLiteral("url\\(([^)]*)\\)"));
    QDirIterator files(Root(), {QStringLiteral("*.qss")}, QDir::Files, QDirIterator::Subdirectories);
    EXPECT_TRUE(files.hasNext());
    while (files.hasNext()) {
        const QString sFile = files.next();
        SCOPED_TRACE(qPrintable(sFile));
        QString sSheet;
        ASSERT_TRUE(Trv::loadStyleSheet(sFile, sSheet));
        EXPECT_FALSE(sSheet.contains(QLatin1Char('@')));
        for (auto it = s_picture.globalMatch(sSheet); it.hasNext();) {
            const QString sPicture = it.next().captured(1);
            EXPECT_TRUE(QFile::exists(sPicture)) << qPrintable(sPicture);
        }
    }
}

TEST_P(Skin, ContrastIsReadable)
{
    constexpr double Text = 4.5;
    constexpr double Graphic = 3.0;
    const struct
    {
        const char* pszFront;
        std::vector<const char*> vecBacks;
        double nLeast;
    } pairs[] = {{"text",
                     {"window", "surface", "surface-alt", "hover", "pressed", "selected", "information-soft",
                         "success-soft", "warning-soft", "danger-soft"},
                     Text},
        {"text-muted", {"window", "surface", "surface-alt"}, Text},
        {"on-accent", {"accent", "accent-hover", "accent-pressed"}, Text},
        {"on-danger", {"danger", "danger-hover", "danger-pressed"}, Text},
        {"danger", {"window", "surface"}, Text}, {"warning", {"warning-soft"}, Text},
        {"on-tooltip", {"tooltip"}, Text}, {"border-strong", {"surface", "window"}, Graphic},
        {"focus", {"surface", "window"}, Graphic}, {"icon", {"surface", "hover", "pressed"}, Graphic},
        {"online", {"surface"}, Graphic}, {"offline", {"surface"}, Graphic},
        {"information", {"information-soft"}, Graphic}, {"success", {"success-soft"}, Graphic},
        {"danger", {"danger-soft"}, Graphic},
        {"on-tile", {"tile-basic", "tile-application", "tile-system"}, Graphic}};
    for (const auto& pair : pairs) {
        for (const char* const pszBack : pair.vecBacks)
            EXPECT_GE(Contrast(pair.pszFront, pszBack), pair.nLeast) << pair.pszFront << " on " << pszBack;
    }
}

INSTANTIATE_TEST_SUITE_P(Looks, Skin, testing::Values("light", "dark"));

TEST(Skins, KnowTheirNamesAndRefuseOthers)
{
    QStringList listSkins = Trv::GetSkins();
    listSkins.sort();
    EXPECT_EQ(listSkins.join(QLatin1Char(' ')), QStringLiteral("dark light"));
    const QString sBefore = Trv::GetSkin();
    EXPECT_FALSE(Trv::SetSkin(QStringLiteral("CMakeFiles")));
    EXPECT_FALSE(Trv::SetSkin(QStringLiteral("../skin/dark")));
    EXPECT_EQ(Trv::GetSkin(), sBefore);
}

TEST(Skins, SwitchingGivesTheOtherColours)
{
    ASSERT_TRUE(Trv::SetSkin(QStringLiteral("dark")));
    const QColor dark = Trv::GetColor(QStringLiteral("window"));
    const QImage darkIcon = Trv::GetIcon(QStringLiteral("add")).pixmap(16, 16).toImage();
    ASSERT_TRUE(Trv::SetSkin(QStringLiteral("light")));
    EXPECT_NE(Trv::GetColor(QStringLiteral("window")), dark);
    EXPECT_NE(Trv::GetIcon(QStringLiteral("add")).pixmap(16, 16).toImage(), darkIcon);
    EXPECT_FALSE(Trv::GetColor(QStringLiteral("no-such-colour")).isValid());
}

TEST(Skins, ADisabledIconHasTheColourOfDisabledTexts)
{
    for (const char* pszSkin : {"dark", "light"}) {
        ASSERT_TRUE(Trv::SetSkin(QLatin1String(pszSkin)));
        const QImage image = Trv::GetIcon(QStringLiteral("add")).pixmap(16, 16, QIcon::Disabled).toImage();
        QColor strongest(Qt::transparent);
        for (int nY = 0; nY < image.height(); ++nY) {
            for (int nX = 0; nX < image.width(); ++nX) {
                if (image.pixelColor(nX, nY).alpha() > strongest.alpha())
                    strongest = image.pixelColor(nX, nY);
            }
        }
        EXPECT_GT(strongest.alpha(), 128);
        strongest.setAlpha(255);
        const QColor expected = Trv::GetColor(QStringLiteral("text-disabled"));
        for (const auto part : {&QColor::red, &QColor::green, &QColor::blue})
            EXPECT_NEAR((strongest.*part)(), (expected.*part)(), 4) << pszSkin;
    }
}

TEST(Skins, StyleSheetThatCannotBeReadLeavesTheOldOne)
{
    QString sSheet = QStringLiteral("old");
    EXPECT_FALSE(Trv::loadStyleSheet(Trv::GetSkinPath(QStringLiteral("No.qss"), QString()), sSheet));
    EXPECT_EQ(sSheet, QStringLiteral("old"));
}

} // namespace
