// What the tree puts on the clipboard: a block of 16 bytes under a private format, which means something in
// this process only, and the name as text for everybody else.
#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>

class CTreeItem;
class QMimeData;

struct STreeClipboardBlock
{
    std::uint32_t m_nView = 0;
    std::uint32_t m_nObject = 0; // A number that the view gave the object it holds.
    std::uint32_t m_nOperation = 0;
    std::uint32_t m_nProcess = 0;

    static constexpr std::uint32_t kCopy = 0;
    static constexpr std::uint32_t kCut = 1;
    friend bool operator==(const STreeClipboardBlock&, const STreeClipboardBlock&) = default;
};

inline constexpr const char* kTreeRecordFormat = "CorvaneTreeRecord";
inline constexpr const char* kTreeCategoryFormat = "CorvaneTreeCategory";

[[nodiscard]] std::uint32_t GetThisProcess();
[[nodiscard]] std::unique_ptr<QMimeData> MakeTreeMimeData(const STreeClipboardBlock& block,
                                                          const CTreeItem& item);
// The category's format first. None when there is no block of this process.
[[nodiscard]] std::optional<STreeClipboardBlock> ReadTreeMimeData(const QMimeData* data);
