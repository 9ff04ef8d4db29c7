#include "CDlgUserType.h"

#include <Trv/QSkin.h>
#include <common/StyleSheet.h>

#include <QGuiApplication>
#include <QListWidget>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

namespace PlatformConfigUI {

namespace {
constexpr int PopupWidth = 160;
} // namespace

CDlgUserType::CDlgUserType(
    const QString& sTitle, const QVector<Common::FilterOption>& vecOptions, int nValue, QWidget* pParent)
    : QFrame(pParent, Qt::Popup)
    , m_pList(new QListWidget(this))
{
    setObjectName(QStringLiteral("CDlgUserType"));
    setAttribute(Qt::WA_DeleteOnClose);
    Common::LoadStyleSheet(this, QStringLiteral("PlatformConfigUI/UserManagerUI"));
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(4, 4, 4, 4);
    pLayout->addWidget(m_pList);
    m_pList->setObjectName(QStringLiteral("listChoices"));
    m_pList->setAccessibleName(sTitle);
    m_pList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pList->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pList->setMouseTracking(true);
    QPixmap nothing(m_pList->iconSize().isValid() ? m_pList->iconSize() : QSize(16, 16));
    nothing.fill(Qt::transparent);
    for (const Common::FilterOption& option : vecOptions) {
        const bool bUsed = option.nValue == nValue;
        auto* const pItem = new QListWidgetItem(
            bUsed ? Trv::GetIcon(QStringLiteral("chosen")) : QIcon(nothing), option.sText, m_pList);
        pItem->setData(Qt::UserRole, option.nValue);
        if (bUsed)
            m_pList->setCurrentItem(pItem);
    }
    connect(m_pList, &QListWidget::itemClicked, this,
        [this](const QListWidgetItem* pItem) { OnChosen(m_pList->row(pItem)); });
    for (const int nKey : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        auto* const pShortcut = new QShortcut(nKey, m_pList, nullptr, nullptr, Qt::WidgetShortcut);
        connect(pShortcut, &QShortcut::activated, this, [this] { OnChosen(m_pList->currentRow()); });
    }
}

void CDlgUserType::PopUp(const QPoint& place)
{
    ensurePolished();
    const QMargins margins = layout()->contentsMargins();
    const QSize size(PopupWidth,
        m_pList->sizeHintForRow(0) * m_pList->count() + margins.top() + margins.bottom() + 2 * frameWidth()
            + 2);
    QRect rect(place, size);
    const QScreen* pScreen = QGuiApplication::screenAt(place);
    const QRect area = (pScreen ? pScreen : QGuiApplication::primaryScreen())->availableGeometry();
    rect.moveLeft(qMin(rect.left(), area.right() - size.width()));
    rect.moveTop(qMin(rect.top(), area.bottom() - size.height()));
    setGeometry(rect);
    show();
    m_pList->setFocus();
}

void CDlgUserType::OnChosen(int nRow)
{
    if (nRow < 0)
        return;
    const int nValue = m_pList->item(nRow)->data(Qt::UserRole).toInt();
    close();
    Q_EMIT SignalChosen(nValue);
}

} // namespace PlatformConfigUI
