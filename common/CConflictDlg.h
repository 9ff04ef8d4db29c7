#pragma once

#include "RecordFields.h"

#include <QDialog>

namespace Common {

/// Somebody else changed the record that is being saved: shows what differs, and what can be done about it.
/// User-interface thread.
class CConflictDlg : public QDialog
{
    Q_OBJECT

public:
    enum class Choice
    {
        GoOn, ///< back to the form, as it is
        LoadAgain, ///< the record as it is now; the input is given up
        SaveMine ///< what the operator changed, over theirs
    };

    CConflictDlg(const QVector<Difference>& vecDifferences, QWidget* pParent);

    /// Shows it until it is answered; GoOn also when pParent is gone by then.
    static Choice Ask(const QVector<Difference>& vecDifferences, QWidget* pParent);

private:
    void Choose(Choice choice);

    Choice m_choice = Choice::GoOn;
};

} // namespace Common
