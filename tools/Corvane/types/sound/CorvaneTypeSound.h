// A Sound attribute: a File that can be played.
#pragma once

#include "file/CorvaneTypeFile.h"

class CCorvaneTypeSound final : public CCorvaneTypeFile
{
public:
    static constexpr CGuid kTypeGuid{
        {0x22, 0xFC, 0xEA, 0xA9, 0x93, 0xCD, 0x4C, 0x3B, 0x95, 0x41, 0xE6, 0xD1, 0x41, 0x5B, 0xA6, 0x6D}};

    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"Sound"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // Plays the file `path`, a full one, without waiting for its end. False, and nothing told, when it is
    // missing or nothing can play it.
    [[nodiscard]] bool Execute(std::u16string_view path) override;
};
