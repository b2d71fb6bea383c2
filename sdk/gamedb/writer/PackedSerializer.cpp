#include "PackedSerializer.h"

#include "ContentHash.h"
#include "PackedLayout.h"
#include "PackedSeal.h"
#include "PieceBuffer.h"
#include "izroutconverter.h"

#include <algorithm>
#include <cstring>

namespace
{
// The table, its offsets and the alignment of the vectors.
constexpr std::uint64_t kOverhead = 1024;

class CHashSink final : public IPackedSink
{
public:
    explicit CHashSink(std::uint64_t seed) : m_Hasher(seed) {}
    void Add(std::span<const std::byte> bytes) override { m_Hasher.Add(bytes); }
    [[nodiscard]] std::uint64_t GetHash() const { return m_Hasher.GetHash(); }

private:
    CContentHasher m_Hasher;
};

class CWriteSink final : public IPackedSink
{
public:
    explicit CWriteSink(IZROutConverter& out) : m_Out(out) {}
    void Add(std::span<const std::byte> bytes) override
    {
        m_bGood = m_bGood && (bytes.empty() || m_Out.Write(bytes.data(), bytes.size()));
    }
    [[nodiscard]] bool IsGood() const { return m_bGood; }

private:
    IZROutConverter& m_Out;
    bool m_bGood = true;
};

template <class T> void AddAll(IPackedSink& sink, std::span<const T> values)
{
    sink.Add(std::as_bytes(values));
}
} // namespace

CPackedSerializer::CPackedSerializer(const SDatabaseModel& model, std::uint64_t maxBytes)
    : m_Model(model), m_nMaxBytes(maxBytes), m_Shapes(model.texts), m_Builder(0)
{
}

bool CPackedSerializer::Build()
{
    GroupByRecord();
    if (!AssignShapes())
        return false;
    const std::uint64_t size = ComputeSize() + kOverhead;
    if (size > m_nMaxBytes)
        return false;
    FillRecordSlots();
    MakeSkeleton(static_cast<std::size_t>(size));
    Seal();
    return true;
}

bool CPackedSerializer::Write(IZROutConverter& out) const
{
    CWriteSink sink(out);
    Stream(0, sink);
    return sink.IsGood();
}

void CPackedSerializer::MakeSkeleton(std::size_t size)
{
    using CThis = CPackedSerializer;
    m_Builder = flatbuffers::FlatBufferBuilder(size);
    m_Builder.ForceDefaults(true);
    m_Vectors.clear();

    const std::size_t records = m_Model.records.size();
    const std::size_t attribs = m_Model.attribs.size();
    const auto textOffsets =
        Reserve<std::uint32_t>(m_Model.texts.GetOffsets().size(), &CThis::FillTextOffsets);
    const auto textBytes = Reserve<std::uint8_t>(m_Model.texts.GetUnits().size(), &CThis::FillTextBytes);
    const auto wideOffsets =
        Reserve<std::uint32_t>(m_Model.wideTexts.GetOffsets().size(), &CThis::FillWideOffsets);
    const auto wideUnits = Reserve<std::uint16_t>(m_Model.wideTexts.GetUnits().size(), &CThis::FillWideUnits);
    const auto categories =
        ReserveStructs<packed::Category>(m_Model.categories.size(), &CThis::FillCategories);
    const auto recordRows = ReserveStructs<packed::Record>(records, &CThis::FillRecords);
    const auto recordSlots = Reserve<std::uint32_t>(m_RecordSlots.size(), &CThis::FillSlots);
    const auto shapes = ReserveStructs<packed::Shape>(m_Shapes.GetShapes().size(), &CThis::FillShapes);
    const auto entries = ReserveStructs<packed::Entry>(m_Shapes.GetEntries().size(), &CThis::FillEntries);
    const auto entrySlots = Reserve<std::uint32_t>(m_Shapes.GetSlots().size(), &CThis::FillEntrySlots);
    const auto rowHeads = Reserve<std::uint32_t>(m_Shapes.GetRowHeads().size(), &CThis::FillRowHeads);
    const auto attribRows = ReserveStructs<packed::Attrib>(attribs, &CThis::FillAttribs);
    const auto words = Reserve<std::uint32_t>(m_Model.words.size(), &CThis::FillWords);
    const auto floats = Reserve<float>(m_Model.floats.size(), &CThis::FillFloats);
    packed::FinishDatabaseBuffer(
        m_Builder, packed::CreateDatabase(m_Builder, packed::kFormatVersion, 0, textOffsets, textBytes,
                                          wideOffsets, wideUnits, categories, recordRows, recordSlots, shapes,
                                          entries, entrySlots, rowHeads, attribRows, words, floats));
}

