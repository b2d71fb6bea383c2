// The commands that change the tree, take back and do again, and set up the world around the database.
#include "DatabaseScript.h"

#include "SpecialCategory.h"
#include "UndoScope.h"
#include "UndoText.h"
#include "Unicode.h"

namespace
{
constexpr int kSpecialType = 1;
const std::map<std::string, EFileOperation> kFileOperations{
    {"info", EFileOperation::GetInfo},           {"read", EFileOperation::ReadFile},
    {"write", EFileOperation::WriteFile},        {"list", EFileOperation::ListDirectory},
    {"create", EFileOperation::CreateDirectory}, {"rename", EFileOperation::Rename},
    {"remove", EFileOperation::Remove},
};
const std::map<std::string, EAnswer> kAnswers{
    {"Yes", EAnswer::Yes},     {"No", EAnswer::No},         {"Cancel", EAnswer::Cancel},
    {"Retry", EAnswer::Retry}, {"Ignore", EAnswer::Ignore}, {"Abort", EAnswer::Abort},
};
} // namespace

void CDatabaseScript::Do(std::u16string_view text, const std::function<bool()>& command)
{
    CUndoScope scope(m_Test.m_Undo);
    const bool done = scope.IsOpen() && command();
    if (done)
        scope.Accept(text);
    Need(done);
}

CDatabaseScript::Commands CDatabaseScript::GetOperationCommands()
{
    CCorvaneMgr& manager = m_Test.Get();
    return {
        {"insert-record", [this] { InsertRecord(); }},
        {"clone-record", [this] { CopyRecord(&CCorvaneMgr::CopyRecord_Clone); }},
        {"reference-record", [this] { CopyRecord(&CCorvaneMgr::CopyRecord_Reference); }},
        {"delete-record", [this] { DeleteRecord(); }},
        {"move-record", [this] { MoveRecord(&CCorvaneMgr::MoveRecord, false); }},
        {"move-virtual", [this] { MoveVirtual(); }},
        {"refresh-move", [this] { MoveRecord(&CCorvaneMgr::MoveRecordUnchecked, true); }},
        {"rename-record", [this] { RenameRecord(); }},
        {"insert-category", [this] { InsertCategory(); }},
        {"create-virtual", [this] { CreateVirtual(); }},
        {"clone-category", [this] { CopyCategory(&CCorvaneMgr::CopyCategory_Clone); }},
        {"reference-category", [this] { CopyCategory(&CCorvaneMgr::CopyCategory_Reference); }},
        {"delete-category", [this] { DeleteCategory(); }},
        {"special", [this] { AddSpecial(); }},
        {"bring", [this] { Bring(); }},
        {"move-category", [this] { MoveCategory(); }},
        {"rename-category", [this] { RenameCategory(); }},
        {"undo", [this] { Need(m_Test.m_Undo.Undo(Count())); }},
        {"redo", [this] { Need(m_Test.m_Undo.Redo(Count())); }},
        {"begin", [this] { Need(m_Test.m_Undo.BeginGroup(__FILE__, __LINE__)); }},
        {"accept", [this] { m_Test.m_Undo.AcceptGroup(Rest()); }},
        {"cancel", [this] { m_Test.m_Undo.CancelGroup(); }},
        {"limit", [this] { m_Test.m_Undo.SetLimit(UNDO_FLAG_LIMIT_COUNT, Build()); }},
        {"mark-below", [this, &manager] { manager.MarkChildRecordsAsModified(Category()); }},
        {"save-below", [this, &manager] { Need(manager.SaveChildRecordsAsModified(Category())); }},
    };
}

CDatabaseScript::Commands CDatabaseScript::GetHostCommands()
{
    return {
        {"watch", [this] { Watch(); }},
        {"answer", [this] { Prepare(); }},
        {"fail", [this] { Fail(); }},
        {"no-bin", [this] { m_Test.m_Services.m_bBin = false; }},
        {"window", [this] { Record().SetDocument(this); }},
        {"hold", [this] { m_bHeld = true; }},
        {"silent", [this] { m_Test.m_Run.m_bSilent = true; }},
        {"closing", [this] { m_Test.m_Run.Set(APP_CLOSING); }},
        {"grants", [this] { Connect(static_cast<int>(Number())); }},
        {"refuse", [this] { m_Test.m_Gate.m_bGrant = !(m_Test.m_Gate.m_bConnected = true); }},
        {"mine", [this] { m_Test.m_Gate.m_bMine = m_Test.m_Gate.m_bConnected = true; }},
        {"disconnect", [this] { m_Test.m_Gate.m_bConnected = false; }},
    };
}

std::size_t CDatabaseScript::Count()
{
    const std::string count = Word();
    return count.empty() ? 1 : std::stoul(count);
}

void CDatabaseScript::InsertRecord()
{
    CCorvaneCategory* category = Category();
    Do(u"Insert", [&] { return m_Test.Get().InsertRecord(category) != nullptr; });
}

