// Lays a database out as a packed file. The file is held once, in a block of its exact size.
#pragma once

#include "DatabaseModel.h"
#include "ShapeTable.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class CPackedSerializer
{
public:
    // `model` outlives the serializer.
    CPackedSerializer(const SDatabaseModel& model, std::uint64_t maxBytes);

    // Returns false when the file would be larger than `maxBytes`.
    [[nodiscard]] bool Build();
    // The file, sealed. Only once Build has succeeded.
    std::span<const std::byte> GetBytes() const;

private:
    void GroupByRecord();
    bool AssignShapes();
    std::uint64_t ComputeSize() const;
    const SDatabaseModel::SAttrib& AttribAt(std::size_t place) const;

    template <class T> flatbuffers::Offset<flatbuffers::Vector<T>> Copy(std::span<const T> values);
    template <class T>
    flatbuffers::Offset<flatbuffers::Vector<const T*>> CopyStructs(std::span<const T> values);
    flatbuffers::Offset<flatbuffers::Vector<const packed::Category*>> MakeCategories();
    flatbuffers::Offset<flatbuffers::Vector<const packed::Record*>> MakeRecords();
    flatbuffers::Offset<flatbuffers::Vector<std::uint32_t>> MakeRecordSlots();
    flatbuffers::Offset<flatbuffers::Vector<const packed::Attrib*>> MakeAttribs();
    flatbuffers::Offset<flatbuffers::Vector<std::uint32_t>> MakeWords();
    flatbuffers::Offset<flatbuffers::Vector<float>> MakeFloats();

    const SDatabaseModel& m_Model;
    std::uint64_t m_nMaxBytes;
    CShapeTable m_Shapes;
    // Record i has the attributes at the places [m_First[i], m_First[i + 1]).
    std::vector<std::uint32_t> m_First;
    // From place to attribute; empty when the attributes came record by record and the two are the same.
    std::vector<std::uint32_t> m_Order;
    std::vector<std::uint32_t> m_ShapeOf;
    flatbuffers::FlatBufferBuilder m_Builder;
};
