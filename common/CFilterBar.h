#pragma once

#include <QString>
#include <QVector>
#include <QWidget>

class QActionGroup;
class QMenu;
class QPushButton;

namespace Common {

/// One choice of a filter bar.
struct FilterChoice
{
    int nValue;
    QString sText; ///< translated
    QString sName = QString(); ///< object name of its button; empty: none
};

/// One choice among several, as a row of segments of which one is pressed. What does not fit is in a
/// drop-down at the end, which shows the choice when it is one of them. The arrow keys move the choice.
/// User-interface thread.
class CFilterBar : public QWidget
{
    Q_OBJECT

public:
    /// sName: what is chosen here, translated; for the screen reader.
    explicit CFilterBar(const QString& sName, QWidget* pParent = nullptr);

    /// Replaces the choices. The value in use stays, also when it is none of them any more.
    void SetChoices(const QVector<FilterChoice>& vecChoices);
    /// Hides the choices whose value is not among these; the one in use is always shown.
    void SetOffered(const QVector<int>& vecValues);
    /// Marks the choice in use; emits nothing. No choice is marked for a value that none has.
    void SetValue(int nValue);
    int GetValue() const { return m_nValue; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user chose another value.
    void SignalChosen(int nValue);

protected:
    bool event(QEvent* pEvent) override;
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    bool IsOffered(int nChoice) const;
    void Choose(int nValue);
    void Step(int nBy);
    void OpenMore();
    void UpdateMarks();
    void Arrange();
    int CountInRow() const;
    void ShowInRow(int nInRow);

    QVector<FilterChoice> m_vecChoices;
    QVector<QPushButton*> m_vecButtons; ///< one a choice
    QVector<int> m_vecOffered;
    bool m_bAllOffered = true;
    QPushButton* m_pMore;
    QString m_sMoreIcon; ///< what it has
    QMenu* m_pMenu;
    QActionGroup* m_pGroup; ///< of the menu's choices
    int m_nValue = 0;
    int m_nInRow = 0; ///< choices before the one that the drop-down starts with
    bool m_bArranging = false;
};

} // namespace Common
