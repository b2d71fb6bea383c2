#include "enum/CorvaneTypeEnum.h"

#include "MemoryFileSystem.h"
#include "TestAttribute.h"
#include "Unicode.h"
#include "enum/EnumState.h"

#include <chrono>
#include <gtest/gtest.h>

namespace
{
// The values, each followed by '|'.
std::string Join(std::span<const std::u16string_view> values)
{
    std::string text;
    for (const std::u16string_view value : values)
        text += ToNarrow(value) + '|';
    return text;
}

// "FF FE" or "FE FF" and the units of an ASCII text.
std::string Encode(std::string_view text, bool bigEndian)
{
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : text)
        bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    return bytes;
}

// Reads `bytes` as an enum file: its values, or the error's text.
std::string ReadFile(std::string_view bytes)
{
    CMemoryFileSystem files;
    EXPECT_TRUE(files.WriteFile(u"/x.enum", std::as_bytes(std::span(bytes))).IsOk());
    SEnumFile file;
    const CFileError error = CEnumFileReader(files).Read(u"/x.enum", file);
    return error.IsOk() ? Join(file.m_pValues->GetValues()) : ToNarrow(error.GetText());
}

// Two schemas, each with two attributes that name one file by two spellings.
class CEnumFileTest : public testing::Test
{
protected:
    CEnumFileTest()
    {
        for (const char* schema : {"One", "Two"})
            m_Test.AddSchema(schema, "[Attrib.A.0]\nType=Enum\nData=../Shared/Sounds.enum\nDefault=b\n"
                                     "[Attrib.B.0]\nType=Enum\nData=..\\Shared\\Sounds.ENUM\nDefault=b\n");
        m_Test.m_Failure = [this](EFileOperation operation, std::u16string_view path)
        {
            const bool isEnum = operation == EFileOperation::ReadFile && path.find(u"Sounds") != path.npos;
            m_nReads += isEnum;
            return isEnum ? m_Failure : EFileError::None;
        };
    }

    CCorvaneAttrib& GetAttrib() { return *m_Test.Schema("One").GetTemplate()->GetAttributeList()[0]; }
    std::string GetList()
    {
        return Join(dynamic_cast<CCorvaneTypeEnum&>(GetAttrib()).GetEnumAttribData()->GetValueList());
    }

    int m_nReads = 0;
    EFileError m_Failure = EFileError::None;
    CTestDatabase m_Test;
};
} // namespace

TEST(Enum, DataIsSplitIntoWords)
{
    const std::pair<std::u16string, std::string> rows[] = {
        {u"a;b ;c", "a|b|c|"}, {u"a;;a; b\t\u3000", "a||a| b|"}, {u"a;", "a|"}, {u"", ""}, {u";", "|"}};
    for (const auto& [data, words] : rows)
        EXPECT_EQ(Join(CEnumValueList::FromData(data)->GetValues()), words);
}

TEST(Enum, FilesAreReadInBothByteOrdersLineByLine)
{
    const std::string longLine(1023, 'x');
    const std::pair<std::string, std::string> rows[] = {
        {"a\nb\rc\r\nd", "a|b|c|d|"},
        {"a\n\n \t\nb \n\r\n", "a|||b||"},
        {"a\n  ", "a|"},
        {"", ""},
        {longLine + "\r\nb", longLine + "|b|"},
        {longLine + "yz \nb", longLine + "|yz|b|"},
        {std::string(1024, ' '), "|"},
        {std::string("a\0b", 3), std::string("a\0b|", 4)},
    };
    for (const auto& [text, words] : rows)
    {
        EXPECT_EQ(ReadFile(Encode(text, false)), words) << text;
        EXPECT_EQ(ReadFile(Encode(text, true)), words) << text;
    }
    EXPECT_EQ(ReadFile(Encode("ab", false) + "c"), "ab|");
    for (const std::string_view bytes : {"", "\xFF", "\xFE", "a\nb\n", "\xEF\xBB\xBF", "\xFF\xFF\xFE"})
        EXPECT_EQ(ReadFile(bytes), ToNarrow(CFileError{EFileError::InvalidData, 0}.GetText()));
}

