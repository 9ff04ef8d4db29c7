#pragma once

#include <common/COrganizationModel.h>

#include <QWidget>

#include <memory>

namespace Ui {
class COrganizationTreeCtrl;
}

namespace ResourceManagerUI {

/// The organisation tree with its tool bar, filter and context menu. It asks for changes by its signals and
/// shows what SetOrganizations gives it. User-interface thread.
class COrganizationTreeCtrl : public QWidget
{
    Q_OBJECT

public:
    explicit COrganizationTreeCtrl(QWidget* pParent = nullptr);
    ~COrganizationTreeCtrl() override;

    /// Levels that the tree may have, the root being level 1.
    void SetLevelLimit(int nLevels) { m_nLevelLimit = nLevels; }
    /// Replaces the tree; what was selected and unfolded stays so.
    void SetOrganizations(const std::vector<GroupLogical::Organization_t>& vecOrganizations);
    const Common::COrganizationModel* GetModel() const { return m_pModel; }
    /// Code of the selected organisation; empty: none.
    QString GetCurrentCode() const;
    void SelectCode(const QString& sCode);

Q_SIGNALS:
    void SignalSelectionChanged(const QModelIndex& index);
    void SignalAddOrg(const QString& sParentCode);
    void SignalModifyOrg(const QString& sCode, const QString& sName, const QString& sRemark);
    void SignalDeleteOrg(QString sCode);
    void SignalMoveOrg(QString sCode, QString sNewParentCode);
    void SignalModifyDeviceOrg(QVector<QString> vecDeviceIds, QString sOrgCode);

private:
    void OnAddClicked();
    void OnEditClicked();
    void OnDeleteClicked();
    void OnContextMenu(const QPoint& pos);
    void UpdateButtons();

    std::unique_ptr<Ui::COrganizationTreeCtrl> m_pUi;
    Common::COrganizationModel* m_pModel;
    int m_nLevelLimit = 0;
};

} // namespace ResourceManagerUI
