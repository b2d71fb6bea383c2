#include "AssertCapture.h"
#include "FailingFileSystem.h"
#include "FormatText.h"
#include "MemoryFileSystem.h"
#include "NameCompare.h"
#include "Unicode.h"
#include "UnicodeFileParse_ReadOnly.h"
#include "UnicodeFileParse_ReadWrite.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>

namespace
{
constexpr std::u16string_view kFile = u"/db/file.rec";

void PutFile(IFileSystem& files, std::string_view bytes)
{
    ASSERT_TRUE(files.CreateDirectoryTree(kFile).IsOk());
    ASSERT_TRUE(files.WriteFile(kFile, std::as_bytes(std::span(bytes))).IsOk());
}

void PutText(IFileSystem& files, std::u16string_view text, bool bigEndian)
{
    std::string bytes;
    const std::u16string marked = std::u16string(1, u'\uFEFF').append(text);
    for (const char16_t unit : marked)
    {
        bytes += static_cast<char>(bigEndian ? unit >> 8U : unit & 0xFFU);
        bytes += static_cast<char>(bigEndian ? unit & 0xFFU : unit >> 8U);
    }
    PutFile(files, bytes);
}

// Sections and keys on one line: "[A]x=1;[B]".
std::u16string Show(const CUnicodeFileParse_ReadOnly& parser)
{
    std::u16string out;
    for (std::size_t section = 0; section < parser.GetSectionCount(); ++section)
    {
        out += FormatText(u"[%s]", parser.GetSectionName(section));
        for (const SSectionKey& key : parser.GetKeys(section))
            out += FormatText(u"%s=%s;", key.m_sName, key.m_sValue);
    }
    return out;
}

std::u16string Show(const CUnicodeFileParse_ReadWrite& parser)
{
    const std::vector<std::byte> bytes = parser.Format(EXPORT_UTF16LE);
    std::u16string text(reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / 2);
    std::u16string out;
    for (std::size_t start = 1, end = text.find(u'\r'); end != std::u16string::npos;
         end = text.find(u'\r', start))
    {
        const std::u16string line = text.substr(start, end - start);
        const bool isHead = line.starts_with(u'[') && line.find(u']') != std::u16string::npos;
        out += line.empty() || isHead ? line : line + u";";
        start = end + 2;
    }
    return out;
}

struct SForm
{
    std::u16string text;
    std::u16string_view readOnly;
    std::u16string_view readWrite;
};

// What each parser makes of a text. The read-write parser takes both byte orders alike, but for the last line
// without an end, which a big-endian file loses.
const SForm kForms[] = {
    {u"", u"", u""},
    {u"[A]\r\nx=1\r\n", u"[A]x=1;", u"[A]x=1;"},
    {u"[A]\nx=1\r\ry=2\rz=3", u"[A]x=1;y=2;z=3;", u"[A]x=1;y=2;z=3;"},
    {u"x=1\n[A]\n", u"[A]", u"[A]"},
    {u"[]\n", u"[]", u"[]"},
    {u"[\nx=1\n", u"[]x=1;", u""},
    {u"[General] \n", u"[General]]", u"[General]"},
    {u"[General\nx=1\n", u"[Genera]x=1;", u""},
    {u"[A=1\n", u"[A=]", u""},
    {u"[B]\n[A=1\n", u"[B][A=]", u"[B][A=1;"},
    {u"[A]\n;x=1\n ;y=2\n", u"[A] ;y=2;", u"[A] ;y=2;"},
    {u"[A]\n=v\nk=\na=b=c\nnothing\n k = v \n", u"[A]=v;k=;a=b=c; k = v ;", u"[A]=v;k=;a=b=c; k = v ;"},
    {u"[A]\nx=1\n[a]\nX=2\n", u"[A]x=1;[a]X=2;", u"[A]x=1;[a]X=2;"},
    {u"[A]\nx=1\xFFFFy=2\n", u"[A]x=1;y=2;", u"[A]x=1;y=2;"},
    {u"[A]\nx=1\n\xFFFFy=2\n", u"[A]x=1;", u"[A]x=1;"},
    {std::u16string(u"[A]\nx=1\0tail\n", 13), u"[A]x=1;", std::u16string_view(u"[A]x=1\0tail;", 12)},
};
} // namespace

