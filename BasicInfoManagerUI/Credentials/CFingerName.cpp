#include "CFingerName.h"

#include "ui_CFingerName.h"

#include <VxGUI/RequiredMark.h>
#include <common/StyleSheet.h>

#include <QLineEdit>
#include <QPushButton>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CFingerName)
};
} // namespace

CFingerName::CFingerName(const CredentialRules::Fingerprints& vecFingerprints, int nIndex, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CFingerName>())
    , m_vecFingerprints(vecFingerprints)
    , m_nIndex(nIndex)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setMinimumWidth(400);
    Common::SetButtonRole(m_pUi->buttonBox->button(QDialogButtonBox::Ok), QStringLiteral("primary"));
    connect(m_pUi->buttonBox, &QDialogButtonBox::accepted, this, &CFingerName::accept);
    connect(m_pUi->buttonBox, &QDialogButtonBox::rejected, this, &CFingerName::reject);
    m_pUi->m_pEditFingerName->SetRule(AccessControlLogical::FingerprintName,
        Text::tr("Fingerprint name cannot exceed %1 characters."),
        Text::tr("Special characters < and > are not allowed."));
    VxGUI::MarkRequired(m_pUi->m_pEditFingerName);
    m_pUi->m_pEditFingerName->setText(nIndex < 0
            ? CredentialRules::GetDefaultFingerName(vecFingerprints)
            : QString::fromStdString(vecFingerprints[std::size_t(nIndex)].sName));
    Common::LoadStyleSheet(this, QStringLiteral("BasicInfoManagerUI/Personnel"));
    m_pUi->m_pEditFingerName->GetLineEdit()->selectAll();
    m_pUi->m_pEditFingerName->setFocus();
}

CFingerName::~CFingerName() = default;

void CFingerName::accept()
{
    VxGUI::VxLineEdit* const pField = m_pUi->m_pEditFingerName;
    QString sFailure = CredentialRules::CheckFingerName(m_vecFingerprints, pField->text(), m_nIndex);
    if (sFailure.isEmpty())
        sFailure = pField->CheckInput();
    if (!sFailure.isEmpty()) {
        pField->SetErrorHint(sFailure);
        pField->setFocus();
        return;
    }
    const QString sName = pField->text().trimmed();
    QDialog::accept();
    Q_EMIT SignalNamed(sName);
}

} // namespace BasicInfoManagerUI
