#include "StructDatabase.h"

#include "Unicode.h"

void CStructDatabase::WriteDatabase(std::string_view items, std::string_view file) const
{
    Write("Schemas/Item.struct", file);
    AddSchema("Bag", "[Attrib.Items.0]\nType=Struct\nData=Item.struct\n" + std::string(items) +
                         "\n[Attrib.Size.0]\nType=Integer\nDefault=3\n\n");
    AddCategory("Bags", "Bag");
}

CCorvaneTypeStruct& CStructDatabase::Items(std::string_view record, std::uint32_t build) const
{
    return dynamic_cast<CCorvaneTypeStruct&>(Attrib(record, "Items", build));
}

CCorvaneType& CStructDatabase::Member(std::string_view record, std::size_t row, std::size_t member) const
{
    return dynamic_cast<CCorvaneType&>(*Items(record).GetChildAttributeAt(row, member));
}

std::string CStructDatabase::Show(const CCorvaneTypeStruct& attrib)
{
    std::string text;
    const CStructRows rows = attrib.GetAttributePointerList();
    for (std::size_t row = 0; row < rows.size(); ++row)
    {
        for (const CRef<CCorvaneType>& member : rows[row])
        {
            text += ToNarrow(member->GetName()) + '=';
            const auto* nested = dynamic_cast<const CCorvaneTypeStruct*>(member.Get());
            if (nested)
                text += "[" + Show(*nested) + "]";
            for (std::size_t i = 0; nested == nullptr && i < member->GetValueCount(); ++i)
                text += (i > 0 ? "," : "") + ToNarrow(member->GetValue(i));
            text += ' ';
        }
        text += "| ";
    }
    return text;
}

std::string CStructDatabase::ShowReloaded(std::string_view record)
{
    EXPECT_TRUE(Record(record).SaveToFile(true));
    EXPECT_TRUE(Open());
    return Show(record);
}

CStructFile& CStructDatabase::File(std::string_view record) const
{
    return *Items(record).GetStructFile();
}
