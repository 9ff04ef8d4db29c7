#pragma once

#include <QIcon>
#include <QWidget>

namespace PlatformConfigUI {

/// The gauge of a password that is being typed: a background, the picture of its level and the word for it.
/// User-interface thread.
class CPwdStrengthWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CPwdStrengthWidget(QWidget* pParent = nullptr);

    void SetPassword(const QString& sPassword);
    /// 0: there is no password; 3: strong.
    int GetLevel() const { return m_nLevel; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    QIcon m_background;
    QIcon m_levels[3];
    int m_nLevel = 0;
    QString m_sWord;
};

} // namespace PlatformConfigUI
