#include "DatabaseDump.h"

#include "GameDatabase.h"
#include "JsonWriter.h"

#include <algorithm>
#include <iomanip>
#include <map>
#include <ostream>
#include <set>

namespace
{
using ELayout = CJsonWriter::ELayout;

template <std::size_t Dimension>
void WriteVector(CJsonWriter& json, const std::array<float, Dimension>& vector)
{
    json.BeginArray(ELayout::Inline);
    for (const float part : vector)
        json.Float(part);
    json.EndArray();
}

void WriteLink(CJsonWriter& json, const CGameRecord& record)
{
    if (record)
        json.Text(record.GetPath());
    else
        json.Null();
}

// The row of a type: its word, and how one value is written. A struct is written row by row instead.
struct STypeForm
{
    EDatabaseValueType type;
    const char* word;
    void (*write)(CJsonWriter&, const CGameAttribute&, std::size_t);
};

constexpr STypeForm kForms[] = {
    {DBVALUE_BOOLEAN, "boolean",
     [](CJsonWriter& json, const CGameAttribute& a, std::size_t i) { json.Boolean(a.GetBoolean(i)); }},
    {DBVALUE_FLOAT, "float",
     [](CJsonWriter& json, const CGameAttribute& a, std::size_t i) { json.Float(a.GetFloat(i)); }},
    {DBVALUE_INTEGER, "integer",
     [](CJsonWriter& json, const CGameAttribute& a, std::size_t i) { json.Integer(a.GetInteger(i)); }},
    {DBVALUE_TEXT, "text",
     [](CJsonWriter& json, const CGameAttribute& a, std::size_t i) { json.Text(a.GetText(i)); }},
    {DBVALUE_WIDETEXT, "widetext",
     [](CJsonWriter& json, const CGameAttribute& a, std::size_t i) { json.Text(a.GetWideText(i)); }},
    {DBVALUE_VECTOR2, "vector2",
     [](CJsonWriter& json, const CGameAttribute& a, std::size_t i) { WriteVector(json, a.GetVector2(i)); }},
    {DBVALUE_VECTOR3, "vector3",
     [](CJsonWriter& json, const CGameAttribute& a, std::size_t i) { WriteVector(json, a.GetVector3(i)); }},
    {DBVALUE_VECTOR4, "vector4",
     [](CJsonWriter& json, const CGameAttribute& a, std::size_t i) { WriteVector(json, a.GetVector4(i)); }},
    {DBVALUE_RECORDLINK, "recordlink",
     [](CJsonWriter& json, const CGameAttribute& a, std::size_t i) { WriteLink(json, a.GetRecordLink(i)); }},
    {DBVALUE_STRUCT, "struct", nullptr},
};

const STypeForm& FindForm(EDatabaseValueType type)
{
    return *std::find_if(std::begin(kForms), std::end(kForms),
                         [&](const STypeForm& form) { return form.type == type; });
}

void WriteRows(CJsonWriter& json, const CGameAttribute& attribute);

void WriteAttribute(CJsonWriter& json, const CGameAttribute& attribute)
{
    const STypeForm& form = FindForm(attribute.GetType());
    json.BeginObject(form.write ? ELayout::Inline : ELayout::Lines);
    json.Key("name");
    json.Text(attribute.GetMemberName());
    json.Key("type");
    json.Text(form.word);
    if (attribute.GetKind() != DBKIND_PLAIN)
    {
        json.Key("kind");
        json.Text(attribute.GetKind() == DBKIND_FILE ? "file" : "effect");
    }
    if (!form.write)
    {
        WriteRows(json, attribute);
        return json.EndObject();
    }
    json.Key("values");
    json.BeginArray(ELayout::Inline);
    for (std::size_t i = 0; i < attribute.GetCount(); ++i)
        form.write(json, attribute, i);
    json.EndArray();
    json.EndObject();
}

void WriteRows(CJsonWriter& json, const CGameAttribute& attribute)
{
    json.Key("rows");
    json.BeginArray(ELayout::Lines);
    for (std::size_t row = 0; row < attribute.GetCount(); ++row)
    {
        json.BeginArray(ELayout::Lines);
        CGameAttribute member = attribute.GetRow(row).GetFirstMember();
        for (; member; member = member.GetNextMember())
            WriteAttribute(json, member);
        json.EndArray();
    }
    json.EndArray();
}

void WriteRecord(CJsonWriter& json, const CGameRecord& record)
{
    json.BeginObject(ELayout::Lines);
    json.Key("path");
    json.Text(record.GetPath());
    json.Key("category");
    json.Text(record.GetCategory().GetPath());
    json.Key("name");
    json.Text(record.GetName());
    json.Key("schema");
    json.Text(record.GetSchemaName());
    json.Key("attributes");
    json.BeginArray(ELayout::Lines);
    for (std::size_t i = 0; i < record.GetAttributeCount(); ++i)
    {
        const CGameAttribute attribute = record.GetAttribute(i);
        if (!attribute.IsMember())
            WriteAttribute(json, attribute);
    }
    json.EndArray();
    json.EndObject();
}

void WriteCategories(CJsonWriter& json, const CGameDatabase& database)
{
    json.Key("categories");
    json.BeginArray(ELayout::Lines);
    for (std::size_t i = 0; i < database.GetCategoryCount(); ++i)
    {
        json.BeginObject(ELayout::Inline);
        json.Key("path");
        json.Text(database.GetCategory(i).GetPath());
        json.Key("schema");
        json.Text(database.GetCategory(i).GetSchemaName());
        json.EndObject();
    }
    json.EndArray();
}

void AddAttribute(const std::string& owner, const CGameAttribute& attribute, std::set<std::string>& lines)
{
    const std::string name = owner + std::string(attribute.GetMemberName());
    lines.insert(name + ' ' + FindForm(attribute.GetType()).word);
    if (attribute.GetType() != DBVALUE_STRUCT)
        return;
    for (std::size_t row = 0; row < attribute.GetCount(); ++row)
    {
        CGameAttribute member = attribute.GetRow(row).GetFirstMember();
        for (; member; member = member.GetNextMember())
            AddAttribute(name + "[].", member, lines);
    }
}
} // namespace

