// The forms in which a colour is compiled for a game. Colours are packed as ColorText.h tells.
#pragma once

#include "idatabasecreator.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

// The letters of a name are the parts in their order, for a number from its highest byte down; X is a byte
// that stays 0.
enum class EColorEncoding : std::uint8_t
{
    Float_RGB = 0,
    Float_ARGB = 1,
    Float_RGBA = 2,
    Int_XRGB = 3,
    Int_ARGB = 4,
    Int_RGBA = 5,
    Int_RGBX = 6,
    Int_XBGR = 7,
    Int_ABGR = 8,
    Int_BGRA = 9,
    Int_BGRX = 10,
};

// The encoding of that name, in any letter case.
[[nodiscard]] std::optional<EColorEncoding> FindColorEncoding(std::u16string_view name);
// The kind of value that the encoding makes: an integer, or a vector with three or four parts.
[[nodiscard]] EDatabaseValueType GetColorValueType(EColorEncoding encoding);
// For the encodings that make an integer.
[[nodiscard]] std::int32_t EncodeColorInteger(EColorEncoding encoding, std::uint32_t color);
// For the encodings that make a vector: each part from 0 to 1, the fourth 0 when there are three.
[[nodiscard]] std::array<float, 4> EncodeColorVector(EColorEncoding encoding, std::uint32_t color);