void CPackedSerializer::Stream(std::size_t from, IPackedSink& sink) const
{
    const std::span<const std::byte> skeleton = GetSkeleton();
    const std::byte* at = skeleton.data() + from;
    for (auto vector = m_Vectors.rbegin(); vector != m_Vectors.rend(); ++vector)
    {
        sink.Add({at, vector->m_Place.data()});
        (this->*vector->m_pFill)(sink);
        at = vector->m_Place.data() + vector->m_Place.size();
    }
    sink.Add({at, skeleton.data() + skeleton.size()});
}

void CPackedSerializer::Seal()
{
    const std::span<std::byte> skeleton = GetSkeleton();
    const std::size_t field = packed::FindChecksum(skeleton);
    CHashSink sink(ContentHash(skeleton.first(field)));
    Stream(field + sizeof(std::uint64_t), sink);
    const std::uint64_t checksum = sink.GetHash();
    std::memcpy(skeleton.data() + field, &checksum, sizeof(checksum));
}

std::span<std::byte> CPackedSerializer::GetSkeleton() const
{
    return std::as_writable_bytes(std::span(m_Builder.GetBufferPointer(), m_Builder.GetSize()));
}

const SDatabaseModel::SAttrib& CPackedSerializer::AttribAt(std::size_t place) const
{
    return m_Model.attribs[m_Order.empty() ? place : m_Order[place]];
}

void CPackedSerializer::GroupByRecord()
{
    const auto attribs = m_Model.attribs.GetAll();
    m_First.assign(m_Model.records.size() + 1, 0);
    for (const SDatabaseModel::SAttrib& attrib : attribs)
        ++m_First[attrib.record + 1];
    for (std::size_t i = 1; i < m_First.size(); ++i)
        m_First[i] += m_First[i - 1];
    const auto byRecord = [](const SDatabaseModel::SAttrib& a, const SDatabaseModel::SAttrib& b)
    { return a.record < b.record; };
    if (std::is_sorted(attribs.begin(), attribs.end(), byRecord))
        return;
    std::vector<std::uint32_t> next(m_First);
    m_Order.resize(attribs.size());
    for (std::uint32_t i = 0; i < attribs.size(); ++i)
        m_Order[next[attribs[i].record]++] = i;
}

bool CPackedSerializer::AssignShapes()
{
    std::vector<SShapeKey> keys;
    m_ShapeOf.reserve(m_Model.records.size());
    for (std::size_t record = 0; record < m_Model.records.size(); ++record)
    {
        keys.clear();
        for (std::uint32_t place = m_First[record]; place < m_First[record + 1]; ++place)
        {
            const SDatabaseModel::SAttrib& attrib = AttribAt(place);
            keys.push_back({attrib.name, static_cast<std::uint16_t>(attrib.GetType()),
                            static_cast<std::uint16_t>(attrib.GetKind()),
                            attrib.GetType() == DBVALUE_STRUCT ? attrib.GetCount() : 0});
        }
        m_ShapeOf.push_back(m_Shapes.Intern(keys, m_nMaxBytes));
        if (m_ShapeOf.back() == packed::kNone)
            return false;
    }
    return true;
}

std::uint64_t CPackedSerializer::ComputeSize() const
{
    return m_Shapes.GetSize() + m_Model.texts.GetOffsets().size_bytes() +
           m_Model.texts.GetUnits().size_bytes() + m_Model.wideTexts.GetOffsets().size_bytes() +
           m_Model.wideTexts.GetUnits().size_bytes() + m_Model.categories.size() * sizeof(packed::Category) +
           m_Model.records.size() * sizeof(packed::Record) +
           packed::SlotCount(m_Model.records.size()) * sizeof(std::uint32_t) +
           m_Model.attribs.size() * sizeof(packed::Attrib) + m_Model.words.GetAll().size_bytes() +
           m_Model.floats.GetAll().size_bytes();
}

void CPackedSerializer::FillRecordSlots()
{
    const std::uint32_t count = packed::SlotCount(m_Model.records.size());
    m_RecordSlots.assign(count, 0);
    // In the order of the records, so that a search meets the first of several with one path first.
    for (std::uint32_t i = 0; i < m_Model.records.size(); ++i)
    {
        const SDatabaseModel::SRecord& record = m_Model.records[i];
        std::uint64_t hash = packed::kNameHashStart;
        hash = packed::AddToNameHash(hash, m_Model.texts[m_Model.categories[record.category].path]);
        hash = packed::AddToNameHash(hash, "/");
        hash = packed::AddToNameHash(hash, m_Model.texts[record.name]);
        std::uint32_t slot = packed::FinishNameHash(hash) & (count - 1);
        while (m_RecordSlots[slot] != 0)
            slot = (slot + 1) & (count - 1);
        m_RecordSlots[slot] = i + 1;
    }
}

