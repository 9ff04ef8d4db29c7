#pragma once

#include <QWidget>

class QCheckBox;
class QDateTimeEdit;

namespace BasicInfoManagerUI {

/// A from and a to, or none while it is switched off. User-interface thread.
class CEffectivePeriod : public QWidget
{
    Q_OBJECT

public:
    explicit CEffectivePeriod(QWidget* pParent = nullptr);

    /// Switched off, with a proposal: today, for a year.
    void Reset();
    /// Seconds since 1970, UTC; 0 while it is switched off.
    qint64 GetFrom() const;
    qint64 GetTo() const;
    /// A message when the end is not after the beginning, with the focus there; else empty.
    QString CheckInput();

private:
    void ShowRed(bool bRed);

    QCheckBox* m_pSet;
    QDateTimeEdit* m_pFrom;
    QDateTimeEdit* m_pTo;
};

} // namespace BasicInfoManagerUI
