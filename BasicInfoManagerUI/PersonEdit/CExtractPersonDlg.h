#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

#include <VxGUI/VxEmptyState.h>

#include <QDialog>

class QComboBox;
class QPushButton;
class QSortFilterProxyModel;
class QStackedWidget;
class QTableView;
namespace Common {
class CTableModel;
}
namespace VxGUI {
class VxSearchBox;
}

namespace BasicInfoManagerUI {

/// Asks an access-control device for the persons that it holds, and lets the user choose one. Deletes itself
/// when it is closed. User-interface thread.
class CExtractPersonDlg : public QDialog
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the dialog.
    CExtractPersonDlg(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent);

    void accept() override;

Q_SIGNALS:
    /// The user chose this person.
    void SignalPerson(const AccessControlLogical::Person_t& person);

private:
    using PersonParam = AccessControlLogical::IPersonManagerObserver::Param;
    using GroupParam = GroupLogical::IGroupManagerObserver::Param;

    void SetUpList();
    void SetUpLayout();
    void QueryDevices();
    void OnDevices(const GroupParam& param);
    void QueryPersons();
    void OnPersons(const PersonParam& param);
    /// Shows the state in place of the list; kind Failed offers to try what failed again.
    void ShowState(VxGUI::VxEmptyState::Kind kind, const QString& sTitle, const QString& sText = QString());
    void UpdateButtons();
    /// Null when no row is selected.
    const AccessControlLogical::Person_t* GetSelected() const;

    QComboBox* m_pDevices;
    QPushButton* m_pQuery;
    VxGUI::VxSearchBox* m_pSearch;
    QStackedWidget* m_pStack;
    QTableView* m_pView;
    VxGUI::VxEmptyState* m_pState;
    QPushButton* m_pOk = nullptr;
    Common::CTableModel* m_pModel;
    QSortFilterProxyModel* m_pProxy;
    std::vector<AccessControlLogical::Person_t> m_vecPersons;
    Common::CSession m_session;
    Common::CCalls<AccessControlLogical::IPersonManagerObserver> m_personCalls;
    Common::CCalls<GroupLogical::IGroupManagerObserver> m_groupCalls;
};

} // namespace BasicInfoManagerUI
