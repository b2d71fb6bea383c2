// The order and the life of observers, above all when the list changes while it is being told.
#include "ObserverList.h"
#include "RunState.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace
{
class ObserverList : public testing::Test
{
protected:
    // An observer that writes its mark, and then acts.
    [[nodiscard]] CObserverHandle Add(
        char mark, std::function<int(int)> act = [](int) { return 0; })
    {
        return m_pList->Add([this, mark, act](int value) { return m_sTold += mark, act(value); });
    }
    // The marks of those that were told, and the result.
    std::string Notify(int value = 0)
    {
        m_sTold.clear();
        const int result = m_pList->Notify(value);
        return m_sTold + std::to_string(result);
    }

    std::unique_ptr<CObserverList<int>> m_pList = std::make_unique<CObserverList<int>>();
    CObserverHandle m_A, m_B, m_C, m_D;
    std::string m_sTold;
};
} // namespace

TEST_F(ObserverList, TellsInOrderOfRegistrationAndTheFirstAnswerEnds)
{
    m_A = Add('a');
    m_B = Add('b', [](int value) { return value; });
    m_C = Add('c', [](int value) { return value + 1; });
    EXPECT_EQ(Notify(0), "abc1");
    EXPECT_EQ(Notify(7), "ab7");
    m_A = CObserverHandle();
    m_C.Reset();
    EXPECT_EQ(Notify(0), "b0");
    m_B.Reset();
    EXPECT_TRUE(m_pList->IsEmpty());
}

TEST_F(ObserverList, ChangesWhileItTells)
{
    // One removes the one before, itself and the next, and adds another, which is told too.
    m_A = Add('a');
    m_B = Add('b', [&](int) { return m_A.Reset(), m_B.Reset(), m_C.Reset(), m_D = Add('d'), 0; });
    m_C = Add('c');
    EXPECT_EQ(Notify(), "abd0");
    EXPECT_EQ(Notify(), "d0");
    // Removed two levels deep: nobody may be told by a dead entry on the way out.
    m_D = Add('d', [&](int depth) { return depth < 2 ? m_pList->Notify(depth + 1) : (m_C.Reset(), 0); });
    m_C = Add('c');
    EXPECT_EQ(Notify(), "ddd0");
    // The list itself may go; a handle outlives it.
    m_D = Add('d', [&](int) { return m_pList.reset(), 0; });
    m_pList->Notify(0);
    m_D.Reset();
}

TEST(RunState, BasePathHasTwoFormsAndAScopeRestoresOnlyWhatItSet)
{
    CRunState run;
    std::u16string told = u"none";
    const CObserverHandle observer =
        run.m_Settings.Add([&](ESettingsEvent, std::u16string_view value) { return told = value, 0; });
    const std::u16string_view rows[][3] = {{u"C:\\Game\\", u"C:\\Game", u"C:\\Game\\"},
                                           {u"C:\\Game", u"C:\\Game", u"C:\\Game\\"},
                                           {u"/home/game/", u"/home/game", u"/home/game/"},
                                           {u"/a\\b", u"/a\\b", u"/a\\b/"},
                                           {u"", u"", u""}};
    for (const auto& [path, without, with] : rows)
    {
        run.SetBasePath(path);
        EXPECT_EQ(run.GetBasePath(), without);
        EXPECT_EQ(run.GetBasePathWithSeparator(), with);
        EXPECT_EQ(told, with);
    }
    run.Set(APP_RELOADING);
    EXPECT_EQ((CStateScope(run, APP_RELOADING | APP_SETTINGS), run.GetState()), APP_RELOADING | APP_SETTINGS);
    EXPECT_EQ(run.GetState(), APP_RELOADING);
}
