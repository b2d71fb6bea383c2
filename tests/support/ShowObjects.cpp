#include "ShowObjects.h"

#include "CorvaneMgr.h"
#include "Unicode.h"

namespace
{
std::string ShowRecord(const CCorvaneRecord& record)
{
    const CCorvaneRecord* parent = record.GetParent();
    return ToNarrow(record.GetName()) + (record.TestFlag(RECORD_FLAG_MODIFIED) ? "*" : "") +
           (parent ? "<" + ToNarrow(parent->GetName()) : "");
}

std::string ShowCategories(std::span<const CRef<CCorvaneCategory>> categories)
{
    std::string text;
    for (const CRef<CCorvaneCategory>& category : categories)
    {
        const std::string name = ToNarrow(category->GetName());
        std::string content;
        for (const CRef<CCorvaneRecord>& record : category->GetRecords())
            content += (content.empty() ? "" : ", ") + ShowRecord(*record);
        const std::string children = ShowCategories(category->GetChildren());
        content += (content.empty() || children.empty() ? "" : ", ") + children;
        text += (text.empty() ? "" : ", ") + (category->GetCategoryType() != 0 ? "<" + name + ">" : name) +
                (category->IsSystem() ? "{" : "/{") + content + "}";
    }
    return text;
}
} // namespace

std::string ShowValues(const CCorvaneAttrib& attrib)
{
    std::string text;
    for (std::size_t i = 0; i < attrib.GetValueCount(); ++i)
    {
        if (attrib.GetChildAttributeAt(i, 0) == nullptr)
        {
            text += (i > 0 ? "|" : "") + ToNarrow(attrib.GetValue(i));
            continue;
        }
        std::string row;
        for (std::size_t m = 0; const CCorvaneAttrib* member = attrib.GetChildAttributeAt(i, m); ++m)
            row += (m > 0 ? " " : "") + ShowAttrib(*member);
        text += "[" + row + "]";
    }
    return text;
}

std::string ShowAttrib(const CCorvaneAttrib& attrib)
{
    const std::string build = attrib.GetBuild() > 0 ? "@" + std::to_string(attrib.GetBuild()) : "";
    return ToNarrow(attrib.GetName()) + build + (attrib.IsTodo() ? "!" : "") +
           (attrib.IsModified() ? "*" : "") + (attrib.GetInherit() ? "^=" : "=") + ShowValues(attrib);
}

void CRecordingSink::AddError(ESeverity severity, std::u16string_view type, std::u16string_view description,
                              CCorvaneAttrib*, std::size_t valueIndex)
{
    m_sLines += std::to_string(static_cast<int>(severity)) + ' ' + ToNarrow(type) + ' ' +
                std::to_string(valueIndex) + ": " + ToNarrow(description) + '\n';
}

void CRecordingSink::AddDependency(std::u16string_view source, std::u16string_view resource,
                                   std::u16string_view kind)
{
    m_sLines += ToNarrow(source) + ' ' + ToNarrow(resource) + ' ' + ToNarrow(kind) + '\n';
}

std::string ShowTree(const CCorvaneMgr& manager)
{
    return ShowCategories(manager.GetRootCategories());
}
