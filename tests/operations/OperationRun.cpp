#include "OperationRun.h"

#include "GoldenText.h"
#include "NameCompare.h"
#include "Path.h"
#include "ShowObjects.h"
#include "Unicode.h"

#include <algorithm>

namespace
{
constexpr const char* kSetup[] = {"schema S",
                                  "[Attrib.T.0]",
                                  "Type=Text",
                                  "Inherit=True",
                                  "[Attrib.L.0]",
                                  "Type=RecordLink",
                                  "Data=S",
                                  "[Attrib.N.0]",
                                  "Type=Integer",
                                  "Values=-1",
                                  "schema Other",
                                  "category A S",
                                  "category A/B S",
                                  "category D S",
                                  "category O Other",
                                  "record A/one S",
                                  "record A/two S",
                                  "[Hierarchy]",
                                  "Record=A/one",
                                  "[Attrib.T]",
                                  "Inherit=True",
                                  "record A/three S",
                                  "VirtualRelativeCategory=V/W",
                                  "[Attrib.L]",
                                  "Value.0000=A/one",
                                  "record A/B/four S",
                                  "record D/five S",
                                  "answer Record Dependencies;No",
                                  "answer Record References;No",
                                  "answer Virtual Category Rename;Yes",
                                  "answer Delete System Category;Yes",
                                  "watch",
                                  "open",
                                  "save-all"};

// Few names, so that they collide often.
constexpr const char* kNames[] = {"one",   "ONE",    "b",      "B", "New Record",
                                  "x (2)", "\u00e4", "\u00c4", "V", "w"};

// Lines with gaps: $r a record, $s one without heirs that inherits nothing, $l one that nobody inherits from,
// $c a category, $o one of another directory than the record's, $y a system category, $k one below another (a
// root category would stay in the root list too), $n a name, $u a number that no other line has, $d a digit.
// An undo takes back the first ones whole: a moved record leaves a file behind, whose name nobody must want.
constexpr const char* kRows[] = {
    "set \"$s:T\" 0 text $d",
    "set \"$s:L\" 0 $r",
    "set \"$s:N\" $d $d",
    "insert-record \"$c\"",
    "clone-record \"$r\" \"$c\"",
    "reference-record \"$r\" \"$c\"",
    "delete-record \"$l\"",
    "rename-record \"$r\" new $u",
    "move-record \"$r\" \"$o\"",
    "rename-record \"$r\" $n",
    "set \"$r:T\" 0 text $d",
    "edit-inherit \"$r:T\" yes",
    "edit-inherit \"$r:T\" no",
    "comment \"$r\" $n",
    "delete-record \"$r\"",
    "move-record \"$r\" \"$c\"",
    "create-virtual \"$c\" $n",
    "insert-category \"$y\" S",
    "clone-category \"$c\" \"$c\"",
    "delete-category \"$c\"",
    "move-category \"$k\" \"$c\"",
    "rename-category \"$c\" $n",
    "bytes \"$y/$n.record\" foreign",
    "save",
    COperationRun::kCheckReload,
    "undo",
    "undo",
    "undo",
    "redo",
};
constexpr std::size_t kWholeRows = 9;

std::u16string Fold(std::u16string text)
{
    FoldUnits(text.data(), text.size(), text.data());
    return text;
}

// The first of a list with the name.
template <class T> T* Scan(std::span<const CRef<T>> list, std::u16string_view name)
{
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const CRef<T>& one) { return EqualNames(one->GetName(), name); });
    return found == list.end() ? nullptr : found->Get();
}

// The lines around the first place where two texts differ.
std::string GetDifference(const std::string& before, const std::string& after)
{
    std::ptrdiff_t line = 1;
    std::istringstream first(before), second(after);
    for (std::string was, is; std::getline(first, was) && std::getline(second, is); ++line)
    {
        if (was != is)
            return " had line " + std::to_string(line) + ": " + was + "\nand has " + is + '\n';
    }
    return " has another length\n";
}

bool IsNameTaken(const CCorvaneCategory& category, std::u16string_view name)
{
    return Scan(category.GetRecords(), name) != nullptr ||
           std::any_of(category.GetChildren().begin(), category.GetChildren().end(),
                       [&](const auto& child) { return !child->IsSystem() && IsNameTaken(*child, name); });
}
} // namespace

