// A small database with every type, every kind, lists, links and nested structs.
#pragma once

#include <cstddef>
#include <vector>

// The same bytes at every call.
std::vector<std::byte> MakeSmallDatabase();
