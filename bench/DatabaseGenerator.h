// Makes databases of any number of records for measurements: five schemas under a parent schema, nested
// categories with a hundred records a directory, values of six types, some inherited, some with comments.
// The files have exactly the form in which the system writes them. The same count gives the same bytes on
// every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// Takes one file: its path below the tree's directory ('/' between elements) and its bytes.
using FFileSink = std::function<void(const std::string& path, std::string_view bytes)>;

inline constexpr std::size_t kRecordsPerDirectory = 100;
// The root file of every generated tree, below the tree's directory.
inline constexpr std::string_view kGeneratedRoot = "Database/Bench.Gamdb00s";

// The locator, the root file, the schemas, the categories with their records.
void GenerateDatabase(std::size_t records, const FFileSink& sink);
