#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QWidget>

namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace BasicInfoManagerUI {

/// The batch authorisation page: the same permissions for several persons. User-interface thread.
class CPersonnelBatchAuthorizeUI : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the page.
    explicit CPersonnelBatchAuthorizeUI(
        UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);

    /// Starts anew with these persons; shown by the caller.
    void SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons);
    void SetConnected(bool bConnected);
    /// Permissions were chosen and are not saved.
    bool IsDirty() const;
    /// The page's name, for the button that opens it.
    static QString GetTitle();

Q_SIGNALS:
    /// The user is done: bAuthorized when permissions were changed, so that lists are old.
    void SignalBack(bool bAuthorized);
};

} // namespace BasicInfoManagerUI
