// The desktop's preference, from a portal on a bus of our own.
#include "DesktopScheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

namespace
{
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
constexpr unsigned kDark = 1;
constexpr unsigned kLight = 2;

QVariant Wrap(unsigned preference)
{
    return QVariant::fromValue(QDBusVariant(preference));
}

class CPortal final : public QDBusVirtualObject
{
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
    {
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(Wrap(kDark)))));
    }
};
} // namespace

TEST(DesktopSchemeTest, TakesALateAnswerAndEachChange)
{
    QProcess daemon;
    daemon.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                                 QStringLiteral("--print-address")});
    if (!daemon.waitForStarted())
        GTEST_SKIP() << "There is no dbus-daemon here.";
    ASSERT_TRUE(daemon.waitForReadyRead());
    const QByteArray address = daemon.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    QDBusConnection bus =
        QDBusConnection::connectToBus(QString::fromLatin1(address), QStringLiteral("portal"));
    CPortal portal;
    ASSERT_TRUE(bus.registerVirtualObject(kPath, &portal));
    ASSERT_TRUE(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));

    // The portal answers from this thread, so that the first question, which waits, has no answer in time.
    std::string told;
    const CDesktopScheme scheme([&told](bool dark) { told += dark ? "dark;" : "light;"; });
    EXPECT_FALSE(scheme.IsDark());
    EXPECT_TRUE(QTest::qWaitFor([&] { return scheme.IsDark(); }));
    QDBusMessage change = QDBusMessage::createSignal(kPath, QStringLiteral("org.freedesktop.portal.Settings"),
                                                     QStringLiteral("SettingChanged"));
    change << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme") << Wrap(kLight);
    bus.send(change);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !scheme.IsDark(); }));
    EXPECT_EQ(told, "dark;light;");
    daemon.kill();
    daemon.waitForFinished();
}
