#include "CDevMove.h"

#include <common/COrganizationModel.h>
#include <common/CTreeChoice.h>
#include <common/StyleSheet.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace ResourceManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevMove)
};
} // namespace

CDevMove::CDevMove(const std::vector<GroupLogical::Organization_t>& vecOrganizations,
    const QStringList& listDeviceIds, QWidget* pParent)
    : QDialog(pParent)
    , m_listDeviceIds(listDeviceIds)
    , m_pChoice(new Common::CTreeChoice(Text::tr("Organization"), this))
{
    setObjectName(QStringLiteral("CDevMove"));
    setWindowTitle(Text::tr("Move To"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    auto* pModel = new Common::COrganizationModel(this);
    pModel->SetOrganizations(vecOrganizations);
    m_pChoice->GetTree()->SetTreeModel(pModel);
    m_pChoice->Start(QString());
    auto* pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    Common::SetButtonRole(pButtons->button(QDialogButtonBox::Ok), QStringLiteral("primary"));
    pButtons->setObjectName(QStringLiteral("buttonBox"));
    connect(m_pChoice, &Common::CTreeChoice::SignalActivated, this, &CDevMove::accept);
    connect(pButtons, &QDialogButtonBox::accepted, this, &CDevMove::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &CDevMove::reject);
    auto* pLayout = new QVBoxLayout(this);
    pLayout->addWidget(m_pChoice);
    pLayout->addWidget(pButtons);
    resize(360, 420);
    Common::LoadStyleSheet(this, QStringLiteral("ResourceManagerUI/DeviceManager"));
}

void CDevMove::accept()
{
    if (m_listDeviceIds.isEmpty()) {
        Q_EMIT SignalShowNotify(Text::tr("No device selected."));
        return;
    }
    const QString sCode = m_pChoice->GetCode();
    if (sCode.isEmpty()) {
        Q_EMIT SignalShowNotify(Text::tr("No node selected."));
        return;
    }
    Q_EMIT SignalMove(m_listDeviceIds.toVector(), sCode);
    QDialog::accept();
}

} // namespace ResourceManagerUI
