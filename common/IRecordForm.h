#pragma once

#include <UICommonMdl/ErrorCodes.h>

#include <QString>

#include <string>
#include <utility>

namespace Common {

/// The form of one record, as its editor needs it; implemented by the dialog or page that has the fields.
template <class R>
class IRecordForm
{
public:
    /// Shows the record in place of what was entered.
    virtual void ShowRecord(const R& record) = 0;
    /// The record that was shown, with what was entered.
    virtual R GetEdited() const = 0;
    /// What is entered that the record does not hold, by the name of its field; empty: nothing.
    virtual QString GetOtherChange() const { return {}; }
    /// Checks the fields; the first failure is shown at its field, which gets the focus.
    virtual bool CheckInput() = 0;
    /// Asks the server to save; the answer goes to CEditor::OnAnswer.
    virtual void Send(const R& record, bool bNew) = 0;
    /// Asks the server for the record that has the key of this one or, when it is new, what makes it unique;
    /// the answer goes to CEditor::OnFetched.
    virtual void Fetch(const R& record, bool bNew) = 0;
    /// The server has it.
    virtual void OnSaved(const R& record) = 0;
    /// The server refused it; the form is as it was. True: the form has told it, at its field or its own way.
    virtual bool ShowRefusal(int /*nErrorCode*/, const std::string& /*sDetail*/) { return false; }
    /// The record could not be loaded; true: the form says so itself.
    virtual bool OnLoadFailed(int /*nErrorCode*/) { return false; }
    /// Code and detail of the refusal when another record has what makes a new one unique.
    virtual std::pair<int, std::string> GetTaken() const { return {UICommonMdl::ErrorNameExists, {}}; }

protected:
    ~IRecordForm() = default;
};

} // namespace Common