TEST(SectionFile, FormsAsEachReaderTakesThem)
{
    for (const SForm& form : kForms)
    {
        CMemoryFileSystem files;
        CUnicodeFileParse_ReadOnly readOnly(files);
        CUnicodeFileParse_ReadWrite little(files);
        CUnicodeFileParse_ReadWrite big(files);
        PutText(files, form.text, false);
        ASSERT_TRUE(readOnly.Import(kFile, 0));
        ASSERT_TRUE(little.Import(kFile, 0));
        PutText(files, form.text, true);
        ASSERT_TRUE(big.Import(kFile, 0));
        EXPECT_EQ(Show(readOnly), form.readOnly) << ToNarrow(form.text);
        EXPECT_EQ(Show(little), form.readWrite) << ToNarrow(form.text);
        const bool losesLast = form.text.ends_with(u"z=3");
        EXPECT_EQ(Show(big), losesLast ? u"[A]x=1;y=2;" : form.readWrite) << ToNarrow(form.text);
        EXPECT_EQ(readOnly.IsEmpty(), form.readOnly.empty());
    }
}

TEST(SectionFile, WrongFilesAreRefused)
{
    CMemoryFileSystem files;
    CUnicodeFileParse_ReadOnly readOnly(files);
    CUnicodeFileParse_ReadWrite readWrite(files);
    EXPECT_FALSE(readOnly.Import(kFile, 0));
    EXPECT_EQ(readOnly.GetLastError().m_Code, EFileError::NotFound);
    for (const std::string_view bytes : {"", "\xFF", "[A]\n", "\xEF\xBB\xBF[A]", "\xFF\xFE", "\xFF\xFE["})
    {
        const bool valid = bytes.starts_with("\xFF\xFE");
        PutFile(files, bytes);
        for (IUnicodeFileParse* parser : std::initializer_list<IUnicodeFileParse*>{&readOnly, &readWrite})
        {
            EXPECT_EQ(parser->Import(kFile, 0) && parser->IsEmpty(), valid);
            EXPECT_EQ(parser->GetLastError().m_Code, valid ? EFileError::None : EFileError::InvalidData);
        }
    }
    CAssertCapture asserts;
    PutText(files, u"[A]\n", true);
    EXPECT_FALSE(readOnly.Import(kFile, 0));
    EXPECT_TRUE(asserts.Has("Big Endian files cannot be read by the ReadOnly parser."));
}

TEST(SectionFile, TypedReads)
{
    CMemoryFileSystem files;
    files.AddText(kFile, u"[General]\nI=12x\nF= 2.5\nT=tRUE\nOne=1\nS=Länge\n");
    CUnicodeFileParse_ReadOnly readOnly(files);
    CUnicodeFileParse_ReadWrite readWrite(files);
    for (IUnicodeFileParse* parser : std::initializer_list<IUnicodeFileParse*>{&readOnly, &readWrite})
    {
        ASSERT_TRUE(parser->Import(kFile, 0));
        EXPECT_EQ(parser->ReadInteger(u"general", u"i"), 12);
        EXPECT_EQ(parser->ReadInteger("general", "S"), 0);
        EXPECT_EQ(parser->ReadFloat(u"General", u"F"), 2.5F);
        EXPECT_TRUE(parser->ReadBoolean("General", "T") && !parser->ReadBoolean(u"General", u"One"));
        std::u16string text = u"default";
        EXPECT_FALSE(parser->ReadString(u"General", u"missing", text));
        EXPECT_EQ(text, u"default");
        std::string narrow;
        EXPECT_TRUE(parser->ReadString("General", "s", narrow));
        EXPECT_EQ(narrow, "L\xC3\xA4nge");
        // The narrow form compares whole names.
        EXPECT_TRUE(parser->IsSection(u"gen", true) && !parser->IsSection(u"gen", false) &&
                    !parser->IsSection("gen", true));
        CAssertCapture asserts;
        char16_t buffer[4];
        EXPECT_TRUE(parser->ReadString(u"General", u"S", buffer, 4));
        EXPECT_EQ(std::u16string_view(buffer), u"Län");
        EXPECT_TRUE(asserts.Has("ZRStrCpy : Copy source is truncated"));
        EXPECT_FALSE(parser->IsKey({}, u"x") || parser->IsKey("x", nullptr));
        EXPECT_TRUE(asserts.Has("wszSection") && asserts.Has("szName"));
    }
}

