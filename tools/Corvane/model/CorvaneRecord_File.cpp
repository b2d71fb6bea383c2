// How a record reads, refreshes and writes its file. The form is described in docs/formats/record-files.md.
#include "CorvaneRecord.h"

#include "CorvaneMgr.h"
#include "CorvaneSchema.h"
#include "CorvaneSchemaAttribData.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "Path.h"
#include "RecordLayout.h"
#include "SourceFileWriter.h"
#include "SourceGate.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <utility>

// A record's file, section by section: by position where the file has the expected layout, else by name.
class CRecordSections
{
public:
    // `layout` may be null.
    CRecordSections(const CUnicodeFileParse_ReadOnly& parser, const CRecordLayout* layout)
        : m_Parser(parser), m_nFirst(layout ? layout->Match(parser, m_Places) : -1)
    {
    }

    // Views without data for what is not there.
    [[nodiscard]] std::u16string_view ReadHead(std::u16string_view key) const
    {
        return Read(m_nFirst > 0 ? 0 : m_Parser.FindSection(kRecordSection), key);
    }
    [[nodiscard]] std::u16string_view ReadParent() const
    {
        const std::ptrdiff_t section = m_nFirst > 0 ? m_nFirst - 1 : m_Parser.FindSection(kHierarchySection);
        return section == 0 ? std::u16string_view() : Read(section, u"Record");
    }

    // The section of attribute `index` of the record, or -1.
    [[nodiscard]] std::ptrdiff_t Find(const CCorvaneAttrib& attrib, std::size_t index) const
    {
        const CCorvaneSchemaAttribData* data = attrib.GetAttribData();
        if (data == nullptr)
            return -1;
        if (m_nFirst > 0)
            return m_Places.empty() ? m_nFirst + static_cast<std::ptrdiff_t>(index) : m_Places[index];
        const auto& byBuild = data->GetBuildSection();
        const std::ptrdiff_t found = m_Parser.FindSection(byBuild.m_sName, byBuild.m_nHash);
        if (found >= 0 || data->GetBuild() != 0)
            return found;
        const auto& plain = data->GetPlainSection();
        return m_Parser.FindSection(plain.m_sName, plain.m_nHash);
    }

private:
    [[nodiscard]] std::u16string_view Read(std::ptrdiff_t section, std::u16string_view key) const
    {
        return section < 0 ? std::u16string_view()
                           : m_Parser.FindValue(static_cast<std::size_t>(section), key);
    }

    const CUnicodeFileParse_ReadOnly& m_Parser;
    std::vector<std::uint32_t> m_Places; // See CRecordLayout::Match.
    std::ptrdiff_t m_nFirst; // Section of the first attribute, or -1 for a file that is read by name.
};

CRef<CCorvaneRecord> CCorvaneRecord::CreateFromFile(std::u16string_view path, CCorvaneCategory& category,
                                                    const CRecordLayout* layout)
{
    CCorvaneMgr& manager = category.GetManager();
    if (category.GetSchema() == nullptr)
    {
        ZRASSERT_SITE("pParent->GetSchema()", "");
        return nullptr;
    }
    CUnicodeFileParse_ReadOnly& parser = manager.GetLoadParser();
    if (!ImportSourceFile(manager, parser, path, u"Invalid Record File Format", u"record"))
        return nullptr;

    const CRecordSections sections(parser, layout);
    const std::u16string_view offset = sections.ReadHead(u"VirtualRelativeCategory");
    CCorvaneCategory* target = manager.GetVirtualRelativeCategory(&category, offset);
    if (target == nullptr || target->FindRecordByFile(path) != nullptr)
        return nullptr;
    if (!EqualNames(sections.ReadHead(u"Schema"), category.GetSchema()->GetName()))
        return nullptr;

    CRef<CCorvaneRecord> record = category.GetSchema()->CloneRecordFromTemplate();
    if (!record)
        return nullptr;
    ZRASSERT_MSG(!record->m_pParent, "pRecord->m_pParent == NULL");
    record->m_sName = sections.ReadHead(u"Name");
    if (const std::u16string_view comment = sections.ReadHead(u"Comment"); !comment.empty())
        record->m_sComment = DecodeMultiLine(comment);
    record->m_pCategory = CRef<CCorvaneCategory>(target);
    record->m_sHierarchy = sections.ReadParent();
    record->m_sFile = path;
    record->m_Stamp = parser.GetFileInfo().m_Stamp;

    // From the last to the first: an entry without a section takes the values of the next older one, which
    // has been read by then.
    for (std::size_t i = record->m_Attribs.size(); i-- > 0;)
    {
        CCorvaneAttrib& attrib = *record->m_Attribs[i];
        const std::ptrdiff_t section = sections.Find(attrib, i);
        if (section >= 0)
        {
            attrib.LoadFromFile(*record, nullptr, parser, static_cast<std::size_t>(section));
            continue;
        }
        CopyValuesFromOlderBuild(attrib);
        attrib.SetInherit(true, false);
    }
    return record;
}

bool CopyValuesFromOlderBuild(CCorvaneAttrib& attrib)
{
    const std::ptrdiff_t index = attrib.GetIndexInRecord();
    if (index < 0)
        return false;
    const auto list = attrib.GetParentRecord()->GetAttributeList();
    const auto next = static_cast<std::size_t>(index) + 1;
    if (next < list.size() && EqualNames(list[next]->GetName(), attrib.GetName()))
        attrib.CopyValuesFrom(*list[next]);
    return true;
}

