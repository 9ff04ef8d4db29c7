#include "ServerFixture.h"

#include "import/DeviceSheet.h"
#include "import/SheetFile.h"

#include <pugixml.hpp>

namespace ServerTest {

using namespace UICommonMdl;
using GroupLogical::ImportFailure_t;
using GroupLogical::ImportRow_t;
using GroupLogical::ImportState_t;

namespace {

ImportRow_t Row(int nLine, const std::string& sName, const std::string& sAddress)
{
    ImportRow_t row;
    row.nLine = nLine;
    row.sName = sName;
    row.sConnect = "1";
    row.sAddress = sAddress;
    row.sPort = "37777";
    row.sUserName = "admin";
    row.sPassword = "Pass-1234";
    return row;
}

} // namespace

class ImportTest : public ServerFixture
{
protected:
    void SetUp() override { Start(); }

    wire::Job Send(const std::vector<ImportRow_t>& vecRows, const std::string& sSource = "xml")
    {
        auto job = pClient->Get<wire::BeginImport>({"001", sSource});
        for (std::size_t n = 0; n < vecRows.size(); n += 1000)
            pClient->Get<wire::AddImportRows>({job.sJob,
                {vecRows.begin() + static_cast<std::ptrdiff_t>(n),
                    vecRows.begin() + static_cast<std::ptrdiff_t>(std::min(n + 1000, vecRows.size()))}});
        return job;
    }
    ImportState_t Run(const wire::Job& job, bool bAllOrNothing = false, bool bOverwrite = false)
    {
        pClient->Get<wire::RunImport>({job.sJob, bAllOrNothing, bOverwrite});
        m_state = pClient->Finish(job);
        auto state = m_state.summary.get<ImportState_t>();
        for (const auto& item : m_state.items)
            state.vecFailed.push_back(item.get<ImportFailure_t>());
        return state;
    }
    int Devices() { return pServer->QuerySql(QStringLiteral("SELECT COUNT(*) FROM device")).toInt(); }
    std::vector<std::vector<std::string>> SheetOf(const std::vector<ImportRow_t>& vecRows)
    {
        std::vector<std::vector<std::string>> vecSheet{
            {"Device Name", "IP Address", "Port", "User Name", "Password", "Category"}};
        for (const ImportRow_t& row : vecRows)
            vecSheet.push_back(
                {row.sName, row.sAddress, row.sPort, row.sUserName, row.sPassword, row.sCategory});
        return vecSheet;
    }

    wire::JobState m_state;
};

TEST_P(ImportTest, GoodRowsAreImportedAndEveryBadOneIsToldWithItsFieldAtOnce)
{
    AddOrganization("001", "North");
    Run(Send({Row(1, "Taken", "10.0.0.1")}));
    std::vector<ImportRow_t> vecRows;
    std::map<int, std::pair<std::string, int>> mapExpected;
    const auto bad = [&](const char* szHeading, int nCode, const std::function<void(ImportRow_t&)>& change) {
        const int nLine = static_cast<int>(vecRows.size()) + 2;
        vecRows.push_back(Row(nLine, "Bad " + std::to_string(nLine), "10.1.0." + std::to_string(nLine)));
        change(vecRows.back());
        mapExpected[nLine] = {szHeading, nCode};
    };
    bad("Device Name", ErrorInvalidInput, [](auto& row) { row.sName = ""; });
    bad("IP Address", ErrorInvalidInput, [](auto& row) { row.sAddress = "10.0.0.300"; });
    bad("Port", ErrorInvalidInput, [](auto& row) { row.sPort = "http"; });
    bad("Port", ErrorInvalidInput, [](auto& row) { row.sPort = "99999999999"; });
    bad("Connect", ErrorInvalidInput, [](auto& row) { row.sConnect = "2"; });
    bad("Domain", ErrorInvalidInput, [](auto& row) { row.sConnect = "3"; });
    bad("Password", ErrorInvalidInput, [](auto& row) { row.sPassword = ""; });
    bad("Category", ErrorInvalidInput, [](auto& row) { row.sCategory = "Teapot"; });
    bad("Protocol", ErrorInvalidInput, [](auto& row) { row.sProtocol = "99"; });
    bad("Organization", ErrorNotFound, [](auto& row) { row.sOrganization = "South"; });
    bad("IP Address", ErrorAddressExists, [](auto& row) { row.sAddress = "10.0.0.1"; });
    bad("Device Name", ErrorNameExists, [](auto& row) { row.sName = "tAKEN"; });
    const int nFirst = static_cast<int>(vecRows.size()) + 2;
    vecRows.push_back(Row(nFirst, "Good", "10.2.0.1"));
    vecRows.back().sCategory = "access control";
    vecRows.back().sProtocol = "onvif";
    vecRows.back().sOrganization = "north";
    bad("IP Address", ErrorDuplicateRow, [](auto& row) { row.sAddress = "10.2.0.1"; });
    bad("Device Name", ErrorDuplicateRow, [](auto& row) { row.sName = "GOOD"; });

    const ImportState_t state = Run(Send(vecRows));
    EXPECT_EQ(m_state.nErrorCode, 0);
    EXPECT_EQ(state.nSucceeded, 1);
    EXPECT_EQ(state.nFailed, static_cast<int>(mapExpected.size()));
    EXPECT_EQ(state.vecFailed.size(), mapExpected.size());
    for (const ImportFailure_t& failure : state.vecFailed) {
        EXPECT_EQ(failure.sField, mapExpected[failure.nLine].first) << failure.nLine;
        EXPECT_EQ(failure.nErrorCode, mapExpected[failure.nLine].second) << failure.nLine;
        EXPECT_EQ(
            failure.sReason, failure.nErrorCode == ErrorDuplicateRow ? "line " + std::to_string(nFirst) : "");
    }
    GroupLogical::DevicePageRequest_t request;
    request.sSearchText = "Good";
    const auto page = pClient->Get<wire::QueryDevicePage>(request);
    ASSERT_EQ(page.nTotal, 1);
    EXPECT_EQ(page.vecDevices[0].nCategory, 8);
    EXPECT_EQ(page.vecDevices[0].sProtocol, "ONVIF");
    EXPECT_EQ(page.vecDevices[0].sOrgName, "North");
}

TEST_P(ImportTest, AllOrNothingImportsNothingAndItsListHoldsEveryRow)
{
    const auto job = Send({Row(2, "One", "10.0.0.1"), Row(3, "Two", "bad"), Row(4, "Three", "10.0.0.3")});
    const ImportState_t state = Run(job, true);
    EXPECT_EQ(m_state.nErrorCode, ErrorImportAborted);
    EXPECT_EQ(state.nSucceeded, 0);
    EXPECT_EQ(state.nFailed, 1);
    EXPECT_EQ(Devices(), 0);
    const Reply list = pClient->Download(state.sFailListUrl);
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(list.sDetail.c_str()));
    std::vector<std::string> vecReasons;
    for (const auto& device : document.child("DeviceManager").children("Device"))
        vecReasons.emplace_back(device.attribute("reason").value());
    EXPECT_THAT(vecReasons, testing::ElementsAre("", "IP Address: The value is not valid", ""));
    EXPECT_EQ(pClient->Call<wire::RunImport>({job.sJob, false, false}).nCode, ErrorInvalidInput)
        << "an import runs once";
}

