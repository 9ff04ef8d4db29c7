#pragma once

#include <QHash>
#include <QHeaderView>
#include <QIcon>
#include <QVector>

namespace Common {

/// One choice of a filter in a header.
struct FilterOption
{
    int nValue;
    QString sText;
};

/// A table header with a check-all box in one section, filters that pop up from others, and a context menu
/// that shows and hides columns. User-interface thread.
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

    /// Where the funnel of that section stands, in coordinates of the viewport.
    QRect GetFilterRect(int nSection) const;

Q_SIGNALS:
    void SignalCheckAll(bool bChecked);
    void SignalFilterChosen(int nSection, int nValue);
    /// The user showed (1) or hid (0) a column.
    void SignalColumnStateChanged(int nSection, int nShown);

protected:
    void paintSection(QPainter* pPainter, const QRect& rect, int nSection) const override;
    QSize sectionSizeFromContents(int nSection) const override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;

private:
    struct Filter
    {
        QVector<FilterOption> vecOptions;
        int nValue = 0;
        bool bSet = false; ///< a value other than the first is in use
    };
    QRect SectionRect(int nSection) const;
    void OpenFilter(int nSection);

    int m_nCheckSection = -1;
    Qt::CheckState m_checkState = Qt::Unchecked;
    QIcon m_filterIcon;
    QIcon m_activeFilterIcon;
    QHash<int, Filter> m_mapFilters;
    QVector<int> m_vecOptional;
    int m_nPressed = -1; ///< section whose box or funnel holds the mouse button
};

} // namespace Common
