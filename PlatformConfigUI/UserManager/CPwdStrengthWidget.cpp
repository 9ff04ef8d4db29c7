#include "CPwdStrengthWidget.h"

#include <Trv/QSkin.h>
#include <common/CPasswordStrength.h>

#include <QPainter>

namespace PlatformConfigUI {

namespace {

constexpr QSize GaugeSize(188, 4);
constexpr int WordWidth = 72;
constexpr int Spacing = 8;

QIcon LoadPicture(const QString& sName)
{
    return QIcon(Trv::GetSkinPath(sName, QStringLiteral("PlatformConfigUI/UserManagerUI")));
}

} // namespace

CPwdStrengthWidget::CPwdStrengthWidget(QWidget* pParent)
    : QWidget(pParent)
    , m_background(LoadPicture(QStringLiteral("keystrength-bg.png")))
    , m_levels{LoadPicture(QStringLiteral("keystrength-1.png")),
          LoadPicture(QStringLiteral("keystrength-2.png")), LoadPicture(QStringLiteral("keystrength-3.png"))}
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void CPwdStrengthWidget::SetPassword(const QString& sPassword)
{
    const Common::PasswordStrength strength = Common::GetPasswordStrength(sPassword);
    m_nLevel = int(strength);
    m_sWord = Common::GetPasswordStrengthText(strength);
    setAccessibleDescription(m_sWord);
    update();
}

QSize CPwdStrengthWidget::sizeHint() const
{
    return {GaugeSize.width() + Spacing + WordWidth, fontMetrics().height()};
}

void CPwdStrengthWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect gauge(QPoint(0, (height() - GaugeSize.height()) / 2), GaugeSize);
    m_background.paint(&painter, gauge);
    if (m_nLevel == 0)
        return;
    m_levels[m_nLevel - 1].paint(&painter, gauge);
    painter.setPen(Trv::GetColor(QStringLiteral("text-muted")));
    painter.drawText(QRect(gauge.right() + 1 + Spacing, 0, WordWidth, height()),
        int(Qt::AlignLeft | Qt::AlignVCenter), m_sWord);
}

} // namespace PlatformConfigUI
