#include "CRoleSelectPopView.h"

#include "CRolePopTableView.h"

#include <VxGUI/VxSearchBox.h>
#include <common/StyleSheet.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace PlatformConfigUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CRoleSelectPopView)
};
constexpr QSize PopupSize(360, 340);
} // namespace

CRoleSelectPopView::CRoleSelectPopView(QWidget* pParent)
    : QFrame(pParent, Qt::Popup)
    , m_pSearch(new VxGUI::VxSearchBox(this))
    , m_pSelectAll(new QCheckBox(Text::tr("Select All"), this))
    , m_pTable(new CRolePopTableView(this))
    , m_pNothing(new QLabel(Text::tr("No role matches the search."), this))
{
    setObjectName(QStringLiteral("CRoleSelectPopView"));
    setAttribute(Qt::WA_DeleteOnClose);
    // Before anything below is laid out, and so polished without it.
    Common::LoadStyleSheet(this, QStringLiteral("PlatformConfigUI/UserManagerUI"));
    m_pSearch->setObjectName(QStringLiteral("edtSearchRole"));
    m_pSearch->SetBackgroundText(Text::tr("Role"));
    m_pSearch->setAccessibleName(Text::tr("Search Role"));
    m_pSelectAll->setObjectName(QStringLiteral("chkAllRoles"));
    m_pTable->setObjectName(QStringLiteral("tableRoles"));
    m_pTable->setAccessibleName(Text::tr("Roles"));
    m_pNothing->setObjectName(QStringLiteral("lbNoRole"));
    m_pNothing->setAlignment(Qt::AlignCenter);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(8, 8, 8, 8);
    pLayout->setSpacing(6);
    for (QWidget* pWidget : {static_cast<QWidget*>(m_pSearch), static_cast<QWidget*>(m_pSelectAll),
             static_cast<QWidget*>(m_pTable)})
        pLayout->addWidget(pWidget);
    pLayout->addWidget(m_pNothing, 1);
    connect(m_pSearch, &QLineEdit::textChanged, this, [this](const QString& sText) {
        m_pTable->SetFilter(sText.trimmed());
        UpdateState();
    });
    connect(m_pSelectAll, &QCheckBox::clicked, this, &CRoleSelectPopView::OnSelectAll);
    connect(m_pTable, &CRolePopTableView::SignalChecksChanged, this, [this] {
        UpdateState();
        Q_EMIT SignalChosenChanged(m_pTable->GetCheckedIds());
    });
}

void CRoleSelectPopView::SetRoles(
    const std::vector<UserLogical::Role_t>& vecRoles, const QStringList& listChosenIds)
{
    m_pTable->SetRoles(vecRoles, listChosenIds);
    UpdateState();
}

void CRoleSelectPopView::PopUp(const QWidget* pBelow)
{
    const QRect screen = pBelow->screen()->availableGeometry();
    QPoint place = pBelow->mapToGlobal(pBelow->rect().bottomLeft());
    place.setX(qMin(place.x(), screen.right() - PopupSize.width()));
    place.setY(qMin(place.y(), screen.bottom() - PopupSize.height()));
    setGeometry(QRect(place, PopupSize));
    show();
    m_pSearch->setFocus();
}

void CRoleSelectPopView::OnSelectAll(bool)
{
    // A click on a box that is partly checked checks all.
    m_pTable->SetShownChecked(m_pTable->GetShownSummary() != Qt::Checked);
}

void CRoleSelectPopView::UpdateState()
{
    const bool bNothing = m_pTable->IsNothingShown();
    m_pTable->setVisible(!bNothing);
    m_pNothing->setVisible(bNothing);
    m_pSelectAll->setEnabled(!bNothing);
    m_pSelectAll->setCheckState(m_pTable->GetShownSummary());
}

} // namespace PlatformConfigUI
