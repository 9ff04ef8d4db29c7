#pragma once

#include <QAbstractItemView>
#include <QModelIndex>
#include <QPointer>
#include <QTest>
#include <QWidget>

#include <functional>

/// Uses a page as a person does: finds what is on it by object name and clicks and types there. What is
/// hidden or disabled cannot be used: the test fails, and says why.
class PageDriver
{
public:
    /// page is borrowed; it is shown at once.
    explicit PageDriver(QWidget& page, QSize size = {1200, 760});
    ~PageDriver();
    PageDriver(const PageDriver&) = delete;
    PageDriver& operator=(const PageDriver&) = delete;

    /// The one widget of that name and class; a failure and null when there is none or more than one.
    template <class Widget = QWidget>
    Widget* Find(const QString& sName) const
    {
        auto* pWidget = qobject_cast<Widget*>(FindWidget(sName));
        if (!pWidget)
            Fail(sName, "not found, or of another class");
        return pWidget;
    }
    bool IsShown(const QString& sName) const;
    bool IsUsable(const QString& sName) const;

    void Click(const QString& sName);
    /// Replaces the text of a line edit by real keys.
    void Type(const QString& sName, const QString& sText);
    void Key(const QString& sName, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Choose(const QString& sComboName, const QString& sText);

    /// The first index whose text in that column is sText; invalid and a failure when there is none.
    QModelIndex FindRow(QAbstractItemView* pView, int nColumn, const QString& sText) const;
    void ClickIndex(
        QAbstractItemView* pView, const QModelIndex& index, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void ClickAt(QAbstractItemView* pView, const QPoint& place, Qt::MouseButton button = Qt::LeftButton);

    /// Runs the event loop until the condition holds; a failure after the deadline.
    static bool WaitFor(const std::function<bool()>& condition, int nDeadlineMs = 10000);
    /// Runs what is queued.
    static void Settle();
    /// Whether no layout asks for the next one, over and over.
    static bool ComesToRest();
    /// Writes a picture of the page to $PRODUCT_SCREENSHOT_DIR when that is set.
    void Screenshot(const QString& sName) const;

private:
    QWidget* FindWidget(const QString& sName) const;
    QWidget* Usable(const QString& sName) const;
    static void Fail(const QString& sName, const char* pszReason);

    QPointer<QWidget> m_pPage;
};
