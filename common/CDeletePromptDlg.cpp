#include "CDeletePromptDlg.h"

#include "StyleSheet.h"

#include <Trv/QSkin.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace Common {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDeletePromptDlg)
};

constexpr int IconSize = 32;
constexpr int TextWidth = 420;
constexpr int MostNames = 10;
constexpr int MostLetters = 60;

QString Shorten(const QString& sName)
{
    const QString sPlain = sName.simplified();
    return sPlain.size() <= MostLetters ? sPlain : sPlain.left(MostLetters - 1) + QChar(0x2026);
}

QLabel* MakeLabel(const QString& sName, const QString& sText, QWidget* pParent)
{
    auto* const pLabel = new QLabel(sText, pParent);
    pLabel->setObjectName(sName);
    pLabel->setTextFormat(Qt::PlainText);
    pLabel->setWordWrap(true);
    pLabel->setMinimumWidth(qMin(TextWidth, pLabel->fontMetrics().horizontalAdvance(sText) + 8));
    return pLabel;
}

} // namespace

CDeletePromptDlg::CDeletePromptDlg(
    const QString& sTitle, const QString& sQuestion, const QStringList& listNames, QWidget* pParent)
    : QDialog(pParent)
{
    setObjectName(QStringLiteral("CDeletePromptDlg"));
    setWindowTitle(sTitle);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* const pIcon = new QLabel(this);
    pIcon->setPixmap(Trv::GetIcon(QStringLiteral("delete-danger")).pixmap(QSize(IconSize, IconSize)));
    auto* const pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* const pOk = pButtons->button(QDialogButtonBox::Ok);
    pOk->setText(Text::tr("OK"));
    SetButtonRole(pOk, QStringLiteral("danger"));
    pOk->setAutoDefault(false);
    QPushButton* const pCancel = pButtons->button(QDialogButtonBox::Cancel);
    pCancel->setText(Text::tr("Cancel"));
    pCancel->setDefault(true);
    connect(pButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const pLayout = new QGridLayout(this);
    pLayout->setContentsMargins(24, 24, 24, 20);
    pLayout->setHorizontalSpacing(16);
    pLayout->setVerticalSpacing(12);
    pLayout->setColumnStretch(1, 1);
    pLayout->addWidget(pIcon, 0, 0, Qt::AlignTop);
    pLayout->addWidget(MakeLabel(QStringLiteral("lbText"), sQuestion, this), 0, 1, Qt::AlignVCenter);
    if (!listNames.isEmpty())
        pLayout->addWidget(MakeLabel(QStringLiteral("lbNames"), GetNameLines(listNames), this), 1, 1);
    pLayout->addWidget(pButtons, 2, 0, 1, 2);
    pCancel->setFocus();
}

QString CDeletePromptDlg::GetNameLines(const QStringList& listNames)
{
    QStringList listLines;
    // One name more takes the place of the line that would count it.
    const int nShown = listNames.size() <= MostNames + 1 ? listNames.size() : MostNames;
    for (int n = 0; n < nShown; ++n)
        listLines.append(Shorten(listNames[n]));
    if (nShown < listNames.size())
        listLines.append(Text::tr("and %1 more").arg(listNames.size() - nShown));
    return listLines.join(QLatin1Char('\n'));
}

} // namespace Common
