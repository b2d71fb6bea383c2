#include "AssetLibrarySource.h"

#include "ZRANode.h"
#include "ZRANodeBuilder.h"
#include "ZRAUtil.h"
#include "zrassert.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string_view>

namespace
{
constexpr int kVersion = 1;

std::string_view ToView(const char* text)
{
    return text ? std::string_view(text) : std::string_view();
}

// The atom behind the label of an element; the empty text when either is missing.
const char* FindElementText(const CZRANode& list, const char* label)
{
    const CZRANode* element = CZRAUtil::FindList(&list, label);
    const CZRANode* atom = element && element->GetNumElements() > 1 ? element->GetElement(1) : nullptr;
    return atom && atom->IsAtom() ? atom->GetValue() : "";
}

std::int32_t FindElementNumber(const CZRANode& list, const char* label)
{
    const long value = std::strtol(FindElementText(list, label), nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long>(value, 0, std::numeric_limits<std::int32_t>::max()));
}

// The lists of `itemLabel` below the first list of `label`.
std::vector<CZRANode*> FindItems(const CZRANode& node, const char* label, const char* itemLabel)
{
    std::vector<CZRANode*> items;
    CZRAUtil::ShallowFindAll(items, CZRAUtil::FindList(&node, label), itemLabel);
    return items;
}

bool SaveInteger(CZRANodeBuilder& builder, const char* label, std::int32_t value)
{
    return builder.PushValue(label, false) && builder.AddInteger(value) && builder.Pop();
}

// A list under `label` with what `saveItem` adds for each item; none at all without items.
template <class Items, class SaveItem>
bool SaveList(CZRANodeBuilder& builder, const char* label, const Items& items, SaveItem saveItem)
{
    if (items.empty())
        return true;
    return builder.PushValue(label, false) && std::all_of(items.begin(), items.end(), saveItem) &&
           builder.Pop();
}
} // namespace

bool CAssetLibrarySource::Load(const CZRANode* node)
{
    Clear();
    if (node == nullptr || !CZRAUtil::HasLabel(*node, "resource-database") ||
        FindElementNumber(*node, "version") != kVersion)
        return false;
    for (const CZRANode* item : FindItems(*node, "resource-list", "resource"))
        LoadResource(*item);
    for (const CZRANode* item : FindItems(*node, "dependency-list", "dependency"))
        LoadDependency(*item);
    return true;
}

void CAssetLibrarySource::LoadResource(const CZRANode& list)
{
    SResource* resource = AddResource(FindElementText(list, "name"), FindElementText(list, "type"));
    for (const CZRANode* item : FindItems(list, "parameter-list", "parameter"))
        AddParameter(resource, FindElementText(*item, "name"), FindElementText(*item, "type"),
                     FindElementText(*item, "platform"), FindElementText(*item, "value"));
}

void CAssetLibrarySource::LoadDependency(const CZRANode& list)
{
    AddDependency(FindElementText(list, "source"), FindElementText(list, "resource"),
                  FindElementText(list, "resource-type"), FindElementText(list, "type"),
                  FindElementText(list, "platform"), FindElementNumber(list, "count"));
}

bool CAssetLibrarySource::Save(CZRANodeBuilder& builder) const
{
    return builder.PushValue("resource-database", false) && SaveInteger(builder, "version", kVersion) &&
           SaveList(builder, "resource-list", m_Resources,
                    [&](const SResource& resource) { return SaveResource(builder, resource); }) &&
           SaveList(builder, "dependency-list", m_Dependencies,
                    [&](const SDependency& dependency) { return SaveDependency(builder, dependency); }) &&
           builder.Pop();
}

bool CAssetLibrarySource::SaveResource(CZRANodeBuilder& builder, const SResource& resource) const
{
    const auto saveParameter = [&](const SParameter& parameter)
    {
        return builder.PushValue("parameter", false) &&
               SaveElements(builder, {{"name", parameter.m_nName},
                                      {"type", parameter.m_nType},
                                      {"platform", parameter.m_nPlatform},
                                      {"value", parameter.m_nValue}}) &&
               builder.Pop();
    };
    return builder.PushValue("resource", false) &&
           SaveElements(builder, {{"name", resource.m_nName}, {"type", resource.m_nType}}) &&
           SaveList(builder, "parameter-list", resource.m_Parameters, saveParameter) && builder.Pop();
}

