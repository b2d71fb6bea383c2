#include "TestAttribute.h"

#include "RecordingCreator.h"
#include "Unicode.h"

#include <gtest/gtest.h>
#include <stdexcept>

CTestAttribute::CTestAttribute(std::u16string_view type, const std::vector<std::u16string>& keys)
{
    std::string section = "[Attrib.Value.0]\nType=" + ToNarrow(type) + "\n";
    for (const std::u16string& key : keys)
        section.append(ToNarrow(key)).append("\n");
    AddSchema("Thing", section);
    AddCategory("All", "Thing");
    AddRecord("All/One", "Thing");
    AddRecord("All/Two", "Thing", "[Hierarchy]\nRecord=All/One\n");
    if (!Open() || Schema("Thing").GetTemplate()->GetAttributeList().size() != 1)
        throw std::runtime_error("no attribute of type " + ToNarrow(type));
}

CCorvaneType& CTestAttribute::GetTemplate()
{
    return static_cast<CCorvaneType&>(*Schema("Thing").GetTemplate()->GetAttributeList()[0]);
}

void CTestAttribute::Set(const std::vector<std::u16string>& values)
{
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_TRUE(i < Get().GetValueCount() ? Get().SetValue(i, values[i]) : Get().AddValue(values[i]));
}

std::string CTestAttribute::GetOutputs()
{
    Get().SetOverride(true);
    CRecordingCreator creator;
    CreatorHandle handle = 0;
    EXPECT_TRUE(Get().SaveToDatabase(creator, 7, 0, handle, u""));
    EXPECT_TRUE(Get().SaveToOverride(&creator, 9, u"", u""));
    std::string calls;
    for (const std::string& call : creator.m_Calls)
        calls += call + '\n';
    return calls;
}

std::string CTestAttribute::GetDependencies()
{
    CRecordingSink sink;
    EXPECT_TRUE(Get().SaveToDependency(sink, 0));
    // An attribute that lies in no record has nothing to say.
    ++m_nExpectedAsserts;
    EXPECT_FALSE(Get().Clone(nullptr)->SaveToDependency(sink, 0));
    EXPECT_TRUE(m_Asserts.Has("Attribute has no parent!"));
    return sink.m_sLines;
}

std::string CTestAttribute::Check()
{
    CRecordingSink sink;
    const bool isValid = Get().Validate(&sink);
    EXPECT_EQ(isValid, sink.m_sLines.find("1 ") == std::string::npos);
    ++m_nExpectedAsserts;
    EXPECT_FALSE(Get().Validate(nullptr));
    EXPECT_TRUE(m_Asserts.Has("pCore"));
    return sink.m_sLines;
}
