// Groups over restore points of plain numbers: against a list of states at random, and case by case where
// nesting, limits, failures and labels have rules of their own.
#include "TestDatabase.h"
#include "UndoGroup.h"
#include "UndoScope.h"
#include "UndoText.h"
#include "Unicode.h"

#include <array>
#include <gtest/gtest.h>
#include <random>

namespace
{
using Cells = std::array<int, 4>;

// Exchanges a number; writes what it does to a log and fails where a test wants it.
class CCellPoint final : public CUndoRestorePoint
{
public:
    CCellPoint(int& cell, int before, std::string& log, const int* fails = nullptr)
        : m_Cell(cell), m_nOther(before), m_Log(log), m_pFails(fails)
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
        if (m_pFails && *m_pFails != 0)
            return false;
        m_Log += what;
        std::swap(m_Cell, m_nOther);
        return true;
    }

    int& m_Cell;
    int m_nOther;
    std::string& m_Log;
    const int* m_pFails;
};

class UndoMgr : public testing::Test
{
protected:
    void Edit(std::size_t cell, int value, const int* fails = nullptr)
    {
        const int before = std::exchange(m_Cells[cell], value);
        m_Undo.AddRestorePoint(std::make_unique<CCellPoint>(m_Cells[cell], before, m_sLog, fails));
    }
    void Command(std::size_t cell, int value, std::u16string_view text = u"")
    {
        CUndoScope scope(m_Undo);
        Edit(cell, value);
        scope.Accept(text);
    }
    std::string GetLabels(bool undo) const
    {
        std::string text;
        for (const std::u16string& label : undo ? m_Undo.GetUndoLabels() : m_Undo.GetRedoLabels())
            text += ToNarrow(label) + "|";
        return text;
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
    for (unsigned seed = 1; seed <= 40; ++seed)
    {
        std::mt19937 random(seed);
        const auto pick = [&](unsigned count) { return static_cast<unsigned>(random() % count); };
        const std::size_t limit = pick(3) == 0 ? 5 : 0; // Groups; 0 is none.
        m_Undo.Clear();
        m_Undo.SetLimit(UNDO_FLAG_LIMIT_COUNT, static_cast<std::uint32_t>(limit));
        std::vector<Cells> states{m_Cells}; // The state at `now` stands; behind it lies what redo gives.
        std::size_t now = 0;
        for (int step = 0; step < 400; ++step)
        {
            const unsigned kind = pick(10);
            const std::size_t count = pick(4);
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
                    continue;
                outer.Accept(u"outer");
                states.resize(now + 1);
                states.push_back(m_Cells);
                now = states.size() - 1;
                if (limit != 0 && now > limit)
                    states.erase(states.begin()), --now;
            }
            else if (kind < 8)
            {
                ASSERT_EQ(m_Undo.Undo(count), now > 0);
                now -= std::min(count, now);
            }
            else
            {
                ASSERT_EQ(m_Undo.Redo(count), now + 1 < states.size());
                now += std::min(count, states.size() - 1 - now);
            }
            ASSERT_EQ(m_Cells, states[now]) << "seed " << seed << " step " << step;
            ASSERT_EQ(m_Undo.GetUndoCount(), now);
            ASSERT_EQ(m_Undo.GetRedoCount(), states.size() - 1 - now);
        }
    }
    EXPECT_GT(m_Services.m_nBeeps, 0);
    EXPECT_TRUE(m_Asserts.GetEntries().empty());
}

TEST_F(UndoMgr, TheOutermostLevelDecides)
{
    ASSERT_TRUE(m_Undo.BeginGroup("file", 1) && m_Undo.BeginGroup("file", 2));
    Edit(0, 7);
    m_Undo.CancelGroup();
    EXPECT_TRUE(m_Undo.IsRecording());
    EXPECT_FALSE(m_Undo.Undo(1)) << "not in the middle of a command";
    m_Undo.AcceptGroup(u"outer");
    EXPECT_EQ(GetLabels(true), "&1 outer|");
    EXPECT_EQ(m_Cells[0], 7);
    EXPECT_TRUE(m_Undo.Undo(3));
    EXPECT_FALSE(m_Undo.Undo(1));
    EXPECT_EQ(m_Services.m_nBeeps, 2); // Each with nothing to undo.
    EXPECT_EQ(m_sLog, "u");

    // A cancel takes back without a way to redo, last first, and no point dies with its change standing.
    m_sLog.clear();
    ASSERT_TRUE(m_Undo.BeginGroup("file", 3));
    Edit(0, 1);
    Edit(0, 2);
    m_Undo.CancelGroup();
    EXPECT_EQ(m_sLog, "xxdd");
    EXPECT_EQ(m_Cells[0], 0);
    EXPECT_EQ(m_Undo.GetRedoCount(), 1u);
    m_Undo.CancelGroup();
    m_Undo.AcceptGroup(u"");
    m_Undo.AddRestorePoint(nullptr);
    EXPECT_EQ(m_Asserts.GetEntries().size(), 3u);
    EXPECT_TRUE(m_Asserts.Has("m_pCurrentGroup"));
    m_sLog.clear();
    Command(1, 1);
    EXPECT_EQ(m_sLog, "d") << "a new command ends the redo path";
}

