#include "RecordReport.h"

#include "FormatText.h"
#include "JsonReport.h"
#include "Output.h"
#include "ShownRecord.h"
#include "Unicode.h"

namespace
{
std::u16string FormatBuilds(const SBuildRange& builds)
{
    if (builds.m_nLast != kBuildOpen)
        return FormatText(u"builds %u to %d", builds.m_nFirst, builds.m_nLast);
    return builds.m_nFirst == 0 ? std::u16string() : FormatText(u"from build %u on", builds.m_nFirst);
}

std::u16string_view GetSource(const SShownAttribute& attribute)
{
    if (!attribute.m_Chain.empty())
        return u"inherited";
    return attribute.m_bStored ? u"own" : u"default";
}

// The head tells the whole chain, so that here the record that holds the values is enough.
std::u16string FormatSource(const SShownAttribute& attribute)
{
    std::u16string text(GetSource(attribute));
    if (!attribute.m_Chain.empty())
        text += u" from " + attribute.m_Chain.back();
    if (!attribute.m_Chain.empty() && !attribute.m_bStored)
        text += u", default";
    if (attribute.m_nOlderBuild)
        text += FormatText(u", taken over from build %u", *attribute.m_nOlderBuild);
    return text;
}

// What stands in brackets behind a value. `around` is the struct attribute of a member, else null.
std::u16string FormatNotes(const SShownAttribute& attribute, const SShownAttribute* around,
                           std::uint32_t build)
{
    if (attribute.m_bDeletion)
        return FormatText(u"%s, deleted from build %u on", attribute.m_sType, attribute.m_Builds.m_nFirst);
    std::u16string text = attribute.m_sType;
    const auto add = [&text](bool condition, const std::u16string& note)
    {
        if (condition && !note.empty())
            text += u", " + note;
    };
    const bool likeAround =
        around != nullptr && !around->m_Chain.empty() && around->m_Chain == attribute.m_Chain;
    add(!likeAround || !attribute.m_bStored, FormatSource(attribute));
    add(true, FormatBuilds(attribute.m_Builds));
    add(true, std::u16string(GetDeferStateText(attribute.m_State)));
    add(!attribute.m_bAvailable, FormatText(u"not in force at build %u", build));
    add(attribute.m_bOverride, u"override");
    add(attribute.m_bTodo, u"to do");
    add(attribute.m_bPlaceHolder, u"placeholder");
    add(attribute.m_bModified, u"modified");
    add(!attribute.m_sLockUser.empty(), u"locked by " + attribute.m_sLockUser);
    return text;
}

class CRecordText
{
public:
    explicit CRecordText(const SShownRecord& record) : m_Record(record) {}

    [[nodiscard]] std::string Format();

private:
    void AddLine(std::size_t depth, std::u16string_view text)
    {
        m_sText.append(2 * depth, u' ').append(MakeLine(text)) += u'\n';
    }
    void AddHead(std::u16string_view name, std::u16string_view text)
    {
        std::u16string line = std::u16string(name) + u':';
        line.resize(11, u' ');
        if (!text.empty())
            AddLine(1, line.append(text));
    }
    void AddAttribute(std::size_t depth, const SShownAttribute& attribute, const SShownAttribute* around);
    void AddValues(std::size_t depth, const SShownAttribute& attribute);
    void AddRows(std::size_t depth, const SShownAttribute& attribute);
    void AddReferences(std::size_t depth, const SShownAttribute& attribute);

