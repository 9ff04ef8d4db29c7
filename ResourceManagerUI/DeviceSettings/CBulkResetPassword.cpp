#include "CBulkResetPassword.h"

#include "ui_CBulkResetPassword.h"

#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/RequiredMark.h>
#include <common/Prompt.h>
#include <common/StyleSheet.h>

#include <QKeyEvent>
#include <QPushButton>
#include <QSet>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CBulkResetPassword)
};

/// Devices are worked on one after the other, each with a time-out of its own.
constexpr std::chrono::minutes ReportTimeOut{5};

} // namespace

CBulkResetPassword::CBulkResetPassword(const UICommonMdl::CInterfaceSetManager* pInterfaceSet,
    const QStringList& listDeviceIds, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CBulkResetPassword>())
    , m_session(pInterfaceSet, this)
    , m_calls(pInterfaceSet, this)
{
    for (const QString& sId : listDeviceIds)
        m_vecDeviceIds.push_back(sId.toStdString());
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setMinimumWidth(460);
    m_calls.SetLimit(ReportTimeOut);
    SetUpFields();
    Common::SetButtonRole(m_pUi->buttonBox->button(QDialogButtonBox::Ok), QStringLiteral("primary"));
    connect(m_pUi->buttonBox, &QDialogButtonBox::accepted, this, &CBulkResetPassword::accept);
    connect(m_pUi->buttonBox, &QDialogButtonBox::rejected, this, &CBulkResetPassword::reject);
    connect(
        &m_session, &Common::CSession::SignalConnectionChanged, this, [this] { ShowRunning(m_bRunning); });
    m_pUi->lbFailed->hide();
    m_pUi->listFailed->hide();
    m_pUi->barProgress->hide();
    m_pUi->lbProgress->hide();
    m_pUi->lbConnection->Watch(m_session);
    ShowRunning(false);
    Common::LoadStyleSheet(this, QStringLiteral("ResourceManagerUI/DeviceManager"));
    m_pUi->m_leInputOldPwd->setFocus();
}

CBulkResetPassword::~CBulkResetPassword() = default;

void CBulkResetPassword::SetUpFields()
{
    const QRegularExpression printable(QStringLiteral("[\\x20-\\x7e]*"));
    for (VxGUI::VxLineEdit* const pField :
        {m_pUi->m_leInputOldPwd, m_pUi->m_leInputPwd, m_pUi->m_leConfirmPwd}) {
        QLineEdit* const pEdit = pField->GetLineEdit();
        pField->setPassword(true);
        pField->SetLimit(RemoteConfigLogical::NewPassword);
        VxGUI::MarkRequired(pField);
        pEdit->setAttribute(Qt::WA_InputMethodEnabled, false);
        pEdit->installEventFilter(this);
        if (pField != m_pUi->m_leInputOldPwd)
            pField->SetTyped(printable);
    }
    connect(
        m_pUi->m_leInputPwd, &VxGUI::VxLineEdit::textChanged, this, &CBulkResetPassword::OnPasswordChanged);
    OnPasswordChanged({});
    m_pUi->lbDevices->setText(Text::tr("Devices whose password is changed: %1").arg(m_vecDeviceIds.size()));
}

void CBulkResetPassword::OnPasswordChanged(const QString& sPassword)
{
    m_pUi->m_newTipWidget->SetPassword(sPassword);
}

bool CBulkResetPassword::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pEvent->type() == QEvent::KeyPress) {
        const int nKey = static_cast<QKeyEvent*>(pEvent)->key();
        const bool bLast = pWatched == m_pUi->m_leConfirmPwd->GetLineEdit();
        // Enter goes on to the next field; in the last one it confirms.
        if ((nKey == Qt::Key_Return || nKey == Qt::Key_Enter) && !bLast) {
            focusNextChild();
            return true;
        }
    }
    return QDialog::eventFilter(pWatched, pEvent);
}

bool CBulkResetPassword::CheckFields()
{
    const QString sOld = m_pUi->m_leInputOldPwd->text();
    const QString sNew = m_pUi->m_leInputPwd->text();
    const QString sConfirm = m_pUi->m_leConfirmPwd->text();
    const struct
    {
        bool bFails;
        VxGUI::VxLineEdit* pField;
        QString sMessage;
    } checks[] = {{sOld.isEmpty(), m_pUi->m_leInputOldPwd, Text::tr("Please enter old password")},
        {sNew.isEmpty(), m_pUi->m_leInputPwd, Text::tr("Please enter a new password.")},
        {sConfirm.isEmpty(), m_pUi->m_leConfirmPwd, Text::tr("Please enter confirm password.")},
        {sNew != sConfirm, m_pUi->m_leConfirmPwd, Text::tr("The passwords do not match.")}};
    for (const auto& check : checks)
        check.pField->ClearErrorHint();
    for (const auto& check : checks) {
        if (!check.bFails)
            continue;
        check.pField->SetErrorHint(check.sMessage);
        check.pField->setFocus();
        return false;
    }
    return true;
}

