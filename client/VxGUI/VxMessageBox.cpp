#include <VxGUI/VxMessageBox.h>

#include <Trv/QSkin.h>
#include <VxGUI/VxDialogService.h>

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>

namespace VxGUI {

namespace {
constexpr int MaxTextWidth = 420;
constexpr int DetailsHeight = 160;
} // namespace

VxMessageBox::VxMessageBox(
    QWidget* pParent, Kind kind, const QString& sTitle, const QString& sText, const QString& sDetails)
    : QDialog(pParent)
{
    setObjectName(QStringLiteral("VxMessageBox"));
    setWindowTitle(sTitle);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    const bool bQuestion = kind == Kind::Question;
    auto* pLayout = new QGridLayout(this);
    pLayout->setContentsMargins(24, 24, 24, 20);
    pLayout->setHorizontalSpacing(16);
    pLayout->setVerticalSpacing(16);
    auto* pIcon = new QLabel(this);
    pIcon->setPixmap(Trv::GetIcon(bQuestion ? QStringLiteral("question") : QStringLiteral("information"))
                         .pixmap(QSize(32, 32)));
    pLayout->addWidget(pIcon, 0, 0, Qt::AlignTop);
    auto* pText = new QLabel(sText, this);
    pText->setObjectName(QStringLiteral("lbText"));
    pText->setTextFormat(Qt::PlainText);
    pText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    pText->setWordWrap(true);
    pText->setMinimumWidth(qMin(MaxTextWidth, pText->fontMetrics().horizontalAdvance(sText) + 8));
    pLayout->addWidget(pText, 0, 1, Qt::AlignVCenter);
    pLayout->setColumnStretch(1, 1);
    if (!sDetails.isEmpty()) {
        auto* pDetails = new QPlainTextEdit(sDetails, this);
        pDetails->setObjectName(QStringLiteral("edtDetails"));
        pDetails->setReadOnly(true);
        pDetails->setMinimumSize(MaxTextWidth, DetailsHeight);
        pLayout->addWidget(pDetails, 1, 0, 1, 2);
    }
    auto* pButtons = new QDialogButtonBox(
        bQuestion ? QDialogButtonBox::Ok | QDialogButtonBox::Cancel : QDialogButtonBox::Ok, this);
    QPushButton* pOk = pButtons->button(QDialogButtonBox::Ok);
    pOk->setText(tr("OK"));
    // The box has given it its look already.
    pOk->setProperty("role", QStringLiteral("primary"));
    pOk->style()->unpolish(pOk);
    pOk->style()->polish(pOk);
    if (QPushButton* pCancel = pButtons->button(QDialogButtonBox::Cancel))
        pCancel->setText(tr("Cancel"));
    connect(pButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    pLayout->addWidget(pButtons, 2, 0, 1, 2);
    pOk->setFocus();
}

bool VxMessageBox::Question(QWidget* pParent, const QString& sTitle, const QString& sText)
{
    return VxDialogService::Current()->Question(pParent, sTitle, sText);
}

void VxMessageBox::Message(
    QWidget* pParent, const QString& sTitle, const QString& sText, const QString& sDetails)
{
    VxDialogService::Current()->Message(pParent, sTitle, sText, sDetails);
}

} // namespace VxGUI
