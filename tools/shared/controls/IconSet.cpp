#include "IconSet.h"

#include "IconEngine.h"
#include "zrassert.h"

#include <QDir>
#include <QFile>

// Outside any namespace, as the macro wants it. A static library's resources are not there by themselves.
static void LoadIcons()
{
    static const bool loaded = []
    {
        Q_INIT_RESOURCE(icons);
        return true;
    }();
    Q_UNUSED(loaded);
}

QIcon GetIcon(const char* name)
{
    LoadIcons();
    const QString text = QString::fromLatin1(name);
    const bool known = QFile::exists(QStringLiteral(":/icons/%1.svg").arg(text));
    ZRASSERT(known);
    return known ? QIcon(new CIconEngine(text)) : QIcon();
}

QStringList GetIconNames()
{
    LoadIcons();
    QStringList names = QDir(QStringLiteral(":/icons")).entryList();
    for (QString& name : names)
        name.chop(4); // ".svg"
    return names;
}
