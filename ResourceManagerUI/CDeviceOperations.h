#pragma once

#include <common/CCalls.h>

namespace Common {
class COrganizationModel;
class CPage;
} // namespace Common

namespace ResourceManagerUI {

class CDeviceModel;

/// What the device page does with devices that are there: each operation asks what it has to ask, sends it
/// and tells what failed. User-interface thread.
class CDeviceOperations : public QObject
{
    Q_OBJECT

public:
    /// The page owns this object; the models are borrowed and outlive it.
    CDeviceOperations(
        Common::CPage* pPage, CDeviceModel* pDevices, const Common::COrganizationModel* pOrganizations);

    /// Devices are shown or checked ones of the model, which tells their names.
    void Delete(const QStringList& listIds);
    /// Asks where to.
    void MoveTo(const QStringList& listIds);
    void Move(const QVector<QString>& vecIds, const QString& sOrgCode);
    void ModifyPasswords(const QStringList& listIds);
    void SetTimeZones(const QStringList& listIds);
    void ShowAccess(const QString& sDeviceId);

Q_SIGNALS:
    /// The list may be another one now.
    void SignalChanged();

private:
    using Param = GroupLogical::IGroupManagerObserver::Param;
    bool IsSomethingChosen(const QStringList& listIds);
    void OnMoveAnswer(const Param& param);

    Common::CPage* m_pPage;
    CDeviceModel* m_pDevices;
    const Common::COrganizationModel* m_pOrganizations;
    Common::CCalls<GroupLogical::IGroupManagerObserver> m_calls;
};

} // namespace ResourceManagerUI
