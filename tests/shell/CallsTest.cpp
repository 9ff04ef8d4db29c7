#include <UICommonMdl/ErrorCodes.h>
#include <common/CCalls.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

using UserLogical::IUserManager;
using Observer = UserLogical::IUserManagerObserve;
using Calls = Common::CCalls<Observer>;
using Answers = QVector<std::pair<int, int>>; ///< number and error code

class CallsTest : public testing::Test
{
protected:
    /// A handler that notes what it gets.
    auto Note()
    {
        return [this](const Observer::Param& param) {
            m_answers.append({param.nSequence, param.nErrorCode});
        };
    }
    void Answer(const FakeCall& call) { m_host.server.Fail(call, UICommonMdl::ErrorNone); }

    FakeHost m_host;
    QObject m_owner;
    Answers m_answers;
};

TEST_F(CallsTest, EachAnswerComesOnceAndOneOfAnOlderCallOfTheMethodNever)
{
    Calls calls(&m_host.interfaceSet, &m_owner);
    calls.Latest<&IUserManager::QueryUserInfo>(std::string("a"), Note());
    calls.Latest<&IUserManager::QueryUserInfo>(std::string("b"), Note());
    calls.Each<&IUserManager::QueryRoleInfo>(std::string("1"), Note());
    calls.Each<&IUserManager::QueryRoleInfo>(std::string("2"), Note());
    EXPECT_TRUE(calls.IsPending<&IUserManager::QueryRoleInfo>());
    const auto vecCalls = m_host.server.Calls();
    for (const int nCall : {3, 1, 0, 2})
        Answer(vecCalls[std::size_t(nCall)]);
    PageDriver::Settle();
    EXPECT_EQ(m_answers, (Answers{{4, 0}, {2, 0}, {3, 0}}));
    EXPECT_FALSE(calls.IsPending());
}

TEST_F(CallsTest, WhatIsRefusedOrHasNoManagerIsAnsweredFromTheEventLoop)
{
    UICommonMdl::CInterfaceSetManager empty;
    Calls refused(&m_host.interfaceSet, &m_owner);
    Calls orphan(&empty, &m_owner);
    m_host.server.Refuse<wire::QueryRoleList>();
    refused.Latest<&IUserManager::QueryRoleList>(Note());
    orphan.Latest<&IUserManager::QueryRoleList>(Note());
    EXPECT_TRUE(refused.IsPending() && orphan.IsPending());
    EXPECT_TRUE(m_answers.isEmpty());
    PageDriver::Settle();
    ASSERT_EQ(m_answers.size(), 2);
    EXPECT_EQ(m_answers[0].second, UICommonMdl::ErrorNotSent);
    EXPECT_EQ(m_answers[1].second, UICommonMdl::ErrorNotSent);
}

TEST_F(CallsTest, AnAnswerThatDoesNotComeIsATimeOutAndALateOneIsDropped)
{
    Calls calls(&m_host.interfaceSet, &m_owner);
    calls.SetLimit(std::chrono::milliseconds(1));
    calls.Each<&IUserManager::QueryRoleList>(Note());
    ASSERT_TRUE(PageDriver::WaitFor([&] { return !m_answers.isEmpty(); }));
    Answer(m_host.server.Last<wire::QueryRoleList>());
    PageDriver::Settle();
    EXPECT_EQ(m_answers, (Answers{{1, UICommonMdl::ErrorTimeOut}}));
}

TEST_F(CallsTest, ReportsComeUntilTheFinalOne)
{
    using DeviceObserver = RemoteConfigLogical::IRemoteDeviceObserver;
    Common::CCalls<DeviceObserver> calls(&m_host.interfaceSet, &m_owner);
    QVector<bool> vecFinal;
    calls.Each<&RemoteConfigLogical::IRemoteConfigManager::SearchOnlineDevice>(std::string(), std::string(),
        [&](const DeviceObserver::Param& param) { vecFinal.append(param.bFinal); });
    for (const bool bFinal : {false, false, true})
        m_host.server.ReportLast<wire::SearchOnlineDevice>(
            MakeReport(RemoteConfigLogical::SearchDeviceInfoVec(), bFinal));
    PageDriver::Settle();
    EXPECT_EQ(vecFinal, (QVector<bool>{false, false, true}));
}

TEST_F(CallsTest, AHandlerMayKeepTheAnswerWithoutACopy)
{
    Calls calls(&m_host.interfaceSet, &m_owner);
    Calls::Answer pFirst;
    calls.OnPush(Observer::ResultUsersChanged, [&](const Calls::Answer& pAnswer) { pFirst = pAnswer; });
    Calls others(&m_host.interfaceSet, &m_owner);
    const Observer::Param* pSeen = nullptr;
    others.OnPush(Observer::ResultUsersChanged, [&](const Observer::Param& param) { pSeen = &param; });
    m_host.server.Push(wire::event::UsersChanged);
    PageDriver::Settle();
    ASSERT_TRUE(pFirst);
    EXPECT_EQ(pFirst.get(), pSeen);
}

TEST_F(CallsTest, OneRegistrationServesAllAndEndsWithTheLastInAnyOrder)
{
    auto pFirst = std::make_unique<Calls>(&m_host.interfaceSet, &m_owner);
    auto pSecond = std::make_unique<Calls>(&m_host.interfaceSet, &m_owner);
    EXPECT_EQ(m_host.CountObservers(), 1);
    pFirst->Each<&IUserManager::QueryRoleList>(Note());
    pSecond->Each<&IUserManager::QueryRoleList>(Note());
    const auto vecCalls = m_host.server.Calls();
    pFirst.reset();
    for (const FakeCall& call : vecCalls)
        Answer(call);
    PageDriver::Settle();
    EXPECT_EQ(m_answers, (Answers{{2, 0}}));
    pSecond->End();
    EXPECT_EQ(m_host.CountObservers(), 0);
    pSecond->Each<&IUserManager::QueryRoleList>(Note());
    PageDriver::Settle();
    EXPECT_EQ(m_host.server.Count<wire::QueryRoleList>(), 2) << "what has ended asks for nothing";
    EXPECT_EQ(m_answers.size(), 1);
}

TEST_F(CallsTest, AHandlerMayDestroyWhoWaits)
{
    auto pCalls = std::make_unique<Calls>(&m_host.interfaceSet, &m_owner);
    auto pOther = std::make_unique<Calls>(&m_host.interfaceSet, &m_owner);
    int nTold = 0;
    pCalls->OnPush(Observer::ResultRolesChanged, [&](const Observer::Param&) {
        ++nTold;
        pOther.reset();
        pCalls.reset();
    });
    pOther->OnPush(Observer::ResultRolesChanged, [&](const Observer::Param&) { ++nTold; });
    m_host.server.Push(wire::event::RolesChanged);
    PageDriver::Settle();
    EXPECT_EQ(nTold, 1);
    EXPECT_EQ(m_host.CountObservers(), 0);
}

TEST_F(CallsTest, ThePushesOfAHostThreadEndWithTheOwner)
{
    m_host.server.PushUntilJoin(wire::event::UsersChanged);
    for (int n = 0; n < 50; ++n) {
        auto pHeard = std::make_shared<int>(0);
        Calls calls(&m_host.interfaceSet, &m_owner);
        calls.OnPush(Observer::ResultUsersChanged, [pHeard](const Observer::Param&) { ++*pHeard; });
        EXPECT_TRUE(PageDriver::WaitFor([&] { return *pHeard > 0; }));
    }
    m_host.server.Join();
    EXPECT_EQ(m_host.CountObservers(), 0);
}

} // namespace
