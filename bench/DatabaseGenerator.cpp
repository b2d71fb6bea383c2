#include "DatabaseGenerator.h"

#include "DatabaseForms.h"
#include "NumberText.h"
#include "Unicode.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace
{
using FValues = std::vector<std::u16string>;

constexpr std::u16string_view kWords[] = {
    u"ash",     u"barrow", u"cinder",  u"drift", u"ember",  u"frost",  u"gate",    u"harbour", u"iron",
    u"juniper", u"kettle", u"lantern", u"marsh", u"north",  u"old",    u"pine",    u"quarry",  u"raven",
    u"salt",    u"timber", u"under",   u"vale",  u"winter", u"yard",   u"the",     u"of",      u"and",
    u"at",      u"Zoë",    u"Brücke",  u"night", u"watch",  u"slowly", u"falling", u"beyond",  u"wall",
};

// A small generator of our own, since the standard library's distributions differ between libraries.
class CDice
{
public:
    explicit CDice(std::uint64_t seed) : m_nState(seed) {}

    // 0 to `count` - 1.
    [[nodiscard]] std::uint32_t Roll(std::uint32_t count)
    {
        m_nState += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = m_nState;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
        return static_cast<std::uint32_t>((mixed ^ (mixed >> 31)) % count);
    }
    [[nodiscard]] bool Percent(std::uint32_t chance) { return Roll(100) < chance; }
    [[nodiscard]] std::u16string_view Word() { return kWords[Roll(std::size(kWords))]; }
    [[nodiscard]] std::u16string Words(std::uint32_t least, std::uint32_t most)
    {
        std::u16string text(Word());
        for (std::uint32_t left = least + Roll(most - least + 1); left > 1; --left)
            text.append(u" ").append(Word());
        return text;
    }

private:
    std::uint64_t m_nState;
};

// A section file as text. One object is used for file after file.
class CSectionText
{
public:
    void Begin() { m_sText = u"\uFEFF"; }
    void Section(std::u16string_view name) { m_sText.append(u"[").append(name).append(u"]\r\n"); }
    void Key(std::u16string_view name, std::u16string_view value)
    {
        m_sText.append(name).append(u"=").append(value).append(u"\r\n");
    }
    void Flag(std::u16string_view name, bool value) { Key(name, FormatBoolean(value)); }
    void EndSection() { m_sText.append(u"\r\n"); }
    // Source files are little-endian, as is every machine that this is measured on.
    [[nodiscard]] std::string_view GetBytes() const
    {
        return {reinterpret_cast<const char*>(m_sText.data()), m_sText.size() * sizeof(char16_t)};
    }

private:
    std::u16string m_sText;
};

std::u16string Numbered(std::u16string_view head, std::size_t number, std::size_t digits)
{
    std::u16string text = FormatInteger(static_cast<std::int64_t>(number));
    if (text.size() < digits)
        text.insert(0, digits - text.size(), u'0');
    return std::u16string(head) + u" " + text;
}

std::u16string_view GetTypeName(EForm form)
{
    constexpr std::u16string_view kNames[] = {u"Integer", u"Float", u"Boolean", u"Time", u"Text", u"Memo"};
    return kNames[static_cast<std::size_t>(form)];
}

std::u16string GetTypeData(const SAttributeForm& form)
{
    const std::u16string most = u"max=" + FormatInteger(form.m_nMax);
    switch (form.m_Form)
    {
    case EForm::Integer:
    case EForm::Float:
        return u"min=" + FormatInteger(form.m_nMin) + u";" + most;
    case EForm::Text:
    case EForm::Memo:
        return most;
    default:
        return {};
    }
}

std::u16string GetDefault(const SAttributeForm& form)
{
    switch (form.m_Form)
    {
    case EForm::Integer:
    case EForm::Time:
        return FormatInteger(form.m_nMin);
    case EForm::Float:
        return FormatFloat(form.m_nMin);
    case EForm::Boolean:
        return std::u16string(FormatBoolean(false));
    default:
        return {};
    }
}

std::u16string MakeMemo(CDice& dice)
{
    std::u16string text = dice.Words(5, 14);
    if (dice.Percent(30))
        text += u"\\n" + dice.Words(3, 10);
    return text;
}

std::u16string MakeValue(const SAttributeForm& form, CDice& dice)
{
    const auto range = static_cast<std::uint32_t>(form.m_nMax - form.m_nMin + 1);
    switch (form.m_Form)
    {
    case EForm::Integer:
        return FormatInteger(form.m_nMin + static_cast<std::int32_t>(dice.Roll(range)));
    case EForm::Float:
        return FormatFloat(form.m_nMin + dice.Roll((range - 1) * 8 + 1) / 8.0);
    case EForm::Time:
        return FormatInteger(dice.Roll(range) / 50 * 50);
    case EForm::Boolean:
        return std::u16string(FormatBoolean(dice.Percent(40)));
    case EForm::Text:
        return dice.Percent(8) ? std::u16string() : dice.Words(1, 3);
    case EForm::Memo:
        break;
    }
    return dice.Percent(25) ? std::u16string() : MakeMemo(dice);
}

FValues MakeValues(const SAttributeForm& form, CDice& dice)
{
    const std::size_t count = form.m_nValues < 0 ? dice.Roll(4) : static_cast<std::size_t>(form.m_nValues);
    FValues values(count);
    for (std::u16string& value : values)
        value = MakeValue(form, dice);
    return values;
}

class CTreeWriter
{
public:
    CTreeWriter(std::size_t records, const FFileSink& sink) : m_nRecords(records), m_Sink(sink) {}

    void Write()
    {
        WriteRoot();
        WriteSchema(kParentSchema, {}, GetParentAttributes());
        for (const SSchemaForm& schema : GetSchemaForms())
            WriteSchema(schema.m_sName, kParentSchema, schema.m_Attributes);
        const std::size_t directories = (m_nRecords + kRecordsPerDirectory - 1) / kRecordsPerDirectory;
        for (std::size_t i = 0; i < directories; ++i)
            WriteDirectory(i);
    }

private:
    static constexpr std::size_t kSetsPerRegion = 10;

    void Emit(std::u16string_view path) { m_Sink("Database/" + ToNarrow(path), m_Text.GetBytes()); }

    void WriteRoot()
    {
        m_Sink("Bench.proj00",
               "[General]\r\nGame=Bench\r\n\r\n[Project Directories]\r\nResourceRoot=.\r\n\r\n"
               "[Project Binaries]\r\nGameDatabase=CorvaneCreator.dll\r\n");
        m_Text.Begin();
        m_Text.Section(u"General");
        m_Text.Key(u"Version", u"1");
        m_Text.Key(u"Name", u"Bench");
        m_Text.Key(u"Build", u"../Bench.Gamdb00p");
        m_Text.Key(u"Database", u"{5D0C7A31-94E2-4B6F-8A17-2C3E9B60D4F8}");
        m_Text.EndSection();
        m_Sink(std::string(kGeneratedRoot), m_Text.GetBytes());
    }

    void WriteSchema(std::u16string_view name, std::u16string_view parent,
                     std::span<const SAttributeForm> attributes)
    {
        m_Text.Begin();
        m_Text.Section(u"Schema");
        m_Text.Key(u"Name", name);
        m_Text.Key(u"Help", u"Made for measurements.");
        m_Text.Key(u"Parent", parent);
        m_Text.EndSection();
        for (const SAttributeForm& form : attributes)
        {
            m_Text.Section(u"Attrib." + std::u16string(form.m_sName) + u"." + FormatInteger(form.m_nBuild));
            m_Text.Key(u"Type", GetTypeName(form.m_Form));
            m_Text.Key(u"Data", GetTypeData(form));
            m_Text.Key(u"Default", GetDefault(form));
            m_Text.Flag(u"Unicode", form.m_Form == EForm::Text || form.m_Form == EForm::Memo);
            m_Text.Flag(u"Deleted", false);
            m_Text.Flag(u"Inherit", form.m_bInherit);
            m_Text.Key(u"Values", FormatInteger(form.m_nValues));
            m_Text.Key(u"Help", u"What the designers set here, the game reads once at its start.");
            m_Text.EndSection();
        }
        Emit(u"Schemas/" + std::u16string(name) + u".schema");
    }

    void WriteCategory(const std::u16string& path, std::u16string_view schema)
    {
        m_Text.Begin();
        m_Text.Section(u"Category");
        m_Text.Key(u"Schema", schema);
        m_Text.Key(u"Comment", std::u16string_view());
        m_Text.Key(u"Help", u"Records of one kind and one region.");
        m_Text.Flag(u"System", true);
        m_Text.EndSection();
        Emit(path + u"/cvd.category");
    }

    // Directories take turns between the schemas, so that a small database has all of them too.
    void WriteDirectory(std::size_t index)
    {
        const std::span<const SSchemaForm> schemas = GetSchemaForms();
        const SSchemaForm& schema = schemas[index % schemas.size()];
        const std::size_t set = index / schemas.size();
        const std::u16string top(schema.m_sPlural);
        const std::u16string region = top + u"/" + Numbered(u"Region", set / kSetsPerRegion + 1, 2);
        const std::u16string path = region + u"/" + Numbered(u"Set", set + 1, 3);
        if (set == 0)
            WriteCategory(top, {});
        if (set % kSetsPerRegion == 0)
            WriteCategory(region, {});
        WriteCategory(path, schema.m_sName);

        m_BaseValues.clear();
        const std::size_t first = index * kRecordsPerDirectory;
        const std::size_t count = std::min(kRecordsPerDirectory, m_nRecords - first);
        for (std::size_t i = 0; i < count; ++i)
            WriteRecord(schema, path, first, i);
    }

    // The first record of a directory is the one that the others may inherit from.
    void WriteRecord(const SSchemaForm& schema, const std::u16string& directory, std::size_t first,
                     std::size_t number)
    {
        CDice dice(first + number + 1);
        const std::u16string base = u"Base " + std::u16string(schema.m_sName);
        const std::u16string name = number == 0 ? base : Numbered(dice.Words(2, 2), number, 2);
        const bool inherits = number != 0 && dice.Percent(40);
        m_Text.Begin();
        m_Text.Section(u"Record");
        m_Text.Key(u"Schema", schema.m_sName);
        m_Text.Key(u"Name", name);
        m_Text.Key(u"Comment", dice.Percent(10) ? MakeMemo(dice) : std::u16string());
        m_Text.Key(u"VirtualRelativeCategory", std::u16string_view());
        m_Text.EndSection();
        if (inherits)
        {
            m_Text.Section(u"Hierarchy");
            m_Text.Key(u"Record", directory + u"/" + base);
            m_Text.EndSection();
        }
        std::size_t index = 0;
        for (const std::span<const SAttributeForm> forms : {GetParentAttributes(), schema.m_Attributes})
        {
            for (const SAttributeForm& form : forms)
            {
                const bool own = !inherits || !form.m_bInherit || dice.Percent(35);
                const FValues values = own ? MakeValues(form, dice) : m_BaseValues[index];
                WriteAttribute(form, values, !own, dice);
                if (number == 0)
                    m_BaseValues.push_back(values);
                ++index;
            }
        }
        Emit(directory + u"/" + name + u".record");
    }

    void WriteAttribute(const SAttributeForm& form, const FValues& values, bool inherit, CDice& dice)
    {
        std::u16string section = u"Attrib." + std::u16string(form.m_sName);
        if (form.m_nBuild != 0)
            section += u"." + FormatInteger(form.m_nBuild);
        m_Text.Section(section);
        m_Text.Flag(u"Inherit", inherit);
        m_Text.Flag(u"PlaceHolder", dice.Percent(2));
        m_Text.Flag(u"Todo", dice.Percent(2));
        m_Text.Flag(u"Modified", dice.Percent(3));
        m_Text.Flag(u"Override", dice.Percent(3));
        m_Text.Key(u"Lock", dice.Percent(1) ? u"mkeller" : u"");
        m_Text.Key(u"Comment", dice.Percent(4) ? dice.Words(3, 9) : std::u16string());
        for (std::size_t i = 0; i < values.size(); ++i)
        {
            std::u16string key = FormatInteger(static_cast<std::int64_t>(i));
            key.insert(0, 4 - key.size(), u'0');
            m_Text.Key(u"Value." + key, values[i]);
        }
        m_Text.EndSection();
    }

    std::size_t m_nRecords;
    const FFileSink& m_Sink;
    CSectionText m_Text;
    std::vector<FValues> m_BaseValues; // Of the current directory's first record.
};
} // namespace

void GenerateDatabase(std::size_t records, const FFileSink& sink)
{
    CTreeWriter(records, sink).Write();
}
