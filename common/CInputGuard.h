#pragma once

#include "CPageWork.h"

#include <functional>

class QWidget;

namespace Common {

/// Guards what is entered on a form: who wants to leave it asks here first, whether that is its own Cancel or
/// Back, the way home, another look, signing out or the end of the client. A member of the form.
/// User-interface thread.
class CInputGuard : public CPageWork
{
    Q_OBJECT

public:
    explicit CInputGuard(QWidget* pForm);

    /// Whether something is entered that is not saved.
    void SetDirtyCheck(std::function<bool()> isDirty) { m_isDirty = std::move(isDirty); }
    /// Closes the form without a question, its input being given up.
    void SetClose(std::function<void()> close) { m_close = std::move(close); }
    /// Whether what was entered is being carried out, and what is asked of who leaves meanwhile.
    void SetBusyCheck(std::function<bool()> isBusy, const QString& sQuestion);
    /// In place of the question that all forms ask.
    void SetQuestion(const QString& sQuestion) { m_sQuestion = sQuestion; }

    virtual bool IsDirty() const { return m_isDirty && m_isDirty(); }
    /// Asks when input would be lost; true when there is none or the user gives it up. False also when the
    /// form is gone by then.
    virtual bool MayLeave();
    /// Closes the form when MayLeave allows it.
    bool Leave();

    /// Asks all forms below that hold input; those that are given up are closed. True when nothing keeps
    /// the user.
    static bool LeaveBelow(QWidget* pTop);

    void End() override;

protected:
    QWidget* GetForm() const { return m_pForm; }
    virtual bool IsHoldingInput() const { return IsDirty() || IsBusy(); }
    /// The form was left; it is about to be closed.
    virtual void OnLeft() { }

private:
    bool IsBusy() const { return m_isBusy && m_isBusy(); }

    QWidget* m_pForm;
    std::function<bool()> m_isBusy;
    QString m_sBusyQuestion;
    std::function<bool()> m_isDirty;
    std::function<void()> m_close;
    QString m_sQuestion;
};

} // namespace Common
