// A file that the system hands to a module for reading, whole.
//
// Nothing of the standard library crosses this border. The content stands in memory, read or mapped, and does
// not change, so that a module works on it in place without a copy. A stream is counted: whoever makes it
// holds the first reference, a module that keeps the content beyond the call that hands the stream over takes
// one with AddRef and gives it back with Release. One thread only.
#pragma once

#include <cstddef>

class IZRInStream
{
public:
    virtual void AddRef() = 0;
    // The last release ends the stream and its content.
    virtual void Release() = 0;
    // The first byte, at an address for any plain type; what it points to when the size is 0 is not told.
    [[nodiscard]] virtual const void* GetData() const = 0;
    // In bytes.
    [[nodiscard]] virtual std::size_t GetSize() const = 0;

protected:
    virtual ~IZRInStream() = default;
};
