#include "Look.h"

#include "PageDriver.h"

#include <Trv/QSkin.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDirIterator>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyle>
#include <QTextDocument>

#include <cmath>

namespace {

constexpr double LeastContrast = 4.5;

QString SkinRoot()
{
    return qEnvironmentVariable("PRODUCT_BINARY_DIR") + QStringLiteral("/skin");
}

QString TwiceTheText(QString sSheet)
{
    static const QRegularExpression s_size(QStringLiteral("font-size: (\\d+)px"));
    int nAt = 0;
    for (auto match = s_size.match(sSheet); match.hasMatch(); match = s_size.match(sSheet, nAt)) {
        const QString sSize = QStringLiteral("font-size: %1px").arg(2 * match.captured(1).toInt());
        sSheet.replace(match.capturedStart(), match.capturedLength(), sSize);
        nAt = match.capturedStart() + sSize.size();
    }
    return sSheet;
}

/// The skin once more, its sheets with texts of twice their size.
void CopySkin(const QString& sSkin, const QString& sTarget)
{
    const QDir source(SkinRoot() + QLatin1Char('/') + sSkin);
    QDirIterator files(source.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString sFile = files.next();
        const QString sCopy =
            sTarget + QLatin1Char('/') + sSkin + QLatin1Char('/') + source.relativeFilePath(sFile);
        ASSERT_TRUE(QFileInfo(sCopy).dir().mkpath(QStringLiteral(".")));
        if (!sFile.endsWith(QLatin1String(".qss"))) {
            ASSERT_TRUE(QFile::link(sFile, sCopy));
            continue;
        }
        QFile sheet(sFile);
        QFile copy(sCopy);
        ASSERT_TRUE(sheet.open(QIODevice::ReadOnly) && copy.open(QIODevice::WriteOnly));
        copy.write(TwiceTheText(QString::fromUtf8(sheet.readAll())).toUtf8());
    }
}

/// The colour that most of an area has.
QColor BackgroundOf(const QImage& image, const QRect& area)
{
    QHash<QRgb, int> hashCounts;
    const QRect inside = area.intersected(image.rect());
    QRgb found = 0;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (++hashCounts[image.pixel(x, y)] > hashCounts.value(found))
                found = image.pixel(x, y);
        }
    }
    return QColor(found);
}

/// The room that a text of one widget needs and has.
struct TextRoom
{
    QString sText;
    QSize needed;
    QSize given;
};

TextRoom RoomOf(const QLabel& label)
{
    const QRect inside = label.contentsRect();
    QTextDocument text;
    text.setDefaultFont(label.font());
    text.setDocumentMargin(0);
    if (Qt::mightBeRichText(label.text()) && label.textFormat() != Qt::PlainText)
        text.setHtml(label.text());
    else
        text.setPlainText(label.text());
    if (label.wordWrap())
        text.setTextWidth(inside.width());
    return {label.text(), QSize(int(std::floor(text.idealWidth())), int(std::floor(text.size().height()))),
        inside.size()};
}

TextRoom RoomOf(const QAbstractButton& button)
{
    QSize needed = button.fontMetrics().size(Qt::TextShowMnemonic, button.text());
    if (!button.icon().isNull())
        needed.rwidth() += button.iconSize().width();
    return {button.text(), needed, button.contentsRect().size()};
}

TextRoom RoomOf(const QComboBox& combo)
{
    const int nArrow = combo.style()->pixelMetric(QStyle::PM_MenuButtonIndicator, nullptr, &combo);
    return {combo.currentText(), combo.fontMetrics().size(Qt::TextSingleLine, combo.currentText()),
        combo.contentsRect().size() - QSize(nArrow, 0)};
}

TextRoom RoomOf(const QLineEdit& edit)
{
    const QString sText = edit.text().isEmpty() ? edit.placeholderText() : QString();
    return {sText, edit.fontMetrics().size(Qt::TextSingleLine, sText), edit.contentsRect().size()};
}

/// What is shown in the window itself, not in a dialog over it.
template <class Widget>
QVector<Widget*> ShownIn(const QWidget& window)
{
    QVector<Widget*> vecShown;
    for (Widget* const pWidget : window.findChildren<Widget*>()) {
        if (pWidget->isVisible() && pWidget->window() == window.window())
            vecShown << pWidget;
    }
    return vecShown;
}

template <class Widget>
void ExpectWhole(const QWidget& window)
{
    for (const Widget* const pWidget : ShownIn<Widget>(window)) {
        const TextRoom room = RoomOf(*pWidget);
        if (room.sText.isEmpty())
            continue;
        EXPECT_LE(room.needed.width(), room.given.width())
            << qPrintable(pWidget->objectName()) << " is cut: " << qPrintable(room.sText);
        EXPECT_LE(room.needed.height(), room.given.height())
            << qPrintable(pWidget->objectName()) << " is cut below: " << qPrintable(room.sText);
    }
}

