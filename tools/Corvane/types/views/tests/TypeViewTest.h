// A database with one record, "Units/Tank", of the attributes that a test of views wants.
#pragma once

#include "ViewTestList.h"

#include "QtText.h"
#include "Unicode.h"

class CTypeViewTest : public testing::Test
{
protected:
    // `sections` of the schema's attributes, and of the record.
    void Open(const std::string& sections, const std::string& values = {})
    {
        m_Test.AddSchema("Unit", sections);
        m_Test.AddCategory("Units", "Unit");
        m_Test.AddRecord("Units/Tank", "Unit", values);
        EXPECT_TRUE(m_Test.Open());
        m_Test.m_Questions.Clear();
    }
    [[nodiscard]] CCorvaneType& Attrib(const char* name) { return m_Test.Attrib("Units/Tank", name); }
    [[nodiscard]] std::string Value(const char* name, std::size_t index = 0)
    {
        return m_Test.Value("Units/Tank", name, 0, index);
    }

    CTestDatabase m_Test;
    CTestEditor m_Editor{m_Test};
};
