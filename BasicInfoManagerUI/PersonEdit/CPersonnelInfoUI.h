#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QWidget>

namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace BasicInfoManagerUI {

/// The person editor: adds, edits and shows one person. User-interface thread.
class CPersonnelInfoUI : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the editor.
    explicit CPersonnelInfoUI(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);

    /// Each starts anew and asks for what it needs; shown by the caller. An answer to an earlier one is
    /// dropped.
    void AddPerson(const QString& sGroupCode);
    void EditPerson(const QString& sPersonId);
    void ShowPerson(const QString& sPersonId);

    void SetConnected(bool bConnected);
    /// Something was entered and is not saved.
    bool IsDirty() const;

Q_SIGNALS:
    /// The user is done with the editor.
    void SignalBack();
    /// A person was added or modified, so that lists are old. The editor may stay open for the next one.
    void SignalPersonSaved(const QString& sPersonId);
};

} // namespace BasicInfoManagerUI
