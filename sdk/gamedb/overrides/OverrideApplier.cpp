#include "OverrideApplier.h"

#include "OverrideCursor.h"
#include "OverrideForm.h"
#include "OverrideNumbers.h"
#include "OverrideTextFile.h"
#include "PackedTables.h"
#include "TextForms.h"
#include "Utf8.h"

namespace
{
// More slashes than these in an attribute's own name are not looked for, so that a name of nothing but
// slashes does not cost its length squared.
constexpr int kMaxSlashes = 16;

// The questions of one attribute to the packed database.
class CAttributeUse final : public IOverrideUse
{
public:
    CAttributeUse(CPackedUse& use, std::string_view attribute) : m_Use(use), m_sAttribute(attribute) {}

    bool IsWordInUse(std::string_view word) const override { return m_Use.IsWordInUse(m_sAttribute, word); }
    bool IsSchemaInUse(std::string_view schema) const override
    {
        return m_Use.IsSchemaInUse(m_sAttribute, schema);
    }
    std::optional<std::string_view> FindSchemaOf(std::string_view path) const override
    {
        const SPackedTables& tables = m_Use.GetTables();
        const std::uint32_t record = tables.FindRecord(path);
        if (record == packed::kNone)
            return std::nullopt;
        return tables.Text(tables.categories[tables.records[record].category()].schema());
    }

private:
    CPackedUse& m_Use;
    std::string_view m_sAttribute;
};
} // namespace

COverrideApplier::COverrideApplier(const SPackedTables& tables,
                                   std::span<const SOverrideAttribute> attributes)
    : m_Tables(tables), m_Use(tables), m_pOverlay(std::make_unique<CPackedOverlay>(
                                           tables.textOffsets.size() - 1, tables.wideOffsets.size() - 1))
{
    std::size_t foreign = 0;
    m_Targets.reserve(attributes.size());
    for (const SOverrideAttribute& attribute : attributes)
    {
        const STarget target = Locate(attribute);
        if (m_Targets.try_emplace(attribute.name, target).second && !target.isFound)
            ++foreign;
    }
    if (foreign != 0)
        ReportForeign(foreign);
}

// Which slash ends the record's path is not marked; an attribute's own name rarely has one.
COverrideApplier::STarget COverrideApplier::Locate(const SOverrideAttribute& attribute) const
{
    STarget target = {&attribute, packed::kNone, packed::kNone, 0, false};
    std::size_t slash = attribute.name.rfind('/');
    for (int i = 0; i < kMaxSlashes && slash != std::string::npos && slash != 0; ++i)
    {
        const std::string_view name = attribute.name;
        target.record = m_Tables.FindRecord(name.substr(0, slash));
        if (target.record != packed::kNone)
        {
            target.position = m_Tables.FindEntry(m_Tables.ShapeOf(target.record), name.substr(slash + 1));
            target.isFound = target.position != packed::kNone && IsAsDescribed(target);
            if (target.isFound)
                return target;
        }
        slash = attribute.name.rfind('/', slash - 1);
    }
    return target;
}

bool COverrideApplier::IsAsDescribed(const STarget& target) const
{
    const SOverrideAttribute& attribute = *target.attribute;
    const int type = m_Tables.EntryOf(target.record, target.position).type();
    const bool isType =
        type == attribute.type || (type == DBVALUE_WIDETEXT && attribute.type == DBVALUE_TEXT);
    const std::uint32_t attrib = m_Tables.records[target.record].attribs() + target.position;
    return isType && (attribute.IsList() || m_Tables.PackedValuesOf(attrib).count == attribute.values.size());
}

void COverrideApplier::ReportForeign(std::size_t count)
{
    Report(0, EOverrideCause::ForeignDatabase,
           "The limits file was made for another database or another version of it: of its " +
               std::to_string(m_Targets.size()) + " settings " + std::to_string(count) +
               " are not in the database as it describes them.");
}

