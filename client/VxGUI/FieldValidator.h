#pragma once

#include <UICommonMdl/TextRule.h>

#include <QPointer>
#include <QValidator>

#include <functional>
#include <optional>

class QLineEdit;
class QRegularExpression;

namespace VxGUI {

/// Keeps what is entered into a line edit to its limit and to what may be typed there. What goes beyond the
/// limit, by keys, an input method, the clipboard or a drop, is taken back, and as much of it as there is
/// room for goes in instead: what stood there stays, and one undo takes the whole entry back. Texts that a
/// program sets stay as they are.
class FieldValidator : public QValidator
{
public:
    enum class Refusal
    {
        Limit,
        Typed
    };

    /// onRefused is told each refusal, when the field is in order again. Owned by the field.
    FieldValidator(QLineEdit* pEdit, std::function<void(Refusal)> onRefused);

    void SetLimit(int nMax, UICommonMdl::TextLines lines);
    /// Only what the pattern, as a whole, or the number can become.
    void SetTyped(const QRegularExpression& pattern);
    void SetTyped(const UICommonMdl::NumberRule& rule);

    /// Puts a text in whole.
    void SetText(const QString& sText);

    State validate(QString& sText, int& nCursor) const override;

    /// The field's event function calls these around that of its base class; events come within events.
    void Begin();
    void End();

private:
    /// A text that is too long already may become shorter.
    bool BreaksLimit(const QString& sText) const;
    State CheckTyped(QString& sText, int& nCursor) const;
    /// Puts an entry that was refused in order, once the field has taken it back.
    void Settle();
    /// True when only line breaks had to be left out.
    bool EnterWhatFits(const QString& sRefused, int nEnd);

    QLineEdit* m_pEdit;
    std::function<void(Refusal)> m_onRefused;
    int m_nMax = -1; ///< below 0: no limit
    UICommonMdl::TextLines m_lines = UICommonMdl::TextLines::Several;
    QPointer<QValidator> m_pPattern;
    std::optional<UICommonMdl::NumberRule> m_optNumber;

    int m_nDepth = 0; ///< events that are being handled
    QString m_sBefore; ///< the text that the field had before it was changed
    // What was refused last, until Settle.
    mutable std::optional<Refusal> m_optRefusal;
    mutable QString m_sRefused; ///< the whole text
    mutable int m_nRefusedEnd = 0; ///< where the entry ended in it
};

} // namespace VxGUI
