#include "CDevMove.h"

#include <common/COrganizationModel.h>
#include <common/StyleSheet.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTreeView>
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
    , m_pModel(new Common::COrganizationModel(this))
    , m_pTree(new QTreeView)
{
    setObjectName(QStringLiteral("CDevMove"));
    setWindowTitle(Text::tr("Move To"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    m_pModel->SetOrganizations(vecOrganizations);
    m_pTree->setObjectName(QStringLiteral("treeTarget"));
    m_pTree->setAccessibleName(Text::tr("Organization"));
    m_pTree->setHeaderHidden(true);
    m_pTree->setUniformRowHeights(true);
    m_pTree->setModel(m_pModel);
    m_pTree->expandAll();
    auto* pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    pButtons->button(QDialogButtonBox::Ok)->setProperty("role", QStringLiteral("primary"));
    pButtons->setObjectName(QStringLiteral("buttonBox"));
    connect(pButtons, &QDialogButtonBox::accepted, this, &CDevMove::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &CDevMove::reject);
    auto* pLayout = new QVBoxLayout(this);
    pLayout->addWidget(m_pTree);
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
    const QString sCode = Common::COrganizationModel::GetCode(m_pTree->currentIndex());
    if (sCode.isEmpty()) {
        Q_EMIT SignalShowNotify(Text::tr("No node selected."));
        return;
    }
    Q_EMIT SignalMove(m_listDeviceIds.toVector(), sCode);
    QDialog::accept();
}

} // namespace ResourceManagerUI
