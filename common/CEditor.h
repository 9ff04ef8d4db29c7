#pragma once

#include "CConflictDlg.h"
#include "CEditorBase.h"
#include "IRecordForm.h"
#include "RecordFields.h"

#include <optional>
#include <utility>

namespace Common {

/// The way of one record through its form: it is loaded, changed, saved, and, when the answer does not say
/// what became of it, looked up. What was entered stays until it is saved or given up. A member of the form.
/// User-interface thread.
template <class R>
class CEditor : public CEditorBase
{
public:
    /// All are borrowed; pForm is the widget of form.
    CEditor(CSession& session, QWidget* pForm, IRecordForm<R>& form)
        : CEditorBase(session, pForm)
        , m_form(form)
    {
    }

    /// What the form changes of the record: filled once, when the form is made.
    RecordFields<R>& Fields() { return m_fields; }

    void BeginNew(const R& record)
    {
        SetPurpose(Purpose::Add);
        Begin(record);
    }
    void BeginEdit(const R& record)
    {
        SetPurpose(Purpose::Modify);
        Begin(record);
    }
    /// Loads the record of that key first; not for a new one.
    void BeginLoad(const R& key, Purpose purpose = Purpose::Modify)
    {
        m_loaded = key;
        SetPurpose(purpose);
        Load();
    }
    void Load() override
    {
        SetState(State::Loading);
        m_form.Fetch(m_loaded, false);
    }
    /// What the form shows now counts as unchanged.
    void TakeAsShown() { m_baseline = m_form.GetEdited(); }

    const R& GetLoaded() const { return m_loaded; }
    /// What was saved last, whether it succeeded or not.
    const R& GetSent() const { return m_sent; }
    bool IsDirty() const override
    {
        return !IsReadOnly() && IsLoaded()
            && (!m_form.GetOtherChange().isEmpty() || !(m_form.GetEdited() == m_baseline));
    }

    void Save()
    {
        if (CanSave() && m_form.CheckInput())
            SendEdited();
    }

    /// The answer to Send; pRecord is the record as it was saved, null when the answer does not have it.
    void OnAnswer(int nErrorCode, const std::string& sDetail, const R* pRecord)
    {
        if (GetState() != State::Saving)
            return;
        m_refusal = {nErrorCode, sDetail};
        if (nErrorCode == UICommonMdl::ErrorNone) {
            Finish(pRecord ? *pRecord : m_sent);
            return;
        }
        m_bDoubt = m_bDoubt || UICommonMdl::IsOutcomeUnknown(nErrorCode);
        // What is taken may have been taken by the save whose answer did not come.
        const bool bOwn = m_bDoubt && IsNew() && IsTaken(nErrorCode);
        if (UICommonMdl::IsOutcomeUnknown(nErrorCode) || nErrorCode == UICommonMdl::ErrorVersionConflict
            || bOwn)
            LookUp();
        else
            Refuse(nErrorCode, sDetail);
    }