    const SShownRecord& m_Record;
    std::u16string m_sText;
};

std::u16string Join(const std::vector<std::u16string>& names, std::u16string_view link)
{
    std::u16string text;
    for (const std::u16string& name : names)
        text.append(text.empty() ? u"" : link).append(name);
    return text;
}

// The value, or how many there are below the line.
std::u16string FormatValue(const SShownAttribute& attribute)
{
    if (attribute.m_bDeletion)
        return u"-";
    if (attribute.m_bStruct)
        return ToWide(Count(attribute.m_Rows.size(), "row"));
    if (attribute.m_Values.size() == 1)
        return attribute.m_Values.front().m_sText;
    return ToWide(Count(attribute.m_Values.size(), "value"));
}

std::string CRecordText::Format()
{
    AddLine(0, m_Record.m_sPath);
    AddHead(u"File", m_Record.m_sFile);
    AddHead(u"Schema", m_Record.m_sSchema);
    AddHead(u"Build", FormatText(u"%u", m_Record.m_nBuild));
    AddHead(u"Inherits", Join(m_Record.m_Referencers, u", which inherits from "));
    AddHead(u"Heirs", Join(m_Record.m_Referencees, u", "));
    AddHead(u"Comment", m_Record.m_sComment);
    m_sText += u'\n';
    for (const SShownAttribute& attribute : m_Record.m_Attributes)
        AddAttribute(0, attribute, nullptr);
    return ToNarrow(m_sText);
}

void CRecordText::AddAttribute(std::size_t depth, const SShownAttribute& attribute,
                               const SShownAttribute* around)
{
    const std::u16string notes = FormatNotes(attribute, around, m_Record.m_nBuild);
    AddLine(depth, FormatText(u"%s: %s  (%s)", attribute.m_sName, FormatValue(attribute), notes));
    if (attribute.m_bDeletion)
        return;
    if (attribute.m_Values.size() > 1)
        AddValues(depth + 1, attribute);
    AddReferences(depth + 1, attribute);
    if (!attribute.m_sComment.empty())
        AddLine(depth + 1, u"# " + attribute.m_sComment);
    AddRows(depth + 1, attribute);
}

void CRecordText::AddValues(std::size_t depth, const SShownAttribute& attribute)
{
    for (std::size_t i = 0; i < attribute.m_Values.size(); ++i)
    {
        const SShownValue& value = attribute.m_Values[i];
        const bool told = value.m_bDefault && attribute.m_bStored;
        AddLine(depth, FormatText(u"[%u] %s%s", i, value.m_sText, told ? u"  (default)" : u""));
    }
}

void CRecordText::AddRows(std::size_t depth, const SShownAttribute& attribute)
{
    for (std::size_t row = 0; row < attribute.m_Rows.size(); ++row)
    {
        AddLine(depth, FormatText(u"[%u]", row));
        for (const SShownAttribute& member : attribute.m_Rows[row])
            AddAttribute(depth + 1, member, &attribute);
    }
}

void CRecordText::AddReferences(std::size_t depth, const SShownAttribute& attribute)
{
    for (const SShownReference& reference : attribute.m_References)
    {
        // Other kinds name in the value itself what they refer to.
        if (reference.m_sTarget)
            AddLine(depth, u"-> " + (reference.m_sTarget->empty() ? u"no record " + reference.m_sResource
                                                                  : *reference.m_sTarget));
    }
}

void WriteReferences(CJsonReport& report, const SShownAttribute& attribute)
{
    if (attribute.m_References.empty())
        return;
    report.BeginList("references");
    for (const SShownReference& reference : attribute.m_References)
    {
        report.BeginObject(CJsonReport::ELayout::Inline);
        report.Text("kind", reference.m_sKind);
        report.Text("resource", reference.m_sResource);
        if (reference.m_sTarget)
            report.Flag("found", !reference.m_sTarget->empty());
        if (reference.m_sTarget)
            report.TextIfAny("record", *reference.m_sTarget);
        report.EndObject();
    }
    report.EndList();
}

void WriteValues(CJsonReport& report, const SShownAttribute& attribute)
{
    std::vector<std::u16string> texts;
    for (const SShownValue& value : attribute.m_Values)
        texts.push_back(value.m_sText);
    report.Texts("values", texts);
    report.BeginList("defaultValues", CJsonReport::ELayout::Inline);
    for (std::size_t i = 0; i < attribute.m_Values.size(); ++i)
    {
        if (attribute.m_Values[i].m_bDefault)
            report.GetWriter().Integer(static_cast<std::int64_t>(i));
    }
    report.EndList();
}

void WriteMarks(CJsonReport& report, const SShownAttribute& attribute)
{
    report.FlagIfSet("override", attribute.m_bOverride);
    report.FlagIfSet("todo", attribute.m_bTodo);
    report.FlagIfSet("placeHolder", attribute.m_bPlaceHolder);
    report.FlagIfSet("modified", attribute.m_bModified);
    report.TextIfAny("lock", attribute.m_sLockUser);
    report.TextIfAny("comment", attribute.m_sComment);
}

void WriteAttributes(CJsonReport& report, const std::vector<SShownAttribute>& attributes);

void WriteAttribute(CJsonReport& report, const SShownAttribute& attribute)
{
    report.BeginObject();
    report.Text("name", attribute.m_sName);
    report.Text("type", attribute.m_sType);
    report.Number("firstBuild", attribute.m_Builds.m_nFirst);
    if (attribute.m_Builds.m_nLast != kBuildOpen)
        report.Number("lastBuild", attribute.m_Builds.m_nLast);
    report.Flag("inForce", attribute.m_bAvailable);
    report.FlagIfSet("deprecated", attribute.m_State == EDeferState::Deprecated);
    report.FlagIfSet("toBeDeleted", attribute.m_State == EDeferState::ToBeDeleted);
    report.FlagIfSet("marksDeletion", attribute.m_bDeletion);
    report.Text("source", GetSource(attribute));
    report.Texts("inheritedFrom", attribute.m_Chain);
    if (attribute.m_nOlderBuild)
        report.Number("takenOverFromBuild", *attribute.m_nOlderBuild);
    WriteMarks(report, attribute);
    if (!attribute.m_bStruct)
        WriteValues(report, attribute);
    WriteReferences(report, attribute);
    if (attribute.m_bStruct)
    {
        report.BeginList("rows");
        for (const std::vector<SShownAttribute>& row : attribute.m_Rows)
        {
            report.GetWriter().BeginArray(CJsonReport::ELayout::Lines);
            WriteAttributes(report, row);
            report.GetWriter().EndArray();
        }
        report.EndList();
    }
    report.EndObject();
}

void WriteAttributes(CJsonReport& report, const std::vector<SShownAttribute>& attributes)
{
    for (const SShownAttribute& attribute : attributes)
        WriteAttribute(report, attribute);
}
} // namespace

std::string FormatRecord(const SShownRecord& record)
{
    return CRecordText(record).Format();
}

void WriteRecord(CJsonReport& report, const SShownRecord& record)
{
    report.Number("build", record.m_nBuild);
    report.Text("record", record.m_sPath);
    report.Text("recordPath", record.m_sRecordPath);
    report.Text("schema", record.m_sSchema);
    report.Text("file", record.m_sFile);
    report.Text("comment", record.m_sComment);
    report.Texts("inheritsFrom", record.m_Referencers);
    report.Texts("heirs", record.m_Referencees);
    report.BeginList("attributes");
    WriteAttributes(report, record.m_Attributes);
    report.EndList();
}
