// Tips and labels over texts of the database, which may be long, hold markup, or run from right to left.
#pragma once

#include <QString>

// At most so many units of the text with "..." behind them when it was cut; never half a character.
[[nodiscard]] QString LimitText(const QString& text, qsizetype units = 1000);
// A tip that shows the text as it stands, cut like LimitText and wrapped. Empty for an empty text.
[[nodiscard]] QString MakeTip(const QString& text);
