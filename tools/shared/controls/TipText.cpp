#include "TipText.h"

QString LimitText(const QString& text, qsizetype units)
{
    if (text.size() <= units)
        return text;
    const bool half = units > 0 && text.at(units - 1).isHighSurrogate();
    return text.left(half ? units - 1 : units) + QStringLiteral("...");
}

QString MakeTip(const QString& text)
{
    if (text.isEmpty())
        return {};
    // Markup of our own around it makes the toolkit wrap the lines and keeps it from taking the text for
    // markup.
    QString lines = LimitText(text).toHtmlEscaped();
    lines.replace(u'\n', QStringLiteral("<br>"));
    return QStringLiteral("<qt>%1</qt>").arg(lines);
}