TEST(Enum, AnEnormousLineIsReadWithoutHanging)
{
    // A search of the rest of the text for each piece of the line would take hours.
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(ReadFile(Encode(std::string(25'000'000, 'x'), false)).size(), 25'000'000u + 24'438u);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST_F(CEnumFileTest, IsSharedWhileItLastsAndReadAnewWhenItChanged)
{
    m_Test.Write("Shared/Sounds.enum", "a\nb\n");
    ASSERT_TRUE(m_Test.Open());
    EXPECT_EQ(m_Test.GetTitles(), "");
    EXPECT_EQ(GetList(), "a|b|");
    EXPECT_EQ(m_nReads, 2) << "Two spellings of one path, in two schemas.";
    m_Test.Write("Shared/Sounds.enum", "a\nb\nc\n");
    ASSERT_TRUE(m_Test.Schema("One").ReloadFromFile());
    EXPECT_EQ(GetList(), "a|b|c|");
    EXPECT_EQ(m_nReads, 4);
    m_Test.Write("Shared/Sounds.enum", "b\n");
    ASSERT_TRUE(m_Test.Open());
    EXPECT_EQ(GetList(), "b|");
    EXPECT_EQ(m_nReads, 6);
}

TEST_F(CEnumFileTest, AFileThatCannotBeUsedIsToldForEachAttributeAndTheLoadGoesOn)
{
    const auto check = [this](std::u16string_view title, const std::string& text)
    {
        m_Test.m_Questions.Clear();
        ASSERT_TRUE(m_Test.Open());
        EXPECT_EQ(m_Test.m_Questions.Count(title), 4u);
        EXPECT_EQ(ToNarrow(m_Test.m_Questions.GetQuestions()[0].m_sText),
                  text + ":\n\n" + m_Test.GetPath("Shared/Sounds.enum").string());
        EXPECT_EQ(ShowValues(GetAttrib()) + GetList(), "");
    };
    check(u"Invalid Enum Path",
          "Cannot locate the following enum file specified in schema 'One', attribute 'A'");
    m_Test.WriteBytes("Shared/Sounds.enum", "a\nb\n");
    check(u"Invalid Enum File Format",
          "The following enum file is not in Unicode format and cannot be parsed");
    m_Failure = EFileError::AccessDenied;
    check(u"Unexpected Enum File Error", "An unexpected error occurred when parsing the following enum file");

    // All data stand in one list, in the order of their construction.
    const auto list = m_Test.Get().GetTypeState<CEnumState>().GetData();
    const CRef<CCorvaneSchemaAttribData> copy = list->front()->Clone();
    m_Test.Get().GetSchemas()[1]->Clear();
    std::u16string names;
    for (const CCorvaneTypeEnumData* data : *list)
        names += data->GetSchema()->GetName() + u'.' + data->GetName() + u' ';
    EXPECT_EQ(names, u"One.A One.B One.A ");
}

TEST(Enum, AMemberOfAStructIsNamedWithoutASchema)
{
    CTestDatabase test;
    SAttribDataConstruct construct;
    construct.m_sName = u"M";
    construct.m_sData = u"x.enum";
    const std::u16string file = test.GetText("S.struct");
    construct.m_sFile = file;
    construct.m_pManager = &test.Get();
    const CRef<CCorvaneTypeEnumData> data(new CCorvaneTypeEnumData(construct));
    CCorvaneTypeEnum attrib;
    EXPECT_TRUE(attrib.Init(u"z", *data));
    EXPECT_EQ(test.GetQuestion("Invalid Enum Path"),
              "Cannot locate the following enum file declared as a struct attribute 'M':\n\n" +
                  test.GetPath("x.enum").string());
    EXPECT_EQ(test.GetQuestion("Invalid Schema Default Value"),
              "The attribute 'M' of a struct contains an invalid default enum of 'z'.");
}
