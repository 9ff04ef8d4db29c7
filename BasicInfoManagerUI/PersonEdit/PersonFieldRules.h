#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

#include <string>

/// Checks and conversions of the person editor, without widgets. Any thread.
namespace BasicInfoManagerUI {

/// Texts of a person that are typed.
enum class PersonField
{
    Id,
    Name,
    Telephone,
    Email,
    Remark,
    Nickname,
    Company,
    Position,
    ExtendTime,
    Plate
};

/// One check of a text.
struct PersonFieldCheck
{
    enum Kind
    {
        Required,
        Limit,
        Forbidden,
        Check
    };
    Kind kind;
    UICommonMdl::TextRule rule; ///< of a limit and of what is forbidden
    QString sMessage; ///< translated; "%1" of a limit is its number
    bool (*pHolds)(std::string_view text) = nullptr; ///< of a check
};

/// The checks that also run while the field is typed into, in their order.
QVector<PersonFieldCheck> GetPersonFieldChecks(PersonField field);
/// What is checked on save beside them; empty when it holds.
QString CheckPersonFieldOnSave(PersonField field, const QString& sText);

/// Message on a period that ends before it begins; empty when it holds. 0 is open.
QString CheckValidPeriod(std::int64_t nFrom, std::int64_t nTo);

/// "yyyy-MM-dd" as records hold dates; an invalid date is the empty text.
QString DateToText(const QDate& date);
QDate TextToDate(const std::string& sText);

/// Translated text of an AccessControlLogical::Gender; another code is unknown, too.
QString GetGenderText(int nGender);
/// Person types in the order in which the access type is chosen; PersonOther is not offered.
QVector<int> GetAccessTypes();
/// Translated text of an AccessControlLogical::PersonType; empty for another code.
QString GetPersonTypeText(int nPersonType);

/// Message on a plate number that shall join the others; empty when it may. Case does not tell two apart.
QString CheckPlate(const QString& sPlate, const QStringList& listPlates);

/// The form with what the device holds of the chosen person: what the device does not know stays. The ID
/// comes along only when bWithId.
AccessControlLogical::Person_t MergeExtracted(
    AccessControlLogical::Person_t form, const AccessControlLogical::Person_t& extracted, bool bWithId);

/// What the values of others say about a person that was refused.
struct ClashTexts
{
    QString sIdsAndCards; ///< lines "ID:" and "Card Number:"; empty: no such clash
    QString sPlates; ///< the two lists of plate numbers; empty: no such clash
};
ClashTexts DescribeClashes(const std::vector<AccessControlLogical::PersonClash_t>& vecClashes,
    const std::vector<std::string>& vecPlates);

QStringList ToStringList(const std::vector<std::string>& vecTexts);
std::vector<std::string> ToStdList(const QStringList& listTexts);

} // namespace BasicInfoManagerUI