TEST_F(UndoMgr, AFailedGroupStaysAndTheNextTryGoesOn)
{
    int fails = 0;
    {
        CUndoScope scope(m_Undo);
        Edit(0, 1);
        Edit(1, 1, &fails);
        Edit(2, 1);
        scope.Accept(u"three");
    }
    Command(3, 1);
    fails = 1;
    EXPECT_FALSE(m_Undo.Undo(2));
    EXPECT_EQ(m_Cells, (Cells{1, 1, 0, 0}));
    EXPECT_EQ(m_Undo.GetUndoCount(), 1u);
    EXPECT_FALSE(m_Undo.IsReplaying());
    fails = 0;
    EXPECT_TRUE(m_Undo.Undo(1));
    EXPECT_EQ(m_Cells, Cells{});
    fails = 1;
    EXPECT_FALSE(m_Undo.Redo(2));
    fails = 0;
    EXPECT_TRUE(m_Undo.Redo(2));
    EXPECT_EQ(m_Cells, (Cells{1, 1, 1, 1}));
}

namespace
{
// What a listener may do to the manager in the middle of a replay.
class CMeddlingPoint final : public CUndoRestorePoint
{
public:
    explicit CMeddlingPoint(CUndoMgr& undo) : m_Undo(undo) {}
    bool Undo(bool) override
    {
        EXPECT_TRUE(m_Undo.IsReplaying() && !m_Undo.IsRecording());
        EXPECT_FALSE(m_Undo.Undo(1) || m_Undo.Redo(1) || CUndoScope(m_Undo).IsOpen());
        m_Undo.Clear();
        return true;
    }
    bool Redo() override { return true; }
    std::size_t GetSize() const override { return 0; }
    bool Refers(const CCorvaneRef&) const override { return false; }

private:
    CUndoMgr& m_Undo;
};
} // namespace

TEST_F(UndoMgr, AClearDuringAnUndoWaitsForItsEnd)
{
    Command(0, 1);
    {
        CUndoScope scope(m_Undo);
        Edit(0, 2);
        m_Undo.AddRestorePoint(std::make_unique<CMeddlingPoint>(m_Undo));
        scope.Accept(u"");
    }
    EXPECT_TRUE(m_Undo.Undo(2));
    EXPECT_EQ(m_Cells[0], 1) << "the group that ran is whole, the next is gone";
    EXPECT_EQ(m_Undo.GetUndoCount() + m_Undo.GetRedoCount(), 0u);
}

TEST_F(UndoMgr, AMemoryLimitCountsSlotsGroupsAndPoints)
{
    Command(0, 1);
    EXPECT_EQ(m_Undo.GetSize(), 4u + 20 + 4 + 100);
    m_Undo.SetLimit(UNDO_FLAG_LIMIT_MEMORY, 4 * 4 + 2 * 124, false);
    for (int i = 0; i < 3; ++i)
        Command(0, i);
    EXPECT_EQ(m_Undo.GetUndoCount(), 4u) << "not enabled";
    m_Undo.SetLimit(UNDO_FLAG_LIMIT_MEMORY, 8 * 4 + 2 * 124);
    m_sLog.clear();
    Command(0, 9);
    EXPECT_EQ(m_sLog, "DDD");
    EXPECT_EQ(m_Undo.GetUndoCount(), 2u);
    EXPECT_EQ(m_Undo.GetSize(), 8u * 4 + 2 * 124);
}

TEST_F(UndoMgr, MenusShowEighteenEntries)
{
    for (int i = 1; i <= 20; ++i)
        Command(0, i, GetUndoText(kUndoRecordMoved, i == 20 ? u"A & B" : u"R"));
    const std::vector<std::u16string> labels = m_Undo.GetUndoLabels();
    ASSERT_EQ(labels.size(), 18u);
    EXPECT_EQ(labels[0], u"&1 [A && B]\nMoved Record");
    EXPECT_EQ(labels[8], u"&9 [R]\nMoved Record");
    EXPECT_EQ(labels[9], u"10 [R]\nMoved Record");
    EXPECT_EQ(GetLabels(false), "");
    EXPECT_TRUE(m_Undo.Undo(19));
    EXPECT_EQ(m_Undo.GetUndoLabels().size(), 1u);
    EXPECT_EQ(m_Undo.GetRedoLabels().size(), 18u);
}

TEST(UndoText, AValueIsCutWhenItFillsTheBuffer)
{
    const auto text = [](std::u16string_view value)
    { return ToNarrow(GetValueUndoText(kUndoValueModified, u"Damage", value)); };
    EXPECT_EQ(text(u"123456789012345"), "[Modify]\tDamage \"123456789012345\"");
    EXPECT_EQ(text(u"1234567890123456"), "[Modify]\tDamage \"1234567890123456\"...\"");
    EXPECT_EQ(text(u"123456789012345678"), "[Modify]\tDamage \"12345678901234567...\"");
    EXPECT_EQ(text(u"1234567890123456\U0001F600"), "[Modify]\tDamage \"1234567890123456...\"");
    EXPECT_EQ(ToNarrow(GetValueUndoText(kUndoValueAdded, u"123456789012345678901234567890", u"5")),
              "[Add]\t1234567890123456789012345678...\"");
}
