#include "FileFilter.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace
{
struct SRow
{
    std::u16string_view m_sLabel;
    std::u16string_view m_sPatterns;
    bool m_bShowPatterns = true; // Also in the label.
};

constexpr std::array<SRow, kFileFilterCount> kRows{{
    {u"All Files", u"*.*"},
    {u"ZORN World Files", u"*.World00c;*.World00a"},
    {u"ZORN Packed World Files", u"*.World00p"},
    {u"ZORN Model Files", u"*.Model00c;*.Model00a"},
    {u"ZORN Packed Model Files", u"*.Model00p"},
    {u"ZORN Effect Files", u"*.Fx00c;*.Fx00a"},
    {u"ZORN Packed Effect Files", u"*.Fx00p"},
    {u"ZORN Key Files", u"*.Key00c;*.Key00a"},
    {u"ZORN Texture Source Files", u"*.dds"},
    {u"ZORN Material Files", u"*.Mat00"},
    {u"ZORN Material Dependency Files", u"*.Mat00dc;*.Mat00da"},
    {u"ZORN Texture Animation Files", u"*.TxAnm00"},
    {u"ZORN Texture Animation Dependency Files", u"*.TxAnm00dc;*.TxAnm00da"},
    {u"ZORN Video Files", u"*.bik"},
    {u"ZORN Shader Files", u"*.fx"},
    {u"ZORN Shader Files", u"*.fx;*.fxh;*.fxi"},
    {u"ZORN Sound Files", u"*.wav"},
    {u"ZORN Compressed World Files", u"*.World00c"},
    {u"ZORN Uncompressed World Files", u"*.World00a"},
    {u"ZORN Compressed Model Files", u"*.Model00c"},
    {u"ZORN Uncompressed Model Files", u"*.Model00a"},
    {u"ZORN Compressed Effect Files", u"*.Fx00c"},
    {u"ZORN Uncompressed Effect Files", u"*.Fx00a"},
    {u"ZORN Compressed Key Files", u"*.Key00c"},
    {u"ZORN Uncompressed Key Files", u"*.Key00a"},
    {u"All Supported Files ",
     u"*.Model00a;*.Model00c;*.World00a;*.World00c;*.Fx00a;*.Fx00c;*.Key00a;*.Key00c", false},
    {u"Game Database Root Files", u"*.Gamdb00s"},
    {u"Game Database Packed Files", u"*.Gamdb00p"},
    {u"Game Database Dependency Files", u"*.Gamdb00dc;*.Gamdb00da"},
    {u"Glossar Source Files", u"*.Strdb00s"},
    {u"Glossar Packed Files", u"*.Strdb00p"},
    {u"Glossar Packed Files", u"*.Strdb00l"},
    {u"Glossar Dependency Files", u"*.Strdb00dc;*.Strdb00da"},
    {u"Archive Files", u"*.Arch00"},
    {u"Archive Script Files", u"*.Arch00s"},
    {u"ZORN Texture Resource Files", u"*.Texture00c;*.Texture00a"},
    {u"ZORN Texture Animation Resource Files", u"*.TextureAnimation00c;*.TextureAnimation00a"},
    {u"ZORN Material Resource Files", u"*.Material00c;*.Material00a"},
    {u"ZORN Shader Resource Files", u"*.Shader00c;*.Shader00a"},
    {u"ZORN Video Resource Files", u"*.Video00c;*.Video00a"},
    {u"ZORN Sound Resource Files", u"*.Sound00c;*.Sound00a"},
    {u"ZORN XAct Sound Resource Files", u"*.xwb"},
    {u"ZORN Asset Database Files", u"*.AssetDB00s"},
}};

void AppendRow(std::u16string& out, const SRow& row)
{
    out += row.m_sLabel;
    if (row.m_bShowPatterns)
        out.append(u" (").append(row.m_sPatterns).append(u")");
    out.append(u"|").append(row.m_sPatterns).append(u"|");
}
} // namespace

void BuildFileFilter(std::u16string& out, std::initializer_list<int> rows)
{
    out.clear();
    for (const int row : rows)
    {
        if (row >= 0 && row < kFileFilterCount)
            AppendRow(out, kRows[static_cast<std::size_t>(row)]);
    }
}
