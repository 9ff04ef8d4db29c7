#include <VxGUI/TextLayout.h>

#include <QFontMetrics>

namespace VxGUI {

QString WrapTitle(const QString& sTitle, const QFontMetrics& metrics, int nWidth)
{
    if (metrics.horizontalAdvance(sTitle) <= nWidth)
        return sTitle;
    int nBreak = -1;
    for (int i = sTitle.indexOf(QLatin1Char(' ')); i >= 0; i = sTitle.indexOf(QLatin1Char(' '), i + 1)) {
        if (nBreak < 0 || qAbs(2 * i - sTitle.size()) < qAbs(2 * nBreak - sTitle.size()))
            nBreak = i;
    }
    if (nBreak < 0)
        return metrics.elidedText(sTitle, Qt::ElideRight, nWidth);
    return metrics.elidedText(sTitle.left(nBreak), Qt::ElideRight, nWidth) + QLatin1Char('\n')
        + metrics.elidedText(sTitle.mid(nBreak + 1), Qt::ElideRight, nWidth);
}

} // namespace VxGUI
