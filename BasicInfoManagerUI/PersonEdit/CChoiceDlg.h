#pragma once

#include <QDialog>
#include <QStringList>
#include <QVector>

class QLabel;
class QPushButton;
class QSortFilterProxyModel;
class QTreeView;
namespace Common {
class CTableModel;
}

namespace BasicInfoManagerUI {

/// One row that can be chosen.
struct ChoiceRow
{
    QString sId;
    QStringList listTexts; ///< one a column
};

/// Lets the user check some of the rows, which a search field narrows. What was chosen before does not stand
/// there. Deletes itself when it is closed. User-interface thread.
class CChoiceDlg : public QDialog
{
    Q_OBJECT

public:
    CChoiceDlg(const QString& sTitle, const QStringList& listHeaders, const QVector<ChoiceRow>& vecRows,
        QWidget* pParent);

Q_SIGNALS:
    /// The user confirmed these, in the order of the rows; at least one.
    void SignalChosen(const QStringList& listIds);

private:
    void SetUpView(int nColumns);
    void OnSearchChanged(const QString& sText);
    void UpdateState();
    void OnAccepted();

    Common::CTableModel* m_pModel;
    QSortFilterProxyModel* m_pProxy;
    QTreeView* m_pView;
    QLabel* m_pEmpty;
    QLabel* m_pCount;
    QPushButton* m_pOk = nullptr;
};

} // namespace BasicInfoManagerUI
