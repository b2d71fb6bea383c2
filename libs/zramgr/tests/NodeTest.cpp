// Node trees, their builder, the searches and the written text.
#include "AssertCapture.h"
#include "ScratchDir.h"
#include "ZRAConverter.h"
#include "ZRAFile.h"
#include "ZRAHeapAllocator.h"
#include "ZRANodeBuilder.h"
#include "ZRANodeIterator.h"
#include "ZRANodePtr.h"
#include "ZRANodeWriter.h"
#include "ZRAUtil.h"
#include "ZRAWriter.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <limits>
#include <set>
#include <sstream>
#include <sys/resource.h>

namespace
{
// Counts what is out, and has no memory at one call.
class CCountingAllocator final : public IZRAAllocator
{
public:
    CZRANode* AllocateNode() override { return Take() ? m_Heap.AllocateNode() : nullptr; }
    void FreeNode(CZRANode* pNode) override { Give(pNode), m_Heap.FreeNode(pNode); }
    void* AllocateBlock(std::size_t nBytes) override
    {
        return Take() ? m_Heap.AllocateBlock(nBytes) : nullptr;
    }
    void FreeBlock(void* pBlock) override { Give(pBlock), m_Heap.FreeBlock(pBlock); }

    int m_nFailAt = -1; // Counts down with each call.
    int m_nLive = 0;

private:
    bool Take() { return m_nFailAt-- != 0 && ++m_nLive != 0; }
    void Give(const void* p) { m_nLive -= p != nullptr; }

    CZRAHeapAllocator m_Heap;
};

class CNodes : public ::testing::Test
{
protected:
    // Reads "(" and ")" as lists, 'x as a quoted atom, anything else as an atom. An operation that fails for
    // want of memory is done again; the number of lists that were lost.
    int Build(CZRANodeBuilder& builder, const std::string& words)
    {
        int lost = 0;
        std::istringstream in(words);
        for (std::string word; in >> word;)
        {
            const auto add = [&]
            {
                return word == "(" ? builder.Push()
                                   : builder.AddValue(word.c_str() + (word[0] == '\''), word[0] == '\'');
            };
            if (word == ")")
                lost += !builder.Pop();
            else
                EXPECT_TRUE(add() || add());
        }
        return lost;
    }
    CZRANodePtr Tree(const std::string& words)
    {
        CZRANodeBuilder builder(&m_Allocator);
        EXPECT_EQ(Build(builder, words), 0);
        return {builder.DetachHead(), {&m_Allocator}};
    }
    std::string Path(const char* name) const { return m_Scratch.GetPath() / name; }
    std::string Text(const CZRANode* root) const
    {
        EXPECT_TRUE(CZRANodeWriter::SaveNode(root, Path("text").c_str(), false, false));
        return m_Scratch.ReadBytes("text");
    }
    std::string Expand(const char* name) const
    {
        std::string text;
        CZRAFile file;
        EXPECT_TRUE(file.Open(Path(name).c_str(), true, true, false));
        for (std::uint8_t byte = 0; file.ReadByte(byte);)
            text += static_cast<char>(byte);
        return text;
    }

    CScratchDir m_Scratch;
    CCountingAllocator m_Allocator;
};

const std::string kSample = "\n(a \"x\" \n\t(b 1 )\n\t(c 2 )\n)\n";
} // namespace

TEST_F(CNodes, TextIsTheWrittenForm)
{
    const std::pair<const char*, std::string> cases[] = {
        {"( a 'x ( b 1 ) ( c 2 ) )", kSample},
        {"( )", "\n()\n"},
        {"( ( ( d ) ) )", "\n(\n\t(\n\t\t(d )\n\t)\n)\n"},
        {"( a ( b ( c ) ( d ) e ( f ) ) g )",
         "\n(a \n\t(b \n\t\t(c )\n\t\t(d )\n\t\te \n\t\t(f )\n\t)\n\tg )\n"},
    };
    for (const auto& [words, text] : cases)
        EXPECT_EQ(Text(Tree(words).get()), text) << words;
    EXPECT_EQ(m_Allocator.m_nLive, 0);
}

