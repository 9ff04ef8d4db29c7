#include "CModulePage.h"

#include "CNavigationStrip.h"
#include "CNotAvailablePage.h"

#include <VxPluginAPI/IAbstractWidget.h>

#include <QBoxLayout>
#include <QCoreApplication>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>

namespace Common {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CModulePage)
};
} // namespace

CModulePage::CModulePage(UICommonMdl::CInterfaceSetManager* pInterfaceSet, const Description& description,
    const QVector<ModuleEntry>& vecEntries, QWidget* pParent)
    : CPage(pInterfaceSet, description.sSkinFolder, pParent)
    , m_vecEntries(vecEntries)
    , m_pNavigation(MakeNavigation(description))
    , m_pStack(new QStackedWidget)
    , m_pNoRight(new VxGUI::VxEmptyState)
{
    setObjectName(description.sObjectName);
    m_pStack->setObjectName(QStringLiteral("stackPages"));
    auto* const pLayout = new QBoxLayout(m_pStrip ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    pLayout->addWidget(m_pNavigation);
    pLayout->addWidget(m_pStack, 1);
    for (const ModuleEntry& entry : qAsConst(m_vecEntries)) {
        // The frame has the entry's name; the page keeps that of its style sheet.
        auto* const pFrame = new QWidget;
        pFrame->setObjectName(QStringLiteral("page") + entry.sName);
        m_vecFrames.append(pFrame);
        m_pStack->addWidget(pFrame);
    }
    m_pNoRight->setObjectName(QStringLiteral("pageNoRight"));
    m_pNoRight->SetState(
        VxGUI::VxEmptyState::Kind::NoPermission, Text::tr("You have no permission to use these pages."));
    m_pStack->addWidget(m_pNoRight);
    // A form that asks comes to the front.
    connect(m_pStack, &QStackedWidget::currentChanged, this, [this](int nEntry) {
        if (nEntry != m_nShown && nEntry < m_vecEntries.size())
            ShowEntry(nEntry);
    });
    OnRightsChanged();
}

QWidget* CModulePage::MakeNavigation(const Description& description)
{
    if (description.look == Look::Strip) {
        m_pStrip = new CNavigationStrip(this);
        m_pStrip->setObjectName(QStringLiteral("wgtNavigation"));
        for (const ModuleEntry& entry : qAsConst(m_vecEntries))
            m_pStrip->AddEntry(
                QStringLiteral("btn") + entry.sName, entry.sTitle, entry.sIconFolder, entry.sIcon);
        connect(m_pStrip, &CNavigationStrip::SignalChosen, this, &CModulePage::ShowEntry);
        return m_pStrip;
    }
    m_pTabs = new QTabBar(this);
    m_pTabs->setObjectName(QStringLiteral("tabPages"));
    m_pTabs->setAccessibleName(description.sTitle);
    m_pTabs->setDrawBase(false);
    m_pTabs->setExpanding(false);
    for (const ModuleEntry& entry : qAsConst(m_vecEntries))
        m_pTabs->addTab(entry.sTitle);
    connect(m_pTabs, &QTabBar::currentChanged, this, &CModulePage::ShowEntry);
    return m_pTabs;
}

void CModulePage::MakePage(int nEntry)
{
    const ModuleEntry& entry = m_vecEntries[nEntry];
    QWidget* const pFrame = m_vecFrames[nEntry];
    // What has ended starts nothing any more.
    if (pFrame->layout() || HasEnded())
        return;
    auto* const pLayout = new QVBoxLayout(pFrame);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(
        entry.make ? entry.make(GetInterfaceSet(), pFrame) : new CNotAvailablePage(entry.sTitle, pFrame));
}

bool CModulePage::OnMsg(int nMsg, QVariant* pValue, void* pArgument)
{
    // The forms are asked once, whichever page they are on.
    if (nMsg == VxPluginAPI::MessageLeave)
        return CPage::OnMsg(nMsg, pValue, pArgument);
    bool bTaken = false;
    for (const QWidget* pFrame : qAsConst(m_vecFrames)) {
        const QLayout* const pLayout = pFrame->layout();
        auto* const pPage = pLayout ? dynamic_cast<IConfigPage*>(pLayout->itemAt(0)->widget()) : nullptr;
        bTaken = (pPage && pPage->OnMsg(nMsg, pValue, pArgument)) || bTaken;
    }
    return bTaken;
}

void CModulePage::OnRightsChanged()
{
    const int nFirst = FindAllowed(qMax(m_nShown, 0));
    // One entry alone leaves nothing to choose.
    m_pNavigation->setVisible(nFirst != None && m_vecEntries.size() > 1);
    OfferEntries(true);
    if (nFirst != None)
        ShowEntry(nFirst);
    else
        m_pStack->setCurrentWidget(m_pNoRight);
    m_nShown = nFirst;
    // Last: the tab that is shown would leave its place to a neighbour.
    OfferEntries(false);
}

void CModulePage::OfferEntries(bool bOffered)
{
    const QSignalBlocker blocker(m_pNavigation);
    for (int i = 0; i < m_vecEntries.size(); ++i) {
        if (HasRight(m_vecEntries[i].pszRight) != bOffered)
            continue;
        if (m_pStrip)
            m_pStrip->SetEntryVisible(i, bOffered);
        else if (m_pTabs->isTabVisible(i) != bOffered) // else the bar forgets that it has to lay out its tabs
            m_pTabs->setTabVisible(i, bOffered);
    }
}

void CModulePage::ShowEntry(int nEntry)
{
    m_nShown = nEntry;
    MakePage(nEntry);
    m_pStack->setCurrentWidget(m_vecFrames[nEntry]);
    if (m_pStrip) {
        m_pStrip->SetCurrent(nEntry);
        return;
    }
    const QSignalBlocker blocker(m_pTabs);
    m_pTabs->setCurrentIndex(nEntry);
}

int CModulePage::FindAllowed(int nFirst) const
{
    for (int i = 0; i < m_vecEntries.size(); ++i) {
        const int nEntry = (nFirst + i) % m_vecEntries.size();
        if (HasRight(m_vecEntries[nEntry].pszRight))
            return nEntry;
    }
    return None;
}

} // namespace Common
