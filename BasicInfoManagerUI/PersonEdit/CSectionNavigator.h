#pragma once

#include <QVector>
#include <QWidget>

class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace BasicInfoManagerUI {

/// The section that a page shows when it is scrolled to nScroll of at most nMaximum, vecTops being where the
/// sections begin, ascending. -1 without sections.
int GetCurrentSection(const QVector<int>& vecTops, int nScroll, int nMaximum);

/// A strip of buttons beside a scrolling page: each scrolls to its section, and that of the section on show
/// is marked. User-interface thread.
class CSectionNavigator : public QWidget
{
    Q_OBJECT

public:
    explicit CSectionNavigator(QWidget* pParent = nullptr);

    /// The page, borrowed; once, before all else.
    void SetScrollArea(QScrollArea* pArea);
    /// pSection stands in the page, below those that were added before.
    void AddSection(const QString& sTitle, QWidget* pSection);
    void SetSectionShown(QWidget* pSection, bool bShown);
    /// Scrolls to the section.
    void ShowSection(QWidget* pSection);
    /// In the order of their sections.
    QVector<QPushButton*> GetButtons() const;
    /// The title of the marked button.
    QString GetCurrentTitle() const;

private:
    struct Section
    {
        QPushButton* pButton;
        QWidget* pWidget;
    };
    void OnScrolled(int nValue);
    void Mark(const QPushButton* pButton);
    int GetTop(const QWidget* pSection) const;

    QScrollArea* m_pArea = nullptr;
    QVBoxLayout* m_pLayout;
    QVector<Section> m_vecSections;
};

} // namespace BasicInfoManagerUI