    /// The answer to Fetch; pRecord is null when there is none.
    void OnFetched(int nErrorCode, const R* pRecord)
    {
        const bool bGone =
            nErrorCode == UICommonMdl::ErrorNotFound || (nErrorCode == UICommonMdl::ErrorNone && !pRecord);
        if (GetState() == State::Loading)
            OnLoaded(bGone ? int(UICommonMdl::ErrorNotFound) : nErrorCode, pRecord);
        else if (GetState() != State::LookingUp)
            return;
        else if (bGone)
            OnGone();
        else if (nErrorCode != UICommonMdl::ErrorNone)
            SetState(State::Unknown, nErrorCode);
        else
            OnFound(R(*pRecord));
    }

protected:
    void LookUp() override
    {
        SetConflict(!m_bDoubt);
        SetState(State::LookingUp);
        m_form.Fetch(m_sent, IsNew());
    }
    void GoOnToModify() override { BeginEdit(R(m_loaded)); }

private:
    void Begin(const R& record)
    {
        m_loaded = record;
        m_bDoubt = false;
        m_optTheirs.reset();
        SetState(State::Ready);
        m_form.ShowRecord(record);
        TakeAsShown();
        // Only now is the form unchanged.
        Q_EMIT SignalStateChanged();
    }
    void OnLoaded(int nErrorCode, const R* pRecord)
    {
        if (nErrorCode == UICommonMdl::ErrorNone)
            Begin(*pRecord);
        else if (!m_form.OnLoadFailed(nErrorCode))
            SetState(State::LoadFailed, nErrorCode);
    }
    void SendEdited()
    {
        const R edited = m_form.GetEdited();
        m_sent = m_optTheirs ? m_fields.Merge(m_baseline, edited, *m_optTheirs) : edited;
        m_optTheirs.reset();
        SetState(State::Saving);
        m_form.Send(m_sent, IsNew());
    }
    void Finish(const R& record)
    {
        SetSaved();
        m_form.OnSaved(record);
    }
    void Refuse(int nErrorCode, const std::string& sDetail)
    {
        SetState(State::Ready);
        Tell(nErrorCode, sDetail);
    }
    void Tell(int nErrorCode, const std::string& sDetail)
    {
        WhenSeen([this, nErrorCode, sDetail] {
            if (!m_form.ShowRefusal(nErrorCode, sDetail))
                TellFailure(nErrorCode);
        });
    }
    void OnGone()
    {
        if (!IsNew())
            Refuse(UICommonMdl::ErrorNotFound, {});
        else if (IsTaken(m_refusal.first))
            Refuse(m_refusal.first, m_refusal.second);
        else
            NotSaved();
    }
    void NotSaved()
    {
        if (LookAgain())
            return;
        SetNotSaved();
        // That there was no answer is no news any more.
        if (!UICommonMdl::IsOutcomeUnknown(m_refusal.first))
            Tell(m_refusal.first, m_refusal.second);
    }
    void OnFound(const R& found)
    {
        // What the record does not show cannot be compared: without a doubt nobody else has entered the same.
        const bool bAllSeen = !m_fields.HasSecret(m_sent) && m_form.GetOtherChange().isEmpty();
        const bool bOwn = IsNew() ? m_bDoubt : UICommonMdl::IsOutcomeUnknown(m_refusal.first);
        const bool bSame = m_fields.IsSame(m_sent, found) && (bOwn || bAllSeen);
        const bool bUnchanged = !IsNew() && m_bDoubt && found.nVersion == m_sent.nVersion;
        if (bUnchanged) {
            NotSaved();
        } else if (bSame) {
            Finish(found);
        } else if (IsNew()) {
            const auto [nErrorCode, sDetail] = IsTaken(m_refusal.first) ? m_refusal : m_form.GetTaken();
            Refuse(nErrorCode, sDetail);
        } else {
            SetState(State::Ready);
            WhenSeen([this, found] { AskConflict(found); });
        }
    }
    void AskConflict(const R& theirs)
    {
        QVector<Difference> vecDifferences = m_fields.Compare(m_baseline, m_form.GetEdited(), theirs);
        if (!m_form.GetOtherChange().isEmpty())
            vecDifferences.append({m_form.GetOtherChange(), QString(), ChangedText()});
        const QPointer<QWidget> guard(GetForm());
        const auto choice = CConflictDlg::Ask(vecDifferences, GetForm());
        if (!guard || choice == CConflictDlg::Choice::GoOn)
            return;
        if (choice == CConflictDlg::Choice::LoadAgain) {
            Begin(theirs);
            return;
        }
        m_optTheirs = theirs;
        SendEdited();
    }

    IRecordForm<R>& m_form;
    RecordFields<R> m_fields;
    R m_loaded{}; ///< as the server has it
    R m_baseline{}; ///< the same as the form shows it
    R m_sent{};
    std::optional<R> m_optTheirs; ///< what is saved over, once the operator has said so
    std::pair<int, std::string> m_refusal; ///< why the last save did not succeed: code and detail
    bool m_bDoubt = false; ///< a save of this record was not answered
};

} // namespace Common
