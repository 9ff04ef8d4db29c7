#pragma once

#include "CPersonModel.h"

#include <QTreeView>

namespace Common {
class CFilterHeaderView;
class CRowButtonDelegate;
} // namespace Common

namespace BasicInfoManagerUI {

/// The list of persons with its row operations, keys and context menu. It asks for operations by its signals,
/// each with the ID of the person. User-interface thread.
class CPersonnelListView : public QTreeView
{
    Q_OBJECT

public:
    /// What is done with a person.
    enum RowRole : int
    {
        RoleEdit = 1,
        RoleDelete,
        RoleHistory,
        RoleReissue,
        RoleQrCode,
        RoleAbnormal,
        RoleDetails,
        RoleMove
    };

    explicit CPersonnelListView(QWidget* pParent = nullptr);

    CPersonModel* GetPersons() const { return m_pModel; }
    /// Replaces the rows; what was checked, selected and in view stays so.
    void SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons);

Q_SIGNALS:
    /// nRole: a RowRole other than RoleAbnormal.
    void SignalOperation(int nRole, const QString& sPersonId);
    void SignalBtnAbnormalClicked(const QString& sPersonId, const QString& sPersonName);
    void SignalChecksChanged();

private:
    void SetUpKeys();
    void RaiseOperation(int nRole, const QModelIndex& index);
    void OnContextMenu(const QPoint& pos);
    void OnToggleChecks();
    void OnChecksChanged();

    CPersonModel* m_pModel;
    Common::CFilterHeaderView* m_pHeader;
    Common::CRowButtonDelegate* m_pRowButtons;
};

} // namespace BasicInfoManagerUI
