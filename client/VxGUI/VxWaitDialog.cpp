#include <VxGUI/VxWaitDialog.h>

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace VxGUI {

VxWaitDialog::VxWaitDialog(const QString& sText, QWidget* pParent)
    : QDialog(pParent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , m_pText(new QLabel(sText, this))
    , m_pProgress(new QProgressBar(this))
    , m_pCancel(new QPushButton(tr("Cancel"), this))
{
    setObjectName(QStringLiteral("VxWaitDialog"));
    setWindowTitle(tr("Please Wait"));
    setModal(true);
    m_pText->setTextFormat(Qt::PlainText);
    m_pText->setWordWrap(true);
    m_pText->setMinimumWidth(280);
    m_pProgress->setTextVisible(false);
    m_pCancel->setObjectName(QStringLiteral("btnCancel"));
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(24, 20, 24, 20);
    pLayout->setSpacing(12);
    pLayout->addWidget(m_pText);
    pLayout->addWidget(m_pProgress);
    pLayout->addWidget(m_pCancel, 0, Qt::AlignRight);
    connect(m_pCancel, &QPushButton::clicked, this, &VxWaitDialog::reject);
    SetProgress(-1);
    SetCancellable(false);
}

void VxWaitDialog::SetText(const QString& sText)
{
    m_pText->setText(sText);
}

void VxWaitDialog::SetProgress(int nPercent)
{
    m_pProgress->setRange(0, nPercent < 0 ? 0 : 100);
    m_pProgress->setValue(qMax(nPercent, 0));
}

void VxWaitDialog::SetCancellable(bool bCancellable)
{
    m_pCancel->setVisible(bCancellable);
}

void VxWaitDialog::reject()
{
    if (m_pCancel->isHidden())
        return;
    Q_EMIT SignalCancelled();
    QDialog::reject();
}

} // namespace VxGUI
