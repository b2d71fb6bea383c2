// Lays a database out as a packed file and writes it piece by piece, so that the file never lies in memory as
// a whole beside the database that it is made of.
#pragma once

#include "DatabaseModel.h"
#include "ShapeTable.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class IPackedSink;
class IZROutConverter;

class CPackedSerializer
{
public:
    // `model` outlives the serializer and does not change meanwhile.
    CPackedSerializer(const SDatabaseModel& model, std::uint64_t maxBytes);

    // Returns false when the file would be larger than `maxBytes`.
    [[nodiscard]] bool Build();
    // Writes the file, sealed. Only once Build has succeeded. Returns false when `out` failed.
    [[nodiscard]] bool Write(IZROutConverter& out) const;

private:
    using FFill = void (CPackedSerializer::*)(IPackedSink& sink) const;

    // A vector of the file and what gives its content.
    struct SVector
    {
        std::span<const std::byte> m_Place;
        FFill m_pFill;
    };

    void GroupByRecord();
    bool AssignShapes();
    void FillRecordSlots();
    std::uint64_t ComputeSize() const;
    void MakeSkeleton(std::size_t size);
    // Gives all bytes of the file from `from` on, in their order.
    void Stream(std::size_t from, IPackedSink& sink) const;
    void Seal();
    std::span<std::byte> GetSkeleton() const;
    const SDatabaseModel::SAttrib& AttribAt(std::size_t place) const;

    template <class T> flatbuffers::Offset<flatbuffers::Vector<T>> Reserve(std::size_t count, FFill fill);
    template <class T>
    flatbuffers::Offset<flatbuffers::Vector<const T*>> ReserveStructs(std::size_t count, FFill fill);

    void FillTextOffsets(IPackedSink& sink) const;
    void FillTextBytes(IPackedSink& sink) const;
    void FillWideOffsets(IPackedSink& sink) const;
    void FillWideUnits(IPackedSink& sink) const;
    void FillCategories(IPackedSink& sink) const;
    void FillRecords(IPackedSink& sink) const;
    void FillSlots(IPackedSink& sink) const;
    void FillShapes(IPackedSink& sink) const;
    void FillEntries(IPackedSink& sink) const;
    void FillEntrySlots(IPackedSink& sink) const;
    void FillRowHeads(IPackedSink& sink) const;
    void FillAttribs(IPackedSink& sink) const;
    void FillWords(IPackedSink& sink) const;
    void FillFloats(IPackedSink& sink) const;

    const SDatabaseModel& m_Model;
    std::uint64_t m_nMaxBytes;
    CShapeTable m_Shapes;
    // Record i has the attributes at the places [m_First[i], m_First[i + 1]).
    std::vector<std::uint32_t> m_First;
    // From place to attribute; empty when the attributes came record by record and the two are the same.
    std::vector<std::uint32_t> m_Order;
    std::vector<std::uint32_t> m_ShapeOf;
    std::vector<std::uint32_t> m_RecordSlots;
    // The skeleton of the file: everything but the content of the vectors, whose memory is reserved and never
    // touched, so that the system gives no pages for it.
    flatbuffers::FlatBufferBuilder m_Builder;
    // Backwards, as a FlatBuffers file grows.
    std::vector<SVector> m_Vectors;
};
