// The name of an attribute's section in a schema file, "Attrib.<name>.<build>", taken apart, and the order in
// which a schema's sections are brought before they are read.
#pragma once

#include "NameCompare.h"
#include "NumberText.h"

#include <cstdint>
#include <string_view>

class CCorvaneMgr;
class CUnicodeFileParse_ReadOnly;

class CAttribSection
{
public:
    // Views into `section`, which must outlive the object.
    explicit CAttribSection(std::u16string_view section)
    {
        m_bAttribute = BeginsWithName(section, kPrefix);
        if (!m_bAttribute)
            return;
        m_sName = section.substr(kPrefix.size());
        const std::size_t point = m_sName.rfind(u'.');
        m_bSuffix = point != std::u16string_view::npos;
        if (!m_bSuffix)
            return;
        m_nBuild = static_cast<std::uint32_t>(ParseInteger(m_sName.substr(point + 1)));
        m_sName = m_sName.substr(0, point);
    }

    [[nodiscard]] bool IsAttribute() const { return m_bAttribute; }
    [[nodiscard]] std::u16string_view GetName() const { return m_sName; }
    [[nodiscard]] std::uint32_t GetBuild() const { return m_nBuild; }
    [[nodiscard]] bool HasSuffix() const { return m_bSuffix; }

private:
    static constexpr std::u16string_view kPrefix = u"Attrib.";

    std::u16string_view m_sName;
    std::uint32_t m_nBuild = 0;
    bool m_bAttribute = false;
    bool m_bSuffix = false;
};

// Gathers the sections of one attribute name at the place of the first, the newest build first, and drops
// duplicates. Sections that are no attributes stay where they are.
void SortAttributes(CCorvaneMgr& manager, CUnicodeFileParse_ReadOnly& sections, std::u16string_view path);