TEST(SectionFile, ReadOnlyRefusesWrites)
{
    CMemoryFileSystem files;
    CUnicodeFileParse_ReadOnly parser(files);
    CAssertCapture asserts;
    EXPECT_FALSE(parser.Export(kFile, 1) || parser.WriteString("a", "b", "c") || parser.DeleteKey("a", "b") ||
                 parser.DeleteSection(u"a"));
    EXPECT_EQ(asserts.GetEntries().size(), 4U);
    EXPECT_TRUE(asserts.Has("DeleteSection Not Supported by Read Only Parser"));
}

TEST(SectionFile, ChangesKeepOrderAndSpelling)
{
    CMemoryFileSystem files;
    files.AddText(kFile, u"[General]\nKEY=1\nkey=2\n[B]\n;gone\nx=1\n[general]\ny=1");
    CUnicodeFileParse_ReadWrite parser(files);
    ASSERT_TRUE(parser.Import(kFile, 0));
    EXPECT_TRUE(parser.WriteString(u"GENERAL", u"Key", u"3"));
    EXPECT_TRUE(parser.WriteFloat(u"New", u"f", 1.5F));
    EXPECT_TRUE(parser.WriteFloat(u"New", u"Huge", -1e30F));
    EXPECT_TRUE(parser.WriteBoolean("New", "b", false));
    EXPECT_TRUE(parser.WriteInteger(u"B", u"n", -5));
    EXPECT_EQ(
        Show(parser),
        u"[General]Key=3;key=2;[B]x=1;n=-5;[general]y=1;[New]f=1.500000;Huge=-100000001504746621;b=False;");
    EXPECT_TRUE(parser.DeleteKey(u"General", u"KEY"));
    EXPECT_FALSE(parser.DeleteKey(u"General", u"y"));
    EXPECT_TRUE(parser.DeleteSection(u"b"));
    EXPECT_FALSE(parser.DeleteSection(u"b"));
    EXPECT_EQ(Show(parser).substr(0, 30), u"[General]key=2;[general]y=1;[N");
    ASSERT_TRUE(parser.Import(kFile, 0));
    EXPECT_TRUE(Show(parser).ends_with(u"[General]KEY=1;key=2;[B]x=1;[general]y=1;"));
}

TEST(SectionFile, ExportReportsFailures)
{
    CMemoryFileSystem memory;
    EFileError code = EFileError::None;
    CFailingFileSystem files(memory, [&](EFileOperation operation, std::u16string_view)
                             { return operation == EFileOperation::WriteFile ? code : EFileError::None; });
    CUnicodeFileParse_ReadWrite parser(files);
    parser.WriteString(u"A", u"k", u"v");
    EXPECT_TRUE(parser.Export(u"/new/deep/file.rec", EXPORT_UTF16BE));
    parser.WriteString(u"A", u"k", u"w");
    code = EFileError::DiskFull;
    EXPECT_FALSE(parser.Export(u"/new/deep/file.rec", EXPORT_UTF16LE));
    EXPECT_EQ(parser.GetLastError().m_Code, EFileError::DiskFull);
    code = EFileError::None;
    EXPECT_FALSE(parser.Export(u"/new/deep/file.rec", 0));
    EXPECT_FALSE(parser.Export(u"file.rec", EXPORT_UTF16LE)); // No directory to write to.
    CUnicodeFileParse_ReadWrite again(memory);
    ASSERT_TRUE(again.Import(u"/new/deep/file.rec", 0));
    EXPECT_EQ(Show(again), u"[A]k=v;");
}

