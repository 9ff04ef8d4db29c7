#pragma once

#include <AccessControlLogical/PersonRecords.h>
#include <VxPluginAPI/IAbstractResourceManager.h>
#include <VxPluginAPI/IObserver.h>

#include <memory>
#include <optional>

namespace AccessControlLogical {

/// Hears what happens to the tree of person groups.
class IDepartmentManagerObserver : public VxPluginAPI::IObserver
{
public:
    enum ResultCode : int
    {
        ResultQueryDepartmentTree = 1,
        ResultAddDepartment,
        ResultModifyDepartment,
        ResultDeleteDepartment,

        ResultDepartmentsChanged = 100, ///< pushed: somebody changed the tree
    };

    /// One answer, or one push (nSequence 0). Fields that the operation does not fill are empty.
    struct Param
    {
        int nResultCode = 0; ///< ResultCode
        int nSequence = 0; ///< the number that the call returned; 0: pushed by the server
        int nErrorCode = 0; ///< UICommonMdl::ErrorCode
        std::string sErrorDetail; ///< the server's own words on the error, may be empty
        /// All, parents before children (query), or the one that was added or modified.
        std::vector<Department_t> vecDepartments;
    };
    /// Shared by all who hear it and never changed.
    using Answer = std::shared_ptr<const Param>;

    /// Comes on a thread of the host: keep the pointer or leave it, and return.
    virtual void OnNotifyDepartmentManagerState(const Answer& pAnswer) = 0;
};

/// Hears what happens to persons.
class IPersonManagerObserver : public VxPluginAPI::IObserver
{
public:
    enum ResultCode : int
    {
        ResultQueryPersonList = 1,
        ResultQueryPersonDetail,
        ResultAddPerson,
        ResultModifyPerson,
        ResultDeletePersons,
        ResultDeleteAllPersons,
        ResultMovePersons,
        ResultIssueCards,
        ResultAuthorizePersons,
        ResultReissuePersonRight,
        ResultQueryAuthorizeException,
        ResultQueryPermissionChoices,
        ResultQueryResidenceScenario,
        ResultQueryQrCode,
        ResultCaptureFingerprint,
        ResultExtractPersons,

        ResultPersonsChanged = 100, ///< pushed: somebody changed persons, or their rights reached devices
    };

    /// One answer, or one push (nSequence 0). Fields that the operation does not fill are empty.
    struct Param
    {
        int nResultCode = 0; ///< ResultCode
        int nSequence = 0; ///< the number that the call returned; 0: pushed by the server
        int nErrorCode = 0; ///< UICommonMdl::ErrorCode
        std::string sErrorDetail; ///< ErrorInvalidInput: the field; else the server's own words
        PersonPage_t personPage;
        std::optional<Person_t> optPerson; ///< detail, add and modify: as it is now
        std::vector<PersonFailure_t> vecFailed; ///< delete, move, authorise: what was refused
        std::vector<PersonClash_t> vecClashes; ///< of ErrorPersonDuplicate
        PermissionChoices_t choices;
        ResidenceScenario_t residence;
        PersonQrCode_t qrCode;
        std::string sFingerprintData; ///< captured template in Base64; empty: the device saw no finger
        std::vector<AuthorizeException_t> vecExceptions; ///< query, and what a re-issue left
        std::vector<Person_t> vecPersons; ///< extract: the persons that the device holds
    };
    /// Shared by all who hear it and never changed.
    using Answer = std::shared_ptr<const Param>;

    /// Comes on a thread of the host: keep the pointer or leave it, and return.
    virtual void OnNotifyPersonManagerState(const Answer& pAnswer) = 0;
};

/// Hears answers about access records.
class IAccessControlManagerObserver : public VxPluginAPI::IObserver
{
public:
    enum ResultCode : int
    {
        ResultQueryRecordTotal = 1,
        ResultQueryRecords,
    };

    struct Param
    {
        int nResultCode = 0; ///< ResultCode
        int nSequence = 0; ///< the number that the call returned
        int nErrorCode = 0; ///< UICommonMdl::ErrorCode
        int nTotal = 0; ///< of all pages
        std::vector<AccessRecord_t> vecRecords;
    };
    /// Shared by all who hear it and never changed.
    using Answer = std::shared_ptr<const Param>;

