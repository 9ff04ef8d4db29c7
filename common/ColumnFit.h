#pragma once

#include <vector>

namespace Common {

/// What one column of a list asks for, in pixels.
struct ColumnNeed
{
    int nContent; ///< what shows all that it holds
    int nMinimum; ///< how far it may give way
    bool bGivesWay; ///< a long text, which gives way before a scroll bar comes
    bool bStretches; ///< takes the room that is left over
};

/// Widths of the columns in a table of nRoom pixels. What is left over goes to those that stretch; when there
/// is too little, the widest of those that give way are cut first. When that is not enough for all, the sum
/// is above nRoom, and they are cut at the width of a long name.
std::vector<int> FitColumns(const std::vector<ColumnNeed>& vecNeeds, int nRoom);

} // namespace Common