namespace
{
// Lines of every kind; `unclosedHeads` adds those that only one of the readers takes as a section.
std::u16string RandomText(std::mt19937& random, bool unclosedHeads)
{
    static constexpr std::u16string_view kPieces[] = {u"[",
                                                      u"]",
                                                      u"=",
                                                      u";",
                                                      u"\r",
                                                      u"\n",
                                                      u"\r\n",
                                                      u"a",
                                                      u"A",
                                                      u"Ä",
                                                      u"ä",
                                                      u" ",
                                                      u"long piece of a value",
                                                      u"[s]\n",
                                                      u"k=v\r\n",
                                                      u"[S1]\n",
                                                      u"\xFFFF"};
    std::u16string text;
    for (std::size_t i = random() % 200; i > 0; --i)
        text +=
            kPieces[unclosedHeads ? random() % std::size(kPieces) : 1 + random() % (std::size(kPieces) - 1)];
    return text;
}

// The index and the tree must answer for `name` as a scan of all sections does.
void ExpectScan(const CUnicodeFileParse_ReadOnly& parser, std::u16string_view name)
{
    std::ptrdiff_t first = -1;
    bool below = false;
    for (std::size_t i = parser.GetSectionCount(); i-- > 0;)
    {
        const std::u16string_view section = parser.GetSectionName(i);
        const bool equal = EqualNames(section, name);
        first = equal ? static_cast<std::ptrdiff_t>(i) : first;
        below = below || equal || BeginsWithName(section, std::u16string(name) + u".");
    }
    ASSERT_EQ(parser.FindSection(name), first) << ToNarrow(name);
    const CSectionTree::Node node = parser.GetTree().Find(name);
    ASSERT_EQ(node != CSectionTree::kNone, below) << ToNarrow(name);
    ASSERT_EQ(below ? parser.GetTree().GetSection(node) : -1, first) << ToNarrow(name);
}
} // namespace

// Names of points and few letters, asked for with every prefix of every name and with one that is missing.
TEST(SectionFile, IndexAndTreeAnswerAsAScanDoes)
{
    static constexpr std::u16string_view kPieces[] = {u".", u"..", u"a", u"A", u"ä", u"Ä", u"10", u"1"};
    std::mt19937 random(11);
    CMemoryFileSystem files;
    CUnicodeFileParse_ReadOnly parser(files);
    for (int round = 0; round < 100; ++round)
    {
        std::u16string text;
        for (std::size_t i = random() % 60; i > 0; --i)
        {
            text += u"[";
            for (std::size_t piece = random() % 8; piece > 0; --piece)
                text += kPieces[random() % std::size(kPieces)];
            text += u"]\n";
        }
        files.AddText(kFile, text);
        ASSERT_TRUE(parser.Import(kFile, 0));
        for (std::size_t count = parser.GetSectionCount(), change = 0; change < 3 && count > 0; ++change)
        {
            for (std::size_t section = 0; section < count; ++section)
            {
                const std::u16string name(parser.GetSectionName(section));
                for (std::size_t length = 0; length <= name.size(); ++length)
                    ExpectScan(parser, name.substr(0, length));
                const CSectionTree& tree = parser.GetTree();
                ASSERT_EQ(tree.GetSection(tree.GetNodeOfSection(section)), parser.FindSection(name));
            }
            ExpectScan(parser, u"missing");
            const std::size_t from = random() % count;
            const std::size_t to = random() % (count + 1);
            const std::u16string moved(parser.GetSectionName(from));
            parser.MoveSection(from, to);
            ASSERT_EQ(parser.GetSectionName(from < to ? to - 1 : to), moved);
            parser.RemoveSection(random() % count--);
        }
    }
}

