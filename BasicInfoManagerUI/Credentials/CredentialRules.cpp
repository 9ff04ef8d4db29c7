#include "CredentialRules.h"

#include <QCoreApplication>

#include <algorithm>

namespace BasicInfoManagerUI::CredentialRules {

namespace {

struct CardText
{
    Q_DECLARE_TR_FUNCTIONS(CIssueCard)
};
struct FingerText
{
    Q_DECLARE_TR_FUNCTIONS(CFingerName)
};
struct PasswordText
{
    Q_DECLARE_TR_FUNCTIONS(CUnlockPasswordUI)
};
struct BatchText
{
    Q_DECLARE_TR_FUNCTIONS(CBatchIssueCard)
};

const UICommonMdl::TextRule& CardRule = AccessControlLogical::CardNumber;

} // namespace

std::string ToCardNo(const QString& sText)
{
    return sText.toUpper().toStdString();
}

int FindCard(const Cards& vecCards, const std::string& sCardNo)
{
    const std::string sKey = ToCardNo(QString::fromStdString(sCardNo));
    const auto it = std::find_if(vecCards.begin(), vecCards.end(),
        [&](const auto& card) { return ToCardNo(QString::fromStdString(card.sCardNo)) == sKey; });
    return it == vecCards.end() ? -1 : int(it - vecCards.begin());
}

QString CheckReadCardNo(const QString& sText)
{
    if (HasForbidden(CardRule, sText.toStdString()))
        return CardText::tr("Only allow letters and numbers.");
    if (IsTooLong(CardRule, sText.toStdString()))
        return CardText::tr("Card num cannot exceed %1 characters.").arg(CardRule.nMax);
    return {};
}

QString CheckNewCard(const Cards& vecCards, const QString& sText, int nChanged)
{
    if (sText.isEmpty())
        return CardText::tr("Please enter card number.");
    if (HasForbidden(CardRule, sText.toStdString()))
        return CardText::tr("Only allow letters and numbers.");
    if (IsTooLong(CardRule, sText.toStdString()))
        return CardText::tr("The card number length cannot exceed %1 characters.").arg(CardRule.nMax);
    const int nFound = FindCard(vecCards, sText.toStdString());
    return nFound < 0 || nFound == nChanged ? QString() : CardText::tr("Card No. exists already!");
}

void ToggleMain(Cards& vecCards, int nCard)
{
    const bool bMain = !vecCards[std::size_t(nCard)].bMain;
    for (auto& card : vecCards)
        card.bMain = false;
    vecCards[std::size_t(nCard)].bMain = bMain;
}

bool IsDuressTaken(const Cards& vecCards, int nCard)
{
    for (int n = 0; n < int(vecCards.size()); ++n) {
        if (n != nCard && vecCards[std::size_t(n)].bDuress)
            return true;
    }
    return false;
}

QString GetDefaultFingerName(const Fingerprints& vecFingerprints)
{
    const int nCount = int(vecFingerprints.size());
    const int nLimit = int(AccessControlLogical::FingerprintLimit);
    for (int n = 0; n < nLimit; ++n) {
        QString sName = FingerText::tr("Finger %1").arg((nCount + n) % nLimit + 1);
        if (CheckFingerName(vecFingerprints, sName, -1).isEmpty())
            return sName;
    }
    return {};
}

QString CheckFingerName(const Fingerprints& vecFingerprints, const QString& sName, int nIndex)
{
    const QString sTrimmed = sName.trimmed();
    if (sTrimmed.isEmpty())
        return FingerText::tr("Fingerprint name can not be empty.");
    for (int n = 0; n < int(vecFingerprints.size()); ++n) {
        if (n != nIndex && vecFingerprints[std::size_t(n)].sName == sTrimmed.toStdString())
            return FingerText::tr("Fingerprint name is repeated.");
    }
    return {};
}

bool IsTemplate(const std::string& sTemplate)
{
    const auto result = QByteArray::fromBase64Encoding(
        QByteArray::fromStdString(sTemplate), QByteArray::AbortOnBase64DecodingErrors);
    return result && std::size_t(result.decoded.size()) == AccessControlLogical::TemplateSize;
}

QString CheckPassword(const QString& sPassword)
{
    return Holds(AccessControlLogical::UnlockPassword, sPassword.toStdString())
        ? QString()
        : PasswordText::tr("The passoword must be a 6-digit number.");
}

IssueProblem CheckIssueRows(const QVector<IssueRow>& vecRows)
{
    IssueProblem problem;
    for (int n = 0; n < vecRows.size(); ++n) {
        if (vecRows[n].sCardNo.isEmpty())
            problem.vecRows.append(n);
    }
    if (!problem.vecRows.isEmpty()) {
        problem.sText = BatchText::tr("Some user(s) has no card.");
        return problem;
    }
    for (int n = 0; n < vecRows.size(); ++n) {
        if (Holds(CardRule, vecRows[n].sCardNo.toStdString()))
            continue;
        problem.sText = CardText::tr("Only allow letters and numbers.");
        problem.vecRows.append(n);
    }
    if (!problem.vecRows.isEmpty())
        return problem;
    QHash<QString, int> mapFirst;
    for (int n = 0; n < vecRows.size(); ++n) {
        const QString sKey = vecRows[n].sCardNo.toUpper();
        if (!mapFirst.contains(sKey)) {
            mapFirst.insert(sKey, n);
            continue;
        }
        problem.sText = BatchText::tr("Card No. exist");
        for (const int nRow : {mapFirst.value(sKey), n}) {
            if (!problem.vecRows.contains(nRow))
                problem.vecRows.append(nRow);
        }
    }
    return problem;
}

int FindRowWithoutCard(const QVector<IssueRow>& vecRows, int nFrom)
{
    for (int n = 0; n < vecRows.size(); ++n) {
        const int nRow = (std::max(nFrom, 0) + n) % vecRows.size();
        if (vecRows[nRow].sCardNo.isEmpty())
            return nRow;
    }
    return -1;
}

QStringList GetClashingCards(const std::vector<AccessControlLogical::PersonClash_t>& vecClashes)
{
    QStringList listCards;
    for (const auto& clash : vecClashes) {
        if (clash.nKind == AccessControlLogical::ClashCardNo)
            listCards.append(QString::fromStdString(clash.sValue));
    }
    return listCards;
}

} // namespace BasicInfoManagerUI::CredentialRules
