// Where the value of an attribute comes from, in words for a person.
#pragma once

#include <string>

class CCorvaneType;

// "Own value", "Inherited from <record> via <record>, ...", or "Default of the schema ...". Records are named
// by their paths in the tree, nearest last.
[[nodiscard]] std::u16string DescribeValueSource(const CCorvaneType& attrib);
