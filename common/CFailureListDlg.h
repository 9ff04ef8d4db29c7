#pragma once

#include "Failure.h"

#include <QDialog>

class QTreeView;

namespace Common {

/// Lists what failed in a batch: a text, a table that scrolls, "Copy" and "Close". User-interface thread.
class CFailureListDlg : public QDialog
{
    Q_OBJECT

public:
    /// What is told twice is shown once.
    CFailureListDlg(const QString& sText, const QVector<Failure>& vecFailures, QWidget* pParent = nullptr);

    /// As "Copy" puts them into the clipboard.
    QString GetLines() const { return Common::GetLines(m_vecFailures); }

private:
    QSize FittingSize() const;

    QVector<Failure> m_vecFailures;
    QTreeView* m_pTable;
};

} // namespace Common