template <class Widget>
void ExpectContrast(QWidget& window, const QImage& image)
{
    for (const Widget* const pWidget : ShownIn<Widget>(window)) {
        if (!pWidget->isEnabled() || pWidget->text().isEmpty())
            continue;
        const QRect area(pWidget->mapTo(&window, QPoint(0, 0)), pWidget->size());
        if (!window.rect().contains(area))
            continue;
        const QColor text = pWidget->palette().color(pWidget->foregroundRole());
        const QColor background = BackgroundOf(image, area);
        EXPECT_GE(ContrastOf(text, background), LeastContrast)
            << qPrintable(pWidget->objectName()) << ": " << qPrintable(pWidget->text()) << ": "
            << qPrintable(text.name()) << " on " << qPrintable(background.name());
    }
}

double LuminanceOf(const QColor& color)
{
    const auto linear = [](double dValue) {
        return dValue <= 0.04045 ? dValue / 12.92 : std::pow((dValue + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

void PrintTo(const Look& look, std::ostream* pStream)
{
    *pStream << look.pszSkin << (look.bLargeText ? ", large text" : "");
}

std::string NameOf(const testing::TestParamInfo<Look>& info)
{
    return std::string(info.param.pszSkin) + (info.param.bLargeText ? "_large" : "");
}

double ContrastOf(const QColor& one, const QColor& other)
{
    const double dOne = LuminanceOf(one) + 0.05;
    const double dOther = LuminanceOf(other) + 0.05;
    return std::max(dOne, dOther) / std::min(dOne, dOther);
}

LookScope::LookScope(const Look& look)
    : m_look(look)
    , m_sSkin(Trv::GetSkin())
    , m_sSheet(qApp->styleSheet())
{
    if (look.bLargeText) {
        CopySkin(QLatin1String(look.pszSkin), m_folder.path());
        Trv::SetSkinRoot(m_folder.path());
    }
    EXPECT_TRUE(Trv::SetSkin(QLatin1String(look.pszSkin)));
    QString sSheet;
    EXPECT_TRUE(Trv::loadStyleSheet(Trv::GetSkinPath(QStringLiteral("Client.qss"), QString()), sSheet));
    qApp->setStyleSheet(sSheet);
}

LookScope::~LookScope()
{
    Trv::SetSkinRoot(SkinRoot());
    Trv::SetSkin(m_sSkin);
    qApp->setStyleSheet(m_sSheet);
}

void LookScope::ExpectReadable(QWidget& window, const char* pszPicture) const
{
    PageDriver::Settle();
    SCOPED_TRACE(pszPicture);
    const QPixmap picture = window.grab();
    const QImage image = picture.toImage();
    ExpectWhole<QLabel>(window);
    ExpectWhole<QAbstractButton>(window);
    ExpectWhole<QComboBox>(window);
    ExpectWhole<QLineEdit>(window);
    ExpectContrast<QLabel>(window, image);
    ExpectContrast<QPushButton>(window, image);
    ExpectContrast<QLineEdit>(window, image);
    const QString sFolder = qEnvironmentVariable("PRODUCT_SCREENSHOT_DIR");
    if (sFolder.isEmpty())
        return;
    const QString sLook = QLatin1String(m_look.pszSkin) + QLatin1String(m_look.bLargeText ? "-large" : "");
    const auto sFile = QStringLiteral("%1/%2-%3.png");
    EXPECT_TRUE(QDir().mkpath(sFolder) && picture.save(sFile.arg(sFolder, QLatin1String(pszPicture), sLook)));
}

void LookScope::ExpectFocusSeen(QWidget& window) const
{
    window.activateWindow();
    PageDriver::Settle();
    for (QWidget* const pWidget : ShownIn<QWidget>(window)) {
        const bool bControl = qobject_cast<QAbstractButton*>(pWidget) || qobject_cast<QComboBox*>(pWidget)
            || qobject_cast<QLineEdit*>(pWidget);
        if (!bControl || !pWidget->isEnabled() || !(pWidget->focusPolicy() & Qt::TabFocus))
            continue;
        if (QWidget* const pFocus = qApp->focusWidget())
            pFocus->clearFocus();
        // A cell's editor is there only while it has the focus.
        if (!pWidget->isVisible())
            continue;
        const QImage without = pWidget->grab().toImage();
        pWidget->setFocus(Qt::TabFocusReason);
        EXPECT_NE(pWidget->grab().toImage(), without) << qPrintable(pWidget->objectName());
    }
}

void ExpectToldApart(QWidget& widget, const std::vector<LookState>& vecStates)
{
    std::vector<QImage> vecImages;
    for (const LookState& state : vecStates) {
        state.enter();
        PageDriver::Settle();
        vecImages.push_back(widget.grab().toImage());
        for (std::size_t n = 0; n + 1 < vecImages.size(); ++n)
            EXPECT_NE(vecImages[n], vecImages.back())
                << state.pszName << " looks like " << vecStates[n].pszName;
    }
}
