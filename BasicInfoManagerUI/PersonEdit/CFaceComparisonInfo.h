#pragma once

#include "CPersonSection.h"

#include <QPointer>

#include <memory>

namespace Ui {
class CFaceComparisonInfo;
}

namespace BasicInfoManagerUI {

class CAddFaceGroupDlg;

/// The section "Face Comparison". User-interface thread.
class CFaceComparisonInfo : public CPersonSection
{
    Q_OBJECT

public:
    explicit CFaceComparisonInfo(QWidget* pParent = nullptr);
    ~CFaceComparisonInfo() override;

    QString GetTitle() const override;
    void SetPerson(const AccessControlLogical::Person_t& person) override;
    void FillPerson(AccessControlLogical::Person_t& person) const override;
    void SetReadOnly(bool bReadOnly) override;
    void SetChoices(const std::vector<AccessControlLogical::Choice_t>& vecGroups);
    /// Lets the user choose a group.
    void OpenAdder();

Q_SIGNALS:
    /// The button was pressed.
    void SignalAddFaceLibrary();

private:
    std::vector<AccessControlLogical::Choice_t> m_vecGroups;
    QPointer<CAddFaceGroupDlg> m_pAdder;
    std::unique_ptr<Ui::CFaceComparisonInfo> m_pUi;
};

} // namespace BasicInfoManagerUI
