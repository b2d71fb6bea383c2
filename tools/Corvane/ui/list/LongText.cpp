#include "LongText.h"

namespace
{
// Stands ahead of a break that is none of the text's own; Unicode keeps this unit for such inner use.
constexpr QChar kMark(0xFDEF);
constexpr qsizetype kPiece = 1000;

// The end of the piece that begins at `begin`: behind a blank where there is one, never inside a character.
qsizetype FindPieceEnd(const QString& text, qsizetype begin)
{
    const qsizetype end = begin + kPiece;
    const qsizetype blank = text.lastIndexOf(u' ', end - 1);
    if (blank > begin)
        return blank + 1;
    return text[end - 1].isHighSurrogate() ? end - 1 : end;
}
} // namespace

QString BreakLongLines(const QString& text)
{
    if (text.size() <= kLongLine || text.contains(kMark))
        return text;
    QString out;
    out.reserve(text.size() + 2 * (text.size() / kPiece));
    qsizetype begin = 0;
    while (begin < text.size())
    {
        qsizetype end = text.indexOf(u'\n', begin);
        end = end < 0 ? text.size() : end + 1;
        const bool isLong = end - begin > kLongLine;
        for (; isLong && end - begin > kPiece;)
        {
            const qsizetype piece = FindPieceEnd(text, begin);
            out.append(QStringView(text).mid(begin, piece - begin)).append(kMark).append(u'\n');
            begin = piece;
        }
        out.append(QStringView(text).mid(begin, end - begin));
        begin = end;
    }
    return out;
}

QString JoinLongLines(const QString& text)
{
    QString out = text;
    return out.remove(QString(kMark) + u'\n').remove(kMark);
}
