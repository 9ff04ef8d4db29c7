#include "CDepartmentComboBox.h"

#include <UICommonMdl/CDepartmentModelManager.h>

#include <QKeyEvent>
#include <QScreen>
#include <QTreeView>
#include <QVBoxLayout>

namespace BasicInfoManagerUI {

namespace {
constexpr int PopupHeight = 280;
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
        &CDepartmentComboBox::ShowText);
    addItem(QString());
}

void CDepartmentComboBox::SetCode(const QString& sCode, const QString& sName)
{
    m_sCode = sCode;
    m_sName = sName;
    ShowText();
}

void CDepartmentComboBox::ShowText()
{
    const QModelIndex index = m_pModel->FindCode(m_sCode);
    const QString sKnown = m_sName.isEmpty() ? m_sCode : m_sName;
    setItemText(0, index.isValid() ? index.data().toString() : sKnown);
    setToolTip(index.isValid() ? MakePath(index) : sKnown);
}

void CDepartmentComboBox::MakePopup()
{
    m_pPopup = new QFrame(this, Qt::Popup);
    m_pPopup->setObjectName(QStringLiteral("wgtDepartmentPopup"));
    m_pPopup->installEventFilter(this);
    m_pTree = new QTreeView(m_pPopup);
    m_pTree->setObjectName(QStringLiteral("treeDepartments"));
    m_pTree->setAccessibleName(accessibleName());
    m_pTree->setHeaderHidden(true);
    m_pTree->setModel(m_pModel);
    m_pTree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pTree->setExpandsOnDoubleClick(false);
    m_pTree->setUniformRowHeights(true);
    m_pTree->installEventFilter(this);
    auto* const pLayout = new QVBoxLayout(m_pPopup);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pTree);
    connect(m_pTree, &QTreeView::clicked, this, &CDepartmentComboBox::Choose);
}

void CDepartmentComboBox::showPopup()
{
    if (!m_pPopup)
        MakePopup();
    const QModelIndex current = m_pModel->FindCode(m_sCode);
    for (int nRow = 0; nRow < m_pModel->rowCount(); ++nRow)
        m_pTree->expand(m_pModel->index(nRow, 0));
    m_pTree->setCurrentIndex(current);
    m_pTree->scrollTo(current);
    m_pPopup->resize(qMax(width(), PopupMinimumWidth), PopupHeight);
    const QPoint below = mapToGlobal(QPoint(0, height()));
    const bool bFits = below.y() + PopupHeight <= screen()->availableGeometry().bottom();
    m_pPopup->move(bFits ? below : mapToGlobal(QPoint(0, -PopupHeight)));
    m_pPopup->show();
    m_pTree->setFocus();
}

void CDepartmentComboBox::hidePopup()
{
    if (m_pPopup)
        m_pPopup->hide();
    QComboBox::hidePopup();
}

void CDepartmentComboBox::Choose(const QModelIndex& index)
{
    const QString sCode = UICommonMdl::CCodeTreeModel::GetCode(index);
    hidePopup();
    setFocus();
    if (sCode.isEmpty() || sCode == m_sCode)
        return;
    SetCode(sCode);
    Q_EMIT SignalCodeChosen(sCode);
}

bool CDepartmentComboBox::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pWatched == m_pTree && pEvent->type() == QEvent::KeyPress) {
        const int nKey = static_cast<QKeyEvent*>(pEvent)->key();
        if (nKey == Qt::Key_Return || nKey == Qt::Key_Enter) {
            Choose(m_pTree->currentIndex());
            return true;
        }
        if (nKey == Qt::Key_Escape) {
            hidePopup();
            setFocus();
            return true;
        }
    }
    return QComboBox::eventFilter(pWatched, pEvent);
}

void CDepartmentComboBox::keyPressEvent(QKeyEvent* pEvent)
{
    // The closed field does not step through groups that it does not show.
    if (pEvent->key() == Qt::Key_Down || pEvent->key() == Qt::Key_Up || pEvent->key() == Qt::Key_Space)
        showPopup();
    else
        pEvent->ignore();
}

void CDepartmentComboBox::wheelEvent(QWheelEvent* pEvent)
{
    pEvent->ignore();
}

} // namespace BasicInfoManagerUI
