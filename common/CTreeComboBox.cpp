#include "CTreeComboBox.h"

#include "CTreeChoice.h"

#include <UICommonMdl/CCodeTreeModel.h>

#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace Common {

namespace {

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

CTreeComboBox::CTreeComboBox(QWidget* pParent)
    : QComboBox(pParent)
{
}

CTreeComboBox::~CTreeComboBox()
{
    delete m_pPopup;
}

void CTreeComboBox::SetTree(UICommonMdl::CCodeTreeModel* pModel, const QString& sName)
{
    m_pModel = pModel;
    m_sTreeName = sName;
}

void CTreeComboBox::SetCode(const QString& sCode, const QString& sName)
{
    m_sCode = m_bKeepsUnknown || m_pModel->FindCode(sCode).isValid() ? sCode : QString();
    const QModelIndex node = m_pModel->FindCode(m_sCode);
    m_sName = node.isValid() ? node.data().toString() : sName.isEmpty() ? m_sCode : sName;
    clear();
    if (!m_sCode.isEmpty())
        addItem(node.data(Qt::DecorationRole).value<QIcon>(), m_sName);
    setToolTip(node.isValid() ? MakePath(node) : m_sName);
}

QString CTreeComboBox::GetName(const QString& sCode) const
{
    const QModelIndex node = m_pModel ? m_pModel->FindCode(sCode) : QModelIndex();
    return node.isValid() ? node.data().toString() : sCode;
}

void CTreeComboBox::Restore()
{
    if (m_pChoice)
        m_pChoice->GetTree()->Restore();
    const QString sBefore = m_sCode;
    SetCode(sBefore, m_sName);
    if (m_sCode != sBefore)
        Q_EMIT SignalCodeChanged();
}

void CTreeComboBox::MakePopup()
{
    // No frame: that of a combo box takes no style sheet.
    auto* pPopup = new QWidget(this, Qt::Popup);
    pPopup->setObjectName(QStringLiteral("popupTree"));
    pPopup->setAttribute(Qt::WA_StyledBackground);
    pPopup->installEventFilter(this);
    m_pChoice = new CTreeChoice(m_sTreeName, pPopup);
    auto* pLayout = new QVBoxLayout(pPopup);
    pLayout->setContentsMargins(4, 4, 4, 4);
    pLayout->addWidget(m_pChoice);
    m_pPopup = pPopup;
    m_pChoice->GetTree()->SetChoiceRule([this](const QModelIndex& node) { return !m_rule || m_rule(node); });
    m_pChoice->GetTree()->SetTreeModel(m_pModel);
    connect(m_pChoice, &CTreeChoice::SignalActivated, this, &CTreeComboBox::OnChosen);
    connect(m_pChoice->GetTree(), &QAbstractItemView::clicked, this, &CTreeComboBox::OnChosen);
}

void CTreeComboBox::showPopup()
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

void CTreeComboBox::hidePopup()
{
    if (m_pPopup)
        m_pPopup->hide();
    QComboBox::hidePopup();
}

bool CTreeComboBox::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    // Keys that neither the search field nor the tree has a use for. The tree has heard Enter before, and
    // closed.
    if (pEvent->type() != QEvent::KeyPress || !m_pPopup->isVisible())
        return QComboBox::eventFilter(pWatched, pEvent);
    const int nKey = static_cast<QKeyEvent*>(pEvent)->key();
    if (nKey == Qt::Key_Escape) {
        hidePopup();
    } else if (nKey == Qt::Key_Return || nKey == Qt::Key_Enter) {
        m_pChoice->ChooseMatch();
        OnChosen();
    } else if (nKey == Qt::Key_Down) {
        m_pChoice->ChooseMatch();
        m_pChoice->GetTree()->setFocus();
    } else {
        return QComboBox::eventFilter(pWatched, pEvent);
    }
    return true;
}

void CTreeComboBox::keyPressEvent(QKeyEvent* pEvent)
{
    // The closed field does not step through nodes that it does not show.
    const int nKey = pEvent->key();
    const bool bOpens =
        nKey == Qt::Key_Down || nKey == Qt::Key_Up || nKey == Qt::Key_Space || nKey == Qt::Key_F4;
    const bool bTyped = !(pEvent->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        && !pEvent->text().isEmpty() && pEvent->text().at(0).isPrint();
    if (!bOpens && !bTyped) {
        pEvent->ignore();
        return;
    }
    showPopup();
    if (!bOpens)
        m_pChoice->Search(pEvent->text());
}

void CTreeComboBox::wheelEvent(QWheelEvent* pEvent)
{
    pEvent->ignore();
}

void CTreeComboBox::OnChosen()
{
    const QString sCode = m_pChoice->GetCode();
    hidePopup();
    if (sCode.isEmpty() || sCode == m_sCode)
        return;
    SetCode(sCode);
    Q_EMIT SignalCodeChanged();
}

} // namespace Common