COperationRun::COperationRun()
{
    for (const char* line : kSetup)
        static_cast<void>(m_Script.Execute(line));
    m_First = ReadFiles();
}

std::string COperationRun::Execute(const std::string& line)
{
    if (line == kCheckUndo || line == kCheckReload)
        return line == kCheckUndo ? CheckUndo() : CheckReload();
    const auto before = GetHeldFiles();
    std::string wrong = Run(line);
    for (auto check : {&COperationRun::CheckFiles, &COperationRun::CheckLookUps})
    {
        if (wrong.empty())
            wrong = (this->*check)();
    }
    if (wrong.empty())
        wrong = CheckLeft(before);
    if (line.starts_with("delete-category") || line.starts_with("redo"))
        LeaveUnheld();
    return wrong;
}

// The delete of a category passes records over that it has written before, as those of its virtual
// categories.
void COperationRun::LeaveUnheld()
{
    const auto held = GetHeldFiles();
    for (const auto& [name, bytes] : ReadFiles())
    {
        const std::string path = GetFoldedPath(name);
        if (!held.contains(path) && !m_Foreign.contains(path))
            m_Left.insert(path);
    }
}

std::string COperationRun::Run(const std::string& line)
{
    // There was nothing to choose from.
    if (line.find("\"\"") != std::string::npos || line.find("\":") != std::string::npos ||
        line.find("\"/") != std::string::npos)
        return "";
    if (line.starts_with("bytes"))
    {
        // Files that are there belong to objects, and a directory comes with its category.
        const std::filesystem::path path =
            m_Script.GetDatabase().GetPath(line.substr(7, line.rfind('"') - 7));
        if (m_Script.GetDatabase().m_Files.Exists(path.u16string()) ||
            !std::filesystem::exists(path.parent_path()))
            return "";
        m_Foreign.insert(ToNarrow(Fold(path.u16string())));
    }
    const std::string answer = m_Script.Execute(line);
    if (line == "save" && !answer.empty())
        return "The save says " + answer;
    return answer.find("assertion") == std::string::npos ? "" : answer;
}

COperationRun::Bytes COperationRun::ReadFiles()
{
    Bytes bytes;
    for (const auto& [name, state] : m_Script.GetDatabase().TakeSnapshot())
        bytes[name] = ReplaceAll(ReplaceAll(state.first, std::string(1, 0), ""), "\r", "");
    return bytes;
}

COperationRun::Records COperationRun::GetRecords()
{
    Records records;
    Manager().EnumerateRecords([&](CCorvaneRecord& record) { return records.emplace_back(&record), true; });
    return records;
}

std::vector<CCorvaneCategory*> COperationRun::GetCategories()
{
    std::vector<CCorvaneCategory*> categories;
    Manager().EnumerateCategories([&](CCorvaneCategory& category) { categories.push_back(&category); });
    return categories;
}

// Everything that a save keeps; a virtual category is kept by its records only.
std::string COperationRun::Show()
{
    std::vector<std::string> lines;
    std::u16string path;
    for (const CCorvaneCategory* category : GetCategories())
    {
        Manager().GetCategoryPath(category, path);
        if (category->IsSystem())
            lines.push_back(ToNarrow(path + u" " + category->GetComment()) +
                            (category->GetSchema() ? " " + ToNarrow(category->GetSchema()->GetName()) : ""));
    }
    for (const CRef<CCorvaneRecord>& record : GetRecords())
    {
        Manager().GetRecordDisplayPath(record.Get(), path);
        std::string line = ToNarrow(path + u": " + record->GetComment());
        for (const CRef<CCorvaneAttrib>& attrib : record->GetAttributeList())
            line += " " + ShowAttrib(*attrib);
        // Inheritance from nobody, as a deleted parent leaves it, ends with the load.
        const CCorvaneRecord* parent = record->GetParent();
        if (parent == nullptr)
            lines.push_back(ReplaceAll(line, "^=", "="));
        else if (Manager().GetRecordPath(parent, path))
            lines.push_back(line + " <" + ToNarrow(path));
    }
    // A directory keeps the case that its name had first.
    for (std::string& line : lines)
        line = ToNarrow(Fold(ToWide(line)));
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (const std::string& line : lines)
        text += line + '\n';
    return text;
}

