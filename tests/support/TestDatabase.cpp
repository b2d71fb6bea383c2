#include "TestDatabase.h"

#include "CorvaneType.h"
#include "RegisterTypes.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

namespace
{
constexpr const char* kUserDirectory = "XDG_CONFIG_HOME";
const std::string kDatabase = "Game/Database/";

// A reference to what a test looks for, or the end of the test.
template <class T> T& Require(T* object, std::string_view name)
{
    if (object == nullptr)
        throw std::runtime_error("The database has no " + std::string(name));
    return *object;
}
} // namespace

CUserDirectoryScope::CUserDirectoryScope(const fs::path& path)
{
    if (const char* before = std::getenv(kUserDirectory))
        m_sBefore = before;
    ::setenv(kUserDirectory, path.c_str(), 1);
}

CUserDirectoryScope::~CUserDirectoryScope()
{
    if (m_sBefore)
        ::setenv(kUserDirectory, m_sBefore->c_str(), 1);
    else
        ::unsetenv(kUserDirectory);
}

CTestDatabase::CTestDatabase()
    : m_Files(m_Disk, [this](EFileOperation operation, std::u16string_view path)
              { return m_Failure ? m_Failure(operation, path) : EFileError::None; }),
      m_Profile(m_Files, m_Scratch.Text("config/Corvane.ini")),
      m_Modules(m_Files, m_Scratch.Text("program/"), m_Scratch.Text("modules/")),
      m_nLive(CCorvaneRef::GetLiveCount())
{
    m_Scratch.WriteBytes("Game/Game.proj00", "[Project Directories]\nResourceRoot=Data\n");
    Write("Root.Gamdb00s",
          "[General]\nVersion=3\nName=Test\nDatabase={11111111-2222-3333-4444-555555555555}\n");
    RegisterCorvaneTypes(m_Types, m_AttribData);
    const CCorvaneContext context{m_Files, m_Questions, m_Services, m_Run, m_Profile, m_Modules};
    m_pManager = std::make_unique<CCorvaneMgr>(context, m_Types, m_AttribData, m_Gate, m_Undo);
    m_Observer = m_pManager->AddObserver(
        [this](const CCorvaneEvent& event)
        {
            m_Events.push_back(static_cast<int>(event.GetCode()));
            return 0;
        });
}

CTestDatabase::~CTestDatabase()
{
    Close();
    m_pManager.reset();
    std::string unexpected;
    for (const CAssertCapture::SEntry& entry : m_Asserts.GetEntries())
        unexpected += entry.expression + " " + entry.message + "\n";
    EXPECT_EQ(m_Asserts.GetEntries().size(), m_nExpectedAsserts) << unexpected;
}

void CTestDatabase::Write(std::string_view file, std::string_view text) const
{
    std::string lines;
    for (const char unit : text)
        lines += unit == '\n' ? std::string("\r\n") : std::string(1, unit);
    m_Scratch.WriteUtf16(kDatabase + std::string(file), ToWide(lines));
}

void CTestDatabase::WriteBytes(std::string_view file, std::string_view bytes) const
{
    m_Scratch.WriteBytes(kDatabase + std::string(file), bytes);
}

std::string CTestDatabase::Read(std::string_view file) const
{
    std::string text = ToNarrow(m_Scratch.ReadUtf16(kDatabase + std::string(file)));
    std::erase(text, '\r');
    return text;
}

fs::path CTestDatabase::GetPath(std::string_view file) const
{
    return m_Scratch.GetPath() / (kDatabase + std::string(file));
}

std::u16string CTestDatabase::GetText(std::string_view file) const
{
    return m_Scratch.Text(kDatabase + std::string(file));
}

void CTestDatabase::AddSchema(std::string_view name, std::string_view sections, std::string_view parent) const
{
    const std::string text(name);
    Write("Schemas/" + text + ".schema", "[Schema]\nName=" + text + "\nHelp=\nParent=" + std::string(parent) +
                                             "\n\n" + std::string(sections));
}

void CTestDatabase::AddCategory(std::string_view path, std::string_view schema) const
{
    Write(std::string(path) + "/cvd.category",
          "[Category]\nSchema=" + std::string(schema) + "\nComment=\nHelp=\nSystem=True\n\n");
}

