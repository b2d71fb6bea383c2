// Groups over restore points of plain numbers: against a list of states at random, and case by case where
// nesting, failures, limits and labels have rules of their own.
#include "TestDatabase.h"
#include "UndoScope.h"
#include "UndoText.h"
#include "Unicode.h"

#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace
{
using Cells = std::array<int, 4>;
using FHook = std::function<bool()>;

// Exchanges a number; a hook may refuse that or do what a listener does meanwhile.
class CCellPoint final : public CUndoRestorePoint
{
public:
    CCellPoint(int& cell, int value, std::string& log, FHook hook)
        : m_Cell(cell), m_nOther(std::exchange(cell, value)), m_Log(log), m_Hook(std::move(hook))
    {
    }
    ~CCellPoint() override { m_Log += m_bApplied ? "D" : "d"; }
    bool Undo(bool redoable) override { return Exchange(redoable ? "u" : "x"); }
    bool Redo() override { return Exchange("r"); }
    std::size_t GetSize() const override { return 100; }
    bool Refers(const CCorvaneRef&) const override { return false; }

private:
    bool Exchange(const char* what)
    {
        if (m_Hook && !m_Hook())
            return false;
        m_Log += what;
        std::swap(m_Cell, m_nOther);
        return true;
    }

    int& m_Cell;
    int m_nOther;
    std::string& m_Log;
    FHook m_Hook;
};

class UndoMgr : public testing::Test
{
protected:
    void Edit(std::size_t cell, int value, FHook hook = {})
    {
        m_Undo.AddRestorePoint(std::make_unique<CCellPoint>(m_Cells[cell], value, m_sLog, std::move(hook)));
    }
    void Command(int value, std::u16string_view text = u"", FHook hook = {})
    {
        CUndoScope scope(m_Undo);
        Edit(0, value);
        Edit(1, value, std::move(hook));
        Edit(2, value);
        scope.Accept(text);
    }

    CManualServices m_Services;
    CAssertCapture m_Asserts;
    std::string m_sLog;
    Cells m_Cells{};
    CUndoMgr m_Undo{m_Services};
};
} // namespace

TEST_F(UndoMgr, AnswersAsAListOfStatesWould)
{
    std::mt19937 random(3);
    const auto pick = [&](unsigned count) { return static_cast<unsigned>(random() % count); };
    std::vector<Cells> states{m_Cells}; // The state at `now` stands; behind it lies what redo gives.
    std::size_t now = 0, limit = 0;
    for (int step = 0; step < 20000; ++step)
    {
        if (step % 500 == 0)
            m_Undo.SetLimit(UNDO_FLAG_LIMIT_COUNT, static_cast<std::uint32_t>(limit = pick(3) * 4));
        const unsigned kind = pick(10), count = pick(4);
        if (kind < 5)
        {
            CUndoScope outer(m_Undo);
            for (unsigned edits = pick(4); edits > 0; --edits)
            {
                CUndoScope inner(m_Undo);
                Edit(pick(4), static_cast<int>(pick(100)));
                if (pick(2) == 0)
                    inner.Accept(u"inner");
                if (pick(12) == 0)
                    pick(2) == 0 ? m_Undo.RestoreGroup() : m_Undo.ReleaseGroup();
            }
            if (kind == 0)
                continue; // Cancelled.
            outer.Accept(u"outer");
            states.resize(++now);
            states.push_back(m_Cells);
            for (; limit != 0 && now > limit; --now)
                states.erase(states.begin());
        }
        else if (kind < 8)
        {
            ASSERT_EQ(m_Undo.Undo(count), now > 0);
            now -= std::min<std::size_t>(count, now);
        }
        else
        {
            ASSERT_EQ(m_Undo.Redo(count), now + 1 < states.size());
            now += std::min(count + now, states.size() - 1) - now;
        }
        ASSERT_EQ(m_Cells, states[now]) << "step " << step;
        ASSERT_EQ(m_Undo.GetUndoCount(), now);
        ASSERT_EQ(m_Undo.GetRedoCount(), states.size() - 1 - now);
    }
    EXPECT_GT(m_Services.m_nBeeps, 0);
}

