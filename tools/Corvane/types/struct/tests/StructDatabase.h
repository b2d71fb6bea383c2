// A database with the struct file "Schemas/Item.struct" and the schema "Bag", whose records hold items.
#pragma once

#include "TestDatabase.h"
#include "struct/CorvaneTypeStruct.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

class CStructDatabase : public testing::Test, protected CTestDatabase
{
protected:
    static constexpr std::string_view kItem = "[Attrib.Name.0]\nType=Text\nDefault=none\n\n"
                                              "[Attrib.Count.0]\nType=Integer\nDefault=1\nValues=-1\n\n";

    // `items` are the lines of the attribute "Items" behind its type and file.
    void WriteDatabase(std::string_view items = "Values=-1\n", std::string_view file = kItem) const;
    [[nodiscard]] CCorvaneTypeStruct& Items(std::string_view record, std::uint32_t build = 0) const;
    [[nodiscard]] CCorvaneType& Member(std::string_view record, std::size_t row, std::size_t member) const;
    // The rows in force: "Name=a Count=1,2 | Name=b Count=3 | ", nested rows in brackets.
    [[nodiscard]] static std::string Show(const CCorvaneTypeStruct& attrib);
    [[nodiscard]] std::string Show(std::string_view record) const { return Show(Items(record)); }
    // Saves the record, loads the database again and shows the rows.
    [[nodiscard]] std::string ShowReloaded(std::string_view record);
    [[nodiscard]] CStructFile& File(std::string_view record) const;
};
