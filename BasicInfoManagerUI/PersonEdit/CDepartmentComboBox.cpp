#include "CDepartmentComboBox.h"

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
    Q_DECLARE_TR_FUNCTIONS(CDepartmentComboBox)
};

constexpr int PopupHeight = 300;
constexpr int PopupMinimumWidth = 240;

QString MakePath(const QModelIndex& index)
{
    QStringList listNames;
    for (QModelIndex node = index; node.isValid(); node = node.parent())
        listNames.prepend(node.data().toString());
    return listNames.join(QStringLiteral(" / "));
}

} // namespace

CDepartmentComboBox::CDepartmentComboBox(QWidget* pParent)
    : QComboBox(pParent)
    , m_pModel(UICommonMdl::CDepartmentModelManager::Instance()->GetDepartmentModel())
{
    connect(UICommonMdl::CDepartmentModelManager::Instance(),
        &UICommonMdl::CDepartmentModelManager::SignalDepartmentModelFinish, this,
        &CDepartmentComboBox::OnModelFilled);
}

CDepartmentComboBox::~CDepartmentComboBox()
{
    delete m_pPopup;
}

void CDepartmentComboBox::SetCode(const QString& sCode, const QString& sName)
{
    m_sCode = m_bKeepsUnknown || m_pModel->FindCode(sCode).isValid() ? sCode : QString();
    m_sName = sName.isEmpty() ? m_sCode : sName;
    ShowText();
}

void CDepartmentComboBox::ShowText()
{
    const QModelIndex index = m_pModel->FindCode(m_sCode);
    clear();
    if (!m_sCode.isEmpty())
        addItem(index.data(Qt::DecorationRole).value<QIcon>(),
            index.isValid() ? index.data().toString() : m_sName);
    setToolTip(index.isValid() ? MakePath(index) : m_sName);
}

void CDepartmentComboBox::OnModelFilled()
{
    if (m_pChoice)
        m_pChoice->GetTree()->Restore();
    const QString sBefore = m_sCode;
    SetCode(sBefore, m_sName);
    if (m_sCode != sBefore)
        Q_EMIT SignalCodeChanged();
}

void CDepartmentComboBox::MakePopup()
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
    connect(m_pChoice, &Common::CTreeChoice::SignalActivated, this, &CDepartmentComboBox::OnChosen);
    connect(m_pChoice->GetTree(), &QAbstractItemView::clicked, this, &CDepartmentComboBox::OnChosen);
}

void CDepartmentComboBox::showPopup()
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

void CDepartmentComboBox::hidePopup()
{
    if (m_pPopup)
        m_pPopup->hide();
    QComboBox::hidePopup();
}

bool CDepartmentComboBox::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pEvent->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(pEvent)->key() == Qt::Key_Escape) {
        hidePopup();
        return true;
    }
    return QComboBox::eventFilter(pWatched, pEvent);
}

void CDepartmentComboBox::keyPressEvent(QKeyEvent* pEvent)
{
    // The closed field does not step through groups that it does not show.
    const int nKey = pEvent->key();
    if (nKey == Qt::Key_Down || nKey == Qt::Key_Up || nKey == Qt::Key_Space || nKey == Qt::Key_F4)
        showPopup();
    else
        pEvent->ignore();
}

void CDepartmentComboBox::wheelEvent(QWheelEvent* pEvent)
{
    pEvent->ignore();
}

void CDepartmentComboBox::OnChosen()
{
    const QString sCode = m_pChoice->GetCode();
    hidePopup();
    if (sCode.isEmpty() || sCode == m_sCode)
        return;
    SetCode(sCode, m_pModel->FindCode(sCode).data().toString());
    Q_EMIT SignalCodeChanged();
}

} // namespace BasicInfoManagerUI
