#pragma once

#include <QKeySequence>
#include <QVector>
#include <QWidget>

#include <functional>

class QAbstractButton;
class QAction;
class QMenu;
class QPushButton;

namespace Common {

/// What an action needs: why it cannot be used now, translated, as a sentence; empty: nothing is missing.
using Need = std::function<QString()>;

/// One action of a tool bar.
struct ToolAction
{
    const char* pszName; ///< object name of its button and of its QAction
    const char* pszIcon; ///< of the skin; empty: none
    QString sText; ///< translated
    std::function<void()> run;
    QVector<Need> vecNeeds = {}; ///< the first one that is not met is told
    QKeySequence keys = {}; ///< works in the scope of the tool bar and below
};

/// The actions of a page in one row, with fields at its right end. What does not fit goes into a menu "More".
/// An action that lacks something is disabled and says what. User-interface thread.
class CToolBar : public QWidget
{
    Q_OBJECT

public:
    explicit CToolBar(QWidget* pParent = nullptr);

    /// The widget in which the shortcuts of actions that are added later work; the parent when not set.
    void SetShortcutScope(QWidget* pScope) { m_pScope = pScope; }
    /// Adds a button to the row. The action is owned here: hide it, change its text or trigger it by itself.
    QAction* AddAction(const ToolAction& action);
    /// Gives an action's button a drop-down of further ones; pMenu is owned by the caller. To be called right
    /// after AddAction.
    void SetMenu(QAction* pAction, QMenu* pMenu);
    /// Adds a field at the right end (taken). It is given its maximum width while there is room, and never
    /// less than its minimum.
    void AddField(QWidget* pField);
    void SetFieldsEnabled(bool bEnabled);
    /// Asks all needs again. To be called when the connection, the rights or the choice are others.
    void UpdateNeeds();

    /// Null when there is none of that name.
    QAction* FindAction(const QString& sName) const;
    /// The button of an action, also while the action is in the menu.
    QAbstractButton* FindButton(const QString& sName) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    struct Entry
    {
        QAction* pAction;
        QAbstractButton* pButton;
        QMenu* pMenu; ///< null: none
        QVector<Need> vecNeeds;
    };

    void UpdateButton(const Entry& entry);
    void UpdateNeed(const Entry& entry);
    void SetTabOrders();
    void Arrange();
    void OpenMore();
    int CountInRow(int nRoom) const;
    int FieldsWidth(bool bMinimum) const;
    int RowHeight() const;

    QVector<Entry> m_vecEntries;
    QVector<QWidget*> m_vecFields;
    QWidget* m_pScope;
    QPushButton* m_pMore;
    QMenu* m_pMoreMenu;
    int m_nInRow = 0; ///< entries before the one that the menu starts with
    bool m_bArranging = false;
};

} // namespace Common
