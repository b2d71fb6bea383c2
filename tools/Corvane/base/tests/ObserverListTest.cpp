// The order and the life of observers, above all when the list changes while it is being told.
#include "ObserverList.h"
#include "RunState.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using CList = CObserverList<int>;

TEST(ObserverList, TellsInOrderOfRegistrationAndTheFirstAnswerEnds)
{
    CList list;
    std::string told;
    auto a = list.Add([&](int) { return told += 'a', 0; });
    auto b = list.Add([&](int value) { return told += 'b', value; });
    auto c = list.Add([&](int value) { return told += 'c', value + 1; });
    EXPECT_EQ(list.Notify(0), 1);
    EXPECT_EQ(told, "abc");
    told.clear();
    EXPECT_EQ(list.Notify(7), 7);
    EXPECT_EQ(told, "ab");
    a = CObserverHandle();
    c.Reset();
    told.clear();
    EXPECT_EQ(list.Notify(0), 0);
    EXPECT_EQ(told, "b");
    b.Reset();
    EXPECT_TRUE(list.IsEmpty());
}

TEST(ObserverList, OneAddedDuringANotificationIsToldToo)
{
    CList list;
    std::string told;
    std::vector<CObserverHandle> late;
    auto a = list.Add(
        [&](int)
        {
            told += 'a';
            if (late.empty())
                late.push_back(list.Add([&](int) { return told += 'x', 0; }));
            return 0;
        });
    auto b = list.Add([&](int) { return told += 'b', 0; });
    list.Notify(0);
    EXPECT_EQ(told, "abx");
}

TEST(ObserverList, OneMayRemoveItselfTheNextAndTheOneBefore)
{
    CList list;
    std::string told;
    CObserverHandle a, b, c, d;
    a = list.Add([&](int) { return told += 'a', 0; });
    b = list.Add(
        [&](int)
        {
            told += 'b';
            a.Reset();
            b.Reset();
            c.Reset();
            return 0;
        });
    c = list.Add([&](int) { return told += 'c', 0; });
    d = list.Add([&](int) { return told += 'd', 0; });
    list.Notify(0);
    EXPECT_EQ(told, "abd");
    list.Notify(0);
    EXPECT_EQ(told, "abdd");
}

TEST(ObserverList, NotificationsNest)
{
    CList list;
    std::string told;
    CObserverHandle a, b;
    a = list.Add(
        [&](int depth)
        {
            told += static_cast<char>('0' + depth);
            if (depth < 2)
                list.Notify(depth + 1);
            else
                b.Reset(); // Removed two levels deep: nobody may be told by a dead entry on the way out.
            return 0;
        });
    b = list.Add([&](int) { return told += 'b', 0; });
    list.Notify(0);
    EXPECT_EQ(told, "012");
    EXPECT_FALSE(list.IsEmpty());
}

TEST(ObserverList, AHandleMayOutliveItsListAndTheListMayGoWhileItTells)
{
    auto list = std::make_unique<CList>();
    std::string told;
    CObserverHandle a = list->Add([&](int) { return told += 'a', list.reset(), 0; });
    list->Notify(0);
    EXPECT_EQ(told, "a");
    EXPECT_EQ(list, nullptr);
    a.Reset();
}

TEST(RunState, BasePathHasTwoForms)
{
    struct SRow
    {
        std::u16string_view path, without, with;
    };
    const SRow rows[] = {
        {u"C:\\Game\\", u"C:\\Game", u"C:\\Game\\"},
        {u"C:\\Game", u"C:\\Game", u"C:\\Game\\"},
        {u"/home/game/", u"/home/game", u"/home/game/"},
        {u"/a\\b", u"/a\\b", u"/a\\b/"},
        {u"", u"", u""},
    };
    CRunState run;
    std::u16string told = u"none";
    const CObserverHandle observer = run.m_Settings.Add(
        [&](ESettingsEvent event, std::u16string_view value)
        {
            EXPECT_EQ(event, ESettingsEvent::BasePath);
            told = value;
            return 0;
        });
    for (const SRow& row : rows)
    {
        run.SetBasePath(row.path);
        EXPECT_EQ(run.GetBasePath(), row.without);
        EXPECT_EQ(run.GetBasePathWithSeparator(), row.with);
        EXPECT_EQ(told, row.with);
    }
}

TEST(RunState, AScopeRestoresOnlyWhatItSet)
{
    CRunState run;
    run.Set(APP_RELOADING);
    {
        const CStateScope scope(run, APP_RELOADING | APP_SETTINGS);
        EXPECT_EQ(run.GetState(), APP_RELOADING | APP_SETTINGS);
    }
    EXPECT_EQ(run.GetState(), APP_RELOADING);
}
