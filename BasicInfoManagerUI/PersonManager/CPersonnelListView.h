#pragma once

#include "CPersonModel.h"

#include <common/CListView.h>

namespace BasicInfoManagerUI {

/// The list of persons with their operations. User-interface thread.
class CPersonnelListView : public Common::CListView
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
    void SetPersons(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons);

Q_SIGNALS:
    /// In place of SignalOperation for RoleAbnormal.
    void SignalBtnAbnormalClicked(const QString& sPersonId, const QString& sPersonName);

protected:
    bool IsOffered(const QModelIndex& index, int nRole) const override;
    bool IsInMenu(const QModelIndex& index, int nRole) const override;
    void RaiseOperation(int nRole, const QModelIndex& index) override;
    void OpenRow(const QModelIndex& index) override;

private:
    CPersonModel* m_pModel;
};

} // namespace BasicInfoManagerUI
