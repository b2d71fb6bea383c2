#include "file/CorvaneTypeFile.h"

#include "CorvaneMgr.h"
#include "FileSystem.h"
#include "FormatText.h"
#include "ValidationSink.h"
#include "common/OutputText.h"
#include "common/SchemaName.h"
#include "file/ResourcePath.h"
#include "host/Services.h"
#include "zrassert.h"

namespace
{
// A missing path and a directory are no files. A directory that nobody may write counts as one: databases
// name such directories on purpose.
bool IsUsableFile(IFileSystem& files, std::u16string_view path)
{
    SFileInfo info;
    return files.GetInfo(path, info).IsOk() && info.m_bExists && (!info.m_bDirectory || info.m_bReadOnly);
}
} // namespace

bool CCorvaneTypeFile::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    const CCorvaneMgr& manager = data.GetManager();
    const std::u16string path = ToFullPath(manager.GetProject().m_sResourceRoot, defaultText);
    if (!defaultText.empty() && !manager.GetContext().m_Files.Exists(path))
        TellInvalidDefault(
            data,
            FormatText(u"The attribute '%s' of schema '%s' contains an invalid default filename of '%s'.",
                       data.GetName(), GetSchemaName(data), defaultText));
    return CCorvaneType::Init(defaultText, data);
}

bool CCorvaneTypeFile::AddValue(std::u16string_view text)
{
    return CCorvaneType::AddValue(ToResourcePath(GetResourceRoot(), text));
}

bool CCorvaneTypeFile::SetValue(std::size_t index, std::u16string_view text)
{
    return CCorvaneType::SetValue(index, ToResourcePath(GetResourceRoot(), text));
}

bool CCorvaneTypeFile::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                      CreatorHandle& handle, std::u16string_view prefix)
{
    CTextSender sender(IsWideText(GetAttribData()));
    handle = CreateInDatabase(creator, record, sender.GetValueType(), DBKIND_FILE, prefix);
    return SendValues(handle, [&](std::size_t i) { sender.Send(creator, handle, i, GetTypedText(i)); });
}

// A Sound is a File to whoever overrides values.
bool CCorvaneTypeFile::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle =
        CreateInOverride(mgr, database, DBVALUE_TEXT, "File", "GetFileAttribData()", prefix, location);
    CNarrowText narrow;
    return SendValues(handle,
                      [&](std::size_t i) { return mgr->SetText(handle, narrow.Convert(GetTypedText(i))); });
}

bool CCorvaneTypeFile::SaveToDependency(IDependencySink& sink, std::uint32_t)
{
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
    {
        const std::u16string_view path = GetTypedText(i);
        if (!path.empty() && !AddDependency(sink, path, GetTypeName()))
            return false;
    }
    return true;
}

bool CCorvaneTypeFile::Validate(IValidationSink* pCore)
{
    ZRASSERT(pCore);
    const CCorvaneTypeFileData* data = GetFileAttribData();
    if (!pCore || !data)
        return false;
    IFileSystem& files = data->GetManager().GetContext().m_Files;
    bool valid = true;
    const std::size_t count = GetValueCount();
    for (std::size_t i = 0; i < count; ++i)
        valid = CheckValue(*pCore, files, i) && valid;
    return valid;
}

bool CCorvaneTypeFile::CheckValue(IValidationSink& core, IFileSystem& files, std::size_t index)
{
    const std::u16string_view value = GetTypedText(index);
    if (value.empty())
        return true;
    if (IsOutsideResources(value))
        core.AddError(ESeverity::Warning, u"Path Not Relative",
                      FormatText(u"The path '%s' is not a relative path.", value), this, index);
    if (IsUsableFile(files, ToFullPath(GetResourceRoot(), value)))
        return true;
    core.AddError(ESeverity::Critical, u"Invalid Filename",
                  FormatText(u"The file '%s' is not a valid file.", value), this, index);
    return false;
}

CRef<CCorvaneType> CCorvaneTypeFile::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeFile>(record);
}

bool CCorvaneTypeFile::Execute(std::u16string_view path)
{
    const CCorvaneTypeFileData* data = GetFileAttribData();
    return data && data->GetManager().GetContext().m_Services.OpenInShell(path);
}

bool CCorvaneTypeFile::ExecuteValue(std::size_t index)
{
    const std::u16string_view value = GetTypedText(index);
    return !value.empty() && Execute(ToFullPath(GetResourceRoot(), value));
}

const CCorvaneTypeFileData* CCorvaneTypeFile::GetFileAttribData() const
{
    return static_cast<const CCorvaneTypeFileData*>(GetAttribData());
}

std::u16string_view CCorvaneTypeFile::GetResourceRoot() const
{
    const CCorvaneTypeFileData* data = GetFileAttribData();
    return data ? std::u16string_view(data->GetManager().GetProject().m_sResourceRoot)
                : std::u16string_view();
}
