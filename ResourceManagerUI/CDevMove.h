#pragma once

#include <GroupLogical/GroupRecords.h>

#include <QDialog>

class QTreeView;

namespace Common {
class COrganizationModel;
}

namespace ResourceManagerUI {

/// Asks for the organisation that devices move to. User-interface thread.
class CDevMove : public QDialog
{
    Q_OBJECT

public:
    CDevMove(const std::vector<GroupLogical::Organization_t>& vecOrganizations,
        const QStringList& listDeviceIds, QWidget* pParent);

    void accept() override;

Q_SIGNALS:
    void SignalShowNotify(QString sText);
    /// The choice was made.
    void SignalMove(QVector<QString> vecDeviceIds, QString sOrgCode);

private:
    QStringList m_listDeviceIds;
    Common::COrganizationModel* m_pModel;
    QTreeView* m_pTree;
};

} // namespace ResourceManagerUI
