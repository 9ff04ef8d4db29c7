#pragma once

#include "CChoiceDlg.h"

#include <AccessControlLogical/PersonRecords.h>

#include <QPointer>
#include <QWidget>

class QPushButton;
namespace Common {
class CChosenTable;
}

namespace BasicInfoManagerUI {

/// Rows of an adder over groups that have a name alone.
QVector<ChoiceRow> MakeChoiceRows(const std::vector<AccessControlLogical::Choice_t>& vecChoices);

/// Permissions of a kind that a person has, and the adder that offers the others. What was chosen and no
/// longer exists is shown by its id. User-interface thread.
class CPermissionList : public QWidget
{
    Q_OBJECT

public:
    explicit CPermissionList(QWidget* pParent = nullptr);

    /// Headers, what stands there when nothing is chosen, and the caption of the button, which is the
    /// adder's title too. Once, before all else.
    void SetUp(const QStringList& listHeaders, const QString& sEmptyText, const QString& sAddText);
    /// What there is to choose from.
    void SetChoices(const QVector<ChoiceRow>& vecChoices);
    void SetIds(const QStringList& listIds);
    QStringList GetIds() const;
    void SetReadOnly(bool bReadOnly);
    QPushButton* GetAddButton() const { return m_pAdd; }

    /// Lets the user choose what is added.
    void OpenAdder();

Q_SIGNALS:
    /// The button was pressed.
    void SignalAdd();
    void SignalChanged();

private:
    QStringList m_listHeaders;
    Common::CChosenTable* m_pTable;
    QPushButton* m_pAdd;
    QVector<ChoiceRow> m_vecChoices;
    QPointer<CChoiceDlg> m_pAdder;
};

} // namespace BasicInfoManagerUI
