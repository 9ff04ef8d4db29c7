#pragma once

#include "CredentialRules.h"

#include <QWidget>

#include <memory>

class QAction;
namespace Common {
class CTableModel;
}
namespace Ui {
class CIssueCard;
}
namespace UICommonMdl {
class ILocalConfig;
}

namespace BasicInfoManagerUI {

/// The cards of one person: adds, changes, marks and deletes them. User-interface thread.
class CIssueCard : public QWidget
{
    Q_OBJECT

public:
    explicit CIssueCard(QWidget* pParent = nullptr);
    ~CIssueCard() override;

    /// Where the choice of the reader is kept (borrowed).
    void SetConfig(UICommonMdl::ILocalConfig* pConfig);
    /// Shows these cards; what was being entered is dropped, the reader let go. Emits nothing.
    void SetCards(const CredentialRules::Cards& vecCards);
    const CredentialRules::Cards& GetCards() const { return m_vecCards; }
    /// A number that stands in the field is confirmed; the message, now at the field, when it cannot be.
    QString CheckInput();
    /// Marks the cards that are other persons' (several calls: the last one counts).
    void ShowClashes(const QStringList& listCardNos);
    void SetReadOnly(bool bReadOnly);

Q_SIGNALS:
    void SignalChanged();

private:
    enum Action : int
    {
        ActionMain = 1,
        ActionDuress,
        ActionLock,
        ActionUnlock,
        ActionChange,
        ActionDelete
    };
    void SetUpField();
    void SetUpTable();
    void AddRowAction(int nAction, const QString& sText, const QKeySequence& shortcut = {});
    bool IsOffered(int nCard, int nAction) const;
    void OnAction(const QString& sCardNo, int nAction);
    bool AskMark(bool bSet, const QString& sSetQuestion, const QString& sCancelQuestion);
    void OnCardRead(const QString& sCardNo);
    /// Takes the number in the field; false when it cannot be.
    bool Confirm();
    void StartChange(const QString& sCardNo);
    void EndChange();
    void SetHint(const QString& sText);
    void Rebuild();
    void OnCardsChanged();

    std::unique_ptr<Ui::CIssueCard> m_pUi;
    Common::CTableModel* m_pModel;
    QVector<QAction*> m_vecActions; ///< of the table's menu; the data of each is its Action
    CredentialRules::Cards m_vecCards;
    QString m_sChanged; ///< number of the card that is being changed; empty: a new one is entered
    QStringList m_listClashes;
    bool m_bReadOnly = false;
};

} // namespace BasicInfoManagerUI