TEST_P(ImportTest, AFailureListThatWasMendedIsImported)
{
    std::vector<ImportRow_t> vecRows{Row(2, "One", "10.0.0.1"), Row(3, "Tw\"o & <", "10.0.0.2")};
    vecRows[1].sName = "Two & a half";
    vecRows[1].sPort = "x";
    // From XML.
    ImportState_t state = Run(Send(vecRows));
    EXPECT_EQ(state.sFailListName.substr(0, 9), "faillist_");
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(pClient->Download(state.sFailListUrl).sDetail.c_str()));
    const pugi::xml_node device = document.child("DeviceManager").child("Device");
    EXPECT_STREQ(device.attribute("name").value(), "Two & a half");
    EXPECT_STREQ(device.attribute("password").value(), "Pass-1234");
    EXPECT_EQ(device.attribute("line").as_int(), 3);
    // From a sheet: mended in the list itself.
    pServer->RunSql(QStringLiteral("DELETE FROM device"));
    const auto upload = [&](const QByteArray& baFile) {
        return pClient->Upload("/api/v1/upload/device-sheet?org=001", baFile.toStdString());
    };
    auto sheet = upload(Platform::SheetFile::Write("x", SheetOf(vecRows))).data.get<wire::UploadedSheet>();
    EXPECT_EQ(sheet.nRows, 2);
    state = Run({sheet.sJob});
    EXPECT_EQ(state.nFailed, 1);
    EXPECT_EQ(state.vecFailed.at(0).nLine, 3);
    const QByteArray baList = QByteArray::fromStdString(pClient->Download(state.sFailListUrl).sDetail);
    auto vecSheet = Platform::SheetFile::Read(baList);
    ASSERT_EQ(vecSheet.size(), 2U);
    EXPECT_EQ(vecSheet[1].vecCells.back().sText, "Port: The value is not valid");
    std::vector<std::vector<std::string>> vecMended;
    for (const auto& row : vecSheet) {
        vecMended.emplace_back();
        for (const auto& cell : row.vecCells)
            vecMended.back().push_back(cell.sText == "x" ? "80" : cell.sText);
    }
    sheet = upload(Platform::SheetFile::Write("x", vecMended)).data.get<wire::UploadedSheet>();
    EXPECT_EQ(Run({sheet.sJob}).nSucceeded, 1);
    EXPECT_EQ(Devices(), 2);
}

