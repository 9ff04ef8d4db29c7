#include <PlatformLogic/EventStreamParser.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using PlatformLogic::EventStreamParser;

namespace {

using Events = std::vector<std::pair<std::string, std::string>>;

struct StreamCase
{
    const char* pszName;
    QByteArray stream;
    Events expected;
};

class EventStreamParserTest : public testing::TestWithParam<StreamCase>
{
};

} // namespace

TEST_P(EventStreamParserTest, ReadsTheSameWhereverTheStreamIsCut)
{
    const StreamCase& param = GetParam();
    for (int nPiece = 1; nPiece <= param.stream.size() + 1; ++nPiece) {
        Events events;
        EventStreamParser parser(
            [&](const auto& sName, const auto& sData) { events.emplace_back(sName, sData); });
        for (int i = 0; i < param.stream.size(); i += nPiece)
            ASSERT_TRUE(parser.Feed(param.stream.mid(i, nPiece)));
        EXPECT_EQ(events, param.expected) << "in pieces of " << nPiece;
    }
}

INSTANTIATE_TEST_SUITE_P(Streams, EventStreamParserTest,
    testing::Values(StreamCase{"one event", "event: hello\ndata: {}\n\n", {{"hello", "{}"}}},
        StreamCase{"lines end with CR LF", "event: a\r\ndata: 1\r\n\r\n", {{"a", "1"}}},
        StreamCase{"comments and unknown fields are passed over",
            ": alive\n\nid: 7\nevent: a\ndata: 1\n\n: x\n", {{"a", "1"}}},
        StreamCase{"several data lines are one text", "event: a\ndata: {\ndata: }\n\n", {{"a", "{\n}"}}},
        StreamCase{"the name does not reach the next event", "event: a\ndata: 1\n\ndata: 2\n\n",
            {{"a", "1"}, {"", "2"}}},
        StreamCase{"an event without data is none", "event: a\n\nevent: b\ndata:\n\n", {{"b", ""}}},
        StreamCase{"an event that was not ended is none", "event: a\ndata: 1\n", {}}),
    [](const auto& info) {
        std::string sName = info.param.pszName;
        std::replace_if(
            sName.begin(), sName.end(), [](char c) { return !isalnum(c); }, '_');
        return sName;
    });

TEST(EventStreamParser, RefusesALineWithoutEnd)
{
    EventStreamParser parser([](const auto&, const auto&) { FAIL(); });
    const QByteArray chunk(1024 * 1024, 'x');
    bool bTaken = true;
    for (int i = 0; i < 20 && bTaken; ++i)
        bTaken = parser.Feed(chunk);
    EXPECT_FALSE(bTaken);
}
