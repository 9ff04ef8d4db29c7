#include "CNavigationStrip.h"

#include <Trv/QSkin.h>
#include <VxGUI/TextLayout.h>

#include <QToolButton>
#include <QVBoxLayout>

namespace Common {

namespace {

constexpr int StripWidth = 124;
constexpr int TextWidth = 96;
constexpr int IconSize = 24;

QIcon MakeIcon(const QString& sFolder, const QString& sIcon)
{
    const auto path = [&](const char* pszState) {
        return Trv::GetSkinPath(sIcon + QLatin1String(pszState), sFolder);
    };
    QIcon icon(path("-n.svg"));
    icon.addFile(path("-h.svg"), QSize(), QIcon::Active);
    icon.addFile(path("-p.svg"), QSize(), QIcon::Normal, QIcon::On);
    return icon;
}

} // namespace

CNavigationStrip::CNavigationStrip(QWidget* pParent)
    : QWidget(pParent)
    , m_pLayout(new QVBoxLayout(this))
{
    setAttribute(Qt::WA_StyledBackground);
    setMaximumWidth(StripWidth);
    m_pLayout->setContentsMargins(8, 8, 8, 8);
    m_pLayout->setSpacing(6);
    m_pLayout->addStretch();
}

void CNavigationStrip::AddEntry(
    const QString& sObjectName, const QString& sTitle, const QString& sIconFolder, const QString& sIcon)
{
    const int nEntry = m_vecButtons.size();
    auto* const pButton = new QToolButton(this);
    pButton->setObjectName(sObjectName);
    pButton->setAccessibleName(sTitle);
    pButton->setCheckable(true);
    pButton->setAutoExclusive(true);
    pButton->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    pButton->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    pButton->setIconSize({IconSize, IconSize});
    if (!sIcon.isEmpty())
        pButton->setIcon(MakeIcon(sIconFolder, sIcon));
    // The font is the style sheet's only once the button is polished.
    pButton->ensurePolished();
    pButton->setText(VxGUI::WrapTitle(sTitle, pButton->fontMetrics(), TextWidth));
    m_pLayout->insertWidget(nEntry, pButton);
    m_vecButtons.append(pButton);
    connect(pButton, &QToolButton::clicked, this, [this, nEntry] { Q_EMIT SignalChosen(nEntry); });
}

void CNavigationStrip::SetEntryVisible(int nEntry, bool bVisible)
{
    m_vecButtons[nEntry]->setVisible(bVisible);
}

void CNavigationStrip::SetCurrent(int nEntry)
{
    m_vecButtons[nEntry]->setChecked(true);
}

} // namespace Common