std::string COperationRun::CheckUndo()
{
    std::string wrong;
    while (m_Script.GetDatabase().m_Undo.HasEntries() && wrong.empty())
        wrong = Execute("undo");
    wrong += Execute("save");
    const Bytes now = ReadFiles();
    for (const auto& [name, bytes] : m_First)
    {
        const auto found = now.find(name);
        if (found == now.end() || found->second != bytes)
            wrong += name + (found == now.end() ? " is missing\n" : GetDifference(bytes, found->second));
    }
    return wrong.empty() ? "" : "After the undo of everything\n" + wrong;
}

std::string COperationRun::CheckReload()
{
    if (const std::string wrong = Execute("save"); !wrong.empty())
        return wrong;
    const std::string memory = Show();
    if (const std::string wrong = RemoveLeft(); !wrong.empty())
        return wrong;
    const bool broken = IsAnyBroken();
    const std::string answer = m_Script.Execute("open");
    const std::string loaded = Show();
    return loaded == memory || broken ? ""
                                      : "Memory was\n" + memory + "and the disk gives\n" + loaded + answer;
}

// An undo of a redone delete brings an empty record back, which a load fills from its template; and a record
// may inherit from one that the delete of a category has passed over, which no load finds.
bool COperationRun::IsAnyBroken()
{
    const Records records = GetRecords();
    return std::any_of(records.begin(), records.end(),
                       [](const auto& record)
                       {
                           const CCorvaneRecord* parent = record->GetParent();
                           return record->GetAttributeList().empty() || (parent && !parent->IsInTree());
                       });
}

// Takes what operations left behind off the disk, so that a load does not meet it.
std::string COperationRun::RemoveLeft()
{
    const auto held = GetHeldFiles();
    std::string wrong;
    for (const auto& [name, bytes] : ReadFiles())
    {
        const std::string path = GetFoldedPath(name);
        if (held.contains(path) || !(path.ends_with(".record") || path.ends_with(".category")))
            continue;
        if (m_Foreign.contains(path) ? bytes != "foreign" : !m_Left.contains(path))
            wrong += name + " is no object's file\n";
        std::filesystem::remove(m_Script.GetDatabase().m_Scratch.GetPath() / name);
    }
    m_Left.clear();
    m_Foreign.clear();
    return wrong;
}

std::string COperationRun::GetFoldedPath(const std::string& name)
{
    return ToNarrow(Fold((m_Script.GetDatabase().m_Scratch.GetPath() / name).u16string()));
}

std::map<std::string, CRef<CCorvaneRecord>> COperationRun::GetHeldFiles()
{
    std::map<std::string, CRef<CCorvaneRecord>> held;
    for (const CRef<CCorvaneRecord>& record : GetRecords())
        held[ToNarrow(Fold(record->GetFile()))] = record;
    for (const CCorvaneCategory* category : GetCategories())
        held[ToNarrow(Fold(category->GetFile()))] = {};
    return held;
}

// A record leaves its file behind when it went to another directory, or when the delete of its category has
// passed it over.
bool COperationRun::MayLeave(const CCorvaneRecord& record, std::u16string_view directory)
{
    const CCorvaneCategory* category = record.GetCategory();
    return record.IsInTree() ? !EqualNames(GetDirectoryPart(record.GetFile()), directory)
                             : category && category->Contains(record);
}

std::string COperationRun::CheckLeft(const std::map<std::string, CRef<CCorvaneRecord>>& before)
{
    const auto held = GetHeldFiles();
    for (const auto& [path, record] : before)
    {
        if (path.empty() || held.contains(path) || !m_Script.GetDatabase().m_Files.Exists(ToWide(path)))
            continue;
        if (record && !MayLeave(*record, GetDirectoryPart(ToWide(path))))
            return path + " stays behind without its object\n";
        m_Left.insert(path);
    }
    return "";
}

// No two objects have one file, and a file of somebody else stays as it is.
std::string COperationRun::CheckFiles()
{
    std::set<std::u16string> files;
    std::string wrong;
    const auto add = [&](const std::u16string& file)
    {
        if (!file.empty() && !files.insert(Fold(file)).second)
            wrong += ToNarrow(file) + " is the file of two objects\n";
    };
    for (const CRef<CCorvaneRecord>& record : GetRecords())
        add(record->GetFile());
    for (const CCorvaneCategory* category : GetCategories())
        add(category->GetFile());
    return wrong;
}

