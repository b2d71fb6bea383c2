#include "host/SystemServices.h"

#include "host/ClockText.h"

#include "FileSystem.h"
#include "Unicode.h"

#include <gio/gio.h>

#include <cstdio>
#include <memory>
#include <unistd.h>

namespace
{
struct CObjectRelease
{
    void operator()(GFile* file) const { g_object_unref(file); }
};
struct CTextRelease
{
    void operator()(char* text) const { g_free(text); }
};
using FFile = std::unique_ptr<GFile, CObjectRelease>;
using FText = std::unique_ptr<char, CTextRelease>;
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
    const FFile file(g_file_new_for_path(m_Files.GetNativePath(path).c_str()));
    const FText uri(g_file_get_uri(file.get()));
    return g_app_info_launch_default_for_uri(uri.get(), nullptr, nullptr) != FALSE;
}

bool CSystemServices::OpenLink(std::u16string_view address)
{
    return g_app_info_launch_default_for_uri(ToNarrow(address).c_str(), nullptr, nullptr) != FALSE;
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
