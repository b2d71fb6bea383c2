// The limits file of override output (`DBConstraints.dat`): what may be overridden, and how far. See
// docs/formats/override-constraints.md.
#pragma once

#include "OverrideAttribute.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

// The bytes of the file. The help texts are not in it.
[[nodiscard]] std::string WriteOverrideLimits(std::span<const SOverrideAttribute> attributes);

// Reads the file; the bytes may be anything. Returns the cause of a refusal, empty when the file is sound:
// then every number and text in it is well-formed, and the attributes have the values that their types say.
[[nodiscard]] std::string ReadOverrideLimits(std::span<const std::byte> bytes,
                                             std::vector<SOverrideAttribute>& attributes);

// Puts the checksum right in bytes that are long enough for one, so that a test reaches what lies behind it.
void SealOverrideLimits(std::span<std::byte> bytes);
