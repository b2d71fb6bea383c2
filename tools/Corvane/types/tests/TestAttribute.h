// One attribute of one type: a schema "Thing" with the attribute "Value", and one record of it.
#pragma once

#include "CorvaneType.h"
#include "TestDatabase.h"
#include "ValidationSink.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

class CTestAttribute : public CTestDatabase
{
public:
    // `keys` are lines of the attribute's schema section, such as u"Data=min=5". A type that the schema
    // does not take fails the test and ends in an exception.
    CTestAttribute(std::u16string_view type, std::initializer_list<std::u16string_view> keys);
    ~CTestAttribute();

    template <class T = CCorvaneType> [[nodiscard]] T& Get()
    {
        return dynamic_cast<T&>(Attrib("All/One", "Value"));
    }
    [[nodiscard]] CCorvaneType& GetTemplate();
    // The same attribute in a new record that inherits from this one.
    [[nodiscard]] CCorvaneType& AddChild();
    // Compiles the attribute and writes it to the override output; each call of the libraries on a line.
    [[nodiscard]] std::string GetOutputs();
    // What SaveToDependency reports, each as "source resource kind" on a line.
    [[nodiscard]] std::string GetDependencies();
    // Sets the values one by one and returns what a validation finds, each finding on a line.
    [[nodiscard]] std::string Check(std::initializer_list<std::u16string_view> values);
    // What was told about the schema's default, oldest first.
    [[nodiscard]] std::vector<std::u16string> GetDefaultMessages() const;

private:
    std::vector<CRef<CCorvaneRecord>> m_Children;
};

// Keeps findings as lines "<severity> <type> <value index>: <description>".
class CRecordingSink final : public IValidationSink
{
public:
    void AddError(ESeverity severity, std::u16string_view type, std::u16string_view description,
                  CCorvaneAttrib*, std::size_t valueIndex) override;
    [[nodiscard]] std::uint32_t GetBuild() const override { return 0; }

    std::string m_sErrors;
};
