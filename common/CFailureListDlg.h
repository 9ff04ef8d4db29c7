#pragma once

#include <QDialog>
#include <QVector>

class QTreeView;

namespace Common {

/// What failed in a batch, and why.
struct Failure
{
    QString sName;
    QString sReason;
};

/// Lists what failed in a batch: a text, a table that scrolls, "Copy" and "Close". User-interface thread.
class CFailureListDlg : public QDialog
{
    Q_OBJECT

public:
    /// What is told twice is shown once.
    CFailureListDlg(const QString& sText, const QVector<Failure>& vecFailures, QWidget* pParent = nullptr);

    /// One line a failure, "name: reason"; as "Copy" puts it into the clipboard.
    QString GetLines() const;

private:
    QSize FittingSize() const;

    QVector<Failure> m_vecFailures;
    QTreeView* m_pTable;
};

} // namespace Common
