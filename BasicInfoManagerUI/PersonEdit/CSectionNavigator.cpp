#include "CSectionNavigator.h"

#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

namespace {
constexpr int Tolerance = 24; ///< pixels of the section before that may still be seen
}

int GetCurrentSection(const QVector<int>& vecTops, int nScroll, int nMaximum)
{
    if (vecTops.isEmpty())
        return -1;
    // The last ones never come to the top.
    if (nMaximum > 0 && nScroll >= nMaximum)
        return vecTops.size() - 1;
    int nCurrent = 0;
    for (int n = 1; n < vecTops.size() && vecTops[n] <= nScroll + Tolerance; ++n)
        nCurrent = n;
    return nCurrent;
}

CSectionNavigator::CSectionNavigator(QWidget* pParent)
    : QWidget(pParent)
    , m_pLayout(new QVBoxLayout(this))
{
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->setSpacing(2);
    m_pLayout->addStretch(1);
}

void CSectionNavigator::SetScrollArea(QScrollArea* pArea)
{
    m_pArea = pArea;
    connect(pArea->verticalScrollBar(), &QScrollBar::valueChanged, this, &CSectionNavigator::OnScrolled);
}

void CSectionNavigator::AddSection(const QString& sTitle, QWidget* pSection)
{
    auto* const pButton = new QPushButton(sTitle, this);
    pButton->setCheckable(true);
    pButton->setProperty("role", QStringLiteral("flat"));
    pButton->setProperty("section", true);
    m_pLayout->insertWidget(m_vecSections.size(), pButton);
    m_vecSections.append({pButton, pSection});
    connect(pButton, &QPushButton::clicked, this, [this, pSection] { ShowSection(pSection); });
    pButton->setChecked(m_vecSections.size() == 1);
}

void CSectionNavigator::SetSectionShown(QWidget* pSection, bool bShown)
{
    for (const Section& section : qAsConst(m_vecSections)) {
        if (section.pWidget == pSection)
            section.pButton->setVisible(bShown);
    }
}

int CSectionNavigator::GetTop(const QWidget* pSection) const
{
    return pSection->mapTo(m_pArea->widget(), QPoint()).y();
}

void CSectionNavigator::ShowSection(QWidget* pSection)
{
    m_pArea->verticalScrollBar()->setValue(GetTop(pSection));
    // A section near the end is marked although it stands below the top.
    for (const Section& section : qAsConst(m_vecSections)) {
        if (section.pWidget == pSection)
            Mark(section.pButton);
    }
}

void CSectionNavigator::OnScrolled(int nValue)
{
    QVector<int> vecTops;
    QVector<const QPushButton*> vecButtons;
    for (const Section& section : qAsConst(m_vecSections)) {
        if (section.pButton->isHidden())
            continue;
        vecTops.append(GetTop(section.pWidget));
        vecButtons.append(section.pButton);
    }
    const int nCurrent = GetCurrentSection(vecTops, nValue, m_pArea->verticalScrollBar()->maximum());
    if (nCurrent >= 0)
        Mark(vecButtons[nCurrent]);
}

void CSectionNavigator::Mark(const QPushButton* pButton)
{
    for (const Section& section : qAsConst(m_vecSections))
        section.pButton->setChecked(section.pButton == pButton);
}

QVector<QPushButton*> CSectionNavigator::GetButtons() const
{
    QVector<QPushButton*> vecButtons;
    for (const Section& section : m_vecSections)
        vecButtons.append(section.pButton);
    return vecButtons;
}

QString CSectionNavigator::GetCurrentTitle() const
{
    for (const Section& section : m_vecSections) {
        if (section.pButton->isChecked())
            return section.pButton->text();
    }
    return {};
}

} // namespace BasicInfoManagerUI