    /// Comes on a thread of the host: keep the pointer or leave it, and return.
    virtual void OnNotifyAccessControlManagerState(const Answer& pAnswer) = 0;
};

/// Persons, their groups and credentials.
///
/// Calls are made on the user-interface thread, return at once and never throw. A number above 0 is the
/// request's number: exactly one answer with it follows (success, an error code or a time-out code). 0 or
/// less: the call was refused, nothing was sent and no answer follows.
class IAccessControlManager : public VxPluginAPI::IManager
{
public:
    static constexpr const char* InterfaceId = "AccessControlLogical.IAccessControlManager(1.0)";

    /// Observers are borrowed. After RemoveObserver has returned no callback runs on that observer.
    virtual void AddObserver(IDepartmentManagerObserver* pObserver) = 0;
    virtual void RemoveObserver(IDepartmentManagerObserver* pObserver) = 0;
    virtual void AddObserver(IPersonManagerObserver* pObserver) = 0;
    virtual void RemoveObserver(IPersonManagerObserver* pObserver) = 0;
    virtual void AddObserver(IAccessControlManagerObserver* pObserver) = 0;
    virtual void RemoveObserver(IAccessControlManagerObserver* pObserver) = 0;

    // Answered to IDepartmentManagerObserver.

    virtual int QueryDepartmentTree() = 0;
    /// sParentCode, sName and sRemark are read.
    virtual int AddDepartment(const Department_t& department) = 0;
    /// Parent, name and remark of the group with that code and version. Refusals: ErrorNameExists,
    /// ErrorOrganizationDepth, ErrorOrganizationCycle, ErrorOrganizationRoot (the root got a parent),
    /// ErrorVersionConflict, ErrorNotFound.
    virtual int ModifyDepartment(const Department_t& department) = 0;
    /// Deletes the group, its sub-groups and all persons in them.
    virtual int DeleteDepartment(const std::string& sCode) = 0;

    // Answered to IPersonManagerObserver.

    virtual int QueryPersonList(const PersonPageRequest_t& request) = 0;
    virtual int QueryPersonDetail(const std::string& sPersonId) = 0;
    /// Refusals: ErrorPersonDuplicate with vecClashes, ErrorInvalidInput with the field, ErrorNotFound (the
    /// group, or something that was chosen; the detail names the field), ErrorPhoto.
    virtual int AddPerson(const Person_t& person) = 0;
    /// As AddPerson, and ErrorVersionConflict.
    virtual int ModifyPerson(const Person_t& person) = 0;
    /// At most PersonBatchLimit, as in all batches. Persons that are gone already count as deleted.
    virtual int DeletePersons(const std::vector<std::string>& vecPersonIds) = 0;
    virtual int DeleteAllPersons(const std::string& sGroupCode, bool bSubGroups) = 0;
    virtual int MovePersons(const std::vector<std::string>& vecPersonIds, const std::string& sGroupCode) = 0;
    /// Gives each person one more card, all or none, and all of them that validity period (as in Person_t;
    /// both 0: theirs is kept). Refused with ErrorPersonDuplicate and vecClashes.
    virtual int IssueCards(
        const std::vector<IssueCard_t>& vecCards, std::int64_t nValidFrom, std::int64_t nValidTo) = 0;
    /// Replaces the access permission groups and face comparison groups of the persons.
    virtual int AuthorizePersons(const std::vector<std::string>& vecPersonIds,
        const std::vector<std::string>& vecAccessGroups, const std::vector<std::string>& vecFaceGroups) = 0;
    /// Sends all rights of the person to the devices again; answered when each device has done or refused
    /// it, vecExceptions being what is left.
    virtual int ReissuePersonRight(const std::string& sPersonId) = 0;
    virtual int QueryAuthorizeException(const std::string& sPersonId) = 0;
    virtual int QueryPermissionChoices() = 0;
    virtual int QueryResidenceScenario() = 0;
    virtual int QueryQrCode(const std::string& sPersonId) = 0;
    /// The access-control device waits for a finger, up to 30 seconds (ErrorDeviceTimeOut), and delivers its
    /// template.
    virtual int CaptureFingerprint(const std::string& sDeviceId) = 0;
    /// The persons that an access-control device holds, at most 1000.
    virtual int ExtractPersons(const std::string& sDeviceId) = 0;

    // Answered to IAccessControlManagerObserver.

    /// How many records there are; page and page size are not read.
    virtual int QueryRecordTotal(const AccessRecordRequest_t& request) = 0;
    virtual int QueryRecords(const AccessRecordRequest_t& request) = 0;
};

} // namespace AccessControlLogical
