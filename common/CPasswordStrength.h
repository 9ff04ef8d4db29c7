#pragma once

#include <QWidget>

class QLabel;

namespace Common {

enum class PasswordStrength
{
    None, ///< there is no password
    Weak,
    Medium,
    Strong
};
/// By length and kinds of characters: a short password, and one that everybody knows, is weak whatever it
/// holds.
PasswordStrength GetPasswordStrength(const QString& sPassword);
/// Translated word for it; empty for None.
QString GetPasswordStrengthText(PasswordStrength strength);

/// Three bars and a word beside them, for a password that is being typed. The style follows the property
/// "Level" of the bars ("None", "Weak", "Medium", "Strong"). User-interface thread.
class CPasswordStrength : public QWidget
{
    Q_OBJECT

public:
    explicit CPasswordStrength(QWidget* pParent = nullptr);
    void SetPassword(const QString& sPassword);

private:
    QVector<QWidget*> m_vecBars;
    QLabel* m_pText;
};

} // namespace Common
