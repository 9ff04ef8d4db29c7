#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QWidget>

namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace BasicInfoManagerUI {

/// The page "Issue Card": one more card for each of several persons. User-interface thread.
class CBatchIssueCard : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the page.
    explicit CBatchIssueCard(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);

    /// Starts anew with these persons; shown by the caller.
    void SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons);
    void SetConnected(bool bConnected);
    /// Numbers were entered and are not saved.
    bool IsDirty() const;

Q_SIGNALS:
    /// The user is done: bIssued when cards were issued, so that lists are old. The reader is let go.
    void SignalBack(bool bIssued);
};

} // namespace BasicInfoManagerUI
