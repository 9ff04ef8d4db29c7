#include "CEditorBase.h"

#include "CPage.h"
#include "CSaveNotice.h"
#include "Prompt.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxEmptyState.h>
#include <VxGUI/VxNotification.h>

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CEditorBase)
};

/// A save that is answered sooner is not worth a word.
constexpr int NoticeDelayMs = 500;
constexpr std::chrono::milliseconds SecondLook{2000};

} // namespace

CEditorBase::CEditorBase(CSession& session, QWidget* pForm)
    : CInputGuard(pForm)
    , m_session(session)
{
    m_noticeTimer.setSingleShot(true);
    m_noticeTimer.setInterval(NoticeDelayMs);
    connect(&m_noticeTimer, &QTimer::timeout, this, [this] { ShowNotice(UICommonMdl::ErrorNone); });
    m_lookTimer.setSingleShot(true);
    m_lookTimer.setInterval(SecondLook);
    connect(&m_lookTimer, &QTimer::timeout, this, [this] { LookUp(); });
    connect(&session, &CSession::SignalConnectionChanged, this, &CEditorBase::OnConnectionChanged);
    connect(&session, &CSession::SignalRightsChanged, this, &CEditorBase::OnRightsChanged);
    connect(this, &CEditorBase::SignalStateChanged, this, &CEditorBase::UpdateControls);
}

void CEditorBase::SetForm(const Controls& controls, const FormTexts& texts, const char* pszRight)
{
    m_controls = controls;
    m_formTexts = texts;
    m_pszRight = pszRight;
    for (QPushButton* const pButton : {controls.pSave, controls.pSaveAndGoOn, controls.pEdit}) {
        if (pButton)
            m_mapToolTips.insert(pButton, pButton->toolTip());
    }
    if (controls.pEdit) {
        connect(controls.pEdit, &QAbstractButton::clicked, this, [this] {
            if (m_purpose == Purpose::Details && m_state == State::Ready && GetObstacle().isEmpty())
                GoOnToModify();
        });
    }
    UpdateControls();
}

void CEditorBase::SetNotice(CSaveNotice* pNotice)
{
    m_pNotice = pNotice;
    connect(pNotice, &CSaveNotice::SignalLookAgain, this, [this] {
        if (m_state == State::Unknown)
            LookUp();
    });
}

void CEditorBase::SetLoadView(
    QStackedWidget* pStack, VxGUI::VxEmptyState* pState, QWidget* pFields, const LoadTexts& texts)
{
    m_pStack = pStack;
    m_pLoadState = pState;
    m_pFields = pFields;
    m_texts = texts;
    connect(pState, &VxGUI::VxEmptyState::SignalAction, this, [this] { Load(); });
}

bool CEditorBase::MayLeave()
{
    if (!IsUnsettled() || (m_bConflict && m_state != State::Saving))
        return CInputGuard::MayLeave();
    const QPointer<CEditorBase> guard(this);
    // The question goes when it has become known meanwhile.
    const QPointer<QWidget> pAsker(new QWidget(GetForm()));
    connect(this, &CEditorBase::SignalStateChanged, pAsker, [this, pAsker] {
        if (!IsUnsettled())
            pAsker->deleteLater();
    });
    const bool bLeave =
        AskPrompt(pAsker, Text::tr("It is not known yet whether this is saved. Are you sure to leave?"));
    if (!guard)
        return false;
    delete pAsker;
    return bLeave || (!IsUnsettled() && CInputGuard::MayLeave());
}

void CEditorBase::End()
{
    m_noticeTimer.stop();
    m_lookTimer.stop();
    CInputGuard::End();
}

bool CEditorBase::IsTaken(int nErrorCode)
{
    return nErrorCode == UICommonMdl::ErrorNameExists || nErrorCode == UICommonMdl::ErrorAddressExists
        || nErrorCode == UICommonMdl::ErrorSerialNumberExists
        || nErrorCode == UICommonMdl::ErrorRegisterIdExists
        || nErrorCode == UICommonMdl::ErrorPersonDuplicate;
}

void CEditorBase::SetState(State state, int nErrorCode)
{
    const bool bWasUnsettled = IsUnsettled();
    m_state = state;
    m_bNotSaved = false;
    m_lookTimer.stop();
    if (state != State::LookingUp)
        m_bLookedOnce = false;
    if (IsUnsettled() && !bWasUnsettled)
        m_pFocusBefore = GetForm()->focusWidget();
    if (state == State::Saving)
        m_noticeTimer.start();
    else
        ShowNotice(nErrorCode);
    ShowLoadState(nErrorCode);
    Q_EMIT SignalStateChanged();
    // What was disabled for the save has lost the focus.
    if (bWasUnsettled && !IsUnsettled() && m_pFocusBefore)
        m_pFocusBefore->setFocus();
}

void CEditorBase::SetPurpose(Purpose purpose)
{
    m_purpose = purpose;
    Q_EMIT SignalStateChanged();
}

QString CEditorBase::GetObstacle() const
{
    if (!m_session.IsConnected())
        return NoConnectionText();
    return m_pszRight && !m_session.HasRight(m_pszRight) ? m_formTexts.sNoRight : QString();
}

void CEditorBase::UpdateControls()
{
    const QString sTitle = IsNew() ? m_formTexts.sAddTitle
        : IsReadOnly()             ? m_formTexts.sDetailsTitle
                                   : m_formTexts.sModifyTitle;
    if (!sTitle.isEmpty())
        GetForm()->setWindowTitle(sTitle);
    if (m_controls.pTitle)
        m_controls.pTitle->setText(sTitle);
    UpdateButton(m_controls.pSave, !IsReadOnly());
    UpdateButton(m_controls.pSaveAndGoOn, IsNew());
    UpdateButton(m_controls.pEdit, m_purpose == Purpose::Details);
    for (QWidget* const pInput : qAsConst(m_controls.vecInput))
        pInput->setEnabled(!IsUnsettled());
    if (m_pLoadState)
        m_pLoadState->setEnabled(m_session.IsConnected());
}

