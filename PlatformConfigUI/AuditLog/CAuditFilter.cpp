#include "CAuditFilter.h"

#include "AuditRules.h"
#include "ui_CAuditFilter.h"

#include <QShortcut>

namespace PlatformConfigUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CAuditLogCtrl)
};

constexpr std::int64_t MsPerSecond = 1000;

} // namespace

CAuditFilter::CAuditFilter(QWidget* pParent)
    : QWidget(pParent)
    , m_pUi(std::make_unique<Ui::CAuditFilter>())
{
    m_pUi->setupUi(this);
    setObjectName(QStringLiteral("wgtFilter"));
    SetUpChoices();
    SetUpKeys();
    connect(m_pUi->btnSearch, &QAbstractButton::clicked, this, &CAuditFilter::SignalSearch);
    connect(m_pUi->btnReset, &QAbstractButton::clicked, this, [this] {
        Reset();
        Q_EMIT SignalSearch();
    });
}

CAuditFilter::~CAuditFilter() = default;

void CAuditFilter::SetUpChoices()
{
    const std::pair<int, QString> periods[] = {{PeriodToday, Text::tr("Today")},
        {PeriodLast7Days, Text::tr("Last 7 Days")}, {PeriodLast30Days, Text::tr("Last 30 Days")},
        {PeriodAll, Text::tr("All")}, {PeriodOwn, Text::tr("Own Range")}};
    for (const auto& [nPeriod, sText] : periods)
        m_pUi->cmbPeriod->addItem(sText, nPeriod);
    m_pUi->cmbPeriod->setCurrentIndex(m_pUi->cmbPeriod->findData(PeriodLast7Days));
    OnPeriodChanged();
    connect(m_pUi->cmbPeriod, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &CAuditFilter::OnPeriodChanged);

    const QVector<AuditChoice> vecChoices = GetAuditChoices();
    for (const AuditChoice& choice : vecChoices) {
        const bool bOperation = !choice.bGroup && !choice.sCode.isEmpty();
        m_pUi->cmbOperation->addItem(
            bOperation ? QStringLiteral("    ") + choice.sText : choice.sText, choice.sCode);
        if (!choice.bGroup)
            continue;
        QFont font = m_pUi->cmbOperation->font();
        font.setBold(true);
        m_pUi->cmbOperation->setItemData(m_pUi->cmbOperation->count() - 1, font, Qt::FontRole);
    }
}

void CAuditFilter::SetUpKeys()
{
    for (QLineEdit* pEdit : {m_pUi->edtUser, m_pUi->edtAddress, m_pUi->edtObject})
        connect(pEdit, &QLineEdit::returnPressed, this, &CAuditFilter::SignalSearch);
    for (const int nKey : {Qt::Key_Return, Qt::Key_Enter}) {
        for (QWidget* pField :
            {static_cast<QWidget*>(m_pUi->m_dtFrom), static_cast<QWidget*>(m_pUi->m_dtTo)}) {
            auto* const pSearch =
                new QShortcut(nKey, pField, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
            connect(pSearch, &QShortcut::activated, this, &CAuditFilter::SignalSearch);
        }
    }
}

int CAuditFilter::GetPeriod() const
{
    return m_pUi->cmbPeriod->currentData().toInt();
}

void CAuditFilter::OnPeriodChanged()
{
    const bool bOwn = GetPeriod() == PeriodOwn;
    m_pUi->m_dtFrom->setEnabled(bOwn);
    m_pUi->m_dtTo->setEnabled(bOwn);
    // An own range starts from what was chosen before.
    const QDateTime start = GetPeriodStart(AuditPeriod(GetPeriod()), QDate::currentDate());
    if (start.isValid())
        m_pUi->m_dtFrom->setDateTime(start);
    if (!bOwn)
        m_pUi->m_dtTo->setDateTime(QDate::currentDate().endOfDay());
}

void CAuditFilter::Reset()
{
    m_pUi->cmbPeriod->setCurrentIndex(m_pUi->cmbPeriod->findData(PeriodLast7Days));
    OnPeriodChanged();
    m_pUi->cmbOperation->setCurrentIndex(0);
    for (QLineEdit* pEdit : {m_pUi->edtUser, m_pUi->edtAddress, m_pUi->edtObject})
        pEdit->clear();
}

void CAuditFilter::FocusUser()
{
    m_pUi->edtUser->setFocus(Qt::ShortcutFocusReason);
    m_pUi->edtUser->selectAll();
}

std::optional<UserLogical::AuditRequest_t> CAuditFilter::Read() const
{
    UserLogical::AuditRequest_t request;
    const QDateTime start = GetPeriodStart(AuditPeriod(GetPeriod()), QDate::currentDate());
    if (start.isValid())
        request.nFrom = start.toMSecsSinceEpoch();
    if (GetPeriod() == PeriodOwn) {
        request.nFrom = m_pUi->m_dtFrom->dateTime().toMSecsSinceEpoch();
        // The second that is entered belongs to the range.
        request.nTo = m_pUi->m_dtTo->dateTime().toSecsSinceEpoch() * MsPerSecond + MsPerSecond;
        if (request.nFrom >= request.nTo) {
            m_pUi->m_dtFrom->setFocus();
            return std::nullopt;
        }
    }
    request.sUserName = m_pUi->edtUser->text().trimmed().toStdString();
    request.sClientAddress = m_pUi->edtAddress->text().trimmed().toStdString();
    request.sOperation = m_pUi->cmbOperation->currentData().toString().toStdString();
    request.sObject = m_pUi->edtObject->text().trimmed().toStdString();
    return request;
}

} // namespace PlatformConfigUI
