#pragma once

#include <VxGUI/VxGUIExport.h>

#include <QRegularExpression>
#include <QVector>
#include <QWidget>

class QLabel;
class QLineEdit;

namespace VxGUI {

/// A line edit with its checks declared beside it and an error hint under it. Checks run in the order in
/// which they were declared: while typing they set the hint live, CheckInput reports the first that fails.
/// User-interface thread.
class VXGUI_EXPORT VxLineEdit : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged USER true)
    Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)
    Q_PROPERTY(bool password READ isPassword WRITE setPassword)

public:
    explicit VxLineEdit(QWidget* pParent = nullptr);

    QString text() const;
    void setText(const QString& sText);
    QString placeholderText() const;
    void setPlaceholderText(const QString& sText);
    bool isPassword() const;
    void setPassword(bool bPassword);
    void setReadOnly(bool bReadOnly);

    /// The text must not be empty (blanks alone count as empty).
    void SetRequired(const QString& sMessage);
    /// At most nMaxLength characters; typing and pasting beyond it is cut and shows the message as a hint.
    void SetMaxLimit(int nMaxLength, const QString& sMessage);
    /// The whole text must match; what does not match can be typed and shows the message.
    void SetPattern(const QRegularExpression& pattern, const QString& sMessage);

    /// Runs the checks; on a failure shows its message under the field and answers it, else an empty text.
    QString CheckInput();
    /// Shows a message of elsewhere (the server's refusal, say) under the field until the text is changed.
    void SetErrorHint(const QString& sMessage);
    void ClearErrorHint();
    QString GetErrorHint() const;

    QLineEdit* GetLineEdit() const { return m_pEdit; }

Q_SIGNALS:
    void textChanged(const QString& sText);
    void textEdited(const QString& sText);
    void returnPressed();

private:
    enum class CheckKind
    {
        Required,
        Limit,
        Pattern
    };
    struct Check
    {
        CheckKind kind;
        int nLimit;
        QRegularExpression pattern;
        QString sMessage;
    };
    QString FirstFailure(bool bWhileTyping) const;
    void OnTextEdited(const QString& sText);

    QLineEdit* m_pEdit;
    QLabel* m_pHint;
    QVector<Check> m_vecChecks;
    QString m_sHintedText; ///< the text that the hint is about
};

} // namespace VxGUI
