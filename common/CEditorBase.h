#pragma once

#include "CInputGuard.h"
#include "CSession.h"

#include <QHash>
#include <QPointer>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <chrono>

class QLabel;
class QPushButton;
class QStackedWidget;
namespace VxGUI {
class VxEmptyState;
}

namespace Common {

class CSaveNotice;

/// Where the record of an editor stands, and what the operator is told of it; CEditor knows the record.
/// User-interface thread.
class CEditorBase : public CInputGuard
{
    Q_OBJECT

public:
    enum class State
    {
        Closed, ///< nothing was begun yet, or it is done
        Loading,
        LoadFailed,
        Ready, ///< the record is shown and can be changed
        Saving,
        LookingUp, ///< the answer to a save did not say what became of it: the record is asked for
        Unknown ///< that was not answered either
    };
    enum class Purpose
    {
        Add,
        Modify,
        Details, ///< shown; a button goes on to modifying it
        ReadOnly ///< shown
    };
    /// What the operator reads of the form as a whole.
    struct FormTexts
    {
        QString sAddTitle = {};
        QString sModifyTitle = {};
        QString sDetailsTitle = {};
        QString sAdded = {}; ///< empty: the form tells it, with more than these words
        QString sModified = {};
        QString sAddFailed = {};
        QString sModifyFailed = {};
        QString sNoRight = {}; ///< why nothing can be changed
    };
    /// The widgets that all forms have; all are borrowed, and none has to be there.
    struct Controls
    {
        QPushButton* pSave = nullptr;
        QPushButton* pSaveAndGoOn = nullptr; ///< of a new record
        QPushButton* pEdit = nullptr; ///< from the details to modifying it, where pSave is hidden
        QLabel* pTitle = nullptr;
        QVector<QWidget*> vecInput = {}; ///< what must not change while a save is not settled
    };
    struct LoadTexts
    {
        QString sLoading;
        QString sFailed;
        QString sNoRight;
    };

    State GetState() const { return m_state; }
    Purpose GetPurpose() const { return m_purpose; }
    bool IsNew() const { return m_purpose == Purpose::Add; }
    bool IsReadOnly() const { return m_purpose == Purpose::Details || m_purpose == Purpose::ReadOnly; }
    bool IsLoaded() const { return m_state == State::Ready || IsUnsettled(); }
    /// A save is under way, or it is not known what became of it.
    bool IsUnsettled() const { return m_state >= State::Saving; }
    bool CanSave() const { return !IsReadOnly() && m_state == State::Ready && GetObstacle().isEmpty(); }

    /// pszRight is what the user needs to change records (a constant).
    void SetForm(const Controls& controls, const FormTexts& texts, const char* pszRight);
    /// Where it is told that a save takes its time, or that its outcome is not known (borrowed).
    void SetNotice(CSaveNotice* pNotice);
    /// pStack shows pState (both borrowed) until the record is there, then pFields.
    void SetLoadView(
        QStackedWidget* pStack, VxGUI::VxEmptyState* pState, QWidget* pFields, const LoadTexts& texts);

    /// How long the server is given to do what it may still have before it, before a second look decides that
    /// nothing was saved.
    void SetSecondLook(std::chrono::milliseconds delay) { m_lookTimer.setInterval(delay); }

    bool MayLeave() override;
    void End() override;

    /// Notifies where the form was that the record is saved.
    void TellSaved(const QString& sText);
    /// Notifies that the record was not saved, and why; sWhich names what of it was refused.
    void TellFailure(int nErrorCode, const QString& sWhich = {});

Q_SIGNALS:
    /// The state or the purpose is another one, the connection was lost or is back, or the rights changed.
    void SignalStateChanged();

protected:
    /// session is borrowed.
    CEditorBase(CSession& session, QWidget* pForm);

    void SetState(State state, int nErrorCode = 0);
    /// Done: the record is on the server, and that is told.
    void SetSaved();
    /// The look that comes next is for a save that is known to be refused.
    void SetConflict(bool bConflict) { m_bConflict = bConflict; }
    void SetPurpose(Purpose purpose);
    /// The record that is shown can be changed from now on.
    virtual void GoOnToModify() = 0;
    /// Asks for the record of the editor.
    virtual void Load() = 0;
    /// Asks for the record to see whether it was saved.
    virtual void LookUp() = 0;
    bool IsHoldingInput() const override { return IsDirty() || IsUnsettled(); }
    void OnLeft() override { SetState(State::Closed); }
    /// Something of the new record is there already.
    static bool IsTaken(int nErrorCode);
    /// Runs it now or, while the page of the form is hidden, when that is shown; not at all once the record
    /// is no longer in the form.
    void WhenSeen(std::function<void()> act);
    /// What stands for something that was entered and has no text.
    static QString ChangedText();
    /// Nothing is saved so far: looks again in a while. False when that was the second look.
    bool LookAgain();
    /// Back to the form: it is known that nothing was saved.
    void SetNotSaved();

private:
    void OnConnectionChanged(bool bConnected);
    void OnRightsChanged();
    /// Why nothing can be changed now; empty: nothing is in the way.
    QString GetObstacle() const;
    void UpdateControls();
    void UpdateButton(QPushButton* pButton, bool bShown);
    void ShowLoadState(int nErrorCode);
    void ShowNotice(int nErrorCode);

    CSession& m_session;
    State m_state = State::Closed;
    Purpose m_purpose = Purpose::Add;
    Controls m_controls;
    FormTexts m_formTexts;
    const char* m_pszRight = nullptr; ///< null: none is needed
    QHash<QPushButton*, QString> m_mapToolTips; ///< those of buttons that can be pressed
    bool m_bNotSaved = false; ///< that is what the last look has shown
    bool m_bConflict = false; ///< the last look is for a save that was refused
    QPointer<CSaveNotice> m_pNotice;
    QPointer<QStackedWidget> m_pStack;
    QPointer<VxGUI::VxEmptyState> m_pLoadState;
    QPointer<QWidget> m_pFields;
    QPointer<QWidget> m_pFocusBefore; ///< had the focus when the save began
    LoadTexts m_texts;
    QTimer m_noticeTimer;
    QTimer m_lookTimer;
    bool m_bLookedOnce = false;
};

} // namespace Common
