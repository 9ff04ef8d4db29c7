#pragma once

#include <UICommonMdl/TextRule.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Records of persons, their groups and their credentials. All texts are UTF-8. Plain data: copied freely
/// between threads.
namespace AccessControlLogical {

/// Code of the root person group; it exists always, and has no parent.
inline constexpr const char* RootDepartmentCode = "001";

/// Levels that the tree of person groups may have, the root being level 1.
inline constexpr int DepartmentLevelLimit = 10;

/// Persons that one batch request may name.
inline constexpr std::size_t PersonBatchLimit = 1000;

inline constexpr std::size_t FingerprintLimit = 3;
/// Bytes of a fingerprint template.
inline constexpr std::size_t TemplateSize = 810;
/// Bytes of a photo, and pixels of its width and height, that the server takes.
inline constexpr std::size_t PhotoSizeLimit = 512 * 1024;
inline constexpr int PhotoSideLimit = 2048;

inline constexpr UICommonMdl::TextRule DepartmentName{1, 50, "<>/"};
inline constexpr UICommonMdl::TextRule DepartmentRemark{0, 255, "<>", "", UICommonMdl::TextLines::Several};

/// A person group.
struct Department_t
{
    std::string sCode; ///< key, given by the server
    std::string sParentCode; ///< empty for the root
    std::string sName; ///< DepartmentName; unique among its siblings
    std::string sRemark; ///< DepartmentRemark
    std::int64_t nVersion = 0; ///< raised by each change; a save against an older one is refused

    bool operator==(const Department_t&) const = default;
};

enum Gender : int
{
    GenderUnknown = 0,
    GenderMale = 1,
    GenderFemale = 2
};

enum PersonType : int
{
    PersonGeneral = 0,
    PersonBlocklist = 1,
    PersonGuest = 2,
    PersonPatrol = 3,
    PersonVip = 4,
    PersonOther = 5
};

inline constexpr UICommonMdl::TextRule CardNumber{1, 16, "", UICommonMdl::HexDigits};

/// A card of a person.
struct Card_t
{
    std::string sCardNo; ///< CardNumber, upper case; unique on the platform
    bool bMain = false; ///< at most one of a person
    bool bDuress = false; ///< at most one of a person
    bool bLocked = false; ///< frozen: doors do not open for it

    bool operator==(const Card_t&) const = default;
};

inline constexpr UICommonMdl::TextRule FingerprintName{1, 50, "<>"};

/// A fingerprint of a person.
struct Fingerprint_t
{
    std::int64_t nId = 0; ///< given by the server; 0: not stored yet
    std::string sName; ///< FingerprintName, unique among the person's
    bool bDuress = false;
    /// Base64 of TemplateSize bytes. The server never sends it back; empty together with an nId: as stored.
    std::string sTemplate;

