#include "TreeClipboardBlock.h"

#include "QtText.h"
#include "TreeItem.h"

#include <QCoreApplication>
#include <QMimeData>
#include <cstring>

static_assert(sizeof(STreeClipboardBlock) == 16);

std::uint32_t GetThisProcess()
{
    return static_cast<std::uint32_t>(QCoreApplication::applicationPid());
}

std::unique_ptr<QMimeData> MakeTreeMimeData(const STreeClipboardBlock& block, const CTreeItem& item)
{
    auto data = std::make_unique<QMimeData>();
    QByteArray bytes(sizeof block, Qt::Uninitialized);
    std::memcpy(bytes.data(), &block, sizeof block);
    data->setData(QLatin1StringView(item.IsRecord() ? kTreeRecordFormat : kTreeCategoryFormat), bytes);
    data->setText(ToQString(item.GetName()));
    return data;
}

std::optional<STreeClipboardBlock> ReadTreeMimeData(const QMimeData* data)
{
    if (data == nullptr)
        return std::nullopt;
    for (const char* format : {kTreeCategoryFormat, kTreeRecordFormat})
    {
        const QByteArray bytes = data->data(QLatin1StringView(format));
        STreeClipboardBlock block;
        if (bytes.size() != sizeof block)
            continue;
        std::memcpy(&block, bytes.constData(), sizeof block);
        if (block.m_nProcess == GetThisProcess())
            return block;
    }
    return std::nullopt;
}
