// One attribute of one type: a schema "Thing" with the attribute "Value", a record of it, and another one
// that inherits from that.
#pragma once

#include "CorvaneType.h"
#include "ShowObjects.h"
#include "TestDatabase.h"

#include <string>
#include <string_view>
#include <vector>

class CTestAttribute : public CTestDatabase
{
public:
    // `keys` are lines of the attribute's schema section, such as u"Data=min=5". A type that the schema
    // does not take fails the test and ends in an exception.
    CTestAttribute(std::u16string_view type, const std::vector<std::u16string>& keys);

    template <class T = CCorvaneType> [[nodiscard]] T& Get()
    {
        return dynamic_cast<T&>(Attrib("All/One", "Value"));
    }
    [[nodiscard]] CCorvaneType& GetChild() { return Attrib("All/Two", "Value"); }
    [[nodiscard]] CCorvaneType& GetTemplate();
    // Sets the values one by one from the first; a list of any length grows.
    void Set(const std::vector<std::u16string>& values);
    // Compiles the attribute and writes it to the override output; each call of the libraries on a line.
    [[nodiscard]] std::string GetOutputs();
    // What SaveToDependency reports, each as "source resource kind" on a line.
    [[nodiscard]] std::string GetDependencies();
    // What a validation finds, each finding on a line.
    [[nodiscard]] std::string Check();
};