    bool operator==(const Fingerprint_t&) const = default;
};

inline constexpr UICommonMdl::TextRule PersonId{2, 12, "", UICommonMdl::Digits};
inline constexpr UICommonMdl::TextRule PersonName{1, 50, "<>"};
inline constexpr UICommonMdl::TextRule PersonTelephone{0, 20, "", "0123456789-+"};
inline constexpr UICommonMdl::TextRule PersonEmail{0, 50};
inline constexpr UICommonMdl::TextRule PersonRemark{0, 255, "<>", "", UICommonMdl::TextLines::Several};
inline constexpr UICommonMdl::TextRule PersonNickname{0, 50, "<>"};
inline constexpr UICommonMdl::TextRule PersonCompany{0, 50, "<>"};
inline constexpr UICommonMdl::TextRule PersonPosition{0, 50, "<>"};
inline constexpr UICommonMdl::TextRule PlateNumber{1, 15, "<>"};
inline constexpr UICommonMdl::TextRule UnlockPassword{6, 6, "", UICommonMdl::Digits};
inline constexpr UICommonMdl::NumberRule ExtendTime{1, 200}; ///< seconds
inline constexpr UICommonMdl::NumberRule CardTimes{0, 9999};

/// What a person ID is made of, whatever its length: digits, the first not 0.
inline bool IsPartOfPersonId(std::string_view id)
{
    return !UICommonMdl::HasForbidden(PersonId, id) && !id.starts_with('0');
}

inline bool IsPersonId(std::string_view id)
{
    return UICommonMdl::Holds(PersonId, id) && IsPartOfPersonId(id);
}

/// A person as it is added, edited and shown in detail.
struct Person_t
{
    std::string sPersonId; ///< key: IsPersonId; not changed by a save
    std::string sName; ///< PersonName
    int nGender = GenderUnknown; ///< Gender
    std::string sGroupCode;
    std::string sGroupName; ///< read only
    std::string sTelephone; ///< PersonTelephone
    std::string sEmail; ///< PersonEmail: UICommonMdl::IsMailAddress, or empty
    std::string sRemark; ///< PersonRemark
    /// Address of the photo on the server; empty: none. Sent back as it is, it keeps the photo.
    std::string sPhotoUrl;
    /// A new photo: Base64 of a JPEG file. The server never sends it back.
    std::string sPhotoData;
    std::int64_t nValidFrom = 0; ///< seconds since 1970, UTC; 0: from ever
    std::int64_t nValidTo = 0; ///< seconds since 1970, UTC, after nValidFrom; 0: for ever

    // Extended information.
    std::string sNickname; ///< PersonNickname
    std::string sBirthday; ///< "yyyy-MM-dd" or empty, like all dates
    std::string sEntryDate;
    std::string sCompany; ///< PersonCompany
    std::string sPosition; ///< PersonPosition

    // Credentials.
    std::vector<Card_t> vecCards;
    std::vector<Fingerprint_t> vecFingerprints; ///< at most FingerprintLimit
    bool bUnlockPassword = false; ///< the person has one
    /// UnlockPassword; the server never sends it back. Empty together with bUnlockPassword: as stored.
    std::string sUnlockPassword;

    // Access permissions.
    int nPersonType = PersonGeneral; ///< PersonType
    int nExtendTime = 5; ///< seconds that a door stays unlocked: ExtendTime
    int nCardTimes = 0; ///< how often the cards may be used: CardTimes; 0: no limit
    bool bDeviceLogin = false; ///< is an administrator of the devices
    std::vector<std::string> vecAccessGroups; ///< ids of access permission groups
    std::vector<std::string> vecLiftFloors; ///< ids of floors of lift controllers
    std::vector<std::string> vecFaceGroups; ///< ids of face comparison groups

    std::string sRoomNo; ///< number of the person's room, which must exist; empty: none
    std::vector<std::string> vecPlates; ///< plate numbers, PlateNumber each; unique on the platform

    bool bAuthorizationError = false; ///< read only: not all rights could be sent to the devices
    std::int64_t nVersion = 0; ///< raised by each change; a save against an older one is refused

    bool operator==(const Person_t&) const = default;
};

/// One row of the person list.
struct PersonInfo_t
{
    std::string sPersonId;
    std::string sName;
    int nGender = GenderUnknown;
    int nPersonType = PersonGeneral;
    std::string sGroupCode;
    std::string sGroupName;
    std::string sTelephone;
    std::string sPhotoUrl;
    int nCards = 0; ///< how many
    int nFingerprints = 0;
    bool bUnlockPassword = false;
    std::string sPlates; ///< plate numbers, joined with ","
    bool bAuthorizationError = false;
    std::int64_t nVersion = 0;

    bool operator==(const PersonInfo_t&) const = default;
};

/// Which persons are wanted. They come in the order of their IDs.
struct PersonPageRequest_t
{
    std::string sGroupCode; ///< empty: the root
    bool bSubGroups = false;
    std::string sSearchKey; ///< part of the ID, the name or a plate number, whatever its case; empty: all
    int nPage = 1; ///< from 1
    int nPageSize = 20; ///< 1 to 1000

