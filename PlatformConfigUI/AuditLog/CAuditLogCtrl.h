#pragma once

#include <common/CListPage.h>

namespace PlatformConfigUI {

class CAuditExport;
class CAuditFilter;
class CAuditListView;

/// The log of who changed what: filters, pages and export. User-interface thread.
class CAuditLogCtrl : public Common::CListPage
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the page.
    explicit CAuditLogCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);

protected:
    /// The log goes on while other pages are shown: it is asked for again.
    void showEvent(QShowEvent* pEvent) override;

private:
    using Param = UserLogical::IUserManagerObserve::Param;
    void Query() override;
    void QueryAll() override;
    bool IsFiltered() const override;

    void SetUpToolBar();
    void OnSearch();
    void OnPage(const Param& param);

    CAuditFilter* m_pFilter;
    CAuditListView* m_pList;
    CAuditExport* m_pExport;
    UserLogical::AuditRequest_t m_request; ///< whose entries are shown
    Common::CCalls<UserLogical::IUserManagerObserve> m_calls;
};

} // namespace PlatformConfigUI
