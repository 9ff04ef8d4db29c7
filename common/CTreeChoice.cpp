#include "CTreeChoice.h"

#include <UICommonMdl/CCodeTreeModel.h>
#include <VxGUI/VxSearchBox.h>

#include <QVBoxLayout>

namespace Common {

CTreeChoice::CTreeChoice(const QString& sName, QWidget* pParent)
    : QWidget(pParent)
    , m_pSearch(new VxGUI::VxSearchBox(this))
    , m_pTree(new CSearchTreeView(this))
{
    m_pSearch->setObjectName(QStringLiteral("editTargetFilter"));
    m_pSearch->SetBackgroundText(sName);
    m_pSearch->setAccessibleName(sName);
    m_pTree->setObjectName(QStringLiteral("treeTarget"));
    m_pTree->setAccessibleName(sName);
    auto* pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pSearch);
    pLayout->addWidget(m_pTree);
    setTabOrder(m_pSearch, m_pTree);
    connect(m_pSearch, &QLineEdit::textChanged, m_pTree, &CSearchTreeView::SetFilter);
    connect(m_pTree, &QAbstractItemView::activated, this, &CTreeChoice::SignalActivated);
}

void CTreeChoice::Start(const QString& sCode)
{
    m_pSearch->clear();
    m_pTree->expandAll();
    if (sCode.isEmpty())
        m_pTree->ClearCurrent();
    m_pTree->SelectCode(sCode);
    m_pSearch->setFocus();
}

void CTreeChoice::Search(const QString& sText)
{
    m_pSearch->setText(sText);
}

void CTreeChoice::ChooseMatch()
{
    m_pTree->SelectCode(UICommonMdl::CCodeTreeModel::GetCode(m_pTree->FindMatch()));
}

} // namespace Common
