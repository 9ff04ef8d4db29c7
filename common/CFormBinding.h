#pragma once

#include "RecordFields.h"

#include <VxGUI/RequiredMark.h>
#include <VxGUI/VxLineEdit.h>

namespace Common {

/// The text fields of a form and the members of a record that they show. What is entered is read without the
/// blanks around it. User-interface thread.
template <class R>
class CFormBinding
{
public:
    /// fields is borrowed; each bound field is added to it under its name.
    explicit CFormBinding(RecordFields<R>& fields)
        : m_fields(fields)
    {
    }

    /// pEdit is borrowed.
    void Text(std::string R::*pMember, VxGUI::VxLineEdit* pEdit)
    {
        m_fields.Add(VxGUI::GetFieldName(pEdit), pMember);
        m_vecTexts.push_back({pMember, pEdit});
    }
    void Show(const R& record) const
    {
        for (const auto& [pMember, pEdit] : m_vecTexts) {
            pEdit->setText(QString::fromStdString(record.*pMember));
            pEdit->ClearErrorHint();
        }
    }
    void Read(R& record) const
    {
        for (const auto& [pMember, pEdit] : m_vecTexts)
            record.*pMember = pEdit->text().trimmed().toStdString();
    }
    /// False when a field breaks its rule: it says so and has the focus.
    bool Check() const
    {
        for (const auto& [pMember, pEdit] : m_vecTexts) {
            if (pEdit->text() != pEdit->text().trimmed())
                pEdit->setText(pEdit->text().trimmed());
            if (pEdit->CheckInput().isEmpty())
                continue;
            pEdit->GetLineEdit()->setFocus();
            return false;
        }
        return true;
    }

private:
    RecordFields<R>& m_fields;
    std::vector<std::pair<std::string R::*, VxGUI::VxLineEdit*>> m_vecTexts;
};

} // namespace Common
