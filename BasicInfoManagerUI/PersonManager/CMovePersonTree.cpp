#include "CMovePersonTree.h"

#include <UICommonMdl/CDepartmentModelManager.h>
#include <common/CTreeChoice.h>
#include <common/StyleSheet.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CMovePersonTree)
};

constexpr QSize PopupSize(280, 360);

} // namespace

CMovePersonTree::CMovePersonTree(QWidget* pParent)
    : QFrame(pParent, Qt::Popup)
    , m_pChoice(new Common::CTreeChoice(Text::tr("Person Group"), this))
{
    setObjectName(QStringLiteral("CMovePersonTree"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::StyledPanel);
    // Before anything below is laid out, and so polished without it.
    Common::LoadStyleSheet(this, QStringLiteral("BasicInfoManagerUI/Personnel"));
    auto* pManager = UICommonMdl::CDepartmentModelManager::Instance();
    m_pChoice->GetTree()->SetTreeModel(pManager->GetDepartmentModel());
    connect(pManager, &UICommonMdl::CDepartmentModelManager::SignalDepartmentModelFinish,
        m_pChoice->GetTree(), &Common::CSearchTreeView::Restore);
    auto* pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    pButtons->setObjectName(QStringLiteral("buttonBoxMove"));
    Common::SetButtonRole(pButtons->button(QDialogButtonBox::Ok), QStringLiteral("primary"));
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(8, 8, 8, 8);
    pLayout->addWidget(m_pChoice);
    pLayout->addWidget(pButtons);
    connect(m_pChoice, &Common::CTreeChoice::SignalActivated, this, &CMovePersonTree::OnOk);
    connect(pButtons, &QDialogButtonBox::accepted, this, &CMovePersonTree::OnOk);
    connect(pButtons, &QDialogButtonBox::rejected, this, &CMovePersonTree::OnCancel);
}

void CMovePersonTree::PopUp(const QWidget* pBelow)
{
    const QRect screen = pBelow->screen()->availableGeometry();
    QPoint place = pBelow->mapToGlobal(pBelow->rect().bottomLeft());
    place.setX(qMin(place.x(), screen.right() - PopupSize.width()));
    place.setY(qMin(place.y(), screen.bottom() - PopupSize.height()));
    setGeometry(QRect(place, PopupSize));
    show();
    m_pChoice->Start(QString());
}

void CMovePersonTree::OnOk()
{
    const QString sCode = m_pChoice->GetCode();
    if (!sCode.isEmpty())
        close();
    Q_EMIT SignalOkClicked(sCode);
}

void CMovePersonTree::OnCancel()
{
    close();
    Q_EMIT SignalCancelClicked();
}

void CMovePersonTree::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        OnCancel();
    else
        QFrame::keyPressEvent(pEvent);
}

} // namespace BasicInfoManagerUI
