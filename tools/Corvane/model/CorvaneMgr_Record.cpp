// What a user does to records: the tree, the files, the event line and the undo group are kept in step.
#include "CorvaneMgr.h"

#include "FormatText.h"
#include "NameCompare.h"
#include "Path.h"
#include "RecordRenameRestorePoint.h"
#include "RecordRestorePoint.h"
#include "RunState.h"
#include "SourceGate.h"
#include "UndoRecorder.h"
#include "host/Questions.h"
#include "host/Services.h"
#include "zrassert.h"

#include <memory>
#include <utility>

// Nobody answers in a silent run: what is not confirmed does not happen.
bool CCorvaneMgr::AskYes(std::u16string_view title, std::u16string_view text) const
{
    return m_Context.m_Questions.Ask(MakeQuestion(title, text, EButtons::YesNo, EIcon::Question)) ==
           EAnswer::Yes;
}

void CCorvaneMgr::RecordAction(CCorvaneRecord& record, ERestoreAction action)
{
    if (m_Undo.IsRecording())
        m_Undo.AddRestorePoint(std::make_unique<CRecordRestorePoint>(record, action));
}

void CCorvaneMgr::AddNewRecord(CCorvaneCategory& parent, CCorvaneRecord& record, ERestoreAction action)
{
    parent.AddRecord(record);
    Notify(CCorvaneEvent(ECorvaneEvent::RecordAdded, &record));
    Notify(CCorvaneEvent(ECorvaneEvent::RecordComplete, &record));
    RecordAction(record, action);
}

CCorvaneRecord* CCorvaneMgr::InsertRecord(CCorvaneCategory* pParent)
{
    ZRASSERT(pParent);
    if (pParent == nullptr || pParent->GetSchema() == nullptr)
        return nullptr;
    const CRef<CCorvaneRecord> record = pParent->GetSchema()->CloneRecordFromTemplate();
    if (!record || !record->SetCategory(pParent, true) ||
        !record->SetName(MakeRecordNameUnique(*pParent, u"New Record", nullptr)))
        return nullptr;
    AddNewRecord(*pParent, *record, ERestoreAction::Inserted);
    return record.Get();
}

CCorvaneRecord* CCorvaneMgr::CopyRecord_Clone(CCorvaneCategory* pParent, CCorvaneRecord* pSource,
                                              bool addPrefix)
{
    ZRASSERT(pParent);
    ZRASSERT(pSource);
    if (pParent == nullptr || pSource == nullptr || pSource->GetSchema() != pParent->GetSchema())
        return nullptr;
    const CRef<CCorvaneRecord> clone = pSource->Clone();
    clone->JoinParent();
    const std::u16string prefix = addPrefix ? u"Clone of " : u"";
    return AddCopy(*pParent, *clone, prefix + pSource->GetName(), ERestoreAction::Cloned);
}

CCorvaneRecord* CCorvaneMgr::CopyRecord_Reference(CCorvaneCategory* pParent, CCorvaneRecord* pSource,
                                                  bool addPrefix)
{
    ZRASSERT(pParent);
    ZRASSERT(pSource);
    if (pParent == nullptr || pSource == nullptr || pSource->GetSchema() != pParent->GetSchema())
        return nullptr;
    const CRef<CCorvaneRecord> reference = pSource->CreateReference();
    const std::u16string prefix = addPrefix ? u"Reference of " : u"";
    return AddCopy(*pParent, *reference, prefix + pSource->GetName(), ERestoreAction::Referenced);
}

CCorvaneRecord* CCorvaneMgr::AddCopy(CCorvaneCategory& parent, CCorvaneRecord& copy, std::u16string_view name,
                                     ERestoreAction action)
{
    copy.SetDocument(nullptr); // The window shows the source.
    if (!copy.SetCategory(&parent, true) || !copy.SetComment({}) ||
        !copy.SetName(MakeRecordNameUnique(parent, name, nullptr)))
    {
        copy.Clear();
        return nullptr;
    }
    copy.UpdateHierarchy();
    AddNewRecord(parent, copy, action);
    return &copy;
}

bool CCorvaneMgr::DeleteRecord(CCorvaneRecord& record, bool prompt)
{
    // A record that is deleted already must not reach for the file, which may be another record's by now.
    const CRef<CCorvaneCategory> category(record.GetCategory());
    if (!category || !category->Contains(record))
        return false;
    const CRef<CCorvaneRecord> keepAlive(&record);
    const bool attended = !m_Context.m_Run.Test(APP_CLOSING | APP_RELOADING);
    if (!ConfirmRecordDelete(record, prompt && attended))
        return false;
    if (attended && !RecycleFile(record.GetFile()))
        return false;
    if (!category->RemoveRecord(record))
        return false;
    for (const CRef<CCorvaneRecord>& child : record.DisconnectReferencees())
    {
        if (attended)
            child->SetModified(true); // Its file still names the parent.
    }
    const bool recorded = attended && m_Undo.IsRecording();
    if (recorded)
        RecordAction(record, ERestoreAction::Deleted);
    Notify(CCorvaneEvent(ECorvaneEvent::RecordDeleted, &record));
    // A special category goes with its last record.
    if (category->GetCategoryType() != 0 && category->GetRecords().empty())
        static_cast<void>(DeleteCategory(*category, true));
    if (recorded)
        record.LeaveTree();
    else
        record.Clear();
    return true;
}

