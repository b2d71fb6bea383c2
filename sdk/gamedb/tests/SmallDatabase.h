// A small database with every type, every kind, lists, links and nested structs.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

// The same bytes at every call.
std::vector<std::byte> MakeSmallDatabase();

std::string AsText(std::span<const std::byte> bytes);

// A stored file that tells what a writer or a tool must give.
std::string ReadGolden(const char* name);
