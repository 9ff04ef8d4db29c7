#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

/// What cards, fingerprints and unlock passwords have to be. Texts are translated; an empty one is "all
/// well".
namespace BasicInfoManagerUI::CredentialRules {

using Cards = std::vector<AccessControlLogical::Card_t>;
using Fingerprints = std::vector<AccessControlLogical::Fingerprint_t>;

/// As card numbers are kept.
std::string ToCardNo(const QString& sText);
/// Index of the card, whatever the case of the number; -1: none.
int FindCard(const Cards& vecCards, const std::string& sCardNo);

/// What a reader delivered: only digits of a card number, and not too many.
QString CheckReadCardNo(const QString& sText);
/// A number for a new card, or instead of that of card nChanged (-1: new).
QString CheckNewCard(const Cards& vecCards, const QString& sText, int nChanged);

/// Makes the card the only main card, or none.
void ToggleMain(Cards& vecCards, int nCard);
/// Whether another card is the duress card already.
bool IsDuressTaken(const Cards& vecCards, int nCard);

/// "Finger %1" of its position, or of the first one that is free.
QString GetDefaultFingerName(const Fingerprints& vecFingerprints);
/// A name for fingerprint nIndex (-1: a new one).
QString CheckFingerName(const Fingerprints& vecFingerprints, const QString& sName, int nIndex);
/// Whether that is the Base64 of a fingerprint template.
bool IsTemplate(const std::string& sTemplate);

QString CheckPassword(const QString& sPassword);

/// One line of the batch: a person and the number that was entered.
struct IssueRow
{
    std::string sPersonId;
    QString sName;
    QString sCardNo;
};
/// Why the batch cannot be issued, and the rows that it is about.
struct IssueProblem
{
    QString sText;
    QVector<int> vecRows;
};
IssueProblem CheckIssueRows(const QVector<IssueRow>& vecRows);
/// The first row without a number, from nFrom on and then from the top; -1: none.
int FindRowWithoutCard(const QVector<IssueRow>& vecRows, int nFrom);
/// The card numbers among the clashes.
QStringList GetClashingCards(const std::vector<AccessControlLogical::PersonClash_t>& vecClashes);

} // namespace BasicInfoManagerUI::CredentialRules
