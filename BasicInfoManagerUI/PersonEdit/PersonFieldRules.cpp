#include "PersonFieldRules.h"

#include <QCoreApplication>

namespace BasicInfoManagerUI {

using namespace AccessControlLogical;

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(PersonFieldRules)
};

using UICommonMdl::TextRule;

PersonFieldCheck Required(const QString& sMessage)
{
    return {PersonFieldCheck::Required, {}, sMessage};
}

PersonFieldCheck Limit(const TextRule& rule, const QString& sMessage)
{
    return {PersonFieldCheck::Limit, rule, sMessage};
}

PersonFieldCheck Forbidden(const TextRule& rule, const QString& sMessage)
{
    return {PersonFieldCheck::Forbidden, rule, sMessage};
}

QVector<PersonFieldCheck> WithoutBrackets(const TextRule& rule, const QString& sLimitMessage)
{
    return {
        Limit(rule, sLimitMessage), Forbidden(rule, Text::tr("Special characters < and > are not allowed."))};
}

} // namespace

QVector<PersonFieldCheck> GetPersonFieldChecks(PersonField field)
{
    switch (field) {
    case PersonField::Id:
        return {Required(Text::tr("User ID cannot be null.")),
            Limit(PersonId, Text::tr("ID cannot exceed %1 digits.")),
            {PersonFieldCheck::Check, {},
                Text::tr("Invalid characters. Please input numbers (0-9) only. The first digit cannot be 0."),
                IsPartOfPersonId}};
    case PersonField::Name:
        return QVector<PersonFieldCheck>{Required(Text::tr("Name cannot be empty."))}
        + WithoutBrackets(PersonName, Text::tr("The first name cannot exceed %1 characters."));
    case PersonField::Telephone:
        return {Limit(PersonTelephone, Text::tr("Telephone number cannot exceed %1 characters.")),
            Forbidden(PersonTelephone, Text::tr("Only allow number, - and +."))};
    case PersonField::Email:
        return {Limit(PersonEmail, Text::tr("The e-mail length cannot exceed %1 characters."))};
    case PersonField::Remark:
        return WithoutBrackets(PersonRemark, Text::tr("The remark length cannot exceed %1 characters."));
    case PersonField::Nickname:
        return WithoutBrackets(PersonNickname, Text::tr("Nickname cannot exceed %1 characters."));
    case PersonField::Company:
        return WithoutBrackets(PersonCompany, Text::tr("Company cannot exceed %1 characters."));
    case PersonField::Position:
        return WithoutBrackets(PersonPosition, Text::tr("Position cannot exceed %1 characters."));
    case PersonField::ExtendTime: {
        const QString sMessage = Text::tr("Please enter a positive integer from 1 through 200.");
        return {Required(sMessage), {PersonFieldCheck::Check, {}, sMessage, [](std::string_view text) {
                                         return UICommonMdl::IsNumber(AccessControlLogical::ExtendTime, text);
                                     }}};
    }
    case PersonField::Plate:
        return WithoutBrackets(PlateNumber, Text::tr("The plate number cannot exceed %1 characters."));
    }
    return {};
}

QString CheckPersonFieldOnSave(PersonField field, const QString& sText)
{
    const std::string text = sText.toStdString();
    if (field == PersonField::Id && UICommonMdl::CountCharacters(text) < PersonId.nMin)
        return Text::tr("ID cannot be less than %1 characters.").arg(PersonId.nMin);
    if (field == PersonField::Email && !sText.isEmpty() && !UICommonMdl::IsMailAddress(text))
        return Text::tr("Invalid mail address.");
    return {};
}

QString CheckValidPeriod(std::int64_t nFrom, std::int64_t nTo)
{
    if (nTo != 0 && nTo <= nFrom)
        return Text::tr("The end time must be later than the start time.");
    return {};
}

QString DateToText(const QDate& date)
{
    return date.isValid() ? date.toString(QStringLiteral("yyyy-MM-dd")) : QString();
}

QDate TextToDate(const std::string& sText)
{
    return QDate::fromString(QString::fromStdString(sText), QStringLiteral("yyyy-MM-dd"));
}

QVector<int> GetAccessTypes()
{
    return {PersonGeneral, PersonVip, PersonGuest, PersonPatrol, PersonBlocklist};
}

QString GetGenderText(int nGender)
{
    switch (nGender) {
    case GenderMale:
        return Text::tr("Male");
    case GenderFemale:
        return Text::tr("Female");
    default:
        return Text::tr("Unknown");
    }
}

