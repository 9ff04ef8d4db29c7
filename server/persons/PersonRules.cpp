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

constexpr std::size_t ListLimit = 100; ///< cards, plates, chosen groups of one person

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
        if (!Holds(FingerprintName, fingerprint.sName) || !IsTemplate(fingerprint)
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
               return Holds(PlateNumber, sPlate) && plates.insert(FoldCase(sPlate)).second;
           });
}

} // namespace

std::optional<std::int64_t> NumberOf(const std::string& sPersonId)
{
    if (!IsPersonId(sPersonId))
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
    return Holds(CardNumber, sCardNo);
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
        {"sName", Holds(PersonName, person.sName)},
        {"nGender", isBetween(person.nGender, GenderUnknown, GenderFemale)},
        {"sTelephone", Holds(PersonTelephone, person.sTelephone)},
        {"sEmail",
            Holds(PersonEmail, person.sEmail)
                && (person.sEmail.empty() || UICommonMdl::IsMailAddress(person.sEmail))},
        {"sRemark", Holds(PersonRemark, person.sRemark)},
        {"nValidTo", IsPeriod(person.nValidFrom, person.nValidTo)},
        {"sNickname", Holds(PersonNickname, person.sNickname)},
        {"sBirthday", IsDate(person.sBirthday)},
        {"sEntryDate", IsDate(person.sEntryDate)},
        {"sCompany", Holds(PersonCompany, person.sCompany)},
        {"sPosition", Holds(PersonPosition, person.sPosition)},
        {"vecCards", AreCards(person.vecCards)},
        {"vecFingerprints", AreFingerprints(person.vecFingerprints)},
        {"sUnlockPassword", HoldsIfFilled(UnlockPassword, person.sUnlockPassword)},
        {"nPersonType", isBetween(person.nPersonType, PersonGeneral, PersonOther)},
        {"nExtendTime", ExtendTime.Allows(person.nExtendTime)},
        {"nCardTimes", CardTimes.Allows(person.nCardTimes)},
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
