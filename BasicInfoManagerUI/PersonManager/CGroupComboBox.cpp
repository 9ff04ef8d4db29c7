#include "CGroupComboBox.h"

#include <UICommonMdl/CDepartmentModelManager.h>
#include <common/CTreeChoice.h>

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonGroupEditUI)
};

constexpr int PopupHeight = 300;
constexpr int PopupMinimumWidth = 240;

} // namespace

CGroupComboBox::CGroupComboBox(QWidget* pParent)
    : QComboBox(pParent)
    , m_pModel(UICommonMdl::CDepartmentModelManager::Instance()->GetDepartmentModel())
{
    connect(UICommonMdl::CDepartmentModelManager::Instance(),
        &UICommonMdl::CDepartmentModelManager::SignalDepartmentModelFinish, this,
        &CGroupComboBox::OnModelFilled);
}

CGroupComboBox::~CGroupComboBox()
{
    delete m_pPopup;
}

void CGroupComboBox::SetCode(const QString& sCode)
{
    const QModelIndex index = m_pModel->FindCode(sCode);
    m_sCode = index.isValid() ? sCode : QString();
    clear();
    if (index.isValid())
        addItem(index.data(Qt::DecorationRole).value<QIcon>(), index.data().toString());
}

void CGroupComboBox::OnModelFilled()
{
    if (m_pChoice)
        m_pChoice->GetTree()->Restore();
    const QString sBefore = m_sCode;
    SetCode(sBefore);
    if (m_sCode != sBefore)
        Q_EMIT SignalCodeChanged();
}

void CGroupComboBox::MakePopup()
{
    // No frame: that of a combo box takes no style sheet.
    auto* pPopup = new QWidget(this, Qt::Popup);
    pPopup->setObjectName(QStringLiteral("popupGroups"));
    pPopup->setAttribute(Qt::WA_StyledBackground);
    pPopup->installEventFilter(this);
    m_pChoice = new Common::CTreeChoice(Text::tr("Person Group"), pPopup);
    auto* pLayout = new QVBoxLayout(pPopup);
    pLayout->setContentsMargins(4, 4, 4, 4);
    pLayout->addWidget(m_pChoice);
    m_pPopup = pPopup;
    m_pChoice->GetTree()->SetChoiceRule(
        [this](const QModelIndex& group) { return !m_rule || m_rule(group); });
    m_pChoice->GetTree()->SetTreeModel(m_pModel);
    connect(m_pChoice, &Common::CTreeChoice::SignalActivated, this, &CGroupComboBox::OnChosen);
    connect(m_pChoice->GetTree(), &QAbstractItemView::clicked, this, &CGroupComboBox::OnChosen);
}

void CGroupComboBox::showPopup()
{
    if (!m_pPopup)
        MakePopup();
    const QSize size(qMax(width(), PopupMinimumWidth), PopupHeight);
    const QRect screen = this->screen()->availableGeometry();
    QPoint place = mapToGlobal(rect().bottomLeft());
    if (place.y() + size.height() > screen.bottom())
        place.setY(mapToGlobal(QPoint()).y() - size.height());
    m_pPopup->setGeometry(QRect(place, size));
    m_pPopup->show();
    m_pChoice->Start(m_sCode);
}

void CGroupComboBox::hidePopup()
{
    if (m_pPopup)
        m_pPopup->hide();
    QComboBox::hidePopup();
}

bool CGroupComboBox::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pEvent->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(pEvent)->key() == Qt::Key_Escape) {
        hidePopup();
        return true;
    }
    return QComboBox::eventFilter(pWatched, pEvent);
}

void CGroupComboBox::keyPressEvent(QKeyEvent* pEvent)
{
    // The closed field does not step through groups that it does not show.
    const int nKey = pEvent->key();
    if (nKey == Qt::Key_Down || nKey == Qt::Key_Up || nKey == Qt::Key_Space || nKey == Qt::Key_F4)
        showPopup();
    else
        pEvent->ignore();
}

void CGroupComboBox::wheelEvent(QWheelEvent* pEvent)
{
    pEvent->ignore();
}

void CGroupComboBox::OnChosen()
{
    const QString sCode = m_pChoice->GetCode();
    hidePopup();
    if (sCode.isEmpty() || sCode == m_sCode)
        return;
    SetCode(sCode);
    Q_EMIT SignalCodeChanged();
}

} // namespace BasicInfoManagerUI
