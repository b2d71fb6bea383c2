#include "TestAttribute.h"

#include "DependencySink.h"
#include "RecordingCreator.h"
#include "Unicode.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace
{
class CRecordingDependencies final : public IDependencySink
{
public:
    void AddDependency(std::u16string_view source, std::u16string_view resource,
                       std::u16string_view kind) override
    {
        for (const std::u16string_view part : {source, resource, kind})
            m_sLines += ToNarrow(part) + (part.data() == kind.data() ? '\n' : ' ');
    }

    std::string m_sLines;
};
} // namespace

CTestAttribute::CTestAttribute(std::u16string_view type, std::initializer_list<std::u16string_view> keys)
{
    std::string section = "[Attrib.Value.0]\nType=" + ToNarrow(type) + "\n";
    for (const std::u16string_view key : keys)
        section.append(ToNarrow(key)).append("\n");
    AddSchema("Thing", section);
    AddCategory("All", "Thing");
    AddRecord("All/One", "Thing");
    if (!Open() || Schema("Thing").GetTemplate()->GetAttributeList().size() != 1)
        throw std::runtime_error("no attribute of type " + ToNarrow(type));
}

CTestAttribute::~CTestAttribute()
{
    for (const CRef<CCorvaneRecord>& child : m_Children)
        child->Clear();
}

CCorvaneType& CTestAttribute::GetTemplate()
{
    return static_cast<CCorvaneType&>(*Schema("Thing").GetTemplate()->GetAttributeList()[0]);
}

CCorvaneType& CTestAttribute::AddChild()
{
    m_Children.push_back(Record("All/One").CreateReference());
    return static_cast<CCorvaneType&>(*m_Children.back()->GetAttributeList()[0]);
}

std::string CTestAttribute::GetOutputs()
{
    Get().SetOverride(true);
    CRecordingCreator packed;
    CRecordingUnpackedCreator unpacked;
    CreatorHandle handle = 0;
    EXPECT_TRUE(Get().SaveToDatabase(packed, 7, 0, handle, u""));
    EXPECT_TRUE(Get().SaveToOverride(&unpacked, 9, u"", u""));
    std::string calls;
    for (const CCallLog* log : {static_cast<CCallLog*>(&packed), static_cast<CCallLog*>(&unpacked)})
        for (const std::string& call : log->m_Calls)
            calls += call + '\n';
    return calls;
}

std::string CTestAttribute::GetDependencies()
{
    CRecordingDependencies sink;
    EXPECT_TRUE(Get().SaveToDependency(sink, 0));
    // An attribute that lies in no record has nothing to say.
    ++m_nExpectedAsserts;
    const CRef<CCorvaneType> loose = Get().Clone(nullptr);
    EXPECT_FALSE(loose->SaveToDependency(sink, 0));
    EXPECT_TRUE(m_Asserts.Has("Attribute has no parent!"));
    return sink.m_sLines;
}

std::string CTestAttribute::Check(std::initializer_list<std::u16string_view> values)
{
    std::size_t index = 0;
    for (const std::u16string_view value : values)
        EXPECT_TRUE(Get().SetValue(index++, value));
    CRecordingSink sink;
    const bool isValid = Get().Validate(&sink);
    EXPECT_EQ(isValid, sink.m_sErrors.empty());
    m_nExpectedAsserts = 1;
    EXPECT_FALSE(Get().Validate(nullptr));
    EXPECT_TRUE(m_Asserts.Has("pCore"));
    return sink.m_sErrors;
}

std::vector<std::u16string> CTestAttribute::GetDefaultMessages() const
{
    std::vector<std::u16string> texts;
    for (const CQuestion& question : m_Questions.GetQuestions())
    {
        EXPECT_EQ(question.m_sTitle, u"Invalid Schema Default Value");
        texts.push_back(question.m_sText);
    }
    return texts;
}

void CRecordingSink::AddError(ESeverity severity, std::u16string_view type, std::u16string_view description,
                              CCorvaneAttrib*, std::size_t valueIndex)
{
    m_sErrors += std::to_string(static_cast<int>(severity)) + ' ' + ToNarrow(type) + ' ' +
                 std::to_string(valueIndex) + ": " + ToNarrow(description) + '\n';
}
