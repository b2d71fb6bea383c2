// One attribute of one type: a schema "Thing" with the attribute "Value", and one record of it.
#pragma once

#include "CorvaneType.h"
#include "TestManager.h"
#include "ValidationSink.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

class CTestAttribute
{
public:
    // `keys` are lines of the attribute's schema section, such as u"Data=min=5". A type that the schema
    // does not take fails the test and ends in an exception.
    CTestAttribute(std::u16string_view type, std::initializer_list<std::u16string_view> keys);

    template <class T = CCorvaneType> [[nodiscard]] T& Get() { return dynamic_cast<T&>(*m_pAttrib); }
    [[nodiscard]] CCorvaneType& GetTemplate() { return *m_pTemplate; }
    [[nodiscard]] CCorvaneRecord& GetRecord() { return *m_pRecord; }
    // The same attribute in a new record that inherits from this one.
    [[nodiscard]] CCorvaneType& AddChild();
    // What was told about the schema's default, oldest first.
    [[nodiscard]] std::vector<std::u16string> GetDefaultMessages() const;

    CTestManager m_Manager;

private:
    CCorvaneType* m_pTemplate = nullptr;
    CCorvaneRecord* m_pRecord = nullptr;
    CCorvaneType* m_pAttrib = nullptr;
};

// Keeps findings as "<severity> <type> <value index>: <description>".
class CRecordingSink final : public IValidationSink
{
public:
    void AddError(ESeverity severity, std::u16string_view type, std::u16string_view description,
                  CCorvaneAttrib*, std::size_t valueIndex) override;
    [[nodiscard]] std::uint32_t GetBuild() const override { return 0; }

    std::vector<std::string> m_Errors;
};
