#include <PlatformLogic/AnswerReader.h>
#include <UICommonMdl/ErrorCodes.h>
#include <wire/Records.h>

#include <gtest/gtest.h>

#include <optional>

using PlatformLogic::AnswerReader;

namespace {

/// More than one part of a list, with texts that look like structure.
constexpr int LongList = 2000;

std::string Name(int n)
{
    return "\"]}},{[\\ " + std::to_string(n) + " \\\"";
}

GroupLogical::DevicePage_t LongPage()
{
    GroupLogical::DevicePage_t page;
    for (int n = 0; n < LongList; ++n) {
        page.vecDevices.emplace_back().sName = Name(n);
        page.vecDevices.back().nVersion = n;
    }
    page.nTotal = LongList;
    page.nPage = 3;
    return page;
}

/// A short list between long ones.
RemoteConfigLogical::Dictionary_t LongDictionary()
{
    RemoteConfigLogical::Dictionary_t dictionary;
    for (int n = 0; n < LongList; ++n) {
        dictionary.vecCategories.push_back({"1", Name(n), n, ""});
        dictionary.vecSeries.push_back({"5", Name(-n), n, "1"});
    }
    dictionary.vecProtocols = {{"3", "Protocol", 0, ""}, {"4", "Another", 0, ""}};
    return dictionary;
}

wire::JobState LongJob()
{
    wire::JobState state;
    state.items = LongDictionary().vecCategories;
    state.summary = LongDictionary();
    state.bFinished = true;
    return state;
}

template <class Record>
std::string Encode(const Record& record)
{
    using wire::AppendJson;
    std::string sJson;
    AppendJson(sJson, record);
    return sJson;
}

/// What is read of the answer when it comes in pieces of that many bytes.
template <class Record>
struct Reading
{
    Reading(const std::string& sBody, std::size_t nPiece, int nEnd = 0)
    {
        AnswerReader reader(
            7,
            [this](const nlohmann::json& data, double dWhole) {
                ++nParts;
                MergeJson(data, record, dWhole);
            },
            [this](const PlatformLogic::ServerAnswer& answer) {
                EXPECT_FALSE(end);
                end = answer;
            });
        for (std::size_t n = 0; n < sBody.size(); n += nPiece)
            reader.Feed(std::string_view(sBody).substr(n, nPiece), sBody.size());
        reader.End(nEnd);
    }

    Record record;
    int nParts = 0;
    std::optional<PlatformLogic::ServerAnswer> end;
};

template <class Record>
void ExpectReadInParts(const Record& record)
{
    const std::string sData = Encode(record);
    for (const std::size_t nPiece : {std::size_t(1), std::size_t(1000), sData.size() + 100}) {
        const Reading<Record> reading("{\"code\":0,\"data\":" + sData + "}", nPiece);
        EXPECT_EQ(Encode(reading.record), sData) << nPiece;
        EXPECT_GT(reading.nParts, 1);
        ASSERT_TRUE(reading.end);
        EXPECT_EQ(reading.end->nErrorCode, UICommonMdl::ErrorNone);
        EXPECT_EQ(reading.end->nSequence, 7);
    }
}

} // namespace

TEST(AnswerReaderTest, ALongAnswerIsWholeWhereverItIsCut)
{
    ExpectReadInParts(LongPage());
    ExpectReadInParts(LongDictionary());
    ExpectReadInParts(LongJob());
}

TEST(AnswerReaderTest, ALongListIsNeverMoved)
{
    const void* pFirst = nullptr;
    GroupLogical::DevicePage_t page;
    AnswerReader reader(
        1,
        [&](const nlohmann::json& data, double dWhole) {
            MergeJson(data, page, dWhole);
            pFirst = pFirst ? pFirst : page.vecDevices.data();
        },
        [](const auto&) {});
    const std::string sBody = "{\"code\":0,\"data\":" + Encode(LongPage()) + "}";
    reader.Feed(sBody, sBody.size());
    reader.End(UICommonMdl::ErrorNone);
    EXPECT_EQ(page.vecDevices.data(), pFirst);
    EXPECT_LT(page.vecDevices.capacity(), page.vecDevices.size() * 5 / 4);
}

TEST(AnswerReaderTest, AFaultInAnyPartIsTheAnswersFault)
{
    const std::string sBody = "{\"code\":0,\"data\":" + Encode(LongPage()) + "}";
    const auto errorOf = [](const std::string& sText, int nEnd = 0) {
        return Reading<GroupLogical::DevicePage_t>(sText, 1000, nEnd).end->nErrorCode;
    };
    for (const char* const pszName : {"\"nVersion\":10}", "\"nVersion\":1990}"}) {
        std::string sFaulty = sBody;
        sFaulty[sFaulty.find(pszName) - 1] = ';';
        EXPECT_EQ(errorOf(sFaulty), UICommonMdl::ErrorBadAnswer) << pszName;
    }
    EXPECT_EQ(errorOf(sBody.substr(0, sBody.size() - 1)), UICommonMdl::ErrorBadAnswer);
    EXPECT_EQ(errorOf(sBody + '}'), UICommonMdl::ErrorBadAnswer);
    EXPECT_EQ(errorOf(sBody, UICommonMdl::ErrorDisconnected), UICommonMdl::ErrorDisconnected);
}
