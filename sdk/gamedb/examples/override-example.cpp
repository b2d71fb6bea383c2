// What a game server does at its start: opens the packed database, applies the text that its administrator
// edited, and tells what changed and what was wrong.
//
// Usage: override-example DATABASE TEXT LIMITS
// Exit status: 0 all lines were applied, 1 some were not, 2 wrong arguments or no database.
#include "GameAttribute.h"
#include "GameDatabase.h"
#include "GameOverrides.h"
#include "Utf8.h"

#include <iomanip>
#include <iostream>

namespace
{
template <class Vector> void PrintVector(const Vector& vector)
{
    const char* separator = "(";
    for (const float part : vector)
    {
        std::cout << separator << part;
        separator = ", ";
    }
    std::cout << ')';
}

void PrintValue(const CGameAttribute& attribute, std::size_t index)
{
    switch (attribute.GetType())
    {
    case DBVALUE_BOOLEAN:
        std::cout << (attribute.GetBoolean(index) ? "true" : "false");
        break;
    case DBVALUE_FLOAT:
        std::cout << attribute.GetFloat(index);
        break;
    case DBVALUE_INTEGER:
        std::cout << attribute.GetInteger(index);
        break;
    case DBVALUE_TEXT:
        std::cout << std::quoted(attribute.GetText(index));
        break;
    case DBVALUE_WIDETEXT:
        std::cout << std::quoted(ToUtf8(attribute.GetWideText(index)));
        break;
    case DBVALUE_VECTOR2:
        PrintVector(attribute.GetVector2(index));
        break;
    case DBVALUE_VECTOR3:
        PrintVector(attribute.GetVector3(index));
        break;
    case DBVALUE_VECTOR4:
        PrintVector(attribute.GetVector4(index));
        break;
    default:
        std::cout << (attribute.GetRecordLink(index) ? attribute.GetRecordLink(index).GetPath()
                                                     : "no record");
        break;
    }
}

void PrintValues(const CGameAttribute& attribute)
{
    for (std::size_t i = 0; i < attribute.GetCount(); ++i)
    {
        std::cout << (i == 0 ? "" : ", ");
        PrintValue(attribute, i);
    }
    if (attribute.GetCount() == 0)
        std::cout << "no values";
}

void PrintChanges(const CGameDatabase& packed, const CGameDatabase& database)
{
    for (std::size_t i = 0; i < database.GetRecordCount(); ++i)
    {
        const CGameRecord record = database.GetRecord(i);
        for (std::size_t j = 0; j < record.GetAttributeCount(); ++j)
        {
            const CGameAttribute attribute = record.GetAttribute(j);
            if (!attribute.IsOverridden())
                continue;
            std::cout << record.GetPath() << '/' << attribute.GetName() << ": ";
            PrintValues(packed.GetRecord(i).GetAttribute(j));
            std::cout << " -> ";
            PrintValues(attribute);
            std::cout << '\n';
        }
    }
}

int Run(const std::string& path, const std::string& text, const std::string& limits)
{
    std::string error;
    std::optional<CGameDatabase> database = CGameDatabase::Open(path, error);
    // A second view of the same file, for the values that it had.
    const std::optional<CGameDatabase> packed = CGameDatabase::Open(path, error);
    if (!database || !packed)
    {
        std::cerr << error << '\n';
        return 2;
    }
    const CGameOverrides overrides = CGameOverrides::Apply(*database, text, limits);
    PrintChanges(*packed, *database);
    std::cout << overrides.GetCount() << " settings changed\n";
    for (const SOverrideReport& report : overrides.GetReports())
    {
        if (report.line != 0)
            std::cout << "line " << report.line << ": ";
        std::cout << report.message << '\n';
    }
    return overrides.GetReports().empty() ? 0 : 1;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
    {
        std::cerr << "Usage: override-example DATABASE TEXT LIMITS\n";
        return 2;
    }
    return Run(argv[1], argv[2], argv[3]);
}