bool CAssetLibrarySource::SaveDependency(CZRANodeBuilder& builder, const SDependency& dependency) const
{
    return builder.PushValue("dependency", false) &&
           SaveElements(builder, {{"source", dependency.m_nSource},
                                  {"resource", dependency.m_nResource},
                                  {"resource-type", dependency.m_nResourceType},
                                  {"type", dependency.m_nType},
                                  {"platform", dependency.m_nPlatform}}) &&
           (dependency.m_nCount <= 1 || SaveInteger(builder, "count", dependency.m_nCount)) && builder.Pop();
}

bool CAssetLibrarySource::SaveElements(CZRANodeBuilder& builder,
                                       std::initializer_list<SElement> elements) const
{
    return std::all_of(elements.begin(), elements.end(),
                       [&](const SElement& element)
                       {
                           return element.m_nText == CNarrowTextPool::kEmpty ||
                                  (builder.PushValue(element.m_pLabel, false) &&
                                   builder.AddValue(m_Texts.GetText(element.m_nText), true) && builder.Pop());
                       });
}

CAssetLibrarySource::SResource* CAssetLibrarySource::AddResource(const char* name, const char* type)
{
    return &m_Resources.emplace_back(SResource{m_Texts.Add(ToView(name)), m_Texts.Add(ToView(type)), {}});
}

CAssetLibrarySource::SParameter* CAssetLibrarySource::AddParameter(SResource* pResource, const char* name,
                                                                   const char* type, const char* platform,
                                                                   const char* value)
{
    ZRASSERT_MSG(pResource, "Invalid resource object");
    if (pResource == nullptr)
        return nullptr;
    return &pResource->m_Parameters.emplace_back(
        SParameter{m_Texts.Add(ToView(name)), m_Texts.Add(ToView(type)), m_Texts.Add(ToView(platform)),
                   m_Texts.Add(ToView(value))});
}

void CAssetLibrarySource::AddDependency(const char* source, const char* resource, const char* resourceType,
                                        const char* type, const char* platform, std::int32_t count)
{
    const SDependency added{m_Texts.Add(ToView(source)),       m_Texts.Add(ToView(resource)),
                            m_Texts.Add(ToView(resourceType)), m_Texts.Add(ToView(type)),
                            m_Texts.Add(ToView(platform)),     std::max(count, 1)};
    const std::size_t hash = HashDependency(added);
    const std::uint32_t known =
        m_Index.Find(hash, [&](std::uint32_t place) { return IsSame(m_Dependencies[place], added); });
    if (known == CPlaceIndex::kNone)
    {
        m_Index.Add(hash, static_cast<std::uint32_t>(m_Dependencies.size()));
        m_Dependencies.push_back(added);
        return;
    }
    std::int32_t& times = m_Dependencies[known].m_nCount;
    times += times < std::numeric_limits<std::int32_t>::max() ? 1 : 0;
}

void CAssetLibrarySource::Clear()
{
    m_Texts = {};
    m_Resources.clear();
    m_Dependencies.clear();
    m_Index.Clear();
}

bool CAssetLibrarySource::IsSame(const SDependency& a, const SDependency& b) const
{
    const auto isSameName = [this](TextId x, TextId y) { return m_Texts.GetName(x) == m_Texts.GetName(y); };
    return isSameName(a.m_nSource, b.m_nSource) && isSameName(a.m_nResource, b.m_nResource) &&
           isSameName(a.m_nResourceType, b.m_nResourceType) && isSameName(a.m_nType, b.m_nType);
}

std::size_t CAssetLibrarySource::HashDependency(const SDependency& dependency) const
{
    std::uint64_t hash = 0;
    for (const TextId text :
         {dependency.m_nSource, dependency.m_nResource, dependency.m_nResourceType, dependency.m_nType})
    {
        hash = (hash ^ m_Texts.GetName(text)) * 0x9E37'79B9'7F4A'7C15U;
        hash ^= hash >> 32U; // The index looks at the low bits.
    }
    return hash;
}
