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
    connect(m_pSearch, &QLineEdit::textChanged, this, &CTreeChoice::OnSearch);
    connect(m_pTree, &QAbstractItemView::activated, this, &CTreeChoice::SignalActivated);
}

void CTreeChoice::OnSearch(const QString& sText)
{
    m_pTree->SetFilter(sText);
    // What Enter takes is seen: the first match or, without a search, what was chosen before.
    if (sText.trimmed().isEmpty())
        Choose(m_sStart);
    else
        Choose(UICommonMdl::CCodeTreeModel::GetCode(m_pTree->FindMatch()));
}

void CTreeChoice::Choose(const QString& sCode)
{
    if (sCode.isEmpty())
        m_pTree->ClearCurrent();
    else
        m_pTree->SelectCode(sCode);
}

void CTreeChoice::Start(const QString& sCode)
{
    m_sStart = sCode;
    m_pSearch->clear();
    m_pTree->expandAll();
    Choose(sCode);
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
