// How a colour with alpha is shown everywhere: over a chequered background. A packed colour is a value of the
// database: byte 0 red, byte 1 green, byte 2 blue, byte 3 alpha.
#pragma once

#include <QColor>

class QPainter;
class QRect;

[[nodiscard]] std::uint32_t PackColor(const QColor& color);
[[nodiscard]] QColor UnpackColor(std::uint32_t packed);

// Fills the rectangle: an alpha of 255 with the colour, any other with the chequer and the colour over it.
void DrawColorSwatch(QPainter& painter, const QRect& rect, const QColor& color);
// The chequer alone.
void DrawChequer(QPainter& painter, const QRect& rect);
