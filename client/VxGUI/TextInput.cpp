#include <VxGUI/TextInput.h>

#include <QTextBoundaryFinder>

namespace VxGUI {

int CountCharacters(const QString& sText)
{
    int nCount = sText.size();
    for (int n = 1; n < sText.size(); ++n) {
        if (sText[n - 1].isHighSurrogate() && sText[n].isLowSurrogate())
            --nCount;
    }
    return nCount;
}

QString CutText(const QString& sText, int nMax)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, sText);
    int nEnd = 0;
    int nCount = 0;
    for (int nNext = finder.toNextBoundary(); nNext > nEnd; nNext = finder.toNextBoundary()) {
        nCount += CountCharacters(sText.mid(nEnd, nNext - nEnd));
        if (nCount > nMax)
            break;
        nEnd = nNext;
    }
    return sText.left(nEnd);
}

} // namespace VxGUI
