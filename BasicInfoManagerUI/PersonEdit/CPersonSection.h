#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QWidget>

namespace BasicInfoManagerUI {

/// One section of the person editor: it shows some fields of the person and writes them back.
/// User-interface thread.
class CPersonSection : public QWidget
{
    Q_OBJECT

public:
    explicit CPersonSection(QWidget* pParent = nullptr)
        : QWidget(pParent)
    {
    }

    /// The heading over the section, translated.
    virtual QString GetTitle() const = 0;
    /// Shows the person; what was entered and its hints are gone. Emits nothing.
    virtual void SetPerson(const AccessControlLogical::Person_t& person) = 0;
    /// Writes the section's fields into the person; leaves the others.
    virtual void FillPerson(AccessControlLogical::Person_t& person) const = 0;
    /// The first thing that keeps the person from being saved, shown where it is, with the focus there;
    /// empty when all is well.
    virtual QString CheckInput() { return {}; }
    virtual void SetReadOnly(bool bReadOnly) = 0;
    virtual void SetConnected(bool) { }
    /// Shows the server's refusal of a member of the record at its field, with the focus there; false when
    /// the section does not show it.
    virtual bool ShowRefusal(const std::string& /*sMember*/, const QString& /*sText*/) { return false; }

Q_SIGNALS:
    /// The user changed something.
    void SignalChanged();
    /// Enter in a field: the person is complete.
    void SignalSubmit();
};

} // namespace BasicInfoManagerUI