bool CCorvaneRecord::ReloadFromFile()
{
    if (m_sFile.empty())
        return false;
    CUnicodeFileParse_ReadOnly parser(m_Manager.GetContext().m_Files);
    if (!ImportSourceFile(m_Manager, parser, m_sFile, u"Invalid Record File Format", u"record"))
        return false;
    const CRecordSections sections(parser, nullptr);
    const CRef<CCorvaneRecord> keepAlive(this);
    SetFlag(RECORD_FLAG_MODIFIED, false);

    CCorvaneCategory* system = m_Manager.GetCategoryForRecord(this);
    const std::u16string_view offset = sections.ReadHead(u"VirtualRelativeCategory");
    CCorvaneCategory* target = system ? m_Manager.GetVirtualRelativeCategory(system, offset) : nullptr;
    const bool dirty = m_Manager.IsDirty();
    if (target && target != GetCategory())
        m_Manager.MoveRecordUnchecked(target, *this, true);
    // The move followed the file, so that there is nothing to save but what refers to the record.
    SetFlag(RECORD_FLAG_MODIFIED, false);
    if (m_Referencees.empty())
        m_Manager.SetDirty(dirty);

    if (const std::u16string_view name = sections.ReadHead(u"Name"); name.data())
    {
        const std::u16string old = std::exchange(m_sName, std::u16string(name));
        if (m_pCategory)
            m_pCategory->OnRecordNamed(*this, old);
    }
    m_sComment = DecodeMultiLine(sections.ReadHead(u"Comment"));
    if (const std::u16string_view parent = sections.ReadParent(); parent.data())
        m_sHierarchy = parent;
    m_Stamp = parser.GetFileInfo().m_Stamp;

    for (const CRef<CCorvaneAttrib>& attrib : m_Attribs)
    {
        if (attrib->GetBuild() != 0)
            continue;
        // A struct's own section carries the build also where it is 0.
        std::u16string name;
        attrib->GetSectionName(name, {});
        std::ptrdiff_t section = parser.FindSection(name);
        if (section < 0)
            section = parser.FindSection(u"Attrib." + attrib->GetName());
        if (section >= 0)
            attrib->LoadFromFile(*this, nullptr, parser, static_cast<std::size_t>(section));
    }
    return true;
}

std::u16string CCorvaneRecord::MakeFilePath(const CCorvaneCategory& systemCategory) const
{
    const std::u16string directory(GetDirectoryPart(systemCategory.GetFile()));
    const std::u16string base =
        m_sFile.empty() ? MakeFileBaseName(m_sName) : std::u16string(SplitPath(m_sFile).name);
    // The disk's own spelling, ".RECORD" perhaps, names the same file.
    if (EqualNames(directory + base + u".record", m_sFile))
        return m_sFile;
    return MakeFreeFilePath(systemCategory, directory, base, u".record");
}

std::u16string CCorvaneRecord::MakeFreeFilePath(const CCorvaneCategory& system, std::u16string_view directory,
                                                std::u16string_view base, std::u16string_view extension) const
{
    return MakeFreePath(
        m_Manager, directory, base, extension,
        [this](std::u16string_view path) { return EqualNames(path, m_sFile); },
        [&](std::u16string_view path) { return system.IsFileTaken(path, this); });
}

bool CCorvaneRecord::SaveToFile(bool force)
{
    if (!force && !TestFlag(RECORD_FLAG_MODIFIED))
        return true;
    const CCorvaneCategory* system = m_Manager.GetSystemCategory(m_pCategory.Get());
    if (system == nullptr || system->GetFile().empty())
        return false;
    const std::u16string former = m_sFile;
    const std::u16string path = MakeFilePath(*system);
    if (path != former)
        SetFile(path);
    const EWriteResult result = path.empty() ? EWriteResult::Aborted : WriteOwnFile();
    if (result == EWriteResult::Written)
    {
        SetFlag(RECORD_FLAG_MODIFIED, false);
    }
    else if (path != former)
    {
        // There is no such file, so that the record keeps the one that it has and waits for the next save.
        SetFile(former);
        SetModified(true);
    }
    return result != EWriteResult::Aborted;
}

EWriteResult CCorvaneRecord::WriteOwnFile()
{
    CUnicodeFileParse_ReadWrite writer(m_Manager.GetContext().m_Files);
    if (!FillWriter(writer))
        return EWriteResult::Aborted;
    CSourceGate& gate = m_Manager.GetGate();
    if (gate.IsConnected() && gate.IsControlled(m_sFile) && !gate.IsMine(m_sFile) &&
        !gate.CheckOutForEdit(*this))
    {
        m_Manager.GetContext().m_Questions.Tell(
            u"Record Check Out Failed",
            FormatText(u"Failed to check the following file out.  The file cannot be saved.\n\n%s", m_sFile),
            EIcon::Stop);
        return EWriteResult::Aborted;
    }
    return WriteSourceFile(m_Manager, writer, m_sFile, m_Stamp);
}

bool CCorvaneRecord::FillWriter(IUnicodeFileParse& writer) const
{
    const CCorvaneSchema* schema = GetSchema();
    std::u16string offset;
    m_Manager.GetVirtualRelativeCategoryOffset(this, offset);
    writer.WriteString(kRecordSection, u"Schema", schema ? schema->GetName() : std::u16string());
    writer.WriteString(kRecordSection, u"Name", m_sName);
    writer.WriteString(kRecordSection, u"Comment", EncodeMultiLine(m_sComment));
    writer.WriteString(kRecordSection, u"VirtualRelativeCategory", offset);
    if (m_pParent)
    {
        std::u16string parent;
        m_Manager.GetRecordPath(m_pParent.Get(), parent);
        writer.WriteString(kHierarchySection, u"Record", parent);
    }
    for (const CRef<CCorvaneAttrib>& attrib : m_Attribs)
    {
        if (!attrib->SaveToFile(writer, {}))
            return false;
    }
    return true;
}
