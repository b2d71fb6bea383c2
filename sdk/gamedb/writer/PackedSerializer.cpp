#include "PackedSerializer.h"

#include "PackedLayout.h"
#include "PackedSeal.h"

#include <algorithm>
#include <cstring>

namespace
{
// The table, its offsets and the alignment of the vectors.
constexpr std::uint64_t kOverhead = 1024;
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
    m_Builder = flatbuffers::FlatBufferBuilder(static_cast<std::size_t>(size));
    m_Builder.ForceDefaults(true);

    const auto units = m_Model.wideTexts.GetUnits();
    const auto chars = m_Model.texts.GetUnits();
    const auto textOffsets = Copy(m_Model.texts.GetOffsets());
    const auto textBytes = Copy(std::span(reinterpret_cast<const std::uint8_t*>(chars.data()), chars.size()));
    const auto wideOffsets = Copy(m_Model.wideTexts.GetOffsets());
    const auto wideUnits =
        Copy(std::span(reinterpret_cast<const std::uint16_t*>(units.data()), units.size()));
    const auto categories = MakeCategories();
    const auto records = MakeRecords();
    const auto recordSlots = MakeRecordSlots();
    const auto shapes = CopyStructs(m_Shapes.GetShapes());
    const auto entries = CopyStructs(m_Shapes.GetEntries());
    const auto entrySlots = Copy(m_Shapes.GetSlots());
    const auto rowHeads = Copy(m_Shapes.GetRowHeads());
    const auto attribs = MakeAttribs();
    const auto words = MakeWords();
    const auto floats = MakeFloats();
    packed::FinishDatabaseBuffer(
        m_Builder, packed::CreateDatabase(m_Builder, packed::kFormatVersion, 0, textOffsets, textBytes,
                                          wideOffsets, wideUnits, categories, records, recordSlots, shapes,
                                          entries, entrySlots, rowHeads, attribs, words, floats));
    return packed::Seal(std::as_writable_bytes(std::span(m_Builder.GetBufferPointer(), m_Builder.GetSize())));
}

std::span<const std::byte> CPackedSerializer::GetBytes() const
{
    return std::as_bytes(std::span(m_Builder.GetBufferPointer(), m_Builder.GetSize()));
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

template <class T>
flatbuffers::Offset<flatbuffers::Vector<T>> CPackedSerializer::Copy(std::span<const T> values)
{
    T* target = nullptr;
    const auto offset = m_Builder.CreateUninitializedVector(values.size(), &target);
    std::copy(values.begin(), values.end(), target);
    return offset;
}

template <class T>
flatbuffers::Offset<flatbuffers::Vector<const T*>> CPackedSerializer::CopyStructs(std::span<const T> values)
{
    T* target = nullptr;
    const auto offset = m_Builder.CreateUninitializedVectorOfStructs(values.size(), &target);
    std::copy(values.begin(), values.end(), target);
    return offset;
}

flatbuffers::Offset<flatbuffers::Vector<const packed::Category*>> CPackedSerializer::MakeCategories()
{
    packed::Category* target = nullptr;
    const auto offset = m_Builder.CreateUninitializedVectorOfStructs(m_Model.categories.size(), &target);
    for (const SDatabaseModel::SCategory& category : m_Model.categories.GetAll())
        *target++ = packed::Category(category.path, category.schema);
    return offset;
}

flatbuffers::Offset<flatbuffers::Vector<const packed::Record*>> CPackedSerializer::MakeRecords()
{
    packed::Record* target = nullptr;
    const auto offset = m_Builder.CreateUninitializedVectorOfStructs(m_Model.records.size(), &target);
    for (std::size_t i = 0; i < m_Model.records.size(); ++i)
    {
        const SDatabaseModel::SRecord& record = m_Model.records[i];
        target[i] = packed::Record(record.category, record.name, m_ShapeOf[i], m_First[i]);
    }
    return offset;
}

flatbuffers::Offset<flatbuffers::Vector<std::uint32_t>> CPackedSerializer::MakeRecordSlots()
{
    const std::uint32_t count = packed::SlotCount(m_Model.records.size());
    std::uint32_t* slots = nullptr;
    const auto offset = m_Builder.CreateUninitializedVector(count, &slots);
    std::fill_n(slots, count, 0U);
    // In the order of the records, so that a search meets the first of several with one path first.
    for (std::uint32_t i = 0; i < m_Model.records.size(); ++i)
    {
        const SDatabaseModel::SRecord& record = m_Model.records[i];
        std::uint64_t hash = packed::kNameHashStart;
        hash = packed::AddToNameHash(hash, m_Model.texts[m_Model.categories[record.category].path]);
        hash = packed::AddToNameHash(hash, "/");
        hash = packed::AddToNameHash(hash, m_Model.texts[record.name]);
        std::uint32_t slot = packed::FinishNameHash(hash) & (count - 1);
        while (slots[slot] != 0)
            slot = (slot + 1) & (count - 1);
        slots[slot] = i + 1;
    }
    return offset;
}

// The three below walk the attributes in the order of the file, so that lists lie in that order too.
flatbuffers::Offset<flatbuffers::Vector<const packed::Attrib*>> CPackedSerializer::MakeAttribs()
{
    packed::Attrib* target = nullptr;
    const auto offset = m_Builder.CreateUninitializedVectorOfStructs(m_Model.attribs.size(), &target);
    std::uint32_t words = 0;
    std::uint32_t floats = 0;
    for (std::size_t place = 0; place < m_Model.attribs.size(); ++place)
    {
        const SDatabaseModel::SAttrib& attrib = AttribAt(place);
        const std::uint32_t wordCount = packed::WordCount(attrib.GetType(), attrib.GetCount());
        const std::uint32_t floatCount = packed::Dimension(attrib.GetType()) * attrib.GetCount();
        const std::uint32_t list = floatCount != 0 ? floats : words;
        target[place] = packed::Attrib(attrib.GetCount(), wordCount + floatCount != 0 ? list : attrib.value);
        words += wordCount;
        floats += floatCount;
    }
    return offset;
}

flatbuffers::Offset<flatbuffers::Vector<std::uint32_t>> CPackedSerializer::MakeWords()
{
    std::uint32_t* target = nullptr;
    const auto offset = m_Builder.CreateUninitializedVector(m_Model.words.size(), &target);
    for (std::size_t place = 0; place < m_Model.attribs.size(); ++place)
    {
        const SDatabaseModel::SAttrib& attrib = AttribAt(place);
        const std::uint32_t count = packed::WordCount(attrib.GetType(), attrib.GetCount());
        if (count != 0)
            target = std::copy_n(&m_Model.words[attrib.value], count, target);
    }
    return offset;
}

flatbuffers::Offset<flatbuffers::Vector<float>> CPackedSerializer::MakeFloats()
{
    float* target = nullptr;
    const auto offset = m_Builder.CreateUninitializedVector(m_Model.floats.size(), &target);
    for (std::size_t place = 0; place < m_Model.attribs.size(); ++place)
    {
        const SDatabaseModel::SAttrib& attrib = AttribAt(place);
        const std::size_t count = std::size_t{packed::Dimension(attrib.GetType())} * attrib.GetCount();
        if (count != 0)
            target = std::copy_n(&m_Model.floats[attrib.value], count, target);
    }
    return offset;
}