// Each look-up by an index says what a scan of the lists says.
std::string COperationRun::CheckLookUps()
{
    std::string wrong;
    const auto need = [&](bool same, const char* what, const std::u16string& name)
    { wrong += same ? "" : std::string(what) + " differs from a scan for " + ToNarrow(name) + '\n'; };
    for (CCorvaneCategory* category : GetCategories())
    {
        const CCorvaneCategory& system = *Manager().GetSystemCategory(category);
        for (const char* narrow : kNames)
        {
            const std::u16string name = ToWide(narrow);
            need(category->FindRecordByName(name) == Scan(category->GetRecords(), name), "A record's name",
                 name);
            need(category->FindChild(name) == Scan(category->GetChildren(), name), "A child's name", name);
            need(Manager().IsRecordNameFree(*category, name, nullptr) != IsNameTaken(system, name),
                 "The name space", name);
        }
        const std::u16string& file = category->GetFile();
        need(file.empty() || Manager().FindCategoryByFile(file) == category, "A category's file", file);
    }
    for (const CRef<CCorvaneRecord>& record : GetRecords())
    {
        const std::u16string& file = record->GetFile();
        need(file.empty() || record->GetCategory()->FindRecordByFile(file) == record.Get(), "A record's file",
             file);
    }
    return wrong;
}

std::string COperationRun::Choose(std::mt19937& random, bool whole)
{
    const std::size_t rows = whole ? kWholeRows : std::size(kRows);
    std::string line;
    m_pChosen = nullptr;
    for (const char* at = kRows[random() % rows]; *at != 0; ++at)
        line += *at == '$' ? Fill(*++at, random) : std::string(1, *at);
    return line;
}

std::string COperationRun::Fill(char mark, std::mt19937& random)
{
    switch (mark)
    {
    case 'd':
        return std::to_string(random() % 4);
    case 'u':
        return std::to_string(++m_nNames);
    case 'n':
        return kNames[random() % std::size(kNames)];
    case 'c':
        return ChooseCategory(random, [](const CCorvaneCategory&) { return true; });
    case 'y':
        return ChooseCategory(random, [](const CCorvaneCategory& category) { return category.IsSystem(); });
    case 'k':
        return ChooseCategory(random, [](const CCorvaneCategory& category)
                              { return category.GetParent() != nullptr; });
    case 'o':
    {
        const CCorvaneCategory* here =
            m_pChosen ? Manager().GetSystemCategory(m_pChosen->GetCategory()) : nullptr;
        return ChooseCategory(random, [&](CCorvaneCategory& category)
                              { return Manager().GetSystemCategory(&category) != here; });
    }
    case 's':
        return ChooseRecord(random, [](const CCorvaneRecord& record)
                            { return !record.GetParent() && record.GetReferencees().empty(); });
    case 'l':
        return ChooseRecord(random,
                            [](const CCorvaneRecord& record) { return record.GetReferencees().empty(); });
    default:
        return ChooseRecord(random, [](const CCorvaneRecord&) { return true; });
    }
}

std::string COperationRun::ChooseCategory(std::mt19937& random,
                                          const std::function<bool(CCorvaneCategory&)>& fits)
{
    std::vector<CCorvaneCategory*> categories = GetCategories();
    std::erase_if(categories, [&](CCorvaneCategory* category) { return !fits(*category); });
    std::u16string path;
    if (!categories.empty())
        Manager().GetCategoryPath(categories[random() % categories.size()], path);
    return ToNarrow(path);
}

std::string COperationRun::ChooseRecord(std::mt19937& random,
                                        const std::function<bool(const CCorvaneRecord&)>& fits)
{
    Records records = GetRecords();
    std::erase_if(records, [&](const CRef<CCorvaneRecord>& record) { return !fits(*record); });
    std::u16string path;
    m_pChosen = records.empty() ? nullptr : records[random() % records.size()].Get();
    if (m_pChosen != nullptr)
        Manager().GetRecordDisplayPath(m_pChosen, path);
    return ToNarrow(path);
}