void CEditorBase::UpdateButton(QPushButton* pButton, bool bShown)
{
    if (!pButton)
        return;
    // Without details the button is always there, unless a form of several steps hides it.
    if (m_controls.pEdit || pButton == m_controls.pSaveAndGoOn)
        pButton->setVisible(bShown);
    const QString sObstacle = GetObstacle();
    pButton->setEnabled(m_state == State::Ready && sObstacle.isEmpty());
    pButton->setToolTip(sObstacle.isEmpty() ? m_mapToolTips.value(pButton) : sObstacle);
}

void CEditorBase::SetSaved()
{
    SetState(State::Closed);
    TellSaved(IsNew() ? m_formTexts.sAdded : m_formTexts.sModified);
}

void CEditorBase::TellSaved(const QString& sText)
{
    QWidget* const pForm = GetForm();
    if (!sText.isEmpty() && pForm->isVisible())
        VxGUI::VxNotification::Show(
            pForm->isWindow() && pForm->parentWidget() ? pForm->parentWidget() : pForm, sText,
            VxGUI::NotificationKind::Success);
}

void CEditorBase::TellFailure(int nErrorCode, const QString& sWhich)
{
    const QString sText =
        FailureText(IsNew() ? m_formTexts.sAddFailed : m_formTexts.sModifyFailed, nErrorCode);
    VxGUI::VxNotification::Show(
        GetForm(), sWhich.isEmpty() ? sText : sText + QStringLiteral(" (%1)").arg(sWhich));
}

void CEditorBase::ShowLoadState(int nErrorCode)
{
    using Kind = VxGUI::VxEmptyState::Kind;
    if (!m_pStack || !m_pLoadState)
        return;
    if (m_state == State::Closed)
        return;
    if (IsLoaded()) {
        if (m_pStack->currentWidget() == m_pLoadState)
            m_pStack->setCurrentWidget(m_pFields);
        return;
    }
    if (m_state == State::Loading)
        m_pLoadState->SetState(Kind::Loading, m_texts.sLoading);
    else if (nErrorCode == UICommonMdl::ErrorNoRight)
        m_pLoadState->SetState(Kind::NoPermission, m_texts.sNoRight);
    else
        m_pLoadState->SetState(Kind::Failed, m_texts.sFailed,
            UICommonMdl::CErrorCode::GetErroCodeInfor(nErrorCode), Text::tr("Refresh"));
    m_pStack->setCurrentWidget(m_pLoadState);
    if (m_state == State::LoadFailed && GetForm()->isVisible())
        VxGUI::VxNotification::Show(GetForm(), FailureText(m_texts.sFailed, nErrorCode));
}

void CEditorBase::ShowNotice(int nErrorCode)
{
    m_noticeTimer.stop();
    if (!m_pNotice)
        return;
    const QString sUnknown = m_bConflict ? Text::tr("Somebody else has changed this in the meantime.")
                                         : Text::tr("It is not known whether this was saved.");
    switch (m_state) {
    case State::Saving:
        m_pNotice->SetText(Text::tr("Saving..."));
        break;
    case State::LookingUp:
        m_pNotice->SetText(
            sUnknown + QLatin1Char(' ') + (m_bConflict ? Text::tr("Comparing...") : Text::tr("Checking...")));
        break;
    case State::Unknown:
        if (m_session.IsConnected())
            m_pNotice->SetText(FailureText(sUnknown, nErrorCode), true);
        else
            m_pNotice->SetText(
                sUnknown + QLatin1Char(' ') + Text::tr("It will be checked as soon as the server is back."));
        break;
    case State::Ready:
        // That the connection is lost is told beside.
        if (!IsReadOnly() && m_session.IsConnected() && !GetObstacle().isEmpty())
            m_pNotice->SetText(GetObstacle());
        else
            m_pNotice->SetText(
                m_bNotSaved ? Text::tr("This was not saved. What you entered is kept.") : QString());
        break;
    default:
        m_pNotice->SetText({});
    }
}

void CEditorBase::WhenSeen(std::function<void()> act)
{
    const QPointer<CEditorBase> guard(this);
    CPage::WhenShownAt(GetForm(), [guard, act = std::move(act)] {
        if (guard && guard->GetState() == State::Ready)
            act();
    });
}

QString CEditorBase::ChangedText()
{
    return Text::tr("(changed)");
}

bool CEditorBase::LookAgain()
{
    if (m_bLookedOnce)
        return false;
    m_bLookedOnce = true;
    m_lookTimer.start();
    return true;
}

void CEditorBase::SetNotSaved()
{
    SetState(State::Ready);
    m_bNotSaved = true;
    ShowNotice(UICommonMdl::ErrorNone);
}

void CEditorBase::OnConnectionChanged(bool bConnected)
{
    if (m_state == State::Unknown && bConnected)
        LookUp();
    else if (m_state == State::Unknown)
        ShowNotice(UICommonMdl::ErrorDisconnected);
    else if (m_state == State::LoadFailed && bConnected && GetForm()->isVisible())
        Load();
    else if (m_state == State::Ready)
        ShowNotice(UICommonMdl::ErrorNone);
    Q_EMIT SignalStateChanged();
}

void CEditorBase::OnRightsChanged()
{
    if (m_state == State::Ready)
        ShowNotice(UICommonMdl::ErrorNone);
    Q_EMIT SignalStateChanged();
}

} // namespace Common
