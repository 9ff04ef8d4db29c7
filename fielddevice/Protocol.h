#pragma once

#include "Fleet.h"

#include <string>

namespace FieldDevice {

/// One HTTP request to a device.
struct Query
{
    std::string sMethod;
    std::string sPath;
    std::string sBody;
    std::string sAuthorization;
};

struct Answer
{
    int nStatus = 200;
    std::string sBody = {};
    std::string sContentType = "application/json";
    bool bChallenge = false; ///< with digest challenges
    bool bStale = false; ///< the nonce was right, but too old
};

/// The answer of the JSON protocol to a request that fails; szError is for programs, sMessage for people.
inline Answer Fail(int nStatus, const char* szError, const std::string& sMessage)
{
    return {nStatus, nlohmann::json{{"error", szError}, {"message", sMessage}}.dump()};
}

class DigestGate;
class TokenGate;

/// What the devices of a program share.
struct Services
{
    Fleet& fleet;
    DigestGate& digest;
    TokenGate& tokens;
};

/// Any thread.
Answer AnswerPrivate(const Services& services, Device& device, const Query& query);
/// True for a device that opens doors or moves lifts, and so knows who may.
bool KeepsPersons(const DeviceSpec& spec);
Answer PutPerson(const Services& services, Device& device, const nlohmann::json& body);
Answer RemovePerson(const Services& services, Device& device, const nlohmann::json& body);
Answer Persons(const Services& services, Device& device, const nlohmann::json& body);
Answer StartFingerprint(const Services& services, Device& device, const nlohmann::json& body);
Answer ReadFingerprint(const Services& services, Device& device, const nlohmann::json& body);
Answer AnswerOnvif(const Services& services, Device& device, const Query& query);

} // namespace FieldDevice