bool CCorvaneMgr::ConfirmRecordDelete(CCorvaneRecord& record, bool prompt) const
{
    const int dependencies = Notify(CCorvaneEvent(ECorvaneEvent::RecordDeleting, &record));
    if (dependencies != 0 && prompt && !m_Undo.IsReplaying() &&
        !AskYes(u"Record Dependencies",
                FormatText(u"The record '%s' contains dependencies.  Are you sure you want to delete this "
                           u"record?",
                           record.GetName())))
        return false;
    if (record.GetReferencees().empty() || !prompt)
        return true;
    std::u16string text =
        FormatText(u"The record '%s' is referenced by the following records:\n\n", record.GetName());
    for (const CRef<CCorvaneRecord>& child : record.GetReferencees())
        text += child->GetName() + u'\n';
    text += u"\nAre you sure you want to delete this record and disconnect the referenced records?";
    return AskYes(u"Record References", text);
}

bool CCorvaneMgr::RecycleFile(std::u16string_view path) const
{
    IFileSystem& files = m_Context.m_Files;
    // A directory that took the file's place is somebody else's.
    if (path.empty() || !files.Exists(path) || files.IsDirectory(path) ||
        (m_Context.m_Services.MoveToRecycleBin(path) && !files.Exists(path)))
        return true;
    if (!AskYes(u"Recycle Bin", FormatText(u"The following file could not be sent to the recycle bin.  Would "
                                           u"you like to delete it permanently?\n\n%s",
                                           path)))
        return false;
    const CFileError error = files.Remove(path);
    if (!files.Exists(path))
        return true;
    m_Context.m_Questions.Tell(
        u"Recycle Bin",
        FormatText(u"The following file could not be deleted: %s.\n\n%s", error.GetText(), path),
        EIcon::Stop);
    return false;
}

bool CCorvaneMgr::ReinsertRecord(CCorvaneRecord& record)
{
    CCorvaneCategory* category = record.GetCategory();
    if (category == nullptr)
        return false;
    // A special category went with its last record.
    if (category->GetCategoryType() != 0 && category->GetRecords().size() < 2)
        ReinsertCategory(*category, category->GetParent());
    if (!category->IsAttached() || category->Contains(record))
        return false;
    TakeBackRecordFile(record);
    // A record that an undo emptied has no name and comes back without attributes.
    if (!record.GetAttributeList().empty())
    {
        static_cast<void>(record.SetName(MakeRecordNameUnique(*category, record.GetName(), nullptr)));
        FixRecord(record);
    }
    category->AddRecord(record);
    record.JoinParent();
    RecordAction(record, ERestoreAction::Inserted);
    Notify(CCorvaneEvent(ECorvaneEvent::RecordAdded, &record));
    return true;
}

// The file went with the delete, so that the next save has to write it. What stands in its place now is the
// record's own only when it is the very file that the record knew, back from the bin.
void CCorvaneMgr::TakeBackRecordFile(CCorvaneRecord& record)
{
    SFileInfo info;
    const bool known = m_Context.m_Files.GetInfo(record.GetFile(), info).IsOk();
    const bool own = known && info.m_bExists && info.m_Stamp == record.GetFileStamp();
    if (record.GetCategory()->IsFileTaken(record.GetFile(), &record) || (info.m_bExists && !own))
        record.SetFile({});
    if (!own)
        record.SetModified(true);
}

bool CCorvaneMgr::RenameRecord(CCorvaneRecord& record, std::u16string_view name)
{
    const CRef<CCorvaneRecord> keepAlive(&record);
    const std::u16string oldName = record.GetName();
    std::u16string oldPath;
    GetRecordDisplayPath(&record, oldPath);
    if (!record.SetName(name))
        return false;
    if (!m_Gate.IsConnected() && !record.GetFile().empty())
        RenameRecordFile(record);
    record.MarkReferenceesModified(); // Their files name this record by its path.
    std::u16string newPath;
    GetRecordDisplayPath(&record, newPath);
    Notify(CCorvaneEvent(ECorvaneEvent::RecordRenamed, SRecordRenamed{&record, oldPath, newPath}));
    if (m_Undo.IsRecording())
        m_Undo.AddRestorePoint(std::make_unique<CRecordRenameRestorePoint>(record, oldName));
    return true;
}

// A file that cannot be renamed keeps its name, as one under source control does: the record would be on the
// disk twice otherwise. One that has vanished is written under the new name.
void CCorvaneMgr::RenameRecordFile(CCorvaneRecord& record)
{
    IFileSystem& files = m_Context.m_Files;
    const std::u16string file = record.GetFile();
    const CCorvaneCategory* system = GetSystemCategory(record.GetCategory());
    if (system == nullptr || files.IsDirectory(file))
        return;
    const SPathParts parts = SplitPath(file);
    const std::u16string path = record.MakeFreeFilePath(*system, GetDirectoryPart(file),
                                                        MakeFileBaseName(record.GetName()), parts.extension);
    if (path.empty())
        return;
    const CFileError error = files.Rename(file, path, false);
    if (error.IsOk() || error.m_Code == EFileError::NotFound)
        record.SetFile(path);
}

bool CCorvaneMgr::CheckRecordRename(const CCorvaneRecord& record, std::u16string_view name) const
{
    const CCorvaneCategory* category = record.GetCategory();
    if (category == nullptr || EqualNames(record.GetName(), name) ||
        IsRecordNameFree(*category, name, nullptr))
        return true;
    if (!m_Context.m_Run.m_bSilent)
        m_Context.m_Questions.Tell(
            u"Error renaming record",
            FormatText(
                u"Cannot rename %s: A record with the name you specified already exists in the virtual "
                u"category namespace. Specify a different name.",
                record.GetName()));
    return false;
}
