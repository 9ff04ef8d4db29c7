#pragma once

#include "FakeManager.h"

#include <AccessControlLogical/IAccessControlManager.h>

/// Persons, their groups and access records: a fake for each kind of observer. The argument of a call is what
/// the operation took, several as a pair or tuple.
class FakeAccessControlManager : public AccessControlLogical::IAccessControlManager
{
public:
    using DepartmentObserver = AccessControlLogical::IDepartmentManagerObserver;
    using PersonObserver = AccessControlLogical::IPersonManagerObserver;
    using RecordObserver = AccessControlLogical::IAccessControlManagerObserver;
    using Ids = std::vector<std::string>;

    void AddObserver(DepartmentObserver* pObserver) override { departments.Add(pObserver); }
    void RemoveObserver(DepartmentObserver* pObserver) override { departments.Remove(pObserver); }
    void AddObserver(PersonObserver* pObserver) override { persons.Add(pObserver); }
    void RemoveObserver(PersonObserver* pObserver) override { persons.Remove(pObserver); }
    void AddObserver(RecordObserver* pObserver) override { records.Add(pObserver); }
    void RemoveObserver(RecordObserver* pObserver) override { records.Remove(pObserver); }

    int QueryDepartmentTree() override
    {
        return departments.Call("QueryDepartmentTree", DepartmentObserver::ResultQueryDepartmentTree);
    }
    int AddDepartment(const AccessControlLogical::Department_t& department) override
    {
        return departments.Call("AddDepartment", DepartmentObserver::ResultAddDepartment, department);
    }
    int ModifyDepartment(const AccessControlLogical::Department_t& department) override
    {
        return departments.Call("ModifyDepartment", DepartmentObserver::ResultModifyDepartment, department);
    }
    int DeleteDepartment(const std::string& sCode) override
    {
        return departments.Call("DeleteDepartment", DepartmentObserver::ResultDeleteDepartment, sCode);
    }
    int QueryPersonList(const AccessControlLogical::PersonPageRequest_t& request) override
    {
        return persons.Call("QueryPersonList", PersonObserver::ResultQueryPersonList, request);
    }
    int QueryPersonDetail(const std::string& sPersonId) override
    {
        return persons.Call("QueryPersonDetail", PersonObserver::ResultQueryPersonDetail, sPersonId);
    }
    int AddPerson(const AccessControlLogical::Person_t& person) override
    {
        return persons.Call("AddPerson", PersonObserver::ResultAddPerson, person);
    }
    int ModifyPerson(const AccessControlLogical::Person_t& person) override
    {
        return persons.Call("ModifyPerson", PersonObserver::ResultModifyPerson, person);
    }
    int DeletePersons(const Ids& vecPersonIds) override
    {
        return persons.Call("DeletePersons", PersonObserver::ResultDeletePersons, vecPersonIds);
    }
    int DeleteAllPersons(const std::string& sGroupCode, bool bSubGroups) override
    {
        return persons.Call(
            "DeleteAllPersons", PersonObserver::ResultDeleteAllPersons, std::pair(sGroupCode, bSubGroups));
    }
    int MovePersons(const Ids& vecPersonIds, const std::string& sGroupCode) override
    {
        return persons.Call(
            "MovePersons", PersonObserver::ResultMovePersons, std::pair(vecPersonIds, sGroupCode));
    }
    int IssueCards(const std::vector<AccessControlLogical::IssueCard_t>& vecCards, std::int64_t nValidFrom,
        std::int64_t nValidTo) override
    {
        return persons.Call(
            "IssueCards", PersonObserver::ResultIssueCards, std::tuple(vecCards, nValidFrom, nValidTo));
    }
    int AuthorizePersons(
        const Ids& vecPersonIds, const Ids& vecAccessGroups, const Ids& vecFaceGroups) override
    {
        return persons.Call("AuthorizePersons", PersonObserver::ResultAuthorizePersons,
            std::tuple(vecPersonIds, vecAccessGroups, vecFaceGroups));
    }
    int ReissuePersonRight(const std::string& sPersonId) override
    {
        return persons.Call("ReissuePersonRight", PersonObserver::ResultReissuePersonRight, sPersonId);
    }
    int QueryAuthorizeException(const std::string& sPersonId) override
    {
        return persons.Call(
            "QueryAuthorizeException", PersonObserver::ResultQueryAuthorizeException, sPersonId);
    }
    int QueryPermissionChoices() override
    {
        return persons.Call("QueryPermissionChoices", PersonObserver::ResultQueryPermissionChoices);
    }
    int QueryResidenceScenario() override
    {
        return persons.Call("QueryResidenceScenario", PersonObserver::ResultQueryResidenceScenario);
    }
    int QueryQrCode(const std::string& sPersonId) override
    {
        return persons.Call("QueryQrCode", PersonObserver::ResultQueryQrCode, sPersonId);
    }
    int CaptureFingerprint(const std::string& sDeviceId) override
    {
        return persons.Call("CaptureFingerprint", PersonObserver::ResultCaptureFingerprint, sDeviceId);
    }
    int ExtractPersons(const std::string& sDeviceId) override
    {
        return persons.Call("ExtractPersons", PersonObserver::ResultExtractPersons, sDeviceId);
    }
    int QueryRecordTotal(const AccessControlLogical::AccessRecordRequest_t& request) override
    {
        return records.Call("QueryRecordTotal", RecordObserver::ResultQueryRecordTotal, request);
    }
    int QueryRecords(const AccessControlLogical::AccessRecordRequest_t& request) override
    {
        return records.Call("QueryRecords", RecordObserver::ResultQueryRecords, request);
    }

    /// Answers the queries of a page at once: a small tree of groups, the persons below, what their
    /// permissions are chosen from; details are those of vecDetails, or the ID and name of the row.
    void ServeSite();

    FakeManager<DepartmentObserver, DepartmentObserver::Param> departments{
        &DepartmentObserver::OnNotifyDepartmentManagerState};
    FakeManager<PersonObserver, PersonObserver::Param> persons{&PersonObserver::OnNotifyPersonManagerState};
    FakeManager<RecordObserver, RecordObserver::Param> records{
        &RecordObserver::OnNotifyAccessControlManagerState};

    std::vector<AccessControlLogical::Department_t> vecDepartments;
    std::vector<AccessControlLogical::PersonInfo_t> vecPersons;
    std::vector<AccessControlLogical::Person_t> vecDetails;
};