void CBulkResetPassword::accept()
{
    if (m_bRunning || !m_session.IsConnected() || !CheckFields())
        return;
    m_vecResults.clear();
    m_pUi->listFailed->clear();
    m_calls.Each<&RemoteConfigLogical::IRemoteConfigManager::ModifyDevicePassword>(m_vecDeviceIds,
        m_pUi->m_leInputOldPwd->text().toStdString(), m_pUi->m_leInputPwd->text().toStdString(),
        [this](const Param& param) { OnReport(param); });
    ShowRunning(true);
    ShowProgress();
}

void CBulkResetPassword::OnReport(const Param& param)
{
    m_vecResults.insert(m_vecResults.end(), param.vecResults.begin(), param.vecResults.end());
    ShowProgress();
    if (param.bFinal)
        OnFinished(param);
}

void CBulkResetPassword::OnFinished(const Param& param)
{
    ShowRunning(false);
    // Devices that are done have the new password: what is tried again is the rest.
    QSet<QString> setDone;
    for (const auto& result : m_vecResults) {
        if (result.nErrorCode == UICommonMdl::ErrorNone)
            setDone.insert(QString::fromStdString(result.sDeviceId));
    }
    m_vecDeviceIds.erase(
        std::remove_if(m_vecDeviceIds.begin(), m_vecDeviceIds.end(),
            [&](const std::string& sId) { return setDone.contains(QString::fromStdString(sId)); }),
        m_vecDeviceIds.end());
    const bool bAnyFailed = ShowFailures();
    m_pUi->lbProgress->setText(
        Text::tr("Changed: %1. Not changed: %2.").arg(setDone.size()).arg(m_vecDeviceIds.size()));
    m_pUi->m_leInputOldPwd->setFocus();
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        const QString sText =
            Common::FailureText(Text::tr("Failed to modify device password"), param.nErrorCode);
        m_pUi->lbProgress->setText(sText);
        Q_EMIT SignalShowNotify(sText);
    } else if (!bAnyFailed) {
        Q_EMIT SignalShowNotify(Text::tr("The password of the devices was changed."));
        QDialog::accept();
    }
}

bool CBulkResetPassword::ShowFailures()
{
    for (const auto& result : m_vecResults) {
        if (result.nErrorCode == UICommonMdl::ErrorNone)
            continue;
        const std::string& sName = result.sDeviceName.empty() ? result.sDeviceId : result.sDeviceName;
        QString sLine = Text::tr("Device %1").arg(QString::fromStdString(sName)) + QStringLiteral(": ")
            + UICommonMdl::CErrorCode::GetErroCodeInfor(result.nErrorCode);
        if (!result.sDetail.empty())
            sLine += QLatin1Char(' ') + QString::fromStdString(result.sDetail);
        m_pUi->listFailed->addItem(sLine);
    }
    const bool bAny = m_pUi->listFailed->count() > 0;
    m_pUi->lbFailed->setVisible(bAny);
    m_pUi->listFailed->setVisible(bAny);
    return bAny;
}

void CBulkResetPassword::ShowRunning(bool bRunning)
{
    m_bRunning = bRunning;
    for (QWidget* const pField : {m_pUi->m_leInputOldPwd, m_pUi->m_leInputPwd, m_pUi->m_leConfirmPwd})
        pField->setEnabled(!bRunning);
    QPushButton* const pOk = m_pUi->buttonBox->button(QDialogButtonBox::Ok);
    pOk->setEnabled(!bRunning && m_session.IsConnected());
    m_pUi->barProgress->setVisible(bRunning);
    if (!bRunning)
        return;
    m_pUi->lbProgress->show();
    m_pUi->lbFailed->hide();
    m_pUi->listFailed->hide();
}

void CBulkResetPassword::ShowProgress()
{
    const int nTotal = static_cast<int>(m_vecDeviceIds.size());
    const int nDone = static_cast<int>(m_vecResults.size());
    m_pUi->barProgress->setRange(0, nTotal);
    m_pUi->barProgress->setValue(nDone);
    m_pUi->lbProgress->setText(Text::tr("%1 of %2 devices are done.").arg(nDone).arg(nTotal));
}

void CBulkResetPassword::reject()
{
    if (m_bRunning
        && !Common::AskPrompt(this, Text::tr("The passwords are being changed. Are you sure to close it?")))
        return;
    m_calls.ForgetAll();
    QDialog::reject();
}

} // namespace ResourceManagerUI