TEST_F(CNodes, ExhaustedMemoryDamagesNothing)
{
    int lost = 0;
    const auto textOf = [&](const std::string& words)
    {
        CZRANodeBuilder builder(&m_Allocator);
        lost = Build(builder, words);
        CZRANode* heads[2] = {};
        const std::uint32_t count = builder.DetachHeads(heads, 2);
        const CZRANodePtr first(heads[0], {&m_Allocator});
        const CZRANodePtr second(heads[1], {&m_Allocator});
        return Text(first.get()) + (count == 2 ? Text(second.get()) : "");
    };
    const std::string words = "( a ( b 'x ) ( c ( d ) ) 7 ) ( e )";
    const std::string whole = textOf(words);
    std::set<std::string> lessOneList;
    for (const char* rest : {"( a ( c ( d ) ) 7 ) ( e )", "( a ( b 'x ) ( c ) 7 ) ( e )",
                             "( a ( b 'x ) 7 ) ( e )", "( e )", "( a ( b 'x ) ( c ( d ) ) 7 )"})
        lessOneList.insert(textOf(rest));
    int allLost = 0;
    bool failed = true;
    for (int call = 0; failed; ++call)
    {
        m_Allocator.m_nFailAt = call;
        const std::string text = textOf(words);
        failed = m_Allocator.m_nFailAt < 0;
        allLost += lost;
        EXPECT_TRUE(lost == 1 ? lessOneList.contains(text) : text == whole) << call << text;
        EXPECT_EQ(m_Allocator.m_nLive, 0) << call;
    }
    m_Allocator.m_nFailAt = -1;
    EXPECT_EQ(allLost, 10) << "a node and an array for each list";

    // What is closed on the way out must not pass for the whole.
    CZRANodeBuilder builder(&m_Allocator);
    ASSERT_TRUE(builder.PushValue("a", false) && builder.PushValue("b", false));
    m_Allocator.m_nFailAt = 1;
    EXPECT_FALSE(builder.DetachHead() || builder.DetachHead());

    // A node keeps what it holds.
    const CZRANodePtr list = Tree("( a 'b )");
    CZRANode extra;
    m_Allocator.m_nFailAt = 0;
    EXPECT_FALSE(list->AppendElement(&extra, m_Allocator));
    m_Allocator.m_nFailAt = 0;
    EXPECT_FALSE(list->GetElement(0)->SetValue("new", true, 3, m_Allocator));
    EXPECT_EQ(Text(list.get()), "\n(a \"b\" )\n");
    ASSERT_TRUE(list->GetElement(0)->SetValue("newer", true, 3, m_Allocator));
    ASSERT_TRUE(list->AppendElement(Tree("( c )").release(), m_Allocator));
    EXPECT_EQ(Text(list.get()), "\n(\"new\" \"b\" \n\t(c )\n)\n");
}

TEST_F(CNodes, LimitsRefuseAndNothingBreaks)
{
    CZRANodeBuilder builder(&m_Allocator);
    EXPECT_TRUE(!builder.Pop() && !builder.DetachHead());
    for (std::uint32_t i = 0; i < CZRANodeBuilder::kMaxDepth; ++i)
        ASSERT_TRUE(builder.Push());
    EXPECT_FALSE(builder.Push() || builder.PushValue("a", false));
    ASSERT_TRUE(builder.AddInteger(std::numeric_limits<int>::min()));
    const CZRANodePtr deep(builder.DetachHead(), {&m_Allocator});
    const std::string text = Text(deep.get());
    EXPECT_EQ(std::count(text.begin(), text.end(), ')'), 1023);
    EXPECT_NE(text.find("\t(-2147483648 )\n\t"), std::string::npos);

    ASSERT_TRUE(builder.Push());
    constexpr std::uint32_t kMost = CZRANodeBuilder::MAX_CACHE_ROWS * CZRANodeBuilder::kRowSize;
    for (std::uint32_t i = 0; i < kMost; ++i)
        ASSERT_TRUE(builder.AddValue("", true));
    EXPECT_FALSE(builder.AddValue("", true));
    EXPECT_FALSE(builder.Push() && builder.Pop()) << "an empty list has no slot either";
    const CZRANodePtr wide(builder.DetachHead(), {&m_Allocator});
    EXPECT_EQ(wide->GetNumElements(), kMost);
}

TEST_F(CNodes, SearchesFindLabelsAndNumbersFit)
{
    const CZRANodePtr root = Tree("( db name ( b 1 ) ( ( b ) ) ( B 2 ) ( ) 'b ( b 3 ) )");
    std::vector<CZRANode*> found;
    EXPECT_EQ(CZRAUtil::ShallowFindAll(found, root.get(), "b"), 2U);
    EXPECT_EQ(CZRAUtil::ShallowFindAll(found, nullptr, "b"), 0U);
    ASSERT_EQ(found, (std::vector{root->GetElement(2), root->GetElement(7)}));
    EXPECT_TRUE(CZRAUtil::FindList(root.get(), "b") == found[0] && !CZRAUtil::FindList(root.get(), "name"));
    EXPECT_EQ(CZRANodeIterator(root.get()).FindNextList("db"), root.get());

    EXPECT_TRUE(CZRAUtil::IsFileCompressed("a.Gamdb00dc") && CZRAUtil::IsFileCompressed("A.C"));
    EXPECT_FALSE(CZRAUtil::IsFileCompressed("a.Gamdb00da") || CZRAUtil::IsFileCompressed(""));
    for (const auto& [value, size, text] : {std::tuple(-5, 1U, ""), {-5, 2U, "-"}, {123, 3U, "12"}})
    {
        char buffer[16];
        EXPECT_EQ(CZRAConverter::IntToStr(value, buffer, size), std::strlen(text));
        EXPECT_STREQ(buffer, text);
    }

    std::vector<const CZRANode*> inexact;
    const CZRANodePtr odd = Tree("( a\"b 'fine ( 'x\"y a(b plain 'wow(.c ) ' )");
    CZRAUtil::FindInexactAtoms(inexact, odd.get());
    ASSERT_EQ(inexact.size(), 3U);
    EXPECT_STREQ(inexact[1]->GetValue(), "x\"y");
    EXPECT_FALSE(CZRAUtil::IsTextExact("two\nlines", true) || CZRAUtil::IsTextExact("", false));
}

