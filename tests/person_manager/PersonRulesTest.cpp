#include <PersonEdit/PersonFieldRules.h>
#include <PersonManager/PersonRules.h>
#include <PersonManager/TrackRules.h>
#include <UICommonMdl/CDepartmentModelManager.h>
#include <UICommonMdl/ErrorCodes.h>

#include <QSet>

#include <gtest/gtest.h>

using namespace BasicInfoManagerUI;
using namespace AccessControlLogical;

TEST(PersonTexts, CodesOutsideOfTheirRangeAreNotTakenForOthers)
{
    QSet<QString> setTexts;
    for (int nType = 0; nType <= PersonOther; ++nType)
        setTexts.insert(GetPersonTypeText(nType));
    EXPECT_EQ(setTexts.size(), PersonOther + 1) << "no two types have one text";
    EXPECT_FALSE(setTexts.contains(QString()));
    for (const int nOther : {-1, PersonOther + 1}) {
        EXPECT_EQ(GetPersonTypeText(nOther), QString()) << nOther;
        EXPECT_EQ(GetGenderText(nOther), GetGenderText(0)) << nOther;
    }
    EXPECT_NE(GetGenderText(1), GetGenderText(2));
}

TEST(ReissueOutcome, TellsNoneSomeAndAll)
{
    const struct
    {
        int nErrorCode;
        int nBefore;
        int nLeft;
        const char* pszText;
    } cases[] = {{0, 3, 0, ""}, {0, 3, 1, "Failed to sync partial persons."},
        {0, 3, 3, "Failed to sync personnel"}, {0, 0, 2, "Failed to sync personnel"},
        {UICommonMdl::ErrorServerBusy, 3, 0,
            "Failed to re-release right: The server is busy. Please try again."}};
    for (const auto& c : cases)
        EXPECT_EQ(GetReissueFailure(c.nErrorCode, c.nBefore, c.nLeft), QLatin1String(c.pszText));
}

TEST(ExceptionTexts, ReasonAndOperationFollowTheErrorCode)
{
    const struct
    {
        int nErrorCode;
        const char* pszDetail;
        bool bRemoval;
        const char* pszReason;
        const char* pszOperation;
    } cases[] = {{UICommonMdl::ErrorDisconnected, "", false, "Server is offline", "Issue Abnormal"},
        {UICommonMdl::ErrorDeviceUnreachable, "", false, "Device offline", "Issue Abnormal"},
        {UICommonMdl::ErrorNone, "", false, "Unknown reason", "Issue error"},
        {UICommonMdl::ErrorDeviceRefused, "card store full", false,
            "The device refused the change. card store full", "Issue error"},
        {UICommonMdl::ErrorDeviceUnreachable, "", true, "Device offline", "Removal error"}};
    for (const auto& c : cases) {
        AuthorizeException_t exception;
        exception.nErrorCode = c.nErrorCode;
        exception.sDetail = c.pszDetail;
        exception.bRemoval = c.bRemoval;
        EXPECT_EQ(GetExceptionReason(exception), QLatin1String(c.pszReason));
        EXPECT_EQ(GetExceptionOperation(exception), QLatin1String(c.pszOperation));
    }
}

TEST(GroupParents, AGroupNeitherHoldsItselfNorLiesTooDeep)
{
    std::vector<Department_t> vecGroups{{"001", "", "Root", "", 1}};
    for (int n = 2; n <= 9; ++n)
        vecGroups.push_back({std::to_string(n), n == 2 ? "001" : std::to_string(n - 1), "Level", "", 1});
    vecGroups.push_back({"pair", "001", "Pair", "", 1});
    vecGroups.push_back({"low", "pair", "Low", "", 1});
    UICommonMdl::CDepartmentModel model;
    model.SetDepartments(vecGroups);
    const auto group = [&](const char* pszCode) { return model.FindCode(QLatin1String(pszCode)); };
    EXPECT_TRUE(CanBeParent(group("9"), QModelIndex())) << "a new group at level 10";
    EXPECT_TRUE(CanBeParent(group("9"), group("low")));
    EXPECT_FALSE(CanBeParent(group("9"), group("pair"))) << "its sub-group would be at level 11";
    EXPECT_TRUE(CanBeParent(group("8"), group("pair")));
    EXPECT_FALSE(CanBeParent(group("low"), group("pair")));
    EXPECT_FALSE(CanBeParent(group("pair"), group("pair")));
}

TEST(Track, GoesThroughTheDoorsInOrderOfTime)
{
    const AccessRecord_t newest{300, "Lobby", "Gate", CredentialCard, "A1", false, true};
    const AccessRecord_t middle{200, "Lab", "Door", CredentialCard, "A1", true, false};
    const AccessRecord_t oldest{100, "Lobby", "Gate", CredentialCard, "A1", true, true};
    const AccessRecord_t alsoMiddle{200, "Lobby", "Gate", CredentialCard, "A1", true, true};
    const Track track = MakeTrack({newest, middle, alsoMiddle, oldest});
    EXPECT_EQ(track.listLanes, (QStringList{QStringLiteral("Lobby / Gate"), QStringLiteral("Lab / Door")}));
    ASSERT_EQ(track.vecStops.size(), 4);
    EXPECT_EQ(track.vecStops[0].nTime, 100);
    EXPECT_EQ(track.vecStops[1].nLane, 0) << "of one second, the record that came later is the earlier one";
    EXPECT_EQ(track.vecStops[2].nLane, 1);
    EXPECT_FALSE(track.vecStops[2].bOpened);
    EXPECT_FALSE(track.vecStops[3].bEntry);
}

TEST(Track, MarksOfTheTimeLineStayApart)
{
    for (const qint64 nPeriod : {0LL, 59LL, 3600LL, 86400LL, 604800LL, 40LL * 365 * 86400}) {
        const qint64 nStep = GetTimeStep(nPeriod, 8);
        EXPECT_GT(nStep, 0);
        EXPECT_LT(nPeriod / nStep, 8) << nPeriod;
    }
}