void CDatabaseScript::CopyRecord(RecordCopy copy)
{
    CCorvaneRecord& source = Record();
    CCorvaneCategory* category = Category();
    const bool prefix = Word() != "plain";
    Do(GetUndoText(kUndoRecordCopied, source.GetName()),
       [&] { return (m_Test.Get().*copy)(category, &source, prefix) != nullptr; });
}

void CDatabaseScript::DeleteRecord()
{
    CCorvaneRecord& record = Record();
    const std::u16string text = GetUndoText(kUndoRecordDeleted, record.GetName());
    Do(text, [&] { return m_Test.Get().DeleteRecord(record, true); });
}

void CDatabaseScript::MoveRecord(RecordMove move, bool silent)
{
    CCorvaneRecord& record = Record();
    CCorvaneCategory* category = Category();
    Do(GetUndoText(kUndoRecordMoved, record.GetName()),
       [&] { return (m_Test.Get().*move)(category, record, silent); });
}

void CDatabaseScript::MoveVirtual()
{
    CCorvaneRecord& record = Record();
    Need(m_Test.Get().MoveRecordVirtual(Category(), &record, false));
}

void CDatabaseScript::RenameRecord()
{
    CCorvaneRecord& record = Record();
    const std::u16string name = Rest();
    CCorvaneMgr& manager = m_Test.Get();
    Do(GetUndoText(kUndoRecordRenamed, name),
       [&] { return manager.CheckRecordRename(record, name) && manager.RenameRecord(record, name); });
}

void CDatabaseScript::InsertCategory()
{
    CCorvaneCategory* parent = Category();
    const std::string schema = Word();
    Need(m_Test.Get().InsertCategory(parent, schema.empty() ? nullptr : &m_Test.Schema(schema)) != nullptr);
}

void CDatabaseScript::CreateVirtual()
{
    CCorvaneCategory* parent = Category();
    Need(m_Test.Get().CreateVirtualRelativeCategory(parent, Rest()) != nullptr);
}

void CDatabaseScript::CopyCategory(CategoryCopy copy)
{
    CCorvaneCategory& source = m_Test.Category(Word());
    CCorvaneCategory* parent = Category();
    const bool prefix = Word() != "plain";
    Do(GetUndoText(kUndoCategoryCopied, source.GetName()),
       [&] { return (m_Test.Get().*copy)(parent, &source, prefix) != nullptr; });
}

void CDatabaseScript::DeleteCategory()
{
    CCorvaneCategory& category = m_Test.Category(Word());
    const std::u16string text = GetUndoText(kUndoCategoryDeleted, category.GetName());
    Do(text, [&] { return m_Test.Get().DeleteCategory(category, true); });
}

void CDatabaseScript::AddSpecial()
{
    CCorvaneMgr& manager = m_Test.Get();
    manager.AddSpecialCategory(new CSpecialCategory(manager, Rest(), u"", u"", kSpecialType));
    ++m_Test.m_nLasting;
}

void CDatabaseScript::Bring()
{
    const CRef<CCorvaneRecord> record = m_Test.Schema(Word()).CloneRecordFromTemplate();
    Need(record->SetName(Rest()) &&
         record->SetCategory(m_Test.Get().GetSpecialCategory(kSpecialType), true) &&
         m_Test.Get().ReinsertRecord(*record));
}

void CDatabaseScript::MoveCategory()
{
    CCorvaneCategory& category = m_Test.Category(Word());
    CCorvaneCategory* destination = Category();
    Do(GetUndoText(kUndoCategoryMoved, category.GetName()),
       [&] { return m_Test.Get().MoveCategory(destination, &category); });
}

void CDatabaseScript::RenameCategory()
{
    CCorvaneCategory& category = m_Test.Category(Word());
    const std::u16string name = Rest();
    CCorvaneMgr& manager = m_Test.Get();
    Do(GetUndoText(kUndoCategoryRenamed, name),
       [&] { return manager.CheckCategoryRename(category, name) && manager.RenameCategory(category, name); });
}

void CDatabaseScript::Watch()
{
    m_Watched.clear();
    for (std::string word = Word(); !word.empty(); word = Word())
        m_Watched.insert(word);
}

void CDatabaseScript::Prepare()
{
    std::string title, word;
    std::getline(m_Arguments >> std::ws, title, ';');
    std::vector<EAnswer> answers;
    while (std::getline(m_Arguments, word, ';'))
        answers.push_back(kAnswers.at(word));
    m_Test.m_Questions.Prepare(ToWide(title), answers);
}

void CDatabaseScript::Fail()
{
    const std::string word = Word();
    const std::u16string part = Rest();
    if (word.empty())
        return void(m_Test.m_Failure = {});
    m_Test.m_Failure =
        [failing = kFileOperations.at(word), part](EFileOperation operation, std::u16string_view path)
    {
        return operation == failing && path.find(part) != std::u16string_view::npos ? EFileError::DiskFull
                                                                                    : EFileError::None;
    };
}

void CDatabaseScript::Connect(int grants)
{
    m_Test.m_Gate.m_bConnected = true;
    m_Test.m_Gate.m_nGrants = grants;
}