    bool operator==(const PersonPageRequest_t&) const = default;
};

struct PersonPage_t
{
    std::vector<PersonInfo_t> vecPersons;
    int nTotal = 0; ///< rows of all pages
    int nPage = 1; ///< the page that this is: the last one when one beyond it was asked for

    bool operator==(const PersonPage_t&) const = default;
};

/// A person of a batch that was left as it is.
struct PersonFailure_t
{
    std::string sPersonId;
    std::string sName;
    int nErrorCode = 0; ///< UICommonMdl::ErrorCode
    std::string sDetail;

    bool operator==(const PersonFailure_t&) const = default;
};

enum ClashKind : int
{
    ClashPersonId = 1,
    ClashCardNo = 2,
    ClashPlate = 3
};

/// A value that another person has already: what ErrorPersonDuplicate is about.
struct PersonClash_t
{
    int nKind = ClashPersonId; ///< ClashKind
    std::string sValue;

    bool operator==(const PersonClash_t&) const = default;
};

/// A card for a person.
struct IssueCard_t
{
    std::string sPersonId;
    std::string sCardNo;

    bool operator==(const IssueCard_t&) const = default;
};

/// Something that can be chosen: an access permission group, a face comparison group.
struct Choice_t
{
    std::string sId;
    std::string sName;

    bool operator==(const Choice_t&) const = default;
};

/// A floor that a lift controller lets people go to.
struct LiftFloor_t
{
    std::string sId;
    std::string sDeviceName;
    std::string sChannelName;
    std::string sFloor;

    bool operator==(const LiftFloor_t&) const = default;
};

/// What the permissions of a person are chosen from.
struct PermissionChoices_t
{
    std::vector<Choice_t> vecAccessGroups;
    std::vector<Choice_t> vecFaceGroups;
    std::vector<LiftFloor_t> vecLiftFloors;

    bool operator==(const PermissionChoices_t&) const = default;
};

/// The residence scenario: whether rooms are kept, and which there are.
struct ResidenceScenario_t
{
    bool bEnabled = false;
    std::vector<std::string> vecRooms; ///< room numbers, ascending

    bool operator==(const ResidenceScenario_t&) const = default;
};

enum CredentialKind : int
{
    CredentialPerson = 0,
    CredentialCard = 1,
    CredentialFace = 2,
    CredentialFingerprint = 3,
    CredentialPassword = 4, ///< the unlock password
};

/// One right that could not be sent to a device.
struct AuthorizeException_t
{
    std::string sPersonId;
    std::string sPersonName;
    int nCredential = CredentialPerson; ///< CredentialKind
    std::string sDeviceId;
    std::string sDeviceName;
    std::string sChannelName;
    int nErrorCode = 0; ///< UICommonMdl::ErrorCode: the reason
    std::string sDetail; ///< the device's own words
    bool bRemoval = false; ///< what failed was taking the right away

    bool operator==(const AuthorizeException_t&) const = default;
};

/// What the QR code of a person holds; a new one is made by every query.
struct PersonQrCode_t
{
    std::string sText;
    std::int64_t nValidTo = 0; ///< seconds since 1970, UTC

    bool operator==(const PersonQrCode_t&) const = default;
};

/// Which access records of a person are wanted, newest first.
struct AccessRecordRequest_t
{
    std::string sPersonId;
    std::int64_t nFrom = 0; ///< seconds since 1970, UTC
    std::int64_t nTo = 0; ///< included
    int nPage = 1; ///< from 1
    int nPageSize = 20; ///< 1 to 1000

    bool operator==(const AccessRecordRequest_t&) const = default;
};

/// A person at a door.
struct AccessRecord_t
{
    std::int64_t nTime = 0; ///< seconds since 1970, UTC
    std::string sDeviceName;
    std::string sChannelName;
    int nCredential = CredentialCard; ///< CredentialKind
    std::string sCardNo; ///< empty unless a card was used
    bool bEntry = true; ///< in, not out
    bool bOpened = true; ///< the door opened

    bool operator==(const AccessRecord_t&) const = default;
};

} // namespace AccessControlLogical
