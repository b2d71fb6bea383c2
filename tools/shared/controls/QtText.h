// Text between the core, which has UTF-16 views, and the toolkit, which has strings of the same units.
#pragma once

#include <QString>
#include <QStringView>
#include <string>
#include <string_view>

[[nodiscard]] inline QString ToQString(std::u16string_view text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::u16string ToText(QStringView text)
{
    return std::u16string(text.utf16(), static_cast<std::size_t>(text.size()));
}
