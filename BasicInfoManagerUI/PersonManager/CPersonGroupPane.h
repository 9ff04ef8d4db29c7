#pragma once

#include <VxGUI/VxNotification.h>
#include <common/CCalls.h>

#include <QWidget>

#include <memory>

namespace Ui {
class CPersonGroupPane;
}
namespace UICommonMdl {
class CDepartmentModel;
}

namespace BasicInfoManagerUI {

class CPersonGroupEditUI;

/// The tree of person groups with its search and its tools: groups are chosen, added, changed and deleted
/// here. User-interface thread.
class CPersonGroupPane : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the pane's work. pPage owns the dialogs: the pane is disabled
    /// while the connection is lost, and they are not to be.
    CPersonGroupPane(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pPage);
    ~CPersonGroupPane() override;

    /// Of the chosen group; empty: none is chosen.
    QString GetCode() const;
    QString GetName() const;
    /// Whether the group sCode is sAncestor, or below it.
    bool IsWithin(const QString& sCode, const QString& sAncestor) const;

    /// Asks for the tree.
    void Query();
    /// Tells in the tree's place why there is none, as long as there is none.
    void ShowTreeState(int nErrorCode);
    /// Why groups cannot be changed, translated; empty: they can.
    void SetObstacle(const QString& sReason);

Q_SIGNALS:
    /// Another group is chosen, or none.
    void SignalGroupChanged();
    /// The tree came; the chosen group may be called otherwise.
    void SignalTreeChanged();
    /// bAddPerson: a person is to be added to the group next.
    void SignalGroupSaved(const QString& sCode, bool bAddPerson);
    /// With its sub-groups and all persons in them.
    void SignalGroupDeleted(const QString& sCode);
    /// Something is to be told.
    void SignalNotice(const QString& sText, VxGUI::NotificationKind kind);

private:
    using Param = AccessControlLogical::IDepartmentManagerObserver::Param;

    void SetUpTools();
    void UpdateTools();
    void OnDepartmentModelFinish();
    void OnBtnAddOrgClicked();
    void OnBtnModifyOrgClicked();
    void OnBtnDelOrgClicked();
    void OpenGroupEditor(CPersonGroupEditUI* pDialog);
    void OnGroupSaved(const QString& sCode, bool bAddPerson);
    void OnGroupDeleted(const QString& sCode, const QString& sParentCode, int nErrorCode);
    void ShowSelectGroup();

    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    QWidget* m_pPage;
    UICommonMdl::CDepartmentModel* m_pDepartments;
    std::unique_ptr<Ui::CPersonGroupPane> m_pUi;
    QString m_sObstacle;
    QString m_sSelectAfterQuery; ///< group to select once the tree shows it
    Common::CCalls<AccessControlLogical::IDepartmentManagerObserver> m_calls;
};

} // namespace BasicInfoManagerUI
