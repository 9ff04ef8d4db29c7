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

TEST(Codec, TakesNumbersAsTheyAreOrNotAtAll)
{
    const struct
    {
        const char* szNumber;
        bool bPort; ///< 32 bits hold it
        bool bVersion; ///< 64 bits do
    } cases[] = {{"-2147483648", true, true}, {"2147483647", true, true}, {"2147483648", false, true},
        {"4294967297", false, true}, {"-9223372036854775808", false, true},
        {"9223372036854775807", false, true}, {"9223372036854775808", false, false},
        {"18446744073709551615", false, false}, {"1.5", false, false}, {"1e300", false, false},
        {"-1e300", false, false}, {"true", false, false}, {"\"1\"", false, false}, {"null", false, false}};
    const auto read = [](const std::string& sJson, auto record) {
        try {
            nlohmann::json::parse(sJson).get_to(record);
            return nlohmann::json(record).dump();
        } catch (const nlohmann::json::exception&) {
            return std::string();
        }
    };
    for (const auto& test : cases) {
        const std::string sNumber = test.szNumber;
        EXPECT_EQ(read("{\"nPort\":" + sNumber + '}', GroupLogical::DeviceInfo_t()).find(":" + sNumber + ',')
                != std::string::npos,
            test.bPort)
            << sNumber;
        EXPECT_EQ(read("{\"nVersion\":" + sNumber + '}', GroupLogical::DeviceInfo_t()).find(':' + sNumber)
                != std::string::npos,
            test.bVersion)
            << sNumber;
        EXPECT_EQ(read("{\"vecTypes\":[1," + sNumber + "]}", wire::DeviceTypes())
                == "{\"vecTypes\":[1," + sNumber + "]}",
            test.bPort)
            << sNumber;
    }
    EXPECT_EQ(read("[]", wire::DeviceTypes()), "");
    EXPECT_EQ(read(R"({"vecTypes":{"a":1}})", wire::DeviceTypes()), "");
    // What was in the record before does not stay.
    EXPECT_EQ(read("{}", wire::DeviceTypes{{1, 2}}), R"({"vecTypes":[]})");
}
