#include "host/SystemServices.h"

#include "host/ClockText.h"

#include "FileSystem.h"
#include "Path.h"
#include "Unicode.h"

#include <gio/gio.h>

#include <cstdio>
#include <memory>
#include <unistd.h>

namespace
{
constexpr int kFileManagerWait = 3000; // Milliseconds; one that must start first takes its time.

struct CObjectRelease
{
    void operator()(gpointer object) const { g_object_unref(object); }
};
struct CVariantRelease
{
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
};
struct CTextRelease
{
    void operator()(char* text) const { g_free(text); }
};
using FFile = std::unique_ptr<GFile, CObjectRelease>;
using FText = std::unique_ptr<char, CTextRelease>;

FText GetUri(const std::string& path)
{
    const FFile file(g_file_new_for_path(path.c_str()));
    return FText(g_file_get_uri(file.get()));
}

// Asks the desktop's file manager, under the name that all of them answer to.
bool SelectInFileManager(const char* uri)
{
    const std::unique_ptr<GDBusConnection, CObjectRelease> bus(
        g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (!bus)
        return false;
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    const char* uris[] = {uri, nullptr};
    const std::unique_ptr<GVariant, CVariantRelease> answer(g_dbus_connection_call_sync(
        bus.get(), "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
        "org.freedesktop.FileManager1", "ShowItems", g_variant_new("(^ass)", uris, ""), nullptr,
        G_DBUS_CALL_FLAGS_NONE, kFileManagerWait, nullptr, nullptr));
    return answer != nullptr;
}
} // namespace

std::u16string CSystemServices::GetTimeText()
{
    return ToWide(GetClockTime());
}

std::u16string CSystemServices::GetDateText()
{
    return ToWide(GetClockDate());
}

std::u16string CSystemServices::GetUserName()
{
    return ToWide(g_get_user_name());
}

bool CSystemServices::OpenInShell(std::u16string_view path)
{
    if (!m_Files.Exists(path))
        return false;
    const FText uri = GetUri(m_Files.GetNativePath(path));
    return g_app_info_launch_default_for_uri(uri.get(), nullptr, nullptr) != FALSE;
}

bool CSystemServices::OpenLink(std::u16string_view address)
{
    return g_app_info_launch_default_for_uri(ToNarrow(address).c_str(), nullptr, nullptr) != FALSE;
}

bool CSystemServices::ShowInFolder(std::u16string_view path)
{
    if (m_Files.Exists(path) && SelectInFileManager(GetUri(m_Files.GetNativePath(path)).get()))
        return true;
    return OpenInShell(GetDirectoryPart(path));
}

bool CSystemServices::PlaySoundFile(std::u16string_view)
{
    return false;
}

bool CSystemServices::MoveToRecycleBin(std::u16string_view path)
{
    if (!m_Files.Exists(path))
        return false;
    const FFile file(g_file_new_for_path(m_Files.GetNativePath(path).c_str()));
    return g_file_trash(file.get(), nullptr, nullptr) != FALSE;
}

void CSystemServices::Beep()
{
    // A log file must not get the bell's character.
    if (::isatty(STDERR_FILENO) != 0)
        std::fputc('\a', stderr);
}
