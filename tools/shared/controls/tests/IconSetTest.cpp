// Whether every icon draws something of its own, in each theme, state and size.
#include "IconSet.h"
#include "AssertCapture.h"
#include "Theme.h"

#include <QImage>
#include <QPixmap>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace
{
int CountInk(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 128 ? 1 : 0;
    }
    return count;
}

QImage Render(const QString& name, int size, QIcon::Mode mode)
{
    return GetIcon(name.toLatin1().constData()).pixmap(QSize(size, size), 1.0, mode).toImage();
}
} // namespace

TEST(IconSetTest, EveryIconDrawsInEveryThemeStateAndSize)
{
    const QStringList names = GetIconNames();
    ASSERT_GT(names.size(), 90);
    // One picture in two places.
    const std::set<QString> twins = {QStringLiteral("folder"), QStringLiteral("open"),
                                     QStringLiteral("arrow-right"), QStringLiteral("arrow-down")};
    for (const auto scheme : {CTheme::EScheme::Light, CTheme::EScheme::Dark})
    {
        CTheme::Get().SetScheme(scheme);
        for (const int size : {16, 32})
        {
            std::map<QByteArray, QString> drawn;
            for (const QString& name : names)
            {
                const QImage normal = Render(name, size, QIcon::Normal);
                EXPECT_EQ(normal.size(), QSize(size, size)) << name.toStdString();
                EXPECT_GT(CountInk(normal), size / 2) << name.toStdString();
                const QImage disabled = Render(name, size, QIcon::Disabled);
                EXPECT_GT(CountInk(disabled), size / 2) << name.toStdString();
                EXPECT_TRUE(normal != disabled || name == u"corvane") << name.toStdString();
                if (twins.contains(name))
                    continue;
                const QByteArray bits(reinterpret_cast<const char*>(normal.constBits()),
                                      normal.sizeInBytes());
                const auto [place, isNew] = drawn.emplace(bits, name);
                EXPECT_TRUE(isNew) << name.toStdString() << " looks like " << place->second.toStdString();
            }
        }
    }
    CTheme::Get().SetScheme(CTheme::EScheme::Light);
}

TEST(IconSetTest, AnIconFollowsTheThemeAndAnUnknownNameIsAnAssertion)
{
    const QIcon icon = GetIcon("save");
    const QImage light = icon.pixmap(16, 16).toImage();
    CTheme::Get().SetScheme(CTheme::EScheme::Dark);
    EXPECT_NE(icon.pixmap(16, 16).toImage(), light);
    CTheme::Get().SetScheme(CTheme::EScheme::Light);
    EXPECT_EQ(icon.pixmap(16, 16).toImage(), light);

    const CAssertCapture asserts;
    EXPECT_TRUE(GetIcon("no-such-icon").isNull());
    EXPECT_TRUE(asserts.Has("known"));
}
