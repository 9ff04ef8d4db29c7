#include "Seeds.h"

#include "DeviceWriter.h"
#include "Log.h"
#include "PersonSeeds.h"
#include "ServiceError.h"
#include "accounts/RoleDevices.h"
#include "services/DeviceRecords.h"
#include "services/DeviceService.h"

#include <nlohmann/json.hpp>

#include <QSaveFile>

#include <array>
#include <cstdio>
#include <random>

namespace Platform {

using GroupLogical::DeviceAddInfo_t;

namespace {

constexpr int DemoDevices = 300;
constexpr int DoorCategory = 8;
constexpr int LiftCategory = 50;
constexpr const char* DoorPassword = "Door-2024";

/// What devices of a category are called, and how many of a hundred there are.
struct Kind
{
    int nCategory;
    int nShare;
    const char* szName;
    const char* szModel;
    const char* szProtocol;
    int nVideoChannels;
};

constexpr std::array<Kind, 15> Kinds{{
    {1, 44, "Camera", "VC-2140", "ONVIF", 1},
    {8, 14, "Door Controller", "AC-04D", "Private", 0},
    {21, 8, "Door Station", "VI-110", "SIP", 1},
    {5, 6, "Plate Camera", "PR-310", "Private", 1},
    {3, 5, "Alarm Panel", "AP-64", "Private", 0},
    {2, 4, "Decoder", "DX-9", "Private", 0},
    {7, 4, "Analytics Server", "IA-8", "Private", 8},
    {4, 3, "Video Wall", "TW-3x3", "Private", 0},
    {16, 3, "LED Display", "LD-2", "Private", 0},
    {40, 2, "Cash Desk", "PS-1", "Private", 0},
    {34, 2, "Help Point", "EM-20", "SIP", 1},
    {43, 2, "Perimeter Radar", "RD-60", "Private", 0},
    {6, 1, "Matrix", "MX-32", "Private", 32},
    {45, 1, "Wall Controller", "WC-16", "Private", 0},
    {50, 1, "Lift Controller", "LC-8", "Private", 0},
}};

constexpr std::array<const char*, 5> Makers{"Alderpoint", "Brightwell", "Corvane", "Dunmoor", "Elmsgate"};

std::string Numbered(const char* szPrefix, int nNumber, int nDigits)
{
    std::string sNumber = std::to_string(nNumber);
    sNumber.insert(0, static_cast<std::size_t>(std::max(0, nDigits - static_cast<int>(sNumber.size()))), '0');
    return szPrefix + sNumber;
}

const Kind& KindOf(int nPercent)
{
    for (const Kind& kind : Kinds) {
        if (nPercent < kind.nShare)
            return kind;
        nPercent -= kind.nShare;
    }
    return Kinds.front();
}

DeviceAddInfo_t MakeDevice(const Kind& kind, int nNumber, const std::string& sOrgCode, std::mt19937& random)
{
    DeviceAddInfo_t device;
    device.nCategory = kind.nCategory;
    device.sModel = kind.szModel;
    device.sProtocol = kind.szProtocol;
    device.nVideoChannels = kind.nVideoChannels;
    device.sOrgCode = sOrgCode;
    device.sManufacturer = Makers[random() % Makers.size()];
    device.nAccessDirection = 1;
    device.nVersion = 1;
    device.nAlarmInputs = kind.nCategory == 3 ? 64 : kind.nCategory == 8 ? 8 : 1;
    device.nAlarmOutputs = kind.nCategory == 3 ? 16 : 1;
    device.sSerialNumber =
        Numbered("SN", nNumber, 4) + Numbered("-", static_cast<int>(random() % 1000000), 6);
    device.sUserName = "service";
    return device;
}

void SetDomain(DeviceAddInfo_t& device, const std::string& sDomain)
{
    device.nAddMode = GroupLogical::AddByDomain;
    device.sDomain = sDomain;
    device.sIp = sDomain;
}

void SetRegistering(DeviceAddInfo_t& device, const std::string& sRegisterId)
{
    device.nAddMode = GroupLogical::AddByRegister;
    device.sRegisterId = sRegisterId;
    device.sIp.clear();
    device.nPort = 0;
}

void CheckEmpty(Database& database)
{
    Rows rows = database.Run(
        QStringLiteral("SELECT (SELECT COUNT(*) FROM organization) + (SELECT COUNT(*) FROM device)"));
    rows.Next();
    if (rows.Int(0) > 1)
        throw StartError(
            ExitSeed, "The database holds organizations or devices already; only an empty one is seeded");
}

/// A place where devices hang, with the words that their names begin with.
struct Place
{
    std::string sCode;
    std::string sLabel;
};

std::vector<Place> AddCompany(Database& database, DeviceWriter& writer)
{
    database.Run(
        QStringLiteral("UPDATE organization SET name = 'Northfield Group', name_key = 'northfield group' "
                       "WHERE code = '001'"));
    struct Site
    {
        const char* szRegion;
        const char* szName;
        std::vector<const char*> vecBuildings;
    };
    const std::vector<Site> vecSites{
        {"Northern Region", "Harbour Terminal", {"Warehouse A", "Warehouse B", "Gatehouse"}},
        {"Northern Region", "Mill Street Office", {"Main Building", "Car Park"}},
        {"Central Region", "Head Office", {"Tower One", "Tower Two", "Visitor Centre"}},
        {"Central Region", "Data Centre", {"Hall 1", "Hall 2", "Energy Building"}},
        {"Southern Region", "Assembly Plant", {"Line 1", "Line 2", "Despatch"}},
        {"Southern Region", "Riverside Retail Park", {"Store 101", "Store 102", "Food Court"}},
    };
    std::vector<Place> vecPlaces;
    std::map<std::string, std::string> mapRegions;
    for (const Site& site : vecSites) {
        std::string& sRegion = mapRegions[site.szRegion];
        if (sRegion.empty())
            sRegion = writer.AddOrganization(GroupLogical::RootOrganizationCode, site.szRegion, "");
        const std::string sSite = writer.AddOrganization(sRegion, site.szName, "Staffed around the clock");
        vecPlaces.push_back({sSite, site.szName});
        for (const char* szBuilding : site.vecBuildings) {
            const std::string sBuilding = writer.AddOrganization(sSite, szBuilding, "");
            vecPlaces.push_back({sBuilding, szBuilding});
            for (const char* szFloor : {"Ground Floor", "Upper Floor"})
                vecPlaces.push_back({writer.AddOrganization(sBuilding, szFloor, ""),
                    std::string(szBuilding) + ' ' + szFloor});
        }
    }
    return vecPlaces;
}

/// Something of every kind that keeps a device from being deleted.
void AddObstacles(DeviceWriter& writer, const std::vector<qlonglong>& vecIds)
{
    const std::array<const char*, 16> names{"Quarterly change", "Lobby anti-passback", "Staff entrance",
        "Office doors", "Motion after hours", "Morning unlock", "Airlock", "Operator keyboard 2",
        "Vault double card", "Visitor parking", "Contractors", "Around the clock", "Night gate check",
        "Control room wall", "Door camera link", "Night shift"};
    for (int nKind = GroupLogical::RefAdminPassword; nKind <= GroupLogical::RefAlarmScheme; ++nKind)
        writer.AddReference(
            vecIds[static_cast<std::size_t>(nKind) * 7], nKind, names[static_cast<std::size_t>(nKind) - 1]);
    for (std::size_t i = 3; i < vecIds.size(); i += 10)
        writer.AddReference(vecIds[i], GroupLogical::RefRecordPlan, "Weekdays");
    for (std::size_t i = 5; i < vecIds.size(); i += 50)
        writer.AddReference(vecIds[i], GroupLogical::RefEvent, "Camera covered");
    for (int nKind = TaskExtractingLogs; nKind <= TaskUpdating; ++nKind)
        writer.AddTask(vecIds[static_cast<std::size_t>(nKind) * 11 + 2], nKind);
}

void AddOperator(Database& database)
{
    database.Run(QStringLiteral("INSERT INTO role (id, name, name_key) VALUES (2, 'Operator', 'operator')"));
    database.Run(QStringLiteral("INSERT INTO role_right (role_id, code) VALUES (2, '001'), (2, '001001'), "
                                "(2, '001001001'), (2, '002'), "
                                "(2, '002001'), (2, '002002')"));
    // Without a password nobody can sign in by it.
    database.Run(
        QStringLiteral("INSERT INTO account (id, name, name_key) VALUES (2, 'operator', 'operator')"));
    database.Run(QStringLiteral("INSERT INTO account_role (account_id, role_id) VALUES (2, 2)"));
}

/// The operator's role reaches one region, and what is added there.
void GiveRegion(Database& database, const std::string& sRegion)
{
    using UserLogical::DeviceRightChange_t;
    const DeviceScope scope = DeviceScope::All();
    RoleDevices(database, scope, 2)
        .Apply({{UserLogical::DeviceNodeOrganization, sRegion, 0, 0, DeviceRightChange_t::On,
            DeviceRightChange_t::On}});
}

struct DemoSite
{
    nlohmann::json list = nlohmann::json::array(); ///< of addresses, for the simulated devices
    std::vector<PersonSeeds::Door> vecDoors;
    std::vector<PersonSeeds::Door> vecLifts;
};

/// Devices that open doors are simulated whole, so that they take persons; others only listen.
nlohmann::json ListEntry(const DeviceAddInfo_t& device, bool bListens)
{
    nlohmann::json entry{{"address", device.sIp}, {"port", device.nPort}};
    const bool bDoor = device.nCategory == DoorCategory;
    if ((!bDoor && device.nCategory != LiftCategory) || !bListens) {
        entry["listen"] = bListens;
        return entry;
    }
    entry["simulate"] = true;
    entry["category"] = device.nCategory;
    entry["model"] = device.sModel;
    entry["manufacturer"] = device.sManufacturer;
    entry["serial"] = device.sSerialNumber;
    entry["user"] = device.sUserName;
    entry["password"] = DoorPassword;
    entry["channels"] = {{bDoor ? "access" : "lifts", 4}, {"alarm_inputs", device.nAlarmInputs}};
    return entry;
}

DemoSite AddDemo(Database& database)
{
    CheckEmpty(database);
    DeviceWriter writer(database);
    const std::vector<Place> vecPlaces = AddCompany(database, writer);
    AddOperator(database);
    std::mt19937 random(20240501);
    DemoSite site;
    std::vector<qlonglong> vecIds;
    for (int i = 0; i < DemoDevices; ++i) {
        const Place& place = vecPlaces[static_cast<std::size_t>(i) % vecPlaces.size()];
        // The first of each kind is there for certain.
        const Kind& kind = i < static_cast<int>(Kinds.size()) ? Kinds[static_cast<std::size_t>(i)]
                                                              : KindOf(static_cast<int>(random() % 100));
        DeviceAddInfo_t device = MakeDevice(kind, i + 1, place.sCode, random);
        device.sName = place.sLabel + ' ' + kind.szName + ' ' + Numbered("", i + 1, 3);
        device.sIp = "127.20." + std::to_string(1 + i / 100) + '.' + std::to_string(1 + i % 100);
        device.nPort = 18000 + kind.nCategory;
        const bool bListens = i % 3 != 2;
        if (!bListens && i % 45 == 2)
            SetDomain(device, Numbered("device-", i + 1, 3) + ".invalid");
        else if (!bListens && i % 45 == 5)
            SetRegistering(device, Numbered("REG-", i + 1, 4));
        else
            site.list.push_back(ListEntry(device, bListens));
        vecIds.push_back(writer.AddDevice(device));
        if (kind.nCategory == DoorCategory)
            site.vecDoors.push_back({vecIds.back(), device.sName});
        if (kind.nCategory == LiftCategory)
            site.vecLifts.push_back({vecIds.back(), device.sName});
    }
    AddObstacles(writer, vecIds);
    Rows region =
        database.Run(QStringLiteral("SELECT MIN(code) FROM organization WHERE parent_code = '001'"));
    region.Next();
    GiveRegion(database, region.Text(0));
    return site;
}

void WriteList(const QString& sPath, const nlohmann::json& list)
{
    QSaveFile file(sPath);
    const QByteArray text = QByteArray::fromStdString(nlohmann::json{{"devices", list}}.dump(1));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        throw StartError(ExitDataDir, "The file " + sPath.toStdString() + " cannot be written");
}

} // namespace

Seeds::Seeds(DatabasePool& pool, const SecretBox& box, const PhotoStore& photos)
    : m_pool(pool)
    , m_box(box)
    , m_photos(photos)
{
}

void Seeds::Demo(const QString& sDataDir, std::int64_t nNow) const
{
    m_pool.Write([&](Database& database) {
        DemoSite site = AddDemo(database);
        for (const auto* pDevices : {&site.vecDoors, &site.vecLifts})
            for (const PersonSeeds::Door& device : *pDevices)
                DeviceRecords::SetPassword(
                    database, std::to_string(device.nDeviceId), m_box.Seal(DoorPassword));
        PersonSeeds::Demo(database, m_box, m_photos, site.vecDoors, site.vecLifts, nNow);
        WriteList(sDataDir + QStringLiteral("/field-devices.json"), site.list);
    });
    Log::Info("seed", "Demonstration data written", {{"devices", std::to_string(DemoDevices)}});
}

void Seeds::Bulk(int nDevices) const
{
    m_pool.Write([nDevices](Database& database) {
        CheckEmpty(database);
        DeviceWriter writer(database);
        std::vector<std::string> vecCodes;
        for (int nSite = 1; nSite <= 20; ++nSite) {
            vecCodes.push_back(
                writer.AddOrganization(GroupLogical::RootOrganizationCode, Numbered("Site ", nSite, 2), ""));
            const std::string sSite = vecCodes.back();
            for (int nBuilding = 1; nBuilding <= 9; ++nBuilding)
                vecCodes.push_back(writer.AddOrganization(sSite, Numbered("Building ", nBuilding, 1), ""));
        }
        std::mt19937 random(4711);
        for (int i = 0; i < nDevices; ++i) {
            const Kind& kind = KindOf(static_cast<int>(random() % 100));
            DeviceAddInfo_t device = MakeDevice(kind, i + 1, vecCodes[random() % vecCodes.size()], random);
            device.sName = kind.szName + Numbered(" ", i + 1, 6);
            device.sIp = "127." + std::to_string(100 + i / 62500) + '.' + std::to_string(i / 250 % 250) + '.'
                + std::to_string(1 + i % 250);
            device.nPort = 18000 + kind.nCategory;
            writer.AddDevice(device);
        }
    });
    m_pool.WriteBare([](Database& database) {
        if (database.IsPostgres())
            database.Execute(QStringLiteral("ANALYZE device"));
    });
    Log::Info("seed", "Devices written", {{"devices", std::to_string(nDevices)}});
}

void Seeds::BulkPersons(int nPersons, int nGroups) const
{
    m_pool.Write([nPersons, nGroups](Database& database) { PersonSeeds::Bulk(database, nPersons, nGroups); });
    m_pool.WriteBare([](Database& database) {
        if (database.IsPostgres())
            database.Execute(QStringLiteral("ANALYZE person"));
    });
    Log::Info("seed", "Persons written", {{"persons", std::to_string(nPersons)}});
}

} // namespace Platform
