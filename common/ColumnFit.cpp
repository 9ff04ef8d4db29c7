#include "ColumnFit.h"

#include <algorithm>
#include <numeric>

namespace Common {

namespace {

constexpr int NameWidth = 280; // pixels

int WidthAt(const ColumnNeed& need, int nLevel)
{
    if (!need.bGivesWay)
        return need.nContent;
    return std::min(need.nContent, std::max(need.nMinimum, nLevel));
}

int SumAt(const std::vector<ColumnNeed>& vecNeeds, int nLevel)
{
    return std::accumulate(vecNeeds.begin(), vecNeeds.end(), 0,
        [nLevel](int nSum, const ColumnNeed& need) { return nSum + WidthAt(need, nLevel); });
}

/// The highest level at which all of them fit, 0 when there is none.
int FindLevel(const std::vector<ColumnNeed>& vecNeeds, int nRoom)
{
    int nLow = 0;
    int nHigh = nRoom;
    while (nLow < nHigh) {
        const int nMiddle = (nLow + nHigh + 1) / 2;
        if (SumAt(vecNeeds, nMiddle) <= nRoom)
            nLow = nMiddle;
        else
            nHigh = nMiddle - 1;
    }
    return nLow;
}

} // namespace

std::vector<int> FitColumns(const std::vector<ColumnNeed>& vecNeeds, int nRoom)
{
    int nLevel = FindLevel(vecNeeds, nRoom);
    // With a scroll bar there is room for names; only remarks and the like are still cut.
    if (SumAt(vecNeeds, nLevel) > nRoom)
        nLevel = NameWidth;
    std::vector<int> vecWidths;
    vecWidths.reserve(vecNeeds.size());
    for (const ColumnNeed& need : vecNeeds)
        vecWidths.push_back(WidthAt(need, nLevel));
    int nLeft = nRoom - std::accumulate(vecWidths.begin(), vecWidths.end(), 0);
    // What rounding left over first goes to those that were cut.
    for (std::size_t n = 0; n < vecWidths.size() && nLeft > 0; ++n) {
        if (vecWidths[n] < vecNeeds[n].nContent) {
            ++vecWidths[n];
            --nLeft;
        }
    }
    int nStretching = int(std::count_if(
        vecNeeds.begin(), vecNeeds.end(), [](const ColumnNeed& need) { return need.bStretches; }));
    for (std::size_t n = 0; n < vecWidths.size() && nLeft > 0; ++n) {
        if (!vecNeeds[n].bStretches)
            continue;
        const int nShare = nLeft / nStretching--;
        vecWidths[n] += nShare;
        nLeft -= nShare;
    }
    return vecWidths;
}

} // namespace Common
