#pragma once

#include <common/CCalls.h>
#include <common/CInputGuard.h>
#include <common/CSession.h>

#include <QTimer>
#include <QWidget>

#include <memory>

namespace Ui {
class CBatchIssueCard;
}

namespace BasicInfoManagerUI {

class CIssueCardModel;

/// The page "Issue Card": one more card for each of several persons. User-interface thread.
class CBatchIssueCard : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the page.
    explicit CBatchIssueCard(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CBatchIssueCard() override;

    /// Starts anew with these persons; shown by the caller.
    void SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons);
    /// Numbers were entered and are not saved.
    bool IsDirty() const;
    /// Goes back (SignalBack); asks first when numbers would be lost. Not while they are being saved.
    void Leave();

Q_SIGNALS:
    /// The user is done: bIssued when cards were issued, so that lists are old. The reader is let go.
    void SignalBack(bool bIssued);

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    using Param = AccessControlLogical::IPersonManagerObserver::Param;
    void SetUpTable();
    void RemovePerson(int nRow);
    void OnCardRead(const QString& sCardNo);
    void GoToNextRow();
    /// The row that is being read into; -1: none.
    int CurrentRow() const;
    void SelectRow(int nRow);
    void Save();
    bool CheckInput();
    void OnIssued(const Param& param);
    void ShowClashes(const Param& param);
    void Finish(bool bIssued);
    void ShowState();

    std::unique_ptr<Ui::CBatchIssueCard> m_pUi;
    CIssueCardModel* m_pModel;
    bool m_bSaving = false;
    QTimer m_nextTimer;
    Common::CSession m_session;
    Common::CCalls<AccessControlLogical::IPersonManagerObserver> m_calls;
    Common::CInputGuard m_guard;
};

} // namespace BasicInfoManagerUI