TEST(SectionFile, TreeTakesANameFullOfPoints)
{
    CMemoryFileSystem files;
    CUnicodeFileParse_ReadOnly parser(files);
    const std::u16string name(100'000, u'.');
    files.AddText(kFile, u"[" + name + u"]\n[" + name + u"a]\n");
    ASSERT_TRUE(parser.Import(kFile, 0));
    EXPECT_EQ(parser.GetTree().GetSection(parser.GetTree().Find(name + u"a")), 1);
    EXPECT_EQ(parser.GetTree().GetSection(parser.GetTree().Find(u"..")), -1);
}

// What is written is read again as the same, and both parsers agree on it.
TEST(SectionFile, FormattedTextRoundTrips)
{
    std::mt19937 random(13);
    CMemoryFileSystem files;
    for (int round = 0; round < 500; ++round)
    {
        files.AddText(kFile, RandomText(random, round % 2 == 0));
        CUnicodeFileParse_ReadWrite first(files);
        ASSERT_TRUE(first.Import(kFile, 0));
        const std::vector<std::byte> once = first.Format(EXPORT_UTF16LE);
        ASSERT_TRUE(first.Export(kFile, round % 2 == 0 ? EXPORT_UTF16LE : EXPORT_UTF16BE));
        CUnicodeFileParse_ReadWrite second(files);
        ASSERT_TRUE(second.Import(kFile, 0));
        ASSERT_EQ(second.Format(EXPORT_UTF16LE), once);
        ASSERT_TRUE(second.Export(kFile, EXPORT_UTF16LE));
        CUnicodeFileParse_ReadOnly readOnly(files);
        ASSERT_TRUE(readOnly.Import(kFile, 0));
        ASSERT_TRUE(round % 2 == 0 || Show(readOnly) == Show(second));
    }
}

// Random writes and deletions against a plain list that is searched from its start.
TEST(SectionFile, ManySectionsAnswerAsAScanDoes)
{
    std::mt19937 random(17);
    CMemoryFileSystem files;
    CUnicodeFileParse_ReadWrite parser(files);
    std::vector<std::pair<std::u16string, std::u16string>> model;
    const auto find = [&](std::u16string_view name)
    {
        return std::find_if(model.begin(), model.end(),
                            [&](const auto& row) { return EqualNames(row.first, name); });
    };
    for (int round = 0; round < 3000; ++round)
    {
        const std::u16string name =
            FormatText(random() % 2 == 0 ? u"Attrib.%d" : u"ATTRIB.%d", int(random() % 60));
        const std::u16string value = FormatText(u"%d", round);
        const auto row = find(name);
        const bool found = row != model.end();
        if (random() % 4 == 0)
        {
            ASSERT_EQ(parser.DeleteSection(name), found);
            model.erase(row, found ? row + 1 : row);
            continue;
        }
        parser.WriteString(name, u"v", value);
        if (found)
            row->second = value;
        else
            model.emplace_back(name, value);
    }
    std::u16string expected;
    for (const auto& [name, value] : model)
        expected += FormatText(u"[%s]v=%s;", name, value);
    EXPECT_EQ(Show(parser), expected);
    EXPECT_GT(model.size(), 30U);
}

TEST(MultiLine, EncodeAndDecode)
{
    EXPECT_EQ(EncodeMultiLine(u"a\\b\r\nc\nd\re"), u"a\\\\b\\nc\\nd\\ne");
    const std::pair<std::u16string_view, std::u16string_view> rows[] = {
        {u"plain", u"plain"},     {u"a\\nb", u"a\r\nb"}, {u"a\\rb", u"a\r\nb"},
        {u"a\\r\\nb", u"a\r\nb"}, {u"a\\\\b", u"a\\b"},  {u"a\\\\nb", u"a\\\r\nb"}, // Kept as it always was.
        {u"\\n\\r", u"\r\n\r\n"},
    };
    for (const auto& [stored, text] : rows)
        EXPECT_EQ(DecodeMultiLine(stored), text) << ToNarrow(stored);
    EXPECT_EQ(DecodeMultiLine(EncodeMultiLine(u"C:\\b\r\n\r\nx")), u"C:\\b\r\n\r\nx");
}
