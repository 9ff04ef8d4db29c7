#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QDialog>

class QComboBox;
class QLabel;

namespace BasicInfoManagerUI {

/// Asks for one face comparison group. Deletes itself when it is closed. User-interface thread.
class CAddFaceGroupDlg : public QDialog
{
    Q_OBJECT

public:
    /// sTitle also names the button that opens it.
    CAddFaceGroupDlg(const QString& sTitle, const std::vector<AccessControlLogical::Choice_t>& vecGroups,
        QWidget* pParent);

    void accept() override;

Q_SIGNALS:
    void SignalChosen(const QString& sId);

private:
    QComboBox* m_pCombo;
    QLabel* m_pHint;
};

} // namespace BasicInfoManagerUI