TEST_P(ImportTest, IntercomSheetsTellWhatExistsAndOverwriteIt)
{
    Run(Send({Row(1, "Station", "10.0.0.1")}));
    const QByteArray baSheet = Platform::SheetFile::Write("x",
        {{"Intercom Device Name", "IP Address", "Port", "User Name", "Password"},
            {"Station A", "10.0.0.1", "37777", "admin", "New-1234"},
            {"Station B", "10.0.0.2", "37777", "admin", "New-1234"}});
    const auto upload = [&](const QByteArray& baFile) {
        return pClient->Upload("/api/v1/upload/device-sheet", baFile.toStdString())
            .data.get<wire::UploadedSheet>();
    };
    auto sheet = upload(baSheet);
    EXPECT_TRUE(sheet.bIntercom);
    EXPECT_EQ(sheet.nExisting, 1);
    const ImportState_t kept = Run({sheet.sJob});
    EXPECT_EQ(kept.nSucceeded, 1);
    EXPECT_EQ(kept.sFailListName.substr(0, 9), "intercom_");
    sheet = upload(baSheet);
    EXPECT_EQ(sheet.nExisting, 2);
    EXPECT_EQ(Run({sheet.sJob}, false, true).nSucceeded, 2);
    EXPECT_EQ(Devices(), 2);
    EXPECT_EQ(
        pServer->QuerySql(QStringLiteral("SELECT COUNT(*) FROM device WHERE category = 21")).toInt(), 2);
    EXPECT_EQ(
        pServer->QuerySql(QStringLiteral("SELECT COUNT(*) FROM device WHERE name = 'Station A'")).toInt(), 1);
    sheet = upload(Platform::SheetFile::Write(
        "x", {{"Intercom Device Name", "IP Address", "Port", "User Name", "Password"}}));
    EXPECT_EQ(sheet.nRows, 0);
    EXPECT_TRUE(sheet.bIntercom);
    EXPECT_EQ(pClient->Call<wire::RunImport>({sheet.sJob, false, false}).nCode, ErrorSheetEmpty);
}

TEST_P(ImportTest, DevicesOfACloudAccountNeedNoPassword)
{
    ImportRow_t row = Row(1, "Cabin", "");
    row.sConnect = "5";
    row.sSerialNumber = "P2P-1";
    row.sPassword.clear();
    EXPECT_EQ(Run(Send({row}, "xml")).nFailed, 1);
    EXPECT_EQ(Run(Send({row}, "p2p")).nSucceeded, 1);
    row.sName = "Other";
    const ImportState_t again = Run(Send({row}, "p2p"));
    ASSERT_EQ(again.vecFailed.size(), 1U);
    EXPECT_EQ(again.vecFailed[0].nErrorCode, ErrorSerialNumberExists);
}

TEST_P(ImportTest, AServerThatStopsInTheMiddleHasImportedNothing)
{
    std::vector<ImportRow_t> vecRows;
    for (int n = 0; n < 30000; ++n)
        vecRows.push_back(Row(n + 2, "Device " + std::to_string(n),
            "10." + std::to_string(n / 62500) + '.' + std::to_string(n / 250 % 250) + '.'
                + std::to_string(1 + n % 250)));
    const auto job = Send(vecRows);
    pClient->Get<wire::RunImport>({job.sJob, false, false});
    while (pClient->Get<wire::WaitJob>({job.sJob, 0}).nDone == 0) { }
    pServer->Restart();
    const int nDevices = Devices();
    EXPECT_TRUE(nDevices == 0 || nDevices == 30000) << nDevices;
    EXPECT_EQ(pClient->Call<wire::WaitJob>({job.sJob, 0}).nCode, ErrorNotFound);
}

TEST_P(ImportTest, LimitsAndStrangers)
{
    EXPECT_EQ(pClient->Call<wire::BeginImport>({"001", "fax"}).nCode, ErrorInvalidInput);
    const auto job = pClient->Get<wire::BeginImport>({"001", "xml"});
    EXPECT_EQ(pClient->Call<wire::RunImport>({job.sJob, false, false}).nCode, ErrorSheetEmpty);
    EXPECT_EQ(pClient->Call<wire::AddImportRows>({job.sJob, std::vector<ImportRow_t>(2001)}).nCode,
        ErrorInvalidInput);
    pServer->AddAccount("other", {"001001", "001001001"});
    ApiClient other(pServer->Url());
    other.SignIn("other", TestSupport::TestServer::AdminPassword());
    EXPECT_EQ(other.Call<wire::AddImportRows>({job.sJob, {Row(1, "x", "10.0.0.1")}}).nCode, ErrorNotFound);
    // Imports that were begun and left make room.
    for (int n = 0; n < 20; ++n)
        pClient->Get<wire::BeginImport>({"001", "xml"});
    EXPECT_EQ(
        pClient->Call<wire::AddImportRows>({pClient->Get<wire::BeginImport>({"001", "xml"}).sJob, {}}).nCode,
        0);
}

INSTANTIATE_TEST_SUITE_P(
    , ImportTest, testing::ValuesIn(TestSupport::DatabaseKinds()), TestSupport::DatabaseKindName);

} // namespace ServerTest
