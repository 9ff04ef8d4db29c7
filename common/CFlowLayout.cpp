#include "CFlowLayout.h"

#include <QWidget>

namespace Common {

CFlowLayout::CFlowLayout(QWidget* pParent, int nSpacing)
    : QLayout(pParent)
{
    setSpacing(nSpacing);
    setContentsMargins(0, 0, 0, 0);
}

CFlowLayout::~CFlowLayout()
{
    qDeleteAll(m_vecItems);
}

void CFlowLayout::addItem(QLayoutItem* pItem)
{
    m_vecItems.append(pItem);
}

QLayoutItem* CFlowLayout::takeAt(int nIndex)
{
    return nIndex >= 0 && nIndex < m_vecItems.size() ? m_vecItems.takeAt(nIndex) : nullptr;
}

int CFlowLayout::heightForWidth(int nWidth) const
{
    return Arrange(QRect(0, 0, nWidth, 0), false);
}

QSize CFlowLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem* pItem : m_vecItems) {
        if (!pItem->isEmpty())
            size = size.expandedTo(pItem->sizeHint());
    }
    return size;
}

void CFlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    Arrange(rect, true);
}

int CFlowLayout::Arrange(const QRect& rect, bool bApply) const
{
    int nX = rect.x();
    int nY = rect.y();
    int nLineHeight = 0;
    for (QLayoutItem* pItem : m_vecItems) {
        if (pItem->isEmpty())
            continue;
        const QSize size = pItem->sizeHint();
        if (nX > rect.x() && nX + size.width() > rect.right() + 1) {
            nX = rect.x();
            nY += nLineHeight + spacing();
            nLineHeight = 0;
        }
        if (bApply)
            pItem->setGeometry(QRect(QPoint(nX, nY), size));
        nX += size.width() + spacing();
        nLineHeight = qMax(nLineHeight, size.height());
    }
    return nY + nLineHeight - rect.y();
}

} // namespace Common
