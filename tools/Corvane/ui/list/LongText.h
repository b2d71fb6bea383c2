// Long lines on their way into an editor, which lays out a paragraph whole at every key: they are broken into
// pieces there and joined again on the way out.
#pragma once

#include <QString>

// A line above this many units is broken.
inline constexpr int kLongLine = 10000;

// Lines end in '\n'. A text that holds the mark of such breaks itself stays as it is.
[[nodiscard]] QString BreakLongLines(const QString& text);
[[nodiscard]] QString JoinLongLines(const QString& text);
