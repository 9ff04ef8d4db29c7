#pragma once

#include "ObserverList.h"
#include "PlatformLogicExport.h"

#include <AccessControlLogical/IAccessControlManager.h>

namespace PlatformLogic {

class CUserManager;
class IServerConnection;
struct JobReport;

/// Persons of the server, their groups and credentials.
class PLATFORMLOGIC_EXPORT CAccessControlManager : public AccessControlLogical::IAccessControlManager
{
public:
    /// Both are borrowed and outlive the manager.
    CAccessControlManager(IServerConnection& connection, CUserManager& userManager);

    void AddObserver(AccessControlLogical::IDepartmentManagerObserver* pObserver) override;
    void RemoveObserver(AccessControlLogical::IDepartmentManagerObserver* pObserver) override;
    void AddObserver(AccessControlLogical::IPersonManagerObserver* pObserver) override;
    void RemoveObserver(AccessControlLogical::IPersonManagerObserver* pObserver) override;
    void AddObserver(AccessControlLogical::IAccessControlManagerObserver* pObserver) override;
    void RemoveObserver(AccessControlLogical::IAccessControlManagerObserver* pObserver) override;

    int QueryDepartmentTree() override;
    int AddDepartment(const AccessControlLogical::Department_t& department) override;
    int ModifyDepartment(const AccessControlLogical::Department_t& department) override;
    int DeleteDepartment(const std::string& sCode) override;

    int QueryPersonList(const AccessControlLogical::PersonPageRequest_t& request) override;
    int QueryPersonDetail(const std::string& sPersonId) override;
    int AddPerson(const AccessControlLogical::Person_t& person) override;
    int ModifyPerson(const AccessControlLogical::Person_t& person) override;
    int DeletePersons(const std::vector<std::string>& vecPersonIds) override;
    int DeleteAllPersons(const std::string& sGroupCode, bool bSubGroups) override;
    int MovePersons(const std::vector<std::string>& vecPersonIds, const std::string& sGroupCode) override;
    int IssueCards(const std::vector<AccessControlLogical::IssueCard_t>& vecCards, std::int64_t nValidFrom,
        std::int64_t nValidTo) override;
    int AuthorizePersons(const std::vector<std::string>& vecPersonIds,
        const std::vector<std::string>& vecAccessGroups,
        const std::vector<std::string>& vecFaceGroups) override;
    int ReissuePersonRight(const std::string& sPersonId) override;
    int QueryAuthorizeException(const std::string& sPersonId) override;
    int QueryPermissionChoices() override;
    int QueryResidenceScenario() override;
    int QueryQrCode(const std::string& sPersonId) override;
    int CaptureFingerprint(const std::string& sDeviceId) override;
    int ExtractPersons(const std::string& sDeviceId) override;

    int QueryRecordTotal(const AccessControlLogical::AccessRecordRequest_t& request) override;
    int QueryRecords(const AccessControlLogical::AccessRecordRequest_t& request) override;

    /// Tell the observers of something that the server pushed.
    void NotifyDepartmentsChanged();
    void NotifyPersonsChanged();

private:
    using DepartmentParam = AccessControlLogical::IDepartmentManagerObserver::Param;
    using PersonParam = AccessControlLogical::IPersonManagerObserver::Param;
    using RecordParam = AccessControlLogical::IAccessControlManagerObserver::Param;

    /// Sends the operation; take(param, data) moves the answer's data into the observers' record.
    template <class Op, class Param, class Take>
    int Call(int nResultCode, const typename Op::Request& request, Take take);
    /// As Call, for work that goes on beside its request; take(param, report) gets its end.
    template <class Op, class Take>
    int Work(int nResultCode, const typename Op::Request& request, Take take);
    void Notify(DepartmentParam&& param);
    void Notify(PersonParam&& param);
    void Notify(RecordParam&& param);

    IServerConnection& m_connection;
    CUserManager& m_userManager;
    ObserverList<AccessControlLogical::IDepartmentManagerObserver> m_departmentObservers;
    ObserverList<AccessControlLogical::IPersonManagerObserver> m_personObservers;
    ObserverList<AccessControlLogical::IAccessControlManagerObserver> m_recordObservers;
};

} // namespace PlatformLogic
