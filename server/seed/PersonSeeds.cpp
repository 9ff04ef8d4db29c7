#include "PersonSeeds.h"

#include "persons/AuthorizationService.h"
#include "persons/PersonRecords.h"
#include "services/TextRules.h"
#include "services/TreeTable.h"

#include <AccessControlLogical/PersonRecords.h>

#include <array>
#include <cstdio>
#include <memory>
#include <random>

#include <turbojpeg.h>

namespace Platform::PersonSeeds {

using namespace AccessControlLogical;

namespace {

constexpr int DemoPersons = 400;
constexpr int FirstDemoId = 10001;
constexpr std::int64_t DayMs = std::int64_t(24) * 60 * 60 * 1000;

constexpr std::array FirstNames{"Ada", "Bernd", "Clara", "Dmitri", "Elena", "Farid", "Greta", "Henrik",
    "Ines", "Jakub", "Katrin", "Luis", "Marta", "Nadia", "Oskar", "Paula", "Quentin", "Rosa", "Stefan",
    "Teresa", "Ulrich", "Vera", "Willem", "Ximena", "Yusuf", "Zofia"};
constexpr std::array LastNames{"Abel", "Brandt", "Castillo", "Dvorak", "Eriksen", "Fischer", "Garcia",
    "Hansen", "Ivanova", "Jansen", "Keller", "Lindqvist", "Moreau", "Novak", "Olsen", "Petrov", "Quist",
    "Ricci", "Santos", "Tanaka", "Unger", "Vargas", "Weber", "Yilmaz", "Ziegler"};

std::string Padded(const char* szPrefix, int nNumber, int nDigits)
{
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%s%0*d", szPrefix, nDigits, nNumber);
    return text.data();
}

std::string AddGroup(Database& database, const std::string& sParentCode, const std::string& sName)
{
    constexpr TreeTable Tree("person_group");
    std::string sCode = std::to_string(database.NextNumber(QStringLiteral("person group")));
    database.Run(QStringLiteral("INSERT INTO person_group (code, parent_code, name, name_key, remark) "
                                "VALUES (?, ?, ?, ?, '')"),
        {TextValue(sCode), TextValue(sParentCode), TextValue(sName), TextValue(FoldCase(sName))});
    Tree.AddAncestors(database, sCode, sParentCode);
    return sCode;
}

std::vector<std::string> AddCompany(Database& database)
{
    struct Division
    {
        const char* szName;
        std::vector<const char*> vecTeams;
    };
    const std::vector<Division> vecDivisions{
        {"Operations", {"Harbour Terminal", "Assembly Plant", "Retail Park", "Transport"}},
        {"Engineering", {"Hardware", "Software", "Quality", "Laboratories"}},
        {"Administration", {"Finance", "People", "Legal", "Purchasing"}},
        {"Facilities", {"Security", "Reception", "Cleaning", "Maintenance"}},
        {"Contractors", {"Construction", "Catering"}},
    };
    std::vector<std::string> vecCodes;
    for (const Division& division : vecDivisions) {
        vecCodes.push_back(AddGroup(database, RootDepartmentCode, division.szName));
        const std::string sDivision = vecCodes.back();
        for (const char* szTeam : division.vecTeams)
            vecCodes.push_back(AddGroup(database, sDivision, szTeam));
    }
    return vecCodes;
}

void AddChoices(Database& database, const std::vector<Door>& vecDoors, const std::vector<Door>& vecLifts)
{
    constexpr std::array AccessGroups{
        "Main Entrances", "Laboratories", "Data Centre", "Night Shift", "Car Park"};
    constexpr std::size_t DoorsOfGroup = 3;
    for (std::size_t nGroup = 0; nGroup < AccessGroups.size(); ++nGroup) {
        database.Run(QStringLiteral("INSERT INTO access_group (id, name) VALUES (?, ?)"),
            {static_cast<int>(nGroup) + 1, QString::fromLatin1(AccessGroups[nGroup])});
        for (std::size_t n = 0; n < std::min(DoorsOfGroup, vecDoors.size()); ++n)
            database.Run(QStringLiteral("INSERT INTO access_group_door (group_id, device_id, channel, "
                                        "channel_name) VALUES (?, ?, ?, ?)"),
                {static_cast<int>(nGroup) + 1, vecDoors[(nGroup * 2 + n) % vecDoors.size()].nDeviceId, 1,
                    QStringLiteral("Door 1")});
    }
    int nId = 0;
    for (const char* szName : {"Staff", "Visitors of the Month", "Contractors", "Not Wanted"})
        database.Run(QStringLiteral("INSERT INTO face_group (id, name) VALUES (?, ?)"),
            {++nId, QString::fromLatin1(szName)});
    nId = 0;
    for (const Door& lift : vecLifts)
        for (int nFloor = 0; nFloor < 6; ++nFloor)
            database.Run(QStringLiteral("INSERT INTO lift_floor (id, device_id, channel_name, floor) "
                                        "VALUES (?, ?, ?, ?)"),
                {++nId, lift.nDeviceId, QStringLiteral("Lift A"),
                    nFloor == 0 ? QStringLiteral("Ground Floor") : QStringLiteral("Floor %1").arg(nFloor)});
    for (int nFloor = 1; nFloor <= 4; ++nFloor)
        for (int nRoom = 1; nRoom <= 6; ++nRoom)
            database.Run(QStringLiteral("INSERT INTO room (number) VALUES (?)"),
                {TextValue(std::to_string(nFloor * 100 + nRoom))});
}

/// A silhouette before a plain wall: a photo without anybody on it.
QByteArray MakePhoto(std::mt19937& random)
{
    constexpr int Width = 240;
    constexpr int Height = 320;
    const std::array<unsigned char, 3> wall{static_cast<unsigned char>(150 + random() % 90),
        static_cast<unsigned char>(150 + random() % 90), static_cast<unsigned char>(150 + random() % 90)};
    const std::array<unsigned char, 3> person{static_cast<unsigned char>(50 + random() % 60),
        static_cast<unsigned char>(50 + random() % 60), static_cast<unsigned char>(60 + random() % 80)};
    const auto isIn = [](double dX, double dY, double dRadiusX, double dRadiusY) {
        return dX * dX / (dRadiusX * dRadiusX) + dY * dY / (dRadiusY * dRadiusY) <= 1;
    };
    std::vector<unsigned char> vecPixels;
    vecPixels.reserve(std::size_t{3} * Width * Height);
    for (int nY = 0; nY < Height; ++nY)
        for (int nX = 0; nX < Width; ++nX) {
            const double dX = nX - Width / 2.0;
            const bool bPerson = isIn(dX, nY - 120, 58, 74) || isIn(dX, nY - 340, 112, 130);
            const auto& colour = bPerson ? person : wall;
            vecPixels.insert(vecPixels.end(), colour.begin(), colour.end());
        }
    const std::unique_ptr<void, int (*)(tjhandle)> pEncoder(tjInitCompress(), &tjDestroy);
    unsigned char* pFile = nullptr;
    unsigned long nSize = 0;
    tjCompress2(
        pEncoder.get(), vecPixels.data(), Width, 0, Height, TJPF_RGB, &pFile, &nSize, TJSAMP_420, 85, 0);
    QByteArray baFile(reinterpret_cast<const char*>(pFile), static_cast<int>(nSize));
    tjFree(pFile);
    return baFile;
}

Person_t MakePerson(int nNumber, const std::string& sGroupCode, std::mt19937& random)
{
    Person_t person;
    person.sPersonId = std::to_string(FirstDemoId + nNumber);
    person.sName =
        std::string(FirstNames[random() % FirstNames.size()]) + ' ' + LastNames[random() % LastNames.size()];
    person.nGender = static_cast<int>(random() % 3);
    person.sGroupCode = sGroupCode;
    person.sTelephone = Padded("+49-555-", nNumber, 4);
    person.sEmail =
        FoldCase(person.sName.substr(0, person.sName.find(' '))) + Padded("", nNumber, 3) + "@example.com";
    person.nPersonType = random() % 10 < 7 ? PersonGeneral : static_cast<int>(random() % 6);
    person.sCompany = "Northfield Group";
    person.sEntryDate = Padded("20", 10 + static_cast<int>(random() % 14), 2) + "-0"
        + std::to_string(1 + random() % 9) + "-01";
    for (unsigned nCard = 0; nCard < random() % 3; ++nCard)
        person.vecCards.push_back({Padded("A0", nNumber, 5) + std::to_string(nCard), nCard == 0});
    if (nNumber % 5 == 0)
        person.vecPlates.push_back(Padded("NF-", nNumber, 3) + "K");
    person.nVersion = 1;
    return person;
}

void AddRecords(Database& database, const Person_t& person, const std::vector<Door>& vecDoors,
    std::int64_t nNow, std::mt19937& random)
{
    for (int nDay = 14; nDay >= 1; --nDay)
        for (int nVisit = 0; nVisit < 4; ++nVisit) {
            const Door& door = vecDoors[random() % vecDoors.size()];
            const std::int64_t nTime =
                (nNow - nDay * DayMs) / 1000 + std::int64_t(nVisit) * 3 * 60 * 60 + random() % 3600;
            database.Run(
                QStringLiteral(
                    "INSERT INTO access_record (person_id, at, device_name, channel_name, "
                    "credential, card_no, entry, opened, device_id) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                {QString::fromStdString(person.sPersonId).toLongLong(), static_cast<qlonglong>(nTime),
                    TextValue(door.sDeviceName), QStringLiteral("Door 1"), int(CredentialCard),
                    TextValue(person.vecCards.empty() ? "" : person.vecCards.front().sCardNo),
                    nVisit % 2 == 0 ? 1 : 0, random() % 25 != 0 ? 1 : 0, door.nDeviceId});
        }
}

} // namespace

void Demo(Database& database, const SecretBox& box, const PhotoStore& photos,
    const std::vector<Door>& vecDoors, const std::vector<Door>& vecLifts, std::int64_t nNow)
{
    std::mt19937 random(20240602);
    const std::vector<std::string> vecCodes = AddCompany(database);
    AddChoices(database, vecDoors, vecLifts);
    for (int nNumber = 0; nNumber < DemoPersons; ++nNumber) {
        Person_t person =
            MakePerson(nNumber, vecCodes[static_cast<std::size_t>(nNumber) % vecCodes.size()], random);
        if (nNumber % 8 == 0) {
            person.vecAccessGroups = {std::to_string(1 + random() % 5)};
            person.vecFaceGroups = {"1"};
        }
        const std::string sPhoto =
            nNumber % 4 == 0 ? photos.Add(MakePhoto(random).toBase64().toStdString()) : std::string();
        PersonRecords::Insert(database, box, person, sPhoto);
        AuthorizationService::PersonChanged(database, person.sPersonId);
        if (nNumber < 40 && !vecDoors.empty())
            AddRecords(database, person, vecDoors, nNow, random);
    }
}

void Bulk(Database& database, int nPersons, int nGroups)
{
    std::vector<std::string> vecCodes;
    for (int nGroup = 1; nGroup <= nGroups; ++nGroup)
        vecCodes.push_back(AddGroup(database,
            vecCodes.empty() || nGroup % 10 == 1 ? std::string(RootDepartmentCode)
                                                 : vecCodes[static_cast<std::size_t>(nGroup - 2) / 10 * 10],
            Padded("Group ", nGroup, 5)));
    std::mt19937 random(815);
    for (int n = 0; n < nPersons; ++n) {
        const qlonglong nId = 10000001 + n;
        const std::string sName = std::string(FirstNames[random() % FirstNames.size()]) + ' '
            + LastNames[random() % LastNames.size()] + Padded(" ", n, 7);
        const std::string sPlate = n % 4 == 0 ? Padded("PL", n, 7) : std::string();
        std::string sSearchKey = std::to_string(nId) + '\n' + FoldCase(sName);
        if (!sPlate.empty())
            sSearchKey += '\n' + FoldCase(sPlate);
        database.Run(
            QStringLiteral("INSERT INTO person (id, name, gender, group_code, telephone, email, remark, "
                           "valid_from, valid_to, nickname, birthday, entry_date, company, position, "
                           "person_type, extend_time, card_times, device_login, room_no, plates, search_key) "
                           "VALUES (?, ?, 0, ?, '', '', '', 0, 0, '', '', '', '', '', 0, 5, 0, 0, '', ?, ?)"),
            {nId, TextValue(sName), TextValue(vecCodes[random() % vecCodes.size()]), TextValue(sPlate),
                TextValue(sSearchKey)});
        database.Run(
            QStringLiteral("INSERT INTO person_card (card_no, person_id, place, main, duress, locked) "
                           "VALUES (?, ?, 0, 1, 0, 0)"),
            {TextValue(Padded("C", n, 9)), nId});
        if (!sPlate.empty())
            database.Run(QStringLiteral("INSERT INTO person_plate (plate_key, plate, person_id, place) "
                                        "VALUES (?, ?, ?, 0)"),
                {TextValue(FoldCase(sPlate)), TextValue(sPlate), nId});
    }
}

} // namespace Platform::PersonSeeds
