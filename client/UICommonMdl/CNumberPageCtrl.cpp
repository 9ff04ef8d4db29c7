#include <UICommonMdl/CNumberPageCtrl.h>

#include <Trv/QSkin.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace UICommonMdl {

namespace {
constexpr int PageSizes[] = {20, 50, 100, 200};
constexpr int MaxPageDigits = 7;
} // namespace

CNumberPageCtrl::CNumberPageCtrl(QWidget* pParent)
    : QWidget(pParent)
    , m_pTotal(new QLabel(this))
    , m_pSize(new QComboBox(this))
    , m_pFirst(new QToolButton(this))
    , m_pPrevious(new QToolButton(this))
    , m_pPage(new QLineEdit(this))
    , m_pPageCount(new QLabel(this))
    , m_pNext(new QToolButton(this))
    , m_pLast(new QToolButton(this))
{
    m_pSize->setObjectName(QStringLiteral("cmbPageSize"));
    m_pSize->setAccessibleName(tr("Rows per page"));
    for (const int nSize : PageSizes)
        m_pSize->addItem(tr("%1 / page").arg(nSize), nSize);
    m_pPage->setObjectName(QStringLiteral("edtPage"));
    m_pPage->setAccessibleName(tr("Page"));
    m_pPage->setAlignment(Qt::AlignCenter);
    m_pPage->setMaxLength(MaxPageDigits);
    m_pPage->setFixedWidth(56);
    m_pPage->setValidator(new QIntValidator(0, 9999999, m_pPage));

    auto* pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(6);
    pLayout->addWidget(m_pTotal);
    pLayout->addStretch();
    pLayout->addWidget(m_pSize);
    const struct
    {
        QToolButton* pButton;
        const char* pszName;
        const char* pszIcon;
        QString sTip;
    } buttons[] = {{m_pFirst, "btnFirstPage", "first", tr("First page")},
        {m_pPrevious, "btnPreviousPage", "previous", tr("Previous page")},
        {m_pNext, "btnNextPage", "next", tr("Next page")}, {m_pLast, "btnLastPage", "last", tr("Last page")}};
    for (const auto& button : buttons) {
        button.pButton->setObjectName(QLatin1String(button.pszName));
        button.pButton->setIcon(Trv::GetIcon(QLatin1String(button.pszIcon)));
        button.pButton->setToolTip(button.sTip);
        button.pButton->setAccessibleName(button.sTip);
        button.pButton->setAutoRaise(true);
    }
    for (QWidget* pWidget : {static_cast<QWidget*>(m_pFirst), static_cast<QWidget*>(m_pPrevious),
             static_cast<QWidget*>(m_pPage), static_cast<QWidget*>(m_pPageCount),
             static_cast<QWidget*>(m_pNext), static_cast<QWidget*>(m_pLast)})
        pLayout->addWidget(pWidget);

    connect(m_pFirst, &QToolButton::clicked, this, [this] { GoTo(1); });
    connect(m_pPrevious, &QToolButton::clicked, this, [this] { GoTo(m_nPage - 1); });
    connect(m_pNext, &QToolButton::clicked, this, [this] { GoTo(m_nPage + 1); });
    connect(m_pLast, &QToolButton::clicked, this, [this] { GoTo(GetPageCount()); });
    connect(m_pPage, &QLineEdit::returnPressed, this, [this] { GoTo(m_pPage->text().toInt()); });
    connect(m_pPage, &QLineEdit::editingFinished, this, &CNumberPageCtrl::UpdateControls);
    connect(m_pSize, qOverload<int>(&QComboBox::activated), this, [this] {
        m_nPage = 1;
        UpdateControls();
        Q_EMIT SignalPageSizeChanged(GetPageSize());
    });
    UpdateControls();
}

void CNumberPageCtrl::SetTotalCount(int nTotal)
{
    m_nTotal = qMax(0, nTotal);
    m_nPage = qBound(1, m_nPage, qMax(1, GetPageCount()));
    UpdateControls();
}

void CNumberPageCtrl::SetTotalShown(bool bShown)
{
    m_pTotal->setVisible(bShown);
}

int CNumberPageCtrl::GetCurrentPage() const
{
    return m_nTotal == 0 ? 0 : m_nPage;
}

int CNumberPageCtrl::GetPageCount() const
{
    return (m_nTotal + GetPageSize() - 1) / GetPageSize();
}

void CNumberPageCtrl::SetCurrentPage(int nPage)
{
    m_nPage = qBound(1, nPage, qMax(1, GetPageCount()));
    UpdateControls();
}

int CNumberPageCtrl::GetPageSize() const
{
    return m_pSize->currentData().toInt();
}

void CNumberPageCtrl::SetPageSize(int nPageSize)
{
    const int nIndex = m_pSize->findData(nPageSize);
    if (nIndex < 0)
        return;
    m_pSize->setCurrentIndex(nIndex);
    SetCurrentPage(m_nPage);
}

void CNumberPageCtrl::GoTo(int nPage)
{
    const int nTarget = qBound(1, nPage, qMax(1, GetPageCount()));
    const bool bChanged = nTarget != m_nPage;
    SetCurrentPage(nTarget);
    if (bChanged)
        Q_EMIT SignalCurrentPageChanged(nTarget);
}

void CNumberPageCtrl::UpdateControls()
{
    const int nPages = GetPageCount();
    m_pTotal->setText(tr("Total: %1").arg(locale().toString(m_nTotal)));
    m_pPage->setText(QString::number(GetCurrentPage()));
    m_pPageCount->setText(tr("/ %1").arg(nPages));
    m_pPage->setEnabled(nPages > 1);
    m_pFirst->setEnabled(m_nPage > 1);
    m_pPrevious->setEnabled(m_nPage > 1);
    m_pNext->setEnabled(m_nPage < nPages);
    m_pLast->setEnabled(m_nPage < nPages);
}

} // namespace UICommonMdl
