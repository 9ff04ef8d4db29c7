#pragma once

#include <GroupLogical/GroupRecords.h>
#include <UICommonMdl/CCodeTreeModel.h>

namespace Common {

/// MIME type of dragged devices: their ids, UTF-8, one a line.
inline constexpr const char* DeviceIdsMimeType = "application/x-configuration-device-ids";
/// MIME type of a dragged organisation: its code.
inline constexpr const char* OrganizationMimeType = "application/x-configuration-organization";

/// The organisation tree. It is shown as the server has it: a drop asks for a change and leaves the tree as
/// it is until the server's answer brings it anew. User-interface thread.
class COrganizationModel : public UICommonMdl::CCodeTreeModel
{
    Q_OBJECT

public:
    explicit COrganizationModel(QObject* pParent = nullptr);

    /// Replaces the tree; parents stand before their children. One whose parent is missing becomes a root.
    void SetOrganizations(const std::vector<GroupLogical::Organization_t>& vecOrganizations);
    const std::vector<GroupLogical::Organization_t>& GetOrganizations() const { return m_vecOrganizations; }

    /// Null when there is none. Valid until the next change.
    const GroupLogical::Organization_t* FindOrganization(const QString& sCode) const;

    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& listIndexes) const override;
    bool canDropMimeData(const QMimeData* pData, Qt::DropAction action, int nRow, int nColumn,
        const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* pData, Qt::DropAction action, int nRow, int nColumn,
        const QModelIndex& parent) override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction | Qt::CopyAction; }
    Qt::DropActions supportedDragActions() const override { return Qt::MoveAction; }

Q_SIGNALS:
    /// An organisation was dropped on its new parent.
    void SignalMoveOrg(QString sCode, QString sNewParentCode);
    /// Devices were dropped on their new organisation.
    void SignalModifyDeviceOrg(QVector<QString> vecDeviceIds, QString sOrgCode);

private:
    bool IsSelfOrBelow(const QModelIndex& index, const QString& sCode) const;

    std::vector<GroupLogical::Organization_t> m_vecOrganizations;
};

} // namespace Common
