// A database while it is built: compact rows in the order of their creation, texts and lists aside.
#pragma once

#include "GrowBuffer.h"
#include "TextPool.h"

#include <cstdint>

struct SDatabaseModel
{
    struct SCategory
    {
        std::uint32_t path;
        std::uint32_t schema;
    };

    struct SRecord
    {
        std::uint32_t category;
        std::uint32_t name;
    };

    // A database has millions of these, so count, type and kind share a word: 24, 4 and 4 bits.
    struct SAttrib
    {
        std::uint32_t record;
        std::uint32_t name;
        std::uint32_t shape;
        // As in the packed file: the single value, or where the values begin in `words` or `floats`.
        std::uint32_t value;

        std::uint32_t GetType() const { return (shape >> 4) & 0xF; }
        std::uint32_t GetKind() const { return shape & 0xF; }
        std::uint32_t GetCount() const { return shape >> 8; }
        void SetShape(std::uint32_t type, std::uint32_t kind, std::uint32_t count)
        {
            shape = count << 8 | type << 4 | kind;
        }
    };

    CTextPool<char> texts;
    CTextPool<char16_t> wideTexts;
    CGrowBuffer<SCategory> categories;
    CGrowBuffer<SRecord> records;
    CGrowBuffer<SAttrib> attribs;
    CGrowBuffer<std::uint32_t> words;
    CGrowBuffer<float> floats;
};
