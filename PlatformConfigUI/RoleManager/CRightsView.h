#pragma once

#include <common/CSession.h>

#include <QWidget>

#include <memory>

namespace Common {
class CTreeFilterProxyModel;
}
namespace Ui {
class CRightsView;
}
namespace VxGUI {
class VxEmptyState;
class VxSearchBox;
} // namespace VxGUI
class QStackedWidget;

namespace PlatformConfigUI {

class CDeviceRightModel;
class CRightModel;
class CRightSortFilterProxyModel;
class CRightTreeView;

/// The three rights trees (menu, function, devices). Either the rights of one role to be edited, or what
/// several roles give together to look at, where each right says which role gives it. User-interface thread.
class CRightsView : public QWidget
{
    Q_OBJECT

public:
    enum class Mode
    {
        Edit,
        ReadOnly
    };
    /// pInterfaceSet is borrowed.
    CRightsView(
        const UICommonMdl::CInterfaceSetManager* pInterfaceSet, Mode mode, QWidget* pParent = nullptr);
    ~CRightsView() override;

    /// Shows the rights of these roles together (as QueryRoleInfo and QueryUserRole answer them).
    void ShowRoles(const std::vector<UserLogical::Role_t>& vecRoles);

    /// The rights as they are now, sorted.
    std::vector<std::string> GetMenuRights() const;
    std::vector<std::string> GetFuncRights() const;
    /// What was changed of the device rights since the role was shown.
    std::vector<UserLogical::DeviceRightChange_t> GetDeviceChanges() const;
    /// What a menu or function right is called; empty for an unknown one.
    QString GetRightName(const QString& sCode) const;

Q_SIGNALS:
    /// The operator changed a right.
    void SignalEdited();

private:
    /// One of the two trees that come at once.
    struct RightTab
    {
        CRightModel* pModel;
        CRightSortFilterProxyModel* pProxy;
        CRightTreeView* pTree;
        VxGUI::VxSearchBox* pSearch;
        QStackedWidget* pStack;
        VxGUI::VxEmptyState* pState;
    };
    void SetUpRights(const RightTab& tab, int nMode);
    void SetUpDevices();
    void SetUpDeviceKeys();
    void UpdateRights(const RightTab& tab);
    void UpdateDevices();
    /// The server is back: asks for what did not come.
    void QueryFailed();
    void ShowFailed(VxGUI::VxEmptyState* pState, int nErrorCode);
    void OnBranchFailed(const QModelIndex& source, int nErrorCode);
    void OnDeviceMenu(const QPoint& pos);
    void OnToggleAuto(const QModelIndex& index);

    Mode m_mode;
    std::unique_ptr<Ui::CRightsView> m_pUi;
    RightTab m_menu;
    RightTab m_func;
    CDeviceRightModel* m_pDevices;
    Common::CTreeFilterProxyModel* m_pDeviceFilter;
    Common::CSession m_session;
};

} // namespace PlatformConfigUI
