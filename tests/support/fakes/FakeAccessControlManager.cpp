#include "FakeAccessControlManager.h"

#include <UICommonMdl/ErrorCodes.h>

using namespace AccessControlLogical;

void FakeAccessControlManager::ServeSite()
{
    vecDepartments = {{"001", "", "All Persons", "", 1}, {"1001", "001", "Engineering", "second floor", 3},
        {"1002", "001", "Sales", "", 1}, {"1003", "1001", "Testing", "", 1}};
    for (int n = 1; n <= 6; ++n) {
        PersonInfo_t person;
        person.sPersonId = std::to_string(100 + n);
        person.sName = "Person " + std::to_string(n);
        person.nGender = n % 4;
        person.nPersonType = n;
        person.sGroupCode = "1001";
        person.sGroupName = "Engineering";
        person.sTelephone = "555-010" + std::to_string(n);
        person.nCards = n % 2;
        person.bAuthorizationError = n == 2;
        vecPersons.push_back(person);
    }
    departments.AnswerAlways("QueryDepartmentTree",
        [this](const FakeCall&, DepartmentObserver::Param& param) { param.vecDepartments = vecDepartments; });
    persons.AnswerAlways("QueryPersonList", [this](const FakeCall& call, PersonObserver::Param& param) {
        param.personPage = {vecPersons, 60, std::any_cast<PersonPageRequest_t>(call.argument).nPage};
    });
    persons.AnswerAlways("QueryPersonDetail", [this](const FakeCall& call, PersonObserver::Param& param) {
        const auto sId = std::any_cast<std::string>(call.argument);
        for (const Person_t& person : vecDetails) {
            if (person.sPersonId == sId)
                param.optPerson = person;
        }
        for (const PersonInfo_t& row : vecPersons) {
            if (param.optPerson || row.sPersonId != sId)
                continue;
            param.optPerson.emplace();
            param.optPerson->sPersonId = row.sPersonId;
            param.optPerson->sName = row.sName;
            param.optPerson->sGroupCode = row.sGroupCode;
            param.optPerson->sGroupName = row.sGroupName;
            param.optPerson->nVersion = 1;
        }
        if (!param.optPerson)
            param.nErrorCode = UICommonMdl::ErrorNotFound;
    });
    persons.AnswerAlways("QueryPermissionChoices", [](const FakeCall&, PersonObserver::Param& param) {
        param.choices.vecAccessGroups = {{"1", "Day shift"}, {"2", "Night shift"}, {"3", "Laboratories"}};
        param.choices.vecFaceGroups = {{"1", "Staff"}, {"2", "Contractors"}};
        param.choices.vecLiftFloors = {
            {"1", "Lift Controller 1", "Lift A", "1"}, {"2", "Lift Controller 1", "Lift A", "2"}};
    });
    persons.AnswerAlways("QueryResidenceScenario", [](const FakeCall&, PersonObserver::Param& param) {
        param.residence = {true, {"101", "102", "201"}};
    });
}
