#include "DesktopScheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#include <QPalette>

namespace
{
constexpr int kPatience = 100; // Milliseconds.
constexpr unsigned kPreferDark = 1;
constexpr unsigned kPreferLight = 2;

const QString& GetService()
{
    static const QString name = QStringLiteral("org.freedesktop.portal.Desktop");
    return name;
}
const QString& GetPath()
{
    static const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
    return path;
}
const QString& GetInterface()
{
    static const QString name = QStringLiteral("org.freedesktop.portal.Settings");
    return name;
}
const QString& GetSpace()
{
    static const QString name = QStringLiteral("org.freedesktop.appearance");
    return name;
}
const QString& GetKey()
{
    static const QString name = QStringLiteral("color-scheme");
    return name;
}

// Asking for a bus where there is none would start one.
bool HasSessionBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

QDBusMessage MakeQuestion()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(GetService(), GetPath(), GetInterface(), QStringLiteral("Read"));
    question << GetSpace() << GetKey();
    return question;
}

// The portal wraps an answer in one variant or in two.
unsigned ToPreference(QVariant value)
{
    while (value.userType() == qMetaTypeId<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt();
}
} // namespace

CDesktopScheme::CDesktopScheme(std::function<void(bool)> changed)
    : m_Changed(std::move(changed)),
      m_bPlatformDark(QApplication::palette().color(QPalette::Window).lightness() < 128),
      m_bDark(m_bPlatformDark)
{
    if (HasSessionBus())
        AskPortal();
}

void CDesktopScheme::AskPortal()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(GetService(), GetPath(), GetInterface(), QStringLiteral("SettingChanged"), this,
                SLOT(OnSettingChanged(QDBusMessage)));
    const QDBusMessage answer = bus.call(MakeQuestion(), QDBus::Block, kPatience);
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
        Take(ToPreference(answer.arguments().constFirst()));
    else if (QDBusError(answer).type() == QDBusError::NoReply)
        AskAgain(); // It is being started: its answer is taken when it comes.
}

void CDesktopScheme::AskAgain()
{
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(MakeQuestion()), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished)
            {
                const QDBusPendingReply<QDBusVariant> reply = *finished;
                finished->deleteLater();
                if (reply.isValid())
                    Take(ToPreference(reply.value().variant()));
            });
}

void CDesktopScheme::OnSettingChanged(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    if (arguments.size() == 3 && arguments[0] == GetSpace() && arguments[1] == GetKey())
        Take(ToPreference(arguments[2]));
}

void CDesktopScheme::Take(unsigned preference)
{
    const bool dark = preference == kPreferDark || (preference != kPreferLight && m_bPlatformDark);
    if (dark == m_bDark)
        return;
    m_bDark = dark;
    m_Changed(dark);
}
