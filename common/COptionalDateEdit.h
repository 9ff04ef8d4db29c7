#pragma once

#include <QWidget>

#include <cstdint>
#include <optional>

class QAbstractButton;
class QDateTimeEdit;
class QLabel;

namespace Common {

/// A date, or a date with its time, that may be left open: a box (or switch) that is on when there is one,
/// and the date beside it. User-interface thread.
class COptionalDateEdit : public QWidget
{
    Q_OBJECT

public:
    explicit COptionalDateEdit(QWidget* pParent = nullptr);

    /// What the box says, and the name of both for those who do not see them.
    void SetCaption(const QString& sCaption);
    /// A switch in place of the box, for forms that have switches; once, at first.
    void UseSwitch();
    /// What is shown and can be changed: the day at first.
    enum class Precision
    {
        Day,
        Minute,
        Second
    };
    void SetPrecision(Precision precision);
    /// What an open date becomes when the box is checked; now unless it is said.
    void SetProposal(const QDateTime& proposal) { m_proposal = proposal; }
    void SetReadOnly(bool bReadOnly);

    /// Invalid: left open.
    void SetDate(const QDate& date);
    QDate GetDate() const;
    /// Seconds since 1970, UTC; 0: left open. What is not touched comes back as it was, to the second.
    void SetSeconds(std::int64_t nSeconds);
    std::int64_t GetSeconds() const;

    /// Puts the keyboard where the date is entered.
    void FocusDate();
    /// Shows a message under the date; empty: none. It goes with the next change.
    void SetErrorHint(const QString& sText);

Q_SIGNALS:
    void SignalChanged();

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void SetUpToggle();
    void Show(const std::optional<QDateTime>& optDate);
    void OnChecked(bool bChecked);
    void UpdateEnabled();

    QAbstractButton* m_pCheck;
    QDateTimeEdit* m_pEdit;
    QLabel* m_pOpen; ///< stands in place of an open date
    QLabel* m_pHint;
    QDateTime m_proposal;
    std::int64_t m_nLoaded = 0;
    QDateTime m_shown; ///< how the loaded seconds are shown
    bool m_bReadOnly = false;
};

} // namespace Common
