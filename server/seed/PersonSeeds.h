#pragma once

#include "persons/PhotoStore.h"
#include "services/SecretBox.h"
#include "store/Database.h"

#include <vector>

namespace Platform {

/// The persons of the seeds. Within a transaction of the caller.
namespace PersonSeeds {

/// A device that the demonstration persons may pass.
struct Door
{
    qlonglong nDeviceId;
    std::string sDeviceName;
};

/// The staff of a company: about 25 groups and 400 persons with cards, some with photos and plates; access
/// permission groups over those doors, floors of those lift controllers, face comparison groups, rooms, and
/// two weeks of access records before nNow (milliseconds since 1970).
void Demo(Database& database, const SecretBox& box, const PhotoStore& photos,
    const std::vector<Door>& vecDoors, const std::vector<Door>& vecLifts, std::int64_t nNow);
/// nPersons persons over nGroups groups, a card each and a plate for every fourth.
void Bulk(Database& database, int nPersons, int nGroups);

} // namespace PersonSeeds

} // namespace Platform