template <class T>
flatbuffers::Offset<flatbuffers::Vector<T>> CPackedSerializer::Reserve(std::size_t count, FFill fill)
{
    T* place = nullptr;
    const auto offset = m_Builder.CreateUninitializedVector(count, &place);
    m_Vectors.push_back({std::as_bytes(std::span(place, count)), fill});
    return offset;
}

template <class T>
flatbuffers::Offset<flatbuffers::Vector<const T*>> CPackedSerializer::ReserveStructs(std::size_t count,
                                                                                     FFill fill)
{
    T* place = nullptr;
    const auto offset = m_Builder.CreateUninitializedVectorOfStructs(count, &place);
    m_Vectors.push_back({std::as_bytes(std::span(place, count)), fill});
    return offset;
}

void CPackedSerializer::FillTextOffsets(IPackedSink& sink) const
{
    AddAll(sink, m_Model.texts.GetOffsets());
}

void CPackedSerializer::FillTextBytes(IPackedSink& sink) const
{
    AddAll(sink, m_Model.texts.GetUnits());
}

void CPackedSerializer::FillWideOffsets(IPackedSink& sink) const
{
    AddAll(sink, m_Model.wideTexts.GetOffsets());
}

void CPackedSerializer::FillWideUnits(IPackedSink& sink) const
{
    AddAll(sink, m_Model.wideTexts.GetUnits());
}

void CPackedSerializer::FillCategories(IPackedSink& sink) const
{
    CPieceBuffer<packed::Category> out(sink);
    for (const SDatabaseModel::SCategory& category : m_Model.categories.GetAll())
        out.Add(packed::Category(category.path, category.schema));
    out.Flush();
}

void CPackedSerializer::FillRecords(IPackedSink& sink) const
{
    CPieceBuffer<packed::Record> out(sink);
    for (std::size_t i = 0; i < m_Model.records.size(); ++i)
    {
        const SDatabaseModel::SRecord& record = m_Model.records[i];
        out.Add(packed::Record(record.category, record.name, m_ShapeOf[i], m_First[i]));
    }
    out.Flush();
}

void CPackedSerializer::FillSlots(IPackedSink& sink) const
{
    AddAll(sink, std::span<const std::uint32_t>(m_RecordSlots));
}

void CPackedSerializer::FillShapes(IPackedSink& sink) const
{
    AddAll(sink, m_Shapes.GetShapes());
}

void CPackedSerializer::FillEntries(IPackedSink& sink) const
{
    AddAll(sink, m_Shapes.GetEntries());
}

void CPackedSerializer::FillEntrySlots(IPackedSink& sink) const
{
    AddAll(sink, m_Shapes.GetSlots());
}

void CPackedSerializer::FillRowHeads(IPackedSink& sink) const
{
    AddAll(sink, m_Shapes.GetRowHeads());
}

// The three below walk the attributes in the order of the file, so that lists lie in that order too.
void CPackedSerializer::FillAttribs(IPackedSink& sink) const
{
    CPieceBuffer<packed::Attrib> out(sink);
    std::uint32_t words = 0;
    std::uint32_t floats = 0;
    for (std::size_t place = 0; place < m_Model.attribs.size(); ++place)
    {
        const SDatabaseModel::SAttrib& attrib = AttribAt(place);
        const std::uint32_t wordCount = packed::WordCount(attrib.GetType(), attrib.GetCount());
        const std::uint32_t floatCount = packed::Dimension(attrib.GetType()) * attrib.GetCount();
        const std::uint32_t list = floatCount != 0 ? floats : words;
        out.Add(packed::Attrib(attrib.GetCount(), wordCount + floatCount != 0 ? list : attrib.value));
        words += wordCount;
        floats += floatCount;
    }
    out.Flush();
}

void CPackedSerializer::FillWords(IPackedSink& sink) const
{
    // Without an order of its own the database holds the words as the file does.
    if (m_Order.empty())
        return AddAll(sink, m_Model.words.GetAll());
    for (const std::uint32_t index : m_Order)
    {
        const SDatabaseModel::SAttrib& attrib = m_Model.attribs[index];
        const std::uint32_t count = packed::WordCount(attrib.GetType(), attrib.GetCount());
        if (count != 0)
            AddAll(sink, m_Model.words.GetAll().subspan(attrib.value, count));
    }
}

void CPackedSerializer::FillFloats(IPackedSink& sink) const
{
    if (m_Order.empty())
        return AddAll(sink, m_Model.floats.GetAll());
    for (const std::uint32_t index : m_Order)
    {
        const SDatabaseModel::SAttrib& attrib = m_Model.attribs[index];
        const std::size_t count = std::size_t{packed::Dimension(attrib.GetType())} * attrib.GetCount();
        if (count != 0)
            AddAll(sink, m_Model.floats.GetAll().subspan(attrib.value, count));
    }
}