TEST_F(UndoMgr, ACancelLeavesNoPointWhoseChangeStands)
{
    Command(1);
    EXPECT_TRUE(m_Undo.Undo(3));
    m_sLog.clear();
    ASSERT_TRUE(m_Undo.BeginGroup("file", 1));
    Edit(3, 1);
    EXPECT_FALSE(m_Undo.Undo(1) || m_Undo.Redo(1)) << "not in the middle of a command";
    m_Undo.CancelGroup();
    EXPECT_EQ(m_sLog, "xd");
    m_Undo.CancelGroup();
    m_Undo.AcceptGroup(u"");
    EXPECT_TRUE(m_Asserts.Has("m_pCurrentGroup"));
    EXPECT_TRUE(m_Undo.Redo(1)) << "a cancelled command leaves the redo path";
}

TEST_F(UndoMgr, AFailedGroupStaysAndTheNextTryGoesOn)
{
    bool works = false;
    Command(1, u"", [&] { return works; });
    for (const bool undo : {true, false})
    {
        EXPECT_FALSE(undo ? m_Undo.Undo(1) : m_Undo.Redo(1));
        EXPECT_EQ(m_Cells, undo ? (Cells{1, 1, 0, 0}) : (Cells{1, 0, 0, 0}));
        works = true;
        EXPECT_TRUE(undo ? m_Undo.Undo(1) : m_Undo.Redo(1));
        EXPECT_EQ(m_Cells, undo ? Cells{} : (Cells{1, 1, 1, 0}));
        works = false;
    }
}

TEST_F(UndoMgr, AListenerCannotBreakARunningUndo)
{
    Command(1);
    Command(2, u"",
            [this]
            {
                EXPECT_TRUE(m_Undo.IsReplaying() && !m_Undo.IsRecording());
                EXPECT_FALSE(m_Undo.Undo(1) || m_Undo.Redo(1) || CUndoScope(m_Undo).IsOpen());
                m_Undo.Clear();
                return true;
            });
    EXPECT_TRUE(m_Undo.Undo(2));
    EXPECT_EQ(m_Cells[0], 1) << "the group that ran is whole, the next is gone";
    EXPECT_EQ(m_Undo.GetUndoCount() + m_Undo.GetRedoCount(), 0u);
}

TEST_F(UndoMgr, AMemoryLimitCountsSlotsGroupsAndPoints)
{
    constexpr std::uint32_t kGroup = 20 + 4 * 4 + 3 * 100;
    m_Undo.SetLimit(UNDO_FLAG_LIMIT_MEMORY, 1, false);
    for (int i = 0; i < 3; ++i)
        Command(i);
    EXPECT_EQ(m_Undo.GetSize(), 4u * 4 + 3 * kGroup) << "the limit is not enabled";
    m_Undo.SetLimit(UNDO_FLAG_LIMIT_MEMORY, 4 * 4 + 2 * kGroup);
    m_sLog.clear();
    Command(9);
    EXPECT_EQ(m_sLog, "DDDDDD");
    EXPECT_EQ(m_Undo.GetUndoCount(), 2u);
}

TEST_F(UndoMgr, MenusShowEighteenEntries)
{
    for (int i = 1; i <= 20; ++i)
        Command(i, GetUndoText(kUndoRecordMoved, i == 20 ? u"A & B" : u"R"));
    const std::vector<std::u16string> labels = m_Undo.GetUndoLabels();
    ASSERT_EQ(labels.size(), 18u);
    EXPECT_EQ(labels[0], u"&1 [A && B]\nMoved Record");
    EXPECT_EQ(labels[8] + labels[9], u"&9 [R]\nMoved Record10 [R]\nMoved Record");
    EXPECT_TRUE(m_Undo.Undo(19));
    EXPECT_EQ(m_Undo.GetUndoLabels().size() + m_Undo.GetRedoLabels().size(), 1u + 18);
}

TEST(UndoText, AValueIsCutWhenItFillsTheBuffer)
{
    for (const auto& [value, shown] : {std::pair(u"123456789012345", "123456789012345\""),
                                       {u"1234567890123456", "1234567890123456\"...\""},
                                       {u"123456789012345678", "12345678901234567...\""},
                                       {u"1234567890123456\U0001F600", "1234567890123456...\""}})
        EXPECT_EQ(ToNarrow(GetValueUndoText(kUndoValueModified, u"Damage", value)),
                  std::string("[Modify]\tDamage \"") + shown);
}
