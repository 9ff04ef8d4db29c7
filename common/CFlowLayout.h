#pragma once

#include <QLayout>
#include <QVector>

namespace Common {

/// Lays widgets out one after the other, in as many lines as the width asks for. Hidden ones take no place.
class CFlowLayout : public QLayout
{
    Q_OBJECT

public:
    explicit CFlowLayout(QWidget* pParent = nullptr, int nSpacing = 6);
    ~CFlowLayout() override;

    void addItem(QLayoutItem* pItem) override;
    int count() const override { return m_vecItems.size(); }
    QLayoutItem* itemAt(int nIndex) const override { return m_vecItems.value(nIndex); }
    QLayoutItem* takeAt(int nIndex) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int nWidth) const override;
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    /// Height that the items take in a rectangle of that width; bApply: puts them there.
    int Arrange(const QRect& rect, bool bApply) const;

    QVector<QLayoutItem*> m_vecItems;
};

} // namespace Common
