#pragma once

#include <UICommonMdl/TextRule.h>
#include <VxGUI/VxGUIExport.h>

#include <QRegularExpression>
#include <QVector>
#include <QWidget>

#include <functional>
#include <string_view>

class QLabel;
class QLineEdit;

namespace VxGUI {

class FieldValidator;

/// A line edit with its checks declared beside it and an error hint under it. Checks run in the order in
/// which they were declared: while typing they set the hint live, CheckInput reports the first that fails.
/// A "%1" in the message of a limit becomes the limit. User-interface thread.
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

    /// The text must not be empty (blanks alone count as empty). The field is marked as required.
    void SetRequired(const QString& sMessage);
    /// Takes the requirement back, with its mark, and sets it again: some fields are required at times only.
    void SetRequiredNow(bool bRequired);
    /// SetLimit, then SetForbidden.
    void SetRule(
        const UICommonMdl::TextRule& rule, const QString& sLimitMessage, const QString& sForbiddenMessage);
    /// At most as many characters as the rule says: what is entered beyond them is left out, wherever the
    /// cursor is, and shows the message as a hint, when there is one. Line breaks that come with a text of
    /// elsewhere become blanks where the rule has one line. setText keeps a longer text; with a message
    /// CheckInput reports it.
    void SetLimit(const UICommonMdl::TextRule& rule, const QString& sMessage = QString());
    /// Characters that the rule does not allow can be typed and show the message.
    void SetForbidden(const UICommonMdl::TextRule& rule, const QString& sMessage);
    /// The text (UTF-8), unless it is empty, must hold; another one can be typed and shows the message.
    void SetCheck(const std::function<bool(std::string_view)>& holds, const QString& sMessage);

    /// Lets nothing be typed or pasted that the whole pattern, or a number of that range, cannot match any
    /// more. sMessage, when not empty, is shown as a hint on each refusal. Replaces the one set before.
    void SetTyped(const QRegularExpression& pattern, const QString& sMessage = QString());
    void SetTyped(const UICommonMdl::NumberRule& rule, const QString& sMessage = QString());

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

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    enum class CheckTime
    {
        Always,
        AtTheEnd ///< not while the field is being filled
    };
    struct Check
    {
        std::function<bool(const QString&)> holds;
        QString sMessage;
        CheckTime time;
    };
    QString FirstFailure(bool bWhileTyping) const;
    void AddCheck(std::function<bool(const QString&)> holds, const QString& sMessage,
        CheckTime time = CheckTime::Always);
    void UpdateMark();

    QLineEdit* m_pEdit;
    FieldValidator* m_pValidator; ///< owned by m_pEdit
    QLabel* m_pHint;
    QString m_sRequired; ///< message; empty: may be left empty
    bool m_bRequiredNow = true;
    QString m_sTooLong; ///< message of the limit
    QString m_sNotTyped; ///< message of what cannot be typed
    QVector<Check> m_vecChecks;
    QString m_sHintedText; ///< the text that the hint is about
    bool m_bRefused = false; ///< the hint is about what was not taken
};

} // namespace VxGUI