TEST_F(CNodes, AppendingKeepsBothTextsOrTheOldFile)
{
    const std::string outside = std::filesystem::temp_directory_path();
    ::setenv("TMPDIR", m_Scratch.GetPath().c_str(), 1);
    const CZRANodePtr sample = Tree("( a 'x ( b 1 ) ( c 2 ) )");
    int error = 0;
    const auto save = [&](const char* name, bool compress, bool append)
    { return CZRANodeWriter::SaveNode(sample.get(), Path(name).c_str(), compress, append, &error); };
    EXPECT_FALSE(save("x.c", true, true)) << "there is nothing to expand";
    m_Scratch.WriteBytes("plain.c", "text");
    EXPECT_FALSE(save("plain.c", true, true));
    EXPECT_TRUE(save("x.a", false, true) && save("x.a", false, true));
    EXPECT_EQ(m_Scratch.ReadBytes("x.a"), kSample + kSample);

    ASSERT_TRUE(save("x.c", true, false));
    std::filesystem::permissions(Path("x.c"), std::filesystem::perms(0640));
    std::filesystem::create_symlink("x.c", Path("link.c"));
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const std::string before = m_Scratch.ReadBytes("x.c");
    bool written = false;
    for (rlimit small{0, limit.rlim_max}; !written; ++small.rlim_cur)
    {
        ::setrlimit(RLIMIT_FSIZE, &small);
        written = save("link.c", true, true);
        ::setrlimit(RLIMIT_FSIZE, &limit);
        EXPECT_EQ(error, written ? 0 : EFBIG);
        EXPECT_EQ(m_Scratch.ReadBytes("x.c") == before, !written) << small.rlim_cur;
    }
    EXPECT_EQ(Expand("x.c"), kSample + kSample);
    {
        CZRAWriter abandoned;
        ASSERT_TRUE(abandoned.Open(Path("x.c").c_str(), true, true) && abandoned.BeginNode());
    }
    EXPECT_EQ(Expand("link.c"), kSample + kSample);
    EXPECT_EQ(std::filesystem::status(Path("x.c")).permissions(), std::filesystem::perms(0640));
    ::setenv("TMPDIR", outside.c_str(), 1);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_Scratch.GetPath()), {}), 4);
}

TEST_F(CNodes, MistakesFireAndAreRefused)
{
    CAssertCapture asserts;
    const CZRANodePtr list = Tree("( a )");
    EXPECT_TRUE(*list->GetValue() == 0 && list->GetElement(0)->GetNumElements() == 0);
    EXPECT_EQ(list->GetElement(1), nullptr);
    EXPECT_EQ(CZRANodeBuilder(&m_Allocator).DetachHeads(nullptr, 1), 0U);
    EXPECT_FALSE(CZRANodeBuilder(nullptr).Push());
    EXPECT_FALSE(CZRANodeWriter::SaveNode(nullptr, static_cast<CZRAWriter*>(nullptr)));
    EXPECT_FALSE(CZRANodeWriter::SaveNode(list->GetElement(0), Path("f").c_str(), false, false));
    EXPECT_FALSE(CZRANodeWriter::SaveNode(list.get(), nullptr, false, false));
    std::vector<CZRANode*> found;
    EXPECT_EQ(CZRAUtil::ShallowFindAll(found, list.get(), nullptr), 0U);
    CZRAConverter::IntToStr(1, nullptr, 0);
    CZRAWriter writer;
    EXPECT_FALSE(writer.BeginNode());
    ASSERT_TRUE(writer.Open(Path("open").c_str(), false, false));
    EXPECT_FALSE(writer.EndNode());
    CZRANodeIterator iterator(list.get());
    for (int i = 0; i < 1023; ++i)
        ASSERT_TRUE(iterator.PushNode(list.get()));
    EXPECT_FALSE(iterator.PushNode(list.get()));
    {
        CZRANode held;
        ASSERT_TRUE(held.AllocateElements(1, m_Allocator));
        CZRANode copy;
        std::memcpy(static_cast<void*>(&copy), static_cast<void*>(&held), sizeof copy);
        copy.Free(m_Allocator);
    }
    for (const char* text : {"IsAtom()", "IsList()", "nIndex < m_nFlags", "m_pData == 0", "ppNodeList",
                             "m_pAllocator", "pNode", "pWriter", "pNode->IsList()", "pszFilename", "pszValue",
                             "pszBuffer", "nBufferLen > 0", "IsValid()", "false", "m_nStackPos < 1024 - 1"})
        EXPECT_TRUE(asserts.Has(text)) << text;
}
