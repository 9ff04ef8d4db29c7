#include "PersonRules.h"

#include "services/TextRules.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <algorithm>
#include <charconv>
#include <set>

namespace Platform::PersonRules {

using namespace AccessControlLogical;

namespace {

constexpr std::size_t IdMin = 2;
constexpr std::size_t IdMax = 12;
constexpr std::size_t NameLimit = 50;
constexpr std::size_t RemarkLimit = 255;
constexpr std::size_t TelephoneLimit = 20;
constexpr std::size_t CardLimit = 16;
constexpr std::size_t PlateLimit = 15;
constexpr std::size_t ListLimit = 100; ///< cards, plates, chosen groups of one person
constexpr std::size_t PasswordLength = 6;

bool AllOf(const std::string& sText, const char* szAllowed)
{
    return sText.find_first_not_of(szAllowed) == std::string::npos;
}

bool IsText(const std::string& sText, std::size_t nLimit)
{
    return CharacterCount(sText) <= nLimit && sText.find_first_of("<>") == std::string::npos
        && !HasControlCharacter(sText);
}

/// Several lines are right here.
bool IsRemark(const std::string& sText)
{
    return CharacterCount(sText) <= RemarkLimit && sText.find_first_of("<>") == std::string::npos;
}

bool IsEmail(const std::string& sText)
{
    const auto nAt = sText.find('@');
    const auto nDot = sText.rfind('.');
    return sText.empty()
        || (CharacterCount(sText) <= NameLimit && nAt != std::string::npos && nDot != std::string::npos
            && nDot >= nAt);
}

bool IsDate(const std::string& sText)
{
    return sText.empty()
        || (sText.size() == 10 && QDate::fromString(QString::fromStdString(sText), Qt::ISODate).isValid());
}

bool AreCards(const std::vector<Card_t>& vecCards)
{
    std::set<std::string> numbers;
    int nMain = 0;
    int nDuress = 0;
    for (const Card_t& card : vecCards) {
        if (!IsCardNo(card.sCardNo) || !numbers.insert(card.sCardNo).second)
            return false;
        nMain += card.bMain ? 1 : 0;
        nDuress += card.bDuress ? 1 : 0;
    }
    return nMain <= 1 && nDuress <= 1 && vecCards.size() <= ListLimit;
}

bool IsTemplate(const Fingerprint_t& fingerprint)
{
    if (fingerprint.sTemplate.empty())
        return fingerprint.nId > 0;
    const auto result = QByteArray::fromBase64Encoding(
        QByteArray::fromStdString(fingerprint.sTemplate), QByteArray::AbortOnBase64DecodingErrors);
    return result && static_cast<std::size_t>(result.decoded.size()) == TemplateSize;
}

bool AreFingerprints(const std::vector<Fingerprint_t>& vecFingerprints)
{
    std::set<std::string> names;
    std::set<std::int64_t> ids;
    for (const Fingerprint_t& fingerprint : vecFingerprints) {
        if (fingerprint.sName.empty() || !IsText(fingerprint.sName, NameLimit) || !IsTemplate(fingerprint)
            || !names.insert(fingerprint.sName).second)
            return false;
        if (fingerprint.nId != 0 && !ids.insert(fingerprint.nId).second)
            return false;
    }
    return vecFingerprints.size() <= FingerprintLimit;
}

bool ArePlates(const std::vector<std::string>& vecPlates)
{
    std::set<std::string> plates;
    return vecPlates.size() <= ListLimit
        && std::all_of(vecPlates.begin(), vecPlates.end(), [&](const std::string& sPlate) {
               return !sPlate.empty() && IsText(sPlate, PlateLimit) && plates.insert(FoldCase(sPlate)).second;
           });
}

bool IsPassword(const std::string& sPassword)
{
    return sPassword.empty() || (sPassword.size() == PasswordLength && AllOf(sPassword, "0123456789"));
}

} // namespace

std::optional<std::int64_t> NumberOf(const std::string& sPersonId)
{
    if (sPersonId.size() < IdMin || sPersonId.size() > IdMax || sPersonId.front() == '0'
        || !AllOf(sPersonId, "0123456789"))
        return std::nullopt;
    std::int64_t nNumber = 0;
    std::from_chars(sPersonId.data(), sPersonId.data() + sPersonId.size(), nNumber);
    return nNumber;
}

std::string UpperCase(std::string sText)
{
    for (char& c : sText)
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return sText;
}

bool IsCardNo(const std::string& sCardNo)
{
    return !sCardNo.empty() && sCardNo.size() <= CardLimit && AllOf(sCardNo, "0123456789ABCDEFabcdef");
}

bool IsPeriod(std::int64_t nFrom, std::int64_t nTo)
{
    return nFrom >= 0 && nTo >= 0 && (nTo == 0 || nTo > nFrom);
}

Person_t Cleaned(Person_t person)
{
    for (std::string* pText : {&person.sName, &person.sTelephone, &person.sEmail, &person.sRemark,
             &person.sNickname, &person.sCompany, &person.sPosition})
        *pText = Trimmed(*pText);
    for (Card_t& card : person.vecCards)
        card.sCardNo = UpperCase(card.sCardNo);
    for (Fingerprint_t& fingerprint : person.vecFingerprints)
        fingerprint.sName = Trimmed(fingerprint.sName);
    for (std::string& sPlate : person.vecPlates)
        sPlate = Trimmed(sPlate);
    return person;
}

std::string FaultyField(const Person_t& person)
{
    const auto isBetween = [](int nValue, int nMin, int nMax) { return nValue >= nMin && nValue <= nMax; };
    const std::pair<const char*, bool> checks[] = {
        {"sPersonId", NumberOf(person.sPersonId).has_value()},
        {"sName", !person.sName.empty() && IsText(person.sName, NameLimit)},
        {"nGender", isBetween(person.nGender, GenderUnknown, GenderFemale)},
        {"sTelephone",
            CharacterCount(person.sTelephone) <= TelephoneLimit && AllOf(person.sTelephone, "0123456789-+")},
        {"sEmail", IsEmail(person.sEmail) && !HasControlCharacter(person.sEmail)},
        {"sRemark", IsRemark(person.sRemark)},
        {"nValidTo", IsPeriod(person.nValidFrom, person.nValidTo)},
        {"sNickname", IsText(person.sNickname, NameLimit)},
        {"sBirthday", IsDate(person.sBirthday)},
        {"sEntryDate", IsDate(person.sEntryDate)},
        {"sCompany", IsText(person.sCompany, NameLimit)},
        {"sPosition", IsText(person.sPosition, NameLimit)},
        {"vecCards", AreCards(person.vecCards)},
        {"vecFingerprints", AreFingerprints(person.vecFingerprints)},
        {"sUnlockPassword", IsPassword(person.sUnlockPassword)},
        {"nPersonType", isBetween(person.nPersonType, PersonGeneral, PersonOther)},
        {"nExtendTime", isBetween(person.nExtendTime, 1, 200)},
        {"nCardTimes", isBetween(person.nCardTimes, 0, 9999)},
        {"vecAccessGroups", person.vecAccessGroups.size() <= ListLimit},
        {"vecLiftFloors", person.vecLiftFloors.size() <= 10 * ListLimit},
        {"vecFaceGroups", person.vecFaceGroups.size() <= ListLimit},
        {"vecPlates", ArePlates(person.vecPlates)},
    };
    for (const auto& [szField, bRight] : checks) {
        if (!bRight)
            return szField;
    }
    return {};
}

} // namespace Platform::PersonRules
