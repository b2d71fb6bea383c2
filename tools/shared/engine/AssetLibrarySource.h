// A resource database: named resources with their parameters, and the references between resources. It is
// built in memory, and saved to and loaded from a node tree.
//
// All texts are UTF-8; a null pointer counts as the empty text. Order is the order of addition. One thread
// at a time.
#pragma once

#include "NarrowTextPool.h"
#include "PlaceIndex.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <vector>

class CZRANode;
class CZRANodeBuilder;

class CAssetLibrarySource
{
public:
    struct SParameter
    {
        CNarrowTextPool::TextId m_nName;
        CNarrowTextPool::TextId m_nType;
        CNarrowTextPool::TextId m_nPlatform;
        CNarrowTextPool::TextId m_nValue;
    };
    struct SResource
    {
        CNarrowTextPool::TextId m_nName;
        CNarrowTextPool::TextId m_nType;
        std::vector<SParameter> m_Parameters;
    };

    CAssetLibrarySource() = default;
    CAssetLibrarySource(const CAssetLibrarySource&) = delete;
    CAssetLibrarySource& operator=(const CAssetLibrarySource&) = delete;

    // Replaces the content by that of a tree of the form that Save builds. False for another root or another
    // version; the source is empty then. Lists that the form does not have are passed over.
    [[nodiscard]] virtual bool Load(const CZRANode* node);
    // Adds the one root list. False when the builder is out of room or memory.
    [[nodiscard]] virtual bool Save(CZRANodeBuilder& builder) const;
    virtual ~CAssetLibrarySource() = default;

    // The resource is owned by the source and stays where it is.
    SResource* AddResource(const char* name, const char* type);
    // Null, with an assertion, without a resource. The result lives until the resource's next parameter.
    SParameter* AddParameter(SResource* pResource, const char* name, const char* type, const char* platform,
                             const char* value);
    // A reference that is there already, with the same first four texts in any letter case, counts one more,
    // whatever `platform` and `count` are. A new one begins at `count`, at least at 1.
    void AddDependency(const char* source, const char* resource, const char* resourceType, const char* type,
                       const char* platform, std::int32_t count = 1);

    [[nodiscard]] std::size_t GetResourceCount() const { return m_Resources.size(); }
    [[nodiscard]] std::size_t GetDependencyCount() const { return m_Dependencies.size(); }

private:
    using TextId = CNarrowTextPool::TextId;

    struct SDependency
    {
        TextId m_nSource;
        TextId m_nResource;
        TextId m_nResourceType;
        TextId m_nType;
        TextId m_nPlatform;
        std::int32_t m_nCount;
    };
    // An element of a list: its label and its text, which may be empty.
    struct SElement
    {
        const char* m_pLabel;
        TextId m_nText;
    };

    [[nodiscard]] bool SaveResource(CZRANodeBuilder& builder, const SResource& resource) const;
    [[nodiscard]] bool SaveDependency(CZRANodeBuilder& builder, const SDependency& dependency) const;
    [[nodiscard]] bool SaveElements(CZRANodeBuilder& builder, std::initializer_list<SElement> elements) const;
    void LoadResource(const CZRANode& list);
    void LoadDependency(const CZRANode& list);
    void Clear();

    [[nodiscard]] std::size_t HashDependency(const SDependency& dependency) const;
    [[nodiscard]] bool IsSame(const SDependency& a, const SDependency& b) const;

    CNarrowTextPool m_Texts;
    std::deque<SResource> m_Resources;
    std::vector<SDependency> m_Dependencies;
    CPlaceIndex m_Index; // Of the dependencies.
};