void DumpDatabase(const CGameDatabase& database, std::ostream& out)
{
    CJsonWriter json(out);
    json.BeginObject(ELayout::Lines);
    json.Key("format");
    json.Integer(database.GetInfo().formatVersion);
    WriteCategories(json, database);
    json.Key("records");
    json.BeginArray(ELayout::Lines);
    for (std::size_t i = 0; i < database.GetRecordCount() && out; ++i)
        WriteRecord(json, database.GetRecord(i));
    json.EndArray();
    json.EndObject();
}

void DumpRecord(const CGameRecord& record, std::ostream& out)
{
    CJsonWriter json(out);
    WriteRecord(json, record);
}

void DumpAttributes(const CGameDatabase& database, std::ostream& out)
{
    std::set<std::string> lines;
    for (std::size_t i = 0; i < database.GetRecordCount(); ++i)
    {
        const CGameRecord record = database.GetRecord(i);
        const std::string owner = std::string(record.GetSchemaName()) + '.';
        for (std::size_t j = 0; j < record.GetAttributeCount(); ++j)
        {
            const CGameAttribute attribute = record.GetAttribute(j);
            if (!attribute.IsMember())
                AddAttribute(owner, attribute, lines);
        }
    }
    for (const std::string& line : lines)
        out << line << '\n';
}

void DumpSummary(const CGameDatabase& database, std::ostream& out)
{
    const SGameDatabaseInfo info = database.GetInfo();
    const auto line = [&](std::string_view label, std::size_t number)
    { out << std::left << std::setw(24) << label << std::right << std::setw(14) << number << '\n'; };
    line("Format version", info.formatVersion);
    line("File size (bytes)", info.fileBytes);
    line("Categories", info.categories);
    line("Records", info.records);
    line("Record shapes", info.shapes);
    line("Attributes", info.attributes);
    line("Attributes (bytes)", info.attributeBytes);
    line("Lists (bytes)", info.listBytes);
    line("Texts", info.texts);
    line("Texts (bytes)", info.textBytes);
    line("Wide texts", info.wideTexts);
    line("Wide texts (bytes)", info.wideTextBytes);

    std::map<std::string_view, std::size_t> bySchema;
    for (std::size_t i = 0; i < database.GetRecordCount(); ++i)
        ++bySchema[database.GetRecord(i).GetSchemaName()];
    out << "\nRecords by schema\n";
    for (const auto& [schema, count] : bySchema)
        line(schema.empty() ? "  (none)" : "  " + std::string(schema), count);
}
