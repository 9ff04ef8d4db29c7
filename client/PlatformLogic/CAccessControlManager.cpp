#include "CAccessControlManager.h"

#include "CUserManager.h"
#include "JobFollower.h"
#include "ServerCall.h"

namespace PlatformLogic {

using namespace AccessControlLogical;
using DepartmentResult = IDepartmentManagerObserver;
using PersonResult = IPersonManagerObserver;
using RecordResult = IAccessControlManagerObserver;

namespace {

constexpr auto TakeDepartment = [](DepartmentResult::Param& param, Department_t&& department) {
    if (param.nErrorCode == UICommonMdl::ErrorNone)
        param.vecDepartments.push_back(std::move(department));
};
constexpr auto TakePerson = [](PersonResult::Param& param, Person_t&& person) {
    if (param.nErrorCode == UICommonMdl::ErrorNone)
        param.optPerson = std::move(person);
};
constexpr auto TakeFailedPersons = [](PersonResult::Param& param, wire::PersonBatchAnswer&& answer) {
    param.vecFailed = std::move(answer.vecFailed);
    for (const PersonFailure_t& failure : param.vecFailed) {
        if (failure.nErrorCode != UICommonMdl::ErrorPersonDuplicate)
            continue;
        const auto vecClashes = wire::ClashesOf(failure.sDetail);
        param.vecClashes.insert(param.vecClashes.end(), vecClashes.begin(), vecClashes.end());
    }
};

/// What came with a failure.
void TakeDetail(DepartmentResult::Param& param, std::string&& sDetail)
{
    param.sErrorDetail = std::move(sDetail);
}
void TakeDetail(PersonResult::Param& param, std::string&& sDetail)
{
    if (param.nErrorCode == UICommonMdl::ErrorPersonDuplicate)
        param.vecClashes = wire::ClashesOf(sDetail);
    param.sErrorDetail = std::move(sDetail);
}
void TakeDetail(RecordResult::Param& /*param*/, std::string&& /*sDetail*/) { }

/// The end of a job as its record; a failure when it cannot be read.
template <class Record>
Record SummaryOf(PersonResult::Param& param, const JobReport& report)
{
    Record record;
    if (param.nErrorCode != UICommonMdl::ErrorNone)
        return record;
    try {
        report.state.summary.get_to(record);
    } catch (const nlohmann::json::exception&) {
        param.nErrorCode = UICommonMdl::ErrorBadAnswer;
    }
    return record;
}

} // namespace

CAccessControlManager::CAccessControlManager(IServerConnection& connection, CUserManager& userManager)
    : m_connection(connection)
    , m_userManager(userManager)
{
}

void CAccessControlManager::AddObserver(IDepartmentManagerObserver* pObserver)
{
    m_departmentObservers.Add(pObserver);
}

void CAccessControlManager::RemoveObserver(IDepartmentManagerObserver* pObserver)
{
    m_departmentObservers.Remove(pObserver);
}

void CAccessControlManager::AddObserver(IPersonManagerObserver* pObserver)
{
    m_personObservers.Add(pObserver);
}

void CAccessControlManager::RemoveObserver(IPersonManagerObserver* pObserver)
{
    m_personObservers.Remove(pObserver);
}

void CAccessControlManager::AddObserver(IAccessControlManagerObserver* pObserver)
{
    m_recordObservers.Add(pObserver);
}

void CAccessControlManager::RemoveObserver(IAccessControlManagerObserver* pObserver)
{
    m_recordObservers.Remove(pObserver);
}

void CAccessControlManager::Notify(DepartmentParam&& param)
{
    const auto pAnswer = std::make_shared<const DepartmentParam>(std::move(param));
    m_departmentObservers.ForEach(
        [&](IDepartmentManagerObserver& observer) { observer.OnNotifyDepartmentManagerState(pAnswer); });
}

void CAccessControlManager::Notify(PersonParam&& param)
{
    const auto pAnswer = std::make_shared<const PersonParam>(std::move(param));
    m_personObservers.ForEach(
        [&](IPersonManagerObserver& observer) { observer.OnNotifyPersonManagerState(pAnswer); });
}

void CAccessControlManager::Notify(RecordParam&& param)
{
    const auto pAnswer = std::make_shared<const RecordParam>(std::move(param));
    m_recordObservers.ForEach([&](IAccessControlManagerObserver& observer) {
        observer.OnNotifyAccessControlManagerState(pAnswer);
    });
}

void CAccessControlManager::NotifyDepartmentsChanged()
{
    DepartmentParam param;
    param.nResultCode = DepartmentResult::ResultDepartmentsChanged;
    Notify(std::move(param));
}

void CAccessControlManager::NotifyPersonsChanged()
{
    PersonParam param;
    param.nResultCode = PersonResult::ResultPersonsChanged;
    Notify(std::move(param));
}

template <class Op, class Param, class Take>
int CAccessControlManager::Call(int nResultCode, const typename Op::Request& request, Take take)
{
    if (!m_userManager.GetUserRight())
        return 0;
    return CallServer<Op>(
        m_connection, request, [this, nResultCode, take](TypedAnswer<typename Op::Answer>&& answer) {
            Param param;
            param.nResultCode = nResultCode;
            param.nSequence = answer.nSequence;
            param.nErrorCode = answer.nErrorCode;
            TakeDetail(param, std::move(answer.sDetail));
            take(param, std::move(answer.data));
            Notify(std::move(param));
        });
}

template <class Op, class Take>
int CAccessControlManager::Work(int nResultCode, const typename Op::Request& request, Take take)
{
    if (!m_userManager.GetUserRight())
        return 0;
    // The items come in several reports, the observers are told once.
    auto pParam = std::make_shared<PersonParam>();
    pParam->nResultCode = nResultCode;
    return StartJob<Op>(m_connection, request, [this, pParam, take](const JobReport& report) {
        pParam->nSequence = report.nSequence;
        pParam->nErrorCode = report.nErrorCode;
        pParam->sErrorDetail = report.sDetail;
        take(*pParam, report);
        if (report.bFinal)
            Notify(std::move(*pParam));
    });
}

int CAccessControlManager::QueryDepartmentTree()
{
    return Call<wire::QueryDepartmentTree, DepartmentParam>(DepartmentResult::ResultQueryDepartmentTree, {},
        [](DepartmentParam& param, wire::Departments&& data) {
            param.vecDepartments = std::move(data.vecDepartments);
        });
}

int CAccessControlManager::AddDepartment(const Department_t& department)
{
    return Call<wire::AddDepartment, DepartmentParam>(
        DepartmentResult::ResultAddDepartment, department, TakeDepartment);
}

int CAccessControlManager::ModifyDepartment(const Department_t& department)
{
    return Call<wire::ModifyDepartment, DepartmentParam>(
        DepartmentResult::ResultModifyDepartment, department, TakeDepartment);
}

int CAccessControlManager::DeleteDepartment(const std::string& sCode)
{
    return Call<wire::DeleteDepartment, DepartmentParam>(
        DepartmentResult::ResultDeleteDepartment, {sCode}, TakeNothing);
}

int CAccessControlManager::QueryPersonList(const PersonPageRequest_t& request)
{
    return Call<wire::QueryPersonList, PersonParam>(PersonResult::ResultQueryPersonList, request,
        [](PersonParam& param, PersonPage_t&& page) { param.personPage = std::move(page); });
}

int CAccessControlManager::QueryPersonDetail(const std::string& sPersonId)
{
    return Call<wire::QueryPersonDetail, PersonParam>(
        PersonResult::ResultQueryPersonDetail, {sPersonId}, TakePerson);
}

int CAccessControlManager::AddPerson(const Person_t& person)
{
    return Call<wire::AddPerson, PersonParam>(PersonResult::ResultAddPerson, person, TakePerson);
}

int CAccessControlManager::ModifyPerson(const Person_t& person)
{
    return Call<wire::ModifyPerson, PersonParam>(PersonResult::ResultModifyPerson, person, TakePerson);
}

int CAccessControlManager::DeletePersons(const std::vector<std::string>& vecPersonIds)
{
    return Call<wire::DeletePersons, PersonParam>(
        PersonResult::ResultDeletePersons, {vecPersonIds}, TakeFailedPersons);
}

int CAccessControlManager::DeleteAllPersons(const std::string& sGroupCode, bool bSubGroups)
{
    return Call<wire::DeleteAllPersons, PersonParam>(
        PersonResult::ResultDeleteAllPersons, {sGroupCode, bSubGroups}, TakeNothing);
}

int CAccessControlManager::MovePersons(
    const std::vector<std::string>& vecPersonIds, const std::string& sGroupCode)
{
    return Call<wire::MovePersons, PersonParam>(
        PersonResult::ResultMovePersons, {vecPersonIds, sGroupCode}, TakeFailedPersons);
}

int CAccessControlManager::IssueCards(
    const std::vector<IssueCard_t>& vecCards, std::int64_t nValidFrom, std::int64_t nValidTo)
{
    return Call<wire::IssueCards, PersonParam>(
        PersonResult::ResultIssueCards, {vecCards, nValidFrom, nValidTo}, TakeNothing);
}

int CAccessControlManager::AuthorizePersons(const std::vector<std::string>& vecPersonIds,
    const std::vector<std::string>& vecAccessGroups, const std::vector<std::string>& vecFaceGroups)
{
    return Call<wire::AuthorizePersons, PersonParam>(PersonResult::ResultAuthorizePersons,
        {vecPersonIds, vecAccessGroups, vecFaceGroups}, TakeFailedPersons);
}

int CAccessControlManager::ReissuePersonRight(const std::string& sPersonId)
{
    return Work<wire::ReissuePersonRight>(
        PersonResult::ResultReissuePersonRight, {sPersonId}, [](PersonParam& param, const JobReport& report) {
            for (AuthorizeException_t& exception : ItemsOf<AuthorizeException_t>(report))
                param.vecExceptions.push_back(std::move(exception));
        });
}

int CAccessControlManager::QueryAuthorizeException(const std::string& sPersonId)
{
    return Call<wire::QueryAuthorizeException, PersonParam>(PersonResult::ResultQueryAuthorizeException,
        {sPersonId}, [](PersonParam& param, wire::AuthorizeExceptions&& answer) {
            param.vecExceptions = std::move(answer.vecExceptions);
        });
}

int CAccessControlManager::QueryPermissionChoices()
{
    return Call<wire::QueryPermissionChoices, PersonParam>(PersonResult::ResultQueryPermissionChoices, {},
        [](PersonParam& param, PermissionChoices_t&& choices) { param.choices = std::move(choices); });
}

int CAccessControlManager::QueryResidenceScenario()
{
    return Call<wire::QueryResidenceScenario, PersonParam>(PersonResult::ResultQueryResidenceScenario, {},
        [](PersonParam& param, ResidenceScenario_t&& residence) { param.residence = std::move(residence); });
}

int CAccessControlManager::QueryQrCode(const std::string& sPersonId)
{
    return Call<wire::QueryQrCode, PersonParam>(PersonResult::ResultQueryQrCode, {sPersonId},
        [](PersonParam& param, PersonQrCode_t&& qrCode) { param.qrCode = std::move(qrCode); });
}

int CAccessControlManager::CaptureFingerprint(const std::string& sDeviceId)
{
    return Work<wire::CaptureFingerprint>(
        PersonResult::ResultCaptureFingerprint, {sDeviceId}, [](PersonParam& param, const JobReport& report) {
            if (report.bFinal)
                param.sFingerprintData = SummaryOf<wire::CapturedFingerprint>(param, report).sTemplate;
        });
}

int CAccessControlManager::ExtractPersons(const std::string& sDeviceId)
{
    return Work<wire::ExtractPersons>(
        PersonResult::ResultExtractPersons, {sDeviceId}, [](PersonParam& param, const JobReport& report) {
            if (report.bFinal)
                param.vecPersons = SummaryOf<wire::DevicePersons>(param, report).vecPersons;
        });
}

int CAccessControlManager::QueryRecordTotal(const AccessRecordRequest_t& request)
{
    return Call<wire::QueryRecordTotal, RecordParam>(RecordResult::ResultQueryRecordTotal, request,
        [](RecordParam& param, wire::RecordTotal&& answer) { param.nTotal = answer.nTotal; });
}

int CAccessControlManager::QueryRecords(const AccessRecordRequest_t& request)
{
    return Call<wire::QueryRecords, RecordParam>(
        RecordResult::ResultQueryRecords, request, [](RecordParam& param, wire::AccessRecords&& answer) {
            param.nTotal = answer.nTotal;
            param.vecRecords = std::move(answer.vecRecords);
        });
}

} // namespace PlatformLogic
