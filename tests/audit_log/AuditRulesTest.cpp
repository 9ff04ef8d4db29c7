#include <AuditLog/AuditRules.h>

#include <QSet>

#include <gtest/gtest.h>

using namespace PlatformConfigUI;

namespace {

QString Lines(const char* szBefore, const char* szAfter)
{
    return GetChangeLines(GetChanges(szBefore, szAfter)).join(QLatin1Char('|'));
}

} // namespace

TEST(AuditRules, FieldNamesAreReadable)
{
    const std::pair<const char*, const char*> cases[] = {{"sName", "Name"}, {"nPort", "Port"},
        {"bMultiLogin", "Multi Login"}, {"vecRoleIds", "Role IDs"}, {"sIp", "IP"}, {"nPtzLevel", "PTZ Level"},
        {"vecMacAddresses", "MAC Addresses"}, {"sOrgCode", "Organization Code"},
        {"org_code", "Organization Code"}, {"name", "Name"}, {"size", "Size"}, {"nightShift", "Night Shift"},
        {"", ""}};
    for (const auto& [szKey, szName] : cases)
        EXPECT_EQ(GetFieldName(QLatin1String(szKey)), QLatin1String(szName)) << szKey;
}

TEST(AuditRules, OnlyWhatChangedIsTold)
{
    const struct
    {
        const char* szBefore;
        const char* szAfter;
        const char* szLines;
    } cases[] = {
        {R"({"sName":"a","nPort":80,"nVersion":1})", R"({"sName":"b","nPort":80,"nVersion":2})",
            "Name: a → b"},
        {"", R"({"sRemark":"","nPort":8000,"sUserName":"bob","vecRoleIds":["1","2"]})",
            "User Name: (empty) → bob|Port: (empty) → 8000|Role IDs: (empty) → 1, 2"},
        {R"({"sName":"a","bMain":false})", "", "Name: a → (empty)|Main: No → (empty)"},
        {R"({"role":{"sName":"a","sRemark":"x"},"n":1})", R"({"role":{"sName":"b","sRemark":"x"},"n":1})",
            "Role / Name: a → b"},
        {R"({"vecCards":[{"sCardNo":"0A","bMain":true}]})", R"({"vecCards":[]})",
            "Cards: (Main: Yes, Card No.: 0A) → (empty)"},
        {R"({"vecRoles":["A","B"]})", R"({"vecRoles":["B","C"]})", "Roles: A → C"},
        {R"({"vecRoles":["A","B"]})", R"({"vecRoles":["B","A"]})", "Roles: A, B → B, A"},
        {R"({"nLockState":1})", R"({"nLockState":2})", "Lock State: Usable → Locked"},
        {"", R"({"nErrorCode":21})", "Refused: (empty) → User name or password is wrong."},
        {R"({"sPassword":"***","nBig":4503599627370497})", R"({"sPassword":"***","nBig":4503599627370496})",
            "Big: 4503599627370497 → 4503599627370496"},
        {"", R"({"nErrorCode":1e300,"nExpiry":-1e300,"nUserType":4294967297,"nLockState":1.5})",
            "Expiry: (empty) → -1e+300|Lock State: (empty) → 1.5|Refused: (empty) → 1e+300|"
            "User Type: (empty) → 4294967297"},
        {R"({"nRate":1.5})", R"({"nRate":null})", "Rate: 1.5 → (empty)"},
        {"not JSON", R"({"sName":"a"})", "not JSON → {\"sName\":\"a\"}"},
        {"[1]", "", "[1] → (empty)"},
        {"", "", ""},
    };
    for (const auto& test : cases)
        EXPECT_EQ(Lines(test.szBefore, test.szAfter), QString::fromUtf8(test.szLines)) << test.szLines;
    const auto vecChanges =
        GetChanges(R"({"sName":"a","nPort":1})", R"({"sName":"b","nPort":2,"sRemark":"c"})");
    EXPECT_EQ(GetBeforeText(vecChanges), QStringLiteral("Name: a, Port: 1"));
    EXPECT_EQ(GetAfterText(vecChanges), QStringLiteral("Name: b, Port: 2, Remark: c"));
}

TEST(AuditRules, TimesAreDatesOfTheirUnit)
{
    const QString sTime = GetTimeText(1750000000000);
    EXPECT_EQ(
        sTime, QDateTime::fromSecsSinceEpoch(1750000000).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
    EXPECT_EQ(
        GetChanges(R"({"nExpiry":0,"nValidTo":0})", R"({"nExpiry":1750000000000,"nValidTo":1750000000})"),
        (QVector<AuditChange>{
            {QStringLiteral("Expiry"), QString(), sTime}, {QStringLiteral("Valid To"), QString(), sTime}}));
}

TEST(AuditRules, OperationsHaveNamesOfTheirOwn)
{
    EXPECT_EQ(GetOperationText(QStringLiteral("domain/add")), QStringLiteral("Import Domain User"));
    EXPECT_EQ(GetOperationText(QStringLiteral("weather/change")), QStringLiteral("weather/change"));
    QSet<QString> setTexts;
    QString sGroup;
    const auto vecChoices = GetAuditChoices();
    for (const AuditChoice& choice : vecChoices.mid(1)) {
        EXPECT_EQ(choice.bGroup, choice.sCode.endsWith(QLatin1Char('/')));
        sGroup = choice.bGroup ? choice.sCode : sGroup;
        EXPECT_TRUE(choice.sCode.startsWith(sGroup))
            << qPrintable(choice.sCode) << " stands below another group";
        EXPECT_FALSE(setTexts.contains(choice.sText)) << qPrintable(choice.sText);
        setTexts.insert(choice.sText);
    }
}

TEST(AuditRules, PeriodsBeginAtMidnight)
{
    const QDate today(2026, 3, 1);
    EXPECT_EQ(GetPeriodStart(PeriodToday, today), today.startOfDay());
    EXPECT_EQ(GetPeriodStart(PeriodLast7Days, today), QDate(2026, 2, 23).startOfDay());
    EXPECT_EQ(GetPeriodStart(PeriodLast30Days, today), QDate(2026, 1, 31).startOfDay());
    EXPECT_FALSE(GetPeriodStart(PeriodAll, today).isValid());
}
