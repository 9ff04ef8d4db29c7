#pragma once

#include "CInputGuard.h"
#include "CSession.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>

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
    struct LoadTexts
    {
        QString sLoading;
        QString sFailed;
        QString sNoRight;
    };

    State GetState() const { return m_state; }
    bool IsLoaded() const { return m_state == State::Ready || IsSaving(); }
    /// A save is under way, or it is not known what became of it.
    bool IsSaving() const { return m_state >= State::Saving; }
    bool CanSave() const { return m_state == State::Ready && m_session.IsConnected(); }

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

Q_SIGNALS:
    /// The state is another one, or the connection was lost or is back.
    void SignalStateChanged();

protected:
    /// session is borrowed.
    CEditorBase(CSession& session, QWidget* pForm);

    void SetState(State state, int nErrorCode = 0);
    /// Asks for the record of the editor.
    virtual void Load() = 0;
    /// Asks for the record to see whether it was saved.
    virtual void LookUp() = 0;
    bool IsHoldingInput() const override { return IsDirty() || IsSaving(); }
    void OnLeft() override { SetState(State::Closed); }
    /// After an answer of that code the server may have saved all the same.
    static bool IsDoubtful(int nErrorCode);
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
    void ShowLoadState(int nErrorCode);
    void ShowNotice(int nErrorCode);

    CSession& m_session;
    State m_state = State::Closed;
    bool m_bNotSaved = false; ///< that is what the last look has shown
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
