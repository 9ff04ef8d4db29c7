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
Answer AnswerOnvif(const Services& services, Device& device, const Query& query);

} // namespace FieldDevice
