#pragma once

#include <QImage>
#include <QString>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>
#include <iosfwd>
#include <vector>

/// What a page is looked at in.
struct Look
{
    const char* pszSkin;
    bool bLargeText; ///< texts of twice their size
};
void PrintTo(const Look& look, std::ostream* pStream);
std::string NameOf(const testing::TestParamInfo<Look>& info);
inline const auto EverySkin = testing::Values(Look{"light", false}, Look{"dark", false});
inline const auto EveryLook =
    testing::Values(Look{"light", false}, Look{"dark", false}, Look{"light", true}, Look{"dark", true});

/// Has the application look so while it lives; pages are made after it.
class LookScope
{
public:
    explicit LookScope(const Look& look);
    ~LookScope();
    LookScope(const LookScope&) = delete;
    LookScope& operator=(const LookScope&) = delete;

    /// Room for the same content.
    QSize Scaled(QSize size) const { return m_look.bLargeText ? size * 2 : size; }
    /// Fails for each text of the window that is cut or too faint to be read, and writes its picture to
    /// $PRODUCT_SCREENSHOT_DIR when that is set.
    void ExpectReadable(QWidget& window, const char* pszPicture) const;
    /// Fails for each control of the window that looks the same with the keyboard's focus and without.
    void ExpectFocusSeen(QWidget& window) const;

private:
    Look m_look;
    QString m_sSkin;
    QString m_sSheet;
    QTemporaryDir m_folder;
};

/// WCAG's ratio of the luminances of two colours.
double ContrastOf(const QColor& one, const QColor& other);

struct LookState
{
    const char* pszName;
    std::function<void()> enter;
};
/// Fails when two of the states cannot be told apart by looking at the widget.
void ExpectToldApart(QWidget& widget, const std::vector<LookState>& vecStates);
