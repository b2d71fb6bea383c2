#include "IconSet.h"

#include "zrassert.h"

#include <QFile>

QIcon GetIcon(const char* name)
{
    const QString path = QStringLiteral(":/icons/%1.svg").arg(QLatin1StringView(name));
    const bool known = QFile::exists(path);
    ZRASSERT(known);
    return known ? QIcon(path) : QIcon();
}
