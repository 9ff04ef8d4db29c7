#pragma once

#include <QHash>
#include <QHeaderView>
#include <QIcon>
#include <QVector>

class QMenu;

namespace Common {

/// One choice of a filter in a header.
struct FilterOption
{
    int nValue;
    QString sText;
};

/// A table header with a check-all box in one section, filters that pop up from others, sections to sort by,
/// one section that stays in view at the right edge, and a menu to sort and to show and hide columns.
/// User-interface thread.
class CFilterHeaderView : public QHeaderView
{
    Q_OBJECT

public:
    explicit CFilterHeaderView(QWidget* pParent = nullptr);

    /// The section with the check-all box; below 0: none.
    void SetCheckSection(int nSection);
    void SetCheckState(Qt::CheckState state);
    /// The funnel of the sections with a filter, and how it looks while the filter hides rows.
    void SetFilterIcons(const QIcon& icon, const QIcon& activeIcon);
    void SetFilter(int nSection, const QVector<FilterOption>& vecOptions);
    /// Marks the option in use; emits nothing.
    void SetFilterValue(int nSection, int nValue);
    /// The columns that the user may show and hide.
    void SetOptionalSections(const QVector<int>& vecSections);
    /// Whether the menu offers to reset the columns.
    void SetResettable(bool bResettable) { m_bResettable = bResettable; }
    /// The sections that the list can be sorted by; a click on another one does nothing.
    void SetSortSections(const QVector<int>& vecSections);
    /// Marks the section that the list is sorted by; emits nothing.
    void SetSort(int nSection, Qt::SortOrder order);
    /// The section that stays in view at the right edge when the table is scrolled sideways; below 0: none.
    void SetFrozenSection(int nSection);
    /// Whether that section stands over others now.
    bool IsFrozenOverOthers() const;

    /// Where the section is shown, in coordinates of the viewport.
    QRect GetSectionRect(int nSection) const;
    /// Where the funnel of that section stands, in coordinates of the viewport.
    QRect GetFilterRect(int nSection) const;
    /// Pops up the menu of the context-menu button, for the keyboard.
    void OpenMenu();

Q_SIGNALS:
    void SignalCheckAll(bool bChecked);
    void SignalFilterChosen(int nSection, int nValue);
    /// The user showed (1) or hid (0) a column.
    void SignalColumnStateChanged(int nSection, int nShown);
    /// The user wants the columns as they come.
    void SignalResetColumns();
    /// The user chose what to sort by. Another section keeps the order in use, the same one turns it.
    void SignalSortChosen(int nSection, Qt::SortOrder order);

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void paintSection(QPainter* pPainter, const QRect& rect, int nSection) const override;
    QSize sectionSizeFromContents(int nSection) const override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;

private:
    struct Filter
    {
        QVector<FilterOption> vecOptions;
        int nValue = 0;
        bool bSet = false; ///< a value other than the first is in use
    };
    /// The section that is seen at that place; a frozen one hides what is below it.
    int SectionAt(const QPoint& pos) const;
    void OpenFilter(int nSection);
    void PopUpMenu(const QPoint& globalPos);
    void AddSortMenu(QMenu* pMenu);
    void ChooseSort(int nSection, Qt::SortOrder order);
    void OnSectionClicked(int nSection);

    int m_nCheckSection = -1;
    Qt::CheckState m_checkState = Qt::Unchecked;
    QIcon m_filterIcon;
    QIcon m_activeFilterIcon;
    QHash<int, Filter> m_mapFilters;
    QVector<int> m_vecOptional;
    QVector<int> m_vecSorting;
    int m_nSort = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    int m_nFrozen = -1;
    bool m_bResettable = false;
    int m_nPressed = -1; ///< section whose box or funnel holds the mouse button
};

} // namespace Common