void COverrideApplier::Report(std::size_t line, EOverrideCause cause, std::string message)
{
    ++m_nFaults;
    if (m_Reports.size() < CGameOverrides::kMaxReports)
        m_Reports.push_back({line, cause, std::move(message)});
}

void COverrideApplier::Run(COverrideLines& lines)
{
    SOverrideLine line;
    while (lines.Next(line))
    {
        SOverrideError error = line.error;
        if (error.cause != EOverrideCause::None)
            Report(line.number, error.cause, "The line is not read: " + error.message + ".");
        else if (!ApplyLine(line, error))
            Report(line.number, error.cause,
                   "The setting " + QuoteForMessage(line.name) + ' ' + error.message + ".");
    }
}

bool COverrideApplier::ApplyLine(const SOverrideLine& line, SOverrideError& error)
{
    const auto found = m_Targets.find(line.name);
    if (found == m_Targets.end())
        return error.Set(EOverrideCause::UnknownName, "is not one of the settings");
    STarget& target = found->second;
    if (target.line != 0)
        return error.Set(EOverrideCause::RepeatedName,
                         "stands in line " + std::to_string(target.line) + " already; the first line counts");
    target.line = line.number;
    const std::unique_ptr<IOverrideForm> form = MakeOverrideForm(*target.attribute);
    COverrideCursor cursor(line.values);
    std::vector<SOverrideValue> values;
    bool isApplied = ReadOverrideValues(*form, cursor, values, error);
    if (isApplied &&
        WriteOverrideValues(*form, values) == WriteOverrideValues(*form, target.attribute->values))
        return true;
    if (isApplied && !target.isFound)
        return error.Set(EOverrideCause::UnknownName,
                         "is not in the database as the limits file describes it");
    isApplied = isApplied && Accept(target, *form, values, error);
    if (!isApplied)
        error.message = "keeps its value: " + error.message;
    return isApplied;
}

bool COverrideApplier::Accept(const STarget& target, const IOverrideForm& form,
                              const std::vector<SOverrideValue>& values, SOverrideError& error)
{
    const std::size_t wanted = target.attribute->values.size();
    if (!target.attribute->IsList() && values.size() != wanted)
        return error.Set(EOverrideCause::WrongCount, "the number of values is " +
                                                         std::to_string(values.size()) + " instead of " +
                                                         std::to_string(wanted));
    const packed::Entry& entry = m_Tables.EntryOf(target.record, target.position);
    CAttributeUse use(m_Use, m_Tables.Text(entry.name()));
    for (const SOverrideValue& value : values)
    {
        if (!form.Check(value, use, error))
            return false;
    }
    SetValues(target, values);
    return true;
}

void COverrideApplier::SetValues(const STarget& target, const std::vector<SOverrideValue>& values)
{
    const std::uint32_t attrib = m_Tables.records[target.record].attribs() + target.position;
    const auto type =
        static_cast<EDatabaseValueType>(m_Tables.EntryOf(target.record, target.position).type());
    const std::size_t dimension = packed::Dimension(static_cast<std::uint32_t>(type));
    std::vector<std::uint32_t> words;
    std::vector<float> floats;
    for (const SOverrideValue& value : values)
    {
        for (std::size_t i = 0; i < dimension; ++i)
            floats.push_back(AsFloat(value.words[i]));
        if (dimension == 0)
            words.push_back(WordOf(type, value));
    }
    if (dimension != 0)
        m_pOverlay->SetFloats(attrib, static_cast<std::uint32_t>(values.size()), std::move(floats));
    else
        m_pOverlay->SetWords(attrib, std::move(words));
}

std::uint32_t COverrideApplier::WordOf(EDatabaseValueType type, const SOverrideValue& value)
{
    switch (type)
    {
    case DBVALUE_TEXT:
        return m_pOverlay->AddText(value.text);
    case DBVALUE_WIDETEXT:
        return m_pOverlay->AddWideText(ToUtf16(value.text));
    case DBVALUE_RECORDLINK:
        return CLinkForm::IsNone(value.text) ? 0 : m_Tables.FindRecord(value.text) + 1;
    default:
        return value.words[0];
    }
}
