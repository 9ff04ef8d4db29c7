#pragma once

#include <GroupLogical/GroupRecords.h>

#include <QDialog>

namespace Common {
class CTreeChoice;
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
    Common::CTreeChoice* m_pChoice;
};

} // namespace ResourceManagerUI
