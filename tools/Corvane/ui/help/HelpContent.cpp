#include "HelpContent.h"

#include "CorvaneRecord.h"
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "HelpMarkup.h"
#include "HelpPage.h"
#include "MemberStore.h"

#include <vector>

namespace
{
// Structs inside structs are told about as far as a reader would follow.
constexpr int kMaxDepth = 4;

std::u16string MakeName(std::u16string_view name, std::u16string_view type)
{
    std::u16string html = EscapeHelpName(name);
    if (!type.empty())
        html.append(u" &nbsp;<span style=\"font-weight:400\">(")
            .append(EscapeHelpName(type))
            .append(u")</span>");
    return html;
}

// An older entry of a name that has a newer one, and a deleted one, are not what a user works with.
bool IsCurrent(IMemberStore& store, std::size_t index)
{
    const CCorvaneSchemaAttribData& data = store.GetMemberData(index);
    return !data.TestFlag(ATTRIB_FLAG_DELETED) &&
           (index == 0 || store.GetMemberData(index - 1).GetName() != data.GetName());
}

void AddMembers(std::vector<SMemberHelp>& out, IMemberStore& store, const std::u16string& prefix, int depth)
{
    // One more than is shown tells that there are more.
    for (std::size_t i = 0; i < store.GetMemberCount() && out.size() <= kMaxMembers; ++i)
    {
        if (!IsCurrent(store, i))
            continue;
        CCorvaneSchemaAttribData& data = store.GetMemberData(i);
        const std::u16string name = prefix + data.GetName();
        out.push_back({MakeName(name, {}), data.GetHelp(), {}});
        if (IMemberStore* inner = data.GetMemberStore(); inner != nullptr && depth < kMaxDepth)
            AddMembers(out, *inner, name + u".", depth + 1);
    }
}

std::u16string BuildMembers(const CCorvaneType& attrib)
{
    IMemberStore* store = attrib.GetAttribData() ? attrib.GetAttribData()->GetMemberStore() : nullptr;
    if (store == nullptr)
        return {};
    std::vector<SMemberHelp> members;
    AddMembers(members, *store, {}, 1);
    return BuildStructHelpPage(members);
}

std::u16string BuildMember(const CCorvaneType& member)
{
    const std::u16string_view help = member.GetAttribData()
                                         ? std::u16string_view(member.GetAttribData()->GetHelp())
                                         : std::u16string_view();
    const SMemberHelp block{MakeName(member.GetName(), member.GetTypeName()), help, member.GetComment()};
    return BuildStructHelpPage({&block, 1}) + BuildMembers(member);
}
} // namespace

std::u16string BuildRecordHelp(const CCorvaneRecord& record)
{
    SHelpPage page;
    page.m_sName = u"<I>" + EscapeHelpName(record.GetName()) + u"</I>";
    page.m_sRecordComment = record.GetComment();
    return BuildHelpPage(page);
}

std::u16string BuildAttributeHelp(const CCorvaneType& attrib, const CCorvaneType* member)
{
    std::u16string help;
    attrib.GetHelp(0, help);
    SHelpPage page;
    page.m_sName = MakeName(attrib.GetName(), attrib.GetTypeName());
    page.m_sHelp = help;
    page.m_sMembers = member != nullptr && member != &attrib ? BuildMember(*member) : BuildMembers(attrib);
    page.m_sComment = attrib.GetComment();
    if (const CCorvaneRecord* record = attrib.GetOwnerRecord())
        page.m_sRecordComment = record->GetComment();
    return BuildHelpPage(page);
}
