#pragma once

#include <QString>

namespace Common {

/// How a column of a list comes to its width.
enum class ColumnWidth
{
    Content, ///< what it holds; gives way last (addresses, times, states, counts)
    Text, ///< what it holds; gives way first when there is too little room (names)
    Stretch, ///< as Text, and takes the room that is left over
    Fixed ///< its minimum, whatever it holds; cannot be dragged (check boxes)
};

/// One column of a list. Widths in pixels.
struct Column
{
    static constexpr int NotSorted = -1;

    QString sHeader; ///< translated
    bool bShown = true; ///< shown as long as the user does not choose otherwise
    ColumnWidth width = ColumnWidth::Content;
    int nSortKey =
        NotSorted; ///< what the page sorts by, from 0; NotSorted: a click on the header does nothing
    bool bMayHide = true; ///< whether the user may hide it, or show it; not without a header
    int nMinimum = 0; ///< 0: as its header needs
    int nMaximum = 0; ///< of a fitted width; 0: none. The user may drag it wider.
    QString sKey = QString(); ///< what it is remembered by; empty: its number
};

} // namespace Common
