// What the desktop prefers, light or dark, and when that changes. The settings portal of freedesktop.org
// tells; without one the palette that the platform came with decides.
#pragma once

#include <QDBusMessage>
#include <QObject>
#include <functional>

class CDesktopScheme final : public QObject
{
    Q_OBJECT

public:
    // Asks at once, and waits for the portal a tenth of a second at most, so that no window shows in the
    // wrong theme first. `changed` is called with true for dark at each later answer.
    explicit CDesktopScheme(std::function<void(bool dark)> changed);

    [[nodiscard]] bool IsDark() const { return m_bDark; }

private:
    // The whole message: the bus calls a slot with a QDBusVariant parameter only now and then.
    Q_SLOT void OnSettingChanged(const QDBusMessage& message);
    void AskPortal();
    void AskAgain();
    void Take(unsigned preference);

    std::function<void(bool)> m_Changed;
    bool m_bPlatformDark;
    bool m_bDark;
};
