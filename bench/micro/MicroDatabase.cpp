#include "MicroDatabase.h"

#include "DatabaseGenerator.h"
#include "NumberText.h"
#include "Unicode.h"

#include <cstdlib>
#include <map>
#include <memory>

std::string GetTypicalRecordFile()
{
    std::string last;
    GenerateDatabase(kRecordsPerDirectory,
                     [&](const std::string& path, std::string_view bytes)
                     {
                         if (path.ends_with(".record"))
                             last = bytes;
                     });
    return last;
}

CMicroDatabase& CMicroDatabase::GetGenerated(std::size_t records)
{
    static std::map<std::size_t, std::unique_ptr<CMicroDatabase>> made;
    std::unique_ptr<CMicroDatabase>& database = made[records];
    if (database)
        return *database;
    database.reset(new CMicroDatabase);
    GenerateDatabase(records,
                     [&](const std::string& path, std::string_view bytes)
                     {
                         CMemoryFileSystem& files = database->m_Files;
                         const std::u16string file = u"/bench/" + ToWide(path);
                         if (!files.CreateDirectoryTree(file).IsOk() ||
                             !files.WriteFile(file, std::as_bytes(std::span(bytes))).IsOk())
                             std::abort();
                     });
    database->Load(kGeneratedRoot);
    return *database;
}

CMicroDatabase& CMicroDatabase::GetPlain(std::size_t records)
{
    static std::map<std::size_t, std::unique_ptr<CMicroDatabase>> made;
    std::unique_ptr<CMicroDatabase>& database = made[records];
    if (database)
        return *database;
    database.reset(new CMicroDatabase);
    database->WritePlain(records);
    database->Load("Plain.Gamdb00s");
    return *database;
}

void CMicroDatabase::WritePlain(std::size_t records)
{
    m_Files.AddText(u"/bench/Plain.proj00", u"[General]\r\nGame=Plain\r\n");
    m_Files.AddText(u"/bench/Plain.Gamdb00s",
                    u"[General]\r\nDatabase={5D0C7A31-94E2-4B6F-8A17-2C3E9B60D4F9}\r\n");
    m_Files.AddText(u"/bench/Plain.schema", u"[Schema]\r\nName=Plain\r\n");
    for (std::size_t i = 0; i < records; ++i)
    {
        const std::u16string directory =
            u"/bench/Set " + FormatInteger(static_cast<std::int64_t>(i / kRecordsPerDirectory));
        if (i % kRecordsPerDirectory == 0)
            m_Files.AddText(directory + u"/cvd.category", u"[Category]\r\nSchema=Plain\r\n");
        const std::u16string name = u"Record " + FormatInteger(static_cast<std::int64_t>(i));
        m_Files.AddText(directory + u"/" + name + u".record",
                        u"[Record]\r\nSchema=Plain\r\nName=" + name + u"\r\n");
    }
}

void CMicroDatabase::Load(std::string_view root)
{
    if (!m_Host.Load("/bench/" + std::string(root)))
        std::abort();
    GetManager().EnumerateRecords(
        [this](CCorvaneRecord& record)
        {
            m_Records.push_back(&record);
            return true;
        });
    if (m_Records.empty())
        std::abort();
}
