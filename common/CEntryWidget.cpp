#include "CEntryWidget.h"

#include "CNotAvailablePage.h"
#include "IConfigPage.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/CInterfaceSetManager.h>
#include <UserLogical/IUserManager.h>

#include <QCoreApplication>

namespace Common {

CEntryWidget::CEntryWidget(UICommonMdl::CInterfaceSetManager* pInterfaceSet, EntryDescription description)
    : m_pInterfaceSet(pInterfaceSet)
    , m_description(std::move(description))
{
}

std::string CEntryWidget::GetWidgetRight()
{
    return m_description.sRight;
}

std::string CEntryWidget::GetWidgetName()
{
    return m_description.sName;
}

QWidget* CEntryWidget::GetWidget(QWidget* pParent)
{
    if (!m_pPage)
        m_pPage = CreatePage(m_pInterfaceSet, pParent);
    return m_pPage;
}

void CEntryWidget::UninitUI()
{
    if (auto* pPage = dynamic_cast<IConfigPage*>(m_pPage.data()))
        pPage->UninitUI();
}

QString CEntryWidget::GetWidgetTitle(const QString&, int)
{
    return QCoreApplication::translate(m_description.pszContext, m_description.pszTitle);
}

QString CEntryWidget::GetWidgetTitle(const QString& sContext)
{
    return GetWidgetTitle(sContext, 0);
}

QString CEntryWidget::GetWidgetIcon()
{
    const bool bPlain = m_description.sIconFileDefault.isEmpty() || IsRightMissing();
    return Trv::GetSkinPath(
        bPlain ? m_description.sIconFile : m_description.sIconFileDefault, m_description.sSkinFolder);
}

QString CEntryWidget::GetWidgetTip()
{
    return {};
}

QVariant CEntryWidget::GetWidgetProperty()
{
    return {};
}

bool CEntryWidget::OnMsg(int nMsg, QVariant* pValue, void* pArgument)
{
    auto* pPage = dynamic_cast<IConfigPage*>(m_pPage.data());
    return pPage && pPage->OnMsg(nMsg, pValue, pArgument);
}

QWidget* CEntryWidget::CreatePage(UICommonMdl::CInterfaceSetManager*, QWidget* pParent)
{
    return new CNotAvailablePage(GetWidgetTitle(QString(), 0), pParent);
}

bool CEntryWidget::IsRightMissing() const
{
    UserLogical::IUserManager* pManager = m_pInterfaceSet ? m_pInterfaceSet->GetUserManager() : nullptr;
    UserLogical::IUserRight* pRight = pManager ? pManager->GetUserRight() : nullptr;
    return pRight && !pRight->HasRight(m_description.sRight);
}

} // namespace Common
