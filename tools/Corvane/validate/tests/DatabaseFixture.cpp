#include "DatabaseFixture.h"

#include "RegisterTypes.h"
#include "Unicode.h"

namespace
{
// Section files end their lines with CR LF.
std::u16string WithLineEnds(std::u16string_view text)
{
    std::u16string lines;
    for (const char16_t unit : text)
        lines.append(unit == u'\n' ? std::u16string_view(u"\r\n") : std::u16string_view(&unit, 1));
    return lines;
}
} // namespace

CDatabaseFixture::CDatabaseFixture()
    : m_Files(m_Disk, [this](EFileOperation operation, std::u16string_view path)
              { return m_Failure ? m_Failure(operation, path) : EFileError::None; }),
      m_Services(m_Files), m_Profile(m_Files, m_Scratch.Text("profile.ini")),
      m_Modules(m_Files, m_Scratch.Text("bin/"), m_Scratch.Text("modules/"))
{
    RegisterCorvaneTypes(m_Types, m_AttribData);
    const CCorvaneContext context{m_Files, m_Questions, m_Services, m_Run, m_Profile, m_Modules};
    m_pManager = std::make_unique<CCorvaneMgr>(context, m_Types, m_AttribData, m_Gate, m_Undo);
}

CDatabaseFixture::~CDatabaseFixture()
{
    m_Failure = nullptr;
    static_cast<void>(m_pManager->CloseDatabase());
}

void CDatabaseFixture::WriteRoot(std::u16string_view more)
{
    m_Scratch.WriteUtf16("Db/Test.Gamdb00s",
                         WithLineEnds(u"[General]\nVersion=1\nName=Test\nBuild=Packed.Gamdb00p\n"
                                      u"Database={7C1D5B0E-3A94-4E27-9D5F-64B8A2F0C955}\n" +
                                      std::u16string(more)));
}

void CDatabaseFixture::WriteSchema(std::string_view name, std::u16string_view attributes)
{
    m_Scratch.WriteUtf16("Db/" + std::string(name) + ".schema",
                         WithLineEnds(u"[Schema]\nName=" + ToWide(name) + u"\nHelp=\nParent=\n\n" +
                                      std::u16string(attributes)));
}

void CDatabaseFixture::WriteCategory(std::string_view directory, std::u16string_view schema)
{
    m_Scratch.WriteUtf16(
        "Db/" + std::string(directory) + "/cvd.category",
        WithLineEnds(u"[Category]\nSchema=" + std::u16string(schema) + u"\nComment=\nHelp=\nSystem=True\n"));
}

void CDatabaseFixture::WriteRecord(std::string_view directory, std::string_view name,
                                   std::u16string_view schema, std::u16string_view attributes,
                                   std::u16string_view virtualCategory)
{
    m_Scratch.WriteUtf16("Db/" + std::string(directory) + "/" + std::string(name) + ".record",
                         WithLineEnds(u"[Record]\nSchema=" + std::u16string(schema) + u"\nName=" +
                                      ToWide(name) + u"\nComment=\nVirtualRelativeCategory=" +
                                      std::u16string(virtualCategory) + u"\n\n" +
                                      std::u16string(attributes)));
}

void CDatabaseFixture::WriteLocator(std::u16string_view creator)
{
    m_Scratch.WriteBytes("Test.proj00",
                         "[Project Directories]\r\nResourceRoot=.\r\n[Project Binaries]\r\nGameDatabase=" +
                             ToNarrow(creator) + "\r\n");
}

void CDatabaseFixture::Open()
{
    ASSERT_TRUE(m_pManager->OpenDatabase(m_Scratch.Text("Db/Test.Gamdb00s")));
}
