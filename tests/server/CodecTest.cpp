#include <wire/Records.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

template <class Record>
void ExpectSameAsTree(const Record& record)
{
    std::string sJson;
    AppendJson(sJson, record);
    EXPECT_EQ(nlohmann::json::parse(sJson, nullptr, false), nlohmann::json(record)) << sJson;
}

} // namespace

TEST(Codec, WritesWhatTheTreeOfARecordHolds)
{
    std::string sEveryByte;
    for (char c = 0; c < 127; ++c)
        sEveryByte += c;
    GroupLogical::DeviceInfo_t device;
    device.sName = sEveryByte;
    device.sModel = "T\xC3\xBCr \xE2\x82\xAC \xF0\x9F\x9A\xAA";
    device.nPort = -1;
    device.nVersion = std::numeric_limits<std::int64_t>::max();
    ExpectSameAsTree(device);
    ExpectSameAsTree(GroupLogical::DevicePage_t{{device, {}, device}, 3, 1});
    ExpectSameAsTree(GroupLogical::DevicePage_t{});

    AccessControlLogical::Person_t person;
    person.bDeviceLogin = true;
    person.vecCards = {{"04A1", true, false, true}, {}};
    person.vecPlates = {"A \"1\"", ""};
    person.nValidFrom = std::numeric_limits<std::int64_t>::min();
    ExpectSameAsTree(person);

    wire::JobState job;
    job.items = nlohmann::json::array({1.5, "x", nullptr});
    job.summary = {{"a", {{"b", -1}}}};
    ExpectSameAsTree(job);
    ExpectSameAsTree(wire::Nothing{});
    ExpectSameAsTree(UserLogical::RoleEdit_t{});
}
