// Where the bytes of a packed file go, piece by piece: into its checksum or to the disk.
#pragma once

#include <cstddef>
#include <span>

class IPackedSink
{
public:
    virtual ~IPackedSink() = default;
    virtual void Add(std::span<const std::byte> bytes) = 0;
};
