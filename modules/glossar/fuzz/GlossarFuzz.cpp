// Feeds arbitrary bytes to the reader of string tables. Every identifier that an opened table lists must be
// found, and stand in order, terminated; a list by the identifier itself must begin with it.
#include "Catalogue.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace
{
void Require(bool condition)
{
    if (!condition)
        std::abort();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::optional<CCatalogue> catalogue = CCatalogue::Open(std::as_bytes(std::span(data, size)));
    if (!catalogue)
        return 0;
    std::vector<std::string> identifiers;
    const bool any =
        catalogue->ForEachIdentifier("",
                                     [&](std::string_view identifier)
                                     {
                                         Require(std::strlen(identifier.data()) == identifier.size());
                                         identifiers.emplace_back(identifier);
                                     });
    Require(any == !identifiers.empty());
    for (std::size_t i = 0; i < identifiers.size(); ++i)
    {
        Require(i == 0 || identifiers[i - 1] < identifiers[i]);
        Require(catalogue->HasIdentifier(identifiers[i]));
        std::string first;
        catalogue->ForEachIdentifier(identifiers[i], [&](std::string_view identifier)
                                     { first = first.empty() ? std::string(identifier) : first; });
        Require(first == identifiers[i]);
    }
    return 0;
}