void CTestDatabase::AddRecord(std::string_view path, std::string_view schema, std::string_view sections,
                              std::string_view keys) const
{
    const std::string name = fs::path(path).filename().string();
    Write(std::string(path) + ".record", "[Record]\nSchema=" + std::string(schema) + "\nName=" + name + "\n" +
                                             std::string(keys) + "\n" + std::string(sections));
}

bool CTestDatabase::Open()
{
    return m_pManager->OpenDatabase(GetText("Root.Gamdb00s"));
}

void CTestDatabase::Close()
{
    EXPECT_TRUE(m_pManager->CloseDatabase());
    EXPECT_EQ(CCorvaneRef::GetLiveCount(), m_nLive + m_nLasting) << "objects outlive the database";
}

CCorvaneRecord& CTestDatabase::Record(std::string_view path) const
{
    return Require(m_pManager->FindRecord(ToWide(path), nullptr), path);
}

CCorvaneCategory& CTestDatabase::Category(std::string_view path) const
{
    return Require(m_pManager->FindCategory(ToWide(path), nullptr), path);
}

CCorvaneSchema& CTestDatabase::Schema(std::string_view name) const
{
    return Require(m_pManager->FindSchema(ToWide(name)), name);
}

CCorvaneType& CTestDatabase::Attrib(std::string_view record, std::string_view name, std::uint32_t build) const
{
    for (const CRef<CCorvaneAttrib>& attrib : Record(record).GetAttributeList())
    {
        if (attrib->GetName() == ToWide(name) && attrib->GetBuild() == build)
            return static_cast<CCorvaneType&>(*attrib);
    }
    return Require(static_cast<CCorvaneType*>(nullptr), name);
}

std::string CTestDatabase::Value(std::string_view record, std::string_view name, std::uint32_t build,
                                 std::size_t index) const
{
    return ToNarrow(Attrib(record, name, build).GetValue(index));
}

std::string CTestDatabase::GetRecordList() const
{
    std::string list;
    m_pManager->EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            std::u16string path;
            m_pManager->GetRecordDisplayPath(&record, path);
            list += ToNarrow(path) + " ";
            return true;
        });
    return list;
}

std::string CTestDatabase::GetTemplateList(std::string_view schema) const
{
    std::string list;
    for (const CRef<CCorvaneAttrib>& attrib : Schema(schema).GetTemplate()->GetAttributeList())
        list += ToNarrow(attrib->GetName()) + "." + std::to_string(attrib->GetBuild()) + " ";
    return list;
}

std::string CTestDatabase::GetTitles() const
{
    std::string titles;
    for (const CQuestion& question : m_Questions.GetQuestions())
        titles += ToNarrow(question.m_sTitle) + ";";
    return titles;
}

std::string CTestDatabase::GetQuestion(std::string_view title) const
{
    std::string text;
    for (const CQuestion& question : m_Questions.GetQuestions())
    {
        if (question.m_sTitle == ToWide(title))
            text = text.empty() ? ToNarrow(question.m_sText) : "asked more than once";
    }
    return text;
}

CTestDatabase::Snapshot CTestDatabase::TakeSnapshot() const
{
    Snapshot snapshot;
    for (const fs::directory_entry& entry :
         fs::recursive_directory_iterator(m_Scratch.GetPath() / fs::path(kDatabase).parent_path()))
    {
        const std::string name = fs::relative(entry.path(), m_Scratch.GetPath()).string();
        if (entry.is_regular_file())
            snapshot[name] = {m_Scratch.ReadBytes(name), entry.last_write_time()};
    }
    return snapshot;
}

std::string CTestDatabase::GetChanges(const Snapshot& before) const
{
    const Snapshot after = TakeSnapshot();
    Snapshot changed;
    std::set_symmetric_difference(before.begin(), before.end(), after.begin(), after.end(),
                                  std::inserter(changed, changed.end()));
    std::string names;
    for (const auto& [name, state] : changed)
        names += name + ";";
    return names;
}

std::string CTestDatabase::GetPerUserFile() const
{
    return m_Scratch.Exists(kUserFile) ? Read(std::string("../../") + kUserFile) : std::string();
}
