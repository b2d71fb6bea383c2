// What a script tells about the outcome of a command.
#include "DatabaseScript.h"

#include "GoldenText.h"
#include "ShowObjects.h"
#include "Unicode.h"

#include <algorithm>

int CDatabaseScript::OnEvent(const CCorvaneEvent& event)
{
    const auto code = static_cast<int>(event.GetCode());
    const bool ofMember = code >= 58 && code <= 60;
    if (m_Watched.contains("events") || (ofMember && m_Watched.contains("members")))
        m_sEvents += " " + std::to_string(code) + GetEventObject(event);
    const bool asks =
        event.GetCode() == ECorvaneEvent::RecordMoving || event.GetCode() == ECorvaneEvent::RecordDeleting;
    return asks && m_bHeld ? 1 : 0;
}

std::string CDatabaseScript::GetEventObject(const CCorvaneEvent& event) const
{
    if (!m_Watched.contains("events"))
        return "";
    if (const SRecordRenamed* renamed = event.GetRecordRenamed())
        return "(" + ToNarrow(renamed->m_sOldPath) + " > " + ToNarrow(renamed->m_sNewPath) + ")";
    if (const SCategoryRenamed* renamed = event.GetCategoryRenamed())
        return "(" + ToNarrow(renamed->m_sOldName) + " > " + ToNarrow(renamed->m_sNewName) + ")";
    if (const CCorvaneRecord* record = event.GetRecord())
        return "(" + ToNarrow(record->GetName()) + ")";
    const CCorvaneCategory* category = event.GetCategory();
    return category ? "(" + ToNarrow(category->GetName()) + ")" : "";
}

void CDatabaseScript::TellOutcome()
{
    TellQuestions();
    TellAsserts();
    for (const std::u16string& call : m_Test.m_Services.m_Calls)
        Say(Shorten(ToNarrow(call)));
    m_Test.m_Services.m_Calls.clear();
    if (!m_sEvents.empty())
        Say("events" + m_sEvents);
    m_sEvents.clear();
    if (m_Watched.contains("values"))
        TellRecords();
    if (m_Watched.contains("tree"))
        TellChange("tree", ShowTree(m_Test.Get()));
    if (m_Watched.contains("files"))
        TellFiles();
    if (m_Watched.contains("undo"))
        TellChange("groups", GetGroups());
}

std::string CDatabaseScript::Shorten(const std::string& text) const
{
    const std::string escaped = ReplaceAll(ReplaceAll(text, "\n", "\\n"), "\t", "\\t");
    return ReplaceAll(escaped, m_Test.GetPath("").string(), "~/");
}

void CDatabaseScript::TellQuestions()
{
    for (const CQuestion& question : m_Test.m_Questions.GetQuestions())
        Say(Shorten(ToNarrow(question.m_sTitle + u": " +
                             (question.m_sFile.empty() ? question.m_sText : question.m_sFile))));
    m_Test.m_Questions.Clear();
}

void CDatabaseScript::TellAsserts()
{
    const auto& entries = m_Test.m_Asserts.GetEntries();
    for (; m_Test.m_nExpectedAsserts < entries.size(); ++m_Test.m_nExpectedAsserts)
    {
        const CAssertCapture::SEntry& entry = entries[m_Test.m_nExpectedAsserts];
        Say("assertion: " + (entry.message.empty() ? entry.expression : entry.message));
    }
}

void CDatabaseScript::TellChange(const std::string& kind, const std::string& now)
{
    if (m_Told[kind] != now)
        Say(kind + " " + now);
    m_Told[kind] = now;
}

void CDatabaseScript::TellRecords()
{
    std::map<std::string, std::string> shown;
    m_Test.Get().EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            std::u16string path;
            m_Test.Get().GetRecordDisplayPath(&record, path);
            std::string& text = shown[ToNarrow(path)];
            for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
                text += ' ' + ShowAttrib(*attrib);
            if (const auto old = m_Records.find(ToNarrow(path));
                old == m_Records.end() || old->second != text)
                Say(ToNarrow(path) + ":" + text);
            return true;
        });
    m_Records = std::move(shown);
}

void CDatabaseScript::TellFiles()
{
    std::string changes;
    CTestDatabase::Snapshot files = m_Test.TakeSnapshot();
    for (const auto& [name, state] : m_Files)
        changes += files.contains(name) ? "" : " -" + name;
    for (const auto& [name, state] : files)
    {
        const auto before = m_Files.find(name);
        if (before == m_Files.end() || before->second != state)
            changes += (before == m_Files.end() ? " +" : " *") + name;
    }
    if (!changes.empty())
        Say("files" + ReplaceAll(changes, "Game/Database/", ""));
    m_Files = std::move(files);
}

std::string CDatabaseScript::GetGroups() const
{
    // Behind the number of the menu's line.
    const auto show = [&](std::size_t count, const std::vector<std::u16string>& labels)
    { return std::to_string(count) + (count > 0 ? " " + Shorten(ToNarrow(labels[0]).substr(3)) : ""); };
    return show(m_Test.m_Undo.GetUndoCount(), m_Test.m_Undo.GetUndoLabels()) + " | " +
           show(m_Test.m_Undo.GetRedoCount(), m_Test.m_Undo.GetRedoLabels());
}
