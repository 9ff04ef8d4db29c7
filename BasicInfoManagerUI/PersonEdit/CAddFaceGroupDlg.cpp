#include "CAddFaceGroupDlg.h"

#include "PersonFields.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAddFaceGroupDlg)
};
constexpr int LeastWidth = 380;
} // namespace

CAddFaceGroupDlg::CAddFaceGroupDlg(
    const QString& sTitle, const std::vector<AccessControlLogical::Choice_t>& vecGroups, QWidget* pParent)
    : QDialog(pParent)
    , m_pCombo(new QComboBox(this))
    , m_pHint(new QLabel(this))
{
    setObjectName(QStringLiteral("CAddFaceGroupDlg"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setWindowTitle(sTitle);
    setMinimumWidth(LeastWidth);
    m_pCombo->setObjectName(QStringLiteral("m_pCmbFaceGroup"));
    m_pCombo->setAccessibleName(sTitle);
    for (const AccessControlLogical::Choice_t& group : vecGroups)
        m_pCombo->addItem(QString::fromStdString(group.sName), QString::fromStdString(group.sId));
    m_pCombo->setPlaceholderText(Text::tr("Please select"));
    m_pCombo->setCurrentIndex(-1);
    m_pHint->setObjectName(QStringLiteral("lbHint"));
    m_pHint->setWordWrap(true);
    m_pHint->hide();
    auto* const pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    PersonFields::MakePrimary(pButtons->button(QDialogButtonBox::Ok));
    auto* const pField = new QVBoxLayout;
    pField->setSpacing(2);
    pField->addWidget(m_pCombo);
    pField->addWidget(m_pHint);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(16, 16, 16, 16);
    pLayout->setSpacing(16);
    pLayout->addLayout(pField);
    pLayout->addStretch(1);
    pLayout->addWidget(pButtons);
    connect(m_pCombo, qOverload<int>(&QComboBox::currentIndexChanged), m_pHint, &QWidget::hide);
    connect(pButtons, &QDialogButtonBox::accepted, this, &CAddFaceGroupDlg::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void CAddFaceGroupDlg::accept()
{
    if (m_pCombo->currentIndex() < 0) {
        m_pHint->setText(Text::tr("Please select a face comparison group."));
        m_pHint->show();
        m_pCombo->setFocus();
        return;
    }
    Q_EMIT SignalChosen(m_pCombo->currentData().toString());
    QDialog::accept();
}

} // namespace BasicInfoManagerUI