QString GetPersonTypeText(int nPersonType)
{
    switch (nPersonType) {
    case PersonGeneral:
        return Text::tr("General");
    case PersonBlocklist:
        return Text::tr("Blocklist");
    case PersonGuest:
        return Text::tr("Guest");
    case PersonPatrol:
        return Text::tr("Patrol");
    case PersonVip:
        return Text::tr("VIP");
    case PersonOther:
        return Text::tr("Other");
    default:
        return {};
    }
}

QString CheckPlate(const QString& sPlate, const QStringList& listPlates)
{
    if (sPlate.trimmed().isEmpty())
        return Text::tr("Please fill in plate number");
    if (listPlates.contains(sPlate.trimmed(), Qt::CaseInsensitive))
        return Text::tr("Plate Number is repeated.");
    return {};
}

Person_t MergeExtracted(Person_t form, const Person_t& extracted, bool bWithId)
{
    if (bWithId && !extracted.sPersonId.empty())
        form.sPersonId = extracted.sPersonId;
    for (std::string Person_t::*const pText : {&Person_t::sName, &Person_t::sTelephone, &Person_t::sEmail}) {
        if (!(extracted.*pText).empty())
            form.*pText = extracted.*pText;
    }
    if (extracted.nGender != GenderUnknown)
        form.nGender = extracted.nGender;
    if (extracted.nValidFrom != 0 || extracted.nValidTo != 0) {
        form.nValidFrom = extracted.nValidFrom;
        form.nValidTo = extracted.nValidTo;
    }
    if (!extracted.sPhotoData.empty()) {
        form.sPhotoData = extracted.sPhotoData;
        form.sPhotoUrl.clear();
    }
    if (!extracted.vecCards.empty())
        form.vecCards = extracted.vecCards;
    if (!extracted.vecFingerprints.empty()) {
        form.vecFingerprints = extracted.vecFingerprints;
        form.vecFingerprints.resize(std::min(form.vecFingerprints.size(), FingerprintLimit));
        for (Fingerprint_t& finger : form.vecFingerprints)
            finger.nId = 0; // the number would be that of another person's fingerprint
    }
    if (!extracted.sUnlockPassword.empty()) {
        form.bUnlockPassword = true;
        form.sUnlockPassword = extracted.sUnlockPassword;
    }
    form.nPersonType = extracted.nPersonType;
    form.bDeviceLogin = extracted.bDeviceLogin;
    return form;
}

ClashTexts DescribeClashes(
    const std::vector<PersonClash_t>& vecClashes, const std::vector<std::string>& vecPlates)
{
    QStringList listIds;
    QStringList listCards;
    QStringList listExisting;
    QStringList listRepeated;
    for (const PersonClash_t& clash : vecClashes) {
        const QString sValue = QString::fromStdString(clash.sValue);
        if (clash.nKind == ClashPersonId)
            listIds << Text::tr("ID:") + QLatin1Char(' ') + sValue;
        else if (clash.nKind == ClashCardNo)
            listCards << Text::tr("Card Number:") + QLatin1Char(' ') + sValue;
        else if (clash.nKind == ClashPlate)
            listExisting << sValue;
    }
    for (const std::string& sPlate : vecPlates) {
        const QString sEntered = QString::fromStdString(sPlate);
        if (listExisting.contains(sEntered, Qt::CaseInsensitive))
            listRepeated << sEntered;
    }
    ClashTexts texts;
    const QLatin1Char newLine('\n');
    texts.sIdsAndCards = (listIds + listCards).join(newLine);
    if (!listExisting.isEmpty()) {
        QStringList listLines = QStringList{Text::tr("Existed Plate:")} + listExisting;
        if (!listRepeated.isEmpty())
            listLines += QStringList{Text::tr("Repeat license plate number list:")} + listRepeated;
        texts.sPlates = listLines.join(newLine);
    }
    return texts;
}

QStringList ToStringList(const std::vector<std::string>& vecTexts)
{
    QStringList listTexts;
    for (const std::string& sText : vecTexts)
        listTexts << QString::fromStdString(sText);
    return listTexts;
}

std::vector<std::string> ToStdList(const QStringList& listTexts)
{
    std::vector<std::string> vecTexts;
    for (const QString& sText : listTexts)
        vecTexts.push_back(sText.toStdString());
    return vecTexts;
}

} // namespace BasicInfoManagerUI
