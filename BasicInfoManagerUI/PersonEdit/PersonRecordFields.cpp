#include "PersonRecordFields.h"

#include "PersonFieldRules.h"

#include <UICommonMdl/CDepartmentModelManager.h>

#include <QDateTime>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CPersonnelInfoUI)
};

QString GetGroupName(const std::string& sCode)
{
    const QModelIndex group =
        UICommonMdl::CDepartmentModelManager::Instance()->GetDepartmentModel()->FindCode(
            QString::fromStdString(sCode));
    return group.isValid() ? group.data().toString() : QString::fromStdString(sCode);
}

QString GetTime(const std::int64_t& nSeconds)
{
    return nSeconds == 0 ? QString()
                         : QLocale().toString(QDateTime::fromSecsSinceEpoch(nSeconds), QLocale::ShortFormat);
}

QString GetCards(const Person_t& person)
{
    QStringList listCards;
    for (const Card_t& card : person.vecCards)
        listCards.append(QString::fromStdString(card.sCardNo)
            + (card.bMain ? QStringLiteral(" ") + Text::tr("(main)") : QString())
            + (card.bDuress ? QStringLiteral(" ") + Text::tr("(duress)") : QString())
            + (card.bLocked ? QStringLiteral(" ") + Text::tr("(frozen)") : QString()));
    return listCards.join(QStringLiteral(", "));
}

QString GetFingerprints(const Person_t& person)
{
    // A new one has no number yet, and its template does not come back.
    QStringList listNames;
    for (const Fingerprint_t& finger : person.vecFingerprints)
        listNames.append(QString::fromStdString(finger.sName)
            + (finger.bDuress ? QStringLiteral(" ") + Text::tr("(duress)") : QString()));
    return listNames.join(QStringLiteral(", "));
}

void AddPermissions(Common::RecordFields<Person_t>& fields)
{
    fields.Add<int>(Text::tr("Access Type"), &Person_t::nPersonType,
        [](const int& nType) { return GetPersonTypeText(nType); });
    fields.Add(Text::tr("Extend Time"), &Person_t::nExtendTime);
    fields.Add(Text::tr("Card Times"), &Person_t::nCardTimes);
    fields.Add(Text::tr("Device administrator"), &Person_t::bDeviceLogin);
    fields.AddKeys(Text::tr("Access permission groups"), &Person_t::vecAccessGroups);
    fields.AddKeys(Text::tr("Lift floors"), &Person_t::vecLiftFloors);
    fields.AddKeys(Text::tr("Face groups"), &Person_t::vecFaceGroups);
}

} // namespace

void DescribePerson(Common::RecordFields<Person_t>& fields)
{
    fields.Add(Text::tr("Name"), &Person_t::sName);
    fields.Add<int>(
        Text::tr("Gender"), &Person_t::nGender, [](const int& nGender) { return GetGenderText(nGender); });
    fields.Add<std::string>(Text::tr("Person Group"), &Person_t::sGroupCode, GetGroupName);
    fields.Add(Text::tr("Telephone"), &Person_t::sTelephone);
    fields.Add(Text::tr("E-mail"), &Person_t::sEmail);
    fields.Add<std::int64_t>(Text::tr("Valid From"), &Person_t::nValidFrom, GetTime);
    fields.Add<std::int64_t>(Text::tr("Valid To"), &Person_t::nValidTo, GetTime);
    fields.Add(Text::tr("Remark"), &Person_t::sRemark);
    fields.AddText(
        Text::tr("Photo"),
        [](const Person_t& person) {
            return Common::FieldText(!person.sPhotoUrl.empty() || !person.sPhotoData.empty());
        },
        [](Person_t& to, const Person_t& from) { to.sPhotoUrl = from.sPhotoUrl; });
    fields.AddSecret(Text::tr("New photo"), &Person_t::sPhotoData);
    fields.Add(Text::tr("Nickname"), &Person_t::sNickname);
    fields.Add(Text::tr("Birthday"), &Person_t::sBirthday);
    fields.Add(Text::tr("Entry Date"), &Person_t::sEntryDate);
    fields.Add(Text::tr("Company"), &Person_t::sCompany);
    fields.Add(Text::tr("Position"), &Person_t::sPosition);
    fields.AddText(
        Text::tr("Cards"), GetCards, [](Person_t& to, const Person_t& from) { to.vecCards = from.vecCards; });
    const auto copyFingerprints = [](Person_t& to, const Person_t& from) {
        to.vecFingerprints = from.vecFingerprints;
    };
    fields.AddText(Text::tr("Fingerprints"), GetFingerprints, copyFingerprints);
    fields.AddWritten(
        Text::tr("New fingerprints"),
        [](const Person_t& mine) {
            return std::any_of(mine.vecFingerprints.begin(), mine.vecFingerprints.end(),
                [](const Fingerprint_t& finger) { return !finger.sTemplate.empty(); });
        },
        copyFingerprints);
    fields.Add(Text::tr("Unlock password"), &Person_t::bUnlockPassword);
    fields.AddSecret(Text::tr("New unlock password"), &Person_t::sUnlockPassword);
    AddPermissions(fields);
    fields.Add(Text::tr("Room"), &Person_t::sRoomNo);
    fields.Add(Text::tr("Plate Number"), &Person_t::vecPlates);
}

} // namespace BasicInfoManagerUI
