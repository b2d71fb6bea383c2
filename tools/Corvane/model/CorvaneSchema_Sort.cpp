// The order of a schema's sections. The pass works on positions: what it removes or moves changes which
// section is looked at next, and files on disk rely on the outcome.
#include "AttribSection.h"

#include "CorvaneMgr.h"
#include "FormatText.h"
#include "UnicodeFileParse_ReadOnly.h"
#include "host/Questions.h"
#include "zrassert.h"

#include <unordered_map>

namespace
{
// One pass over the sections of a file.
class CAttribSort
{
public:
    CAttribSort(CCorvaneMgr& manager, CUnicodeFileParse_ReadOnly& sections, std::u16string_view path)
        : m_Manager(manager), m_Sections(sections), m_sPath(path)
    {
    }

    void Run()
    {
        for (std::size_t i = 0; i < m_Sections.GetSectionCount();)
        {
            if (!Get(i).IsAttribute() || Gather(i))
                ++i;
        }
    }

private:
    CAttribSection Get(std::size_t section) const
    {
        return CAttribSection(m_Sections.GetSectionName(section));
    }

    // Brings every later section of the same name to its place. False when section `i` itself was dropped
    // and `i` names the section to look at next.
    bool Gather(std::size_t& i)
    {
        for (std::size_t j = i + 1; j < m_Sections.GetSectionCount();)
        {
            const CAttribSection first = Get(i);
            const CAttribSection second = Get(j);
            if (!second.IsAttribute() || !EqualNames(first.GetName(), second.GetName()))
            {
                ++j;
                continue;
            }
            if (first.GetBuild() != second.GetBuild())
            {
                MoveIntoPlace(i, j);
                ++j;
                continue;
            }
            if (second.HasSuffix() && !first.HasSuffix())
            {
                m_Sections.RemoveSection(i);
                StepBack(i);
                return false;
            }
            if (first.HasSuffix() == second.HasSuffix())
                TellDuplicate(i, j);
            m_Sections.RemoveSection(j);
        }
        return true;
    }

    void MoveIntoPlace(std::size_t i, std::size_t j)
    {
        const CAttribSection moved = Get(j);
        std::size_t k = i;
        while (k < m_Sections.GetSectionCount() &&
               (k == j || (IsSameName(k, moved) && Get(k).GetBuild() >= moved.GetBuild())))
            ++k;
        if (k != j && k != j + 1)
            m_Sections.MoveSection(j, k);
    }

    bool IsSameName(std::size_t section, const CAttribSection& other) const
    {
        const CAttribSection name = Get(section);
        return name.IsAttribute() && EqualNames(name.GetName(), other.GetName());
    }

    // A section was dropped at `i`: the one before is worked through again when it is an attribute.
    void StepBack(std::size_t& i) const
    {
        if (i > 0 && Get(i - 1).IsAttribute())
            --i;
    }

    void TellDuplicate(std::size_t i, std::size_t j)
    {
        ZRASSERT_FORCED("Duplicate Attributes");
        m_Manager.GetContext().m_Questions.Tell(
            u"Duplicate Attributes",
            FormatText(u"The following schema contains duplicate attributes.\n\nAttribute A: %s\nAttribute "
                       u"B: %s\n\n%s",
                       m_Sections.GetSectionName(i), m_Sections.GetSectionName(j), m_sPath));
    }

    CCorvaneMgr& m_Manager;
    CUnicodeFileParse_ReadOnly& m_Sections;
    std::u16string_view m_sPath;
};

// A file whose attribute names all differ is in order already: the usual case, told apart in linear time.
bool HasRepeatedNames(const CUnicodeFileParse_ReadOnly& sections)
{
    std::unordered_map<std::u16string_view, bool, CNameHash, CNameEqual> seen;
    for (std::size_t i = 0; i < sections.GetSectionCount(); ++i)
    {
        const CAttribSection section(sections.GetSectionName(i));
        if (section.IsAttribute() && !seen.emplace(section.GetName(), true).second)
            return true;
    }
    return false;
}
} // namespace

void SortAttributes(CCorvaneMgr& manager, CUnicodeFileParse_ReadOnly& sections, std::u16string_view path)
{
    if (HasRepeatedNames(sections))
        CAttribSort(manager, sections, path).Run();
}
