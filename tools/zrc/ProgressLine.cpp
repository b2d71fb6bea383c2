#include "ProgressLine.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>
#include <utility>

namespace
{
constexpr std::size_t kLongSize = 4 * 1024 * 1024;
} // namespace

CProgressLine::CProgressLine(std::string text, std::size_t total)
    : m_sText(std::move(text)), m_nTotal(total),
      m_bWatched(total >= kLongSize && ::isatty(STDERR_FILENO) != 0)
{
}

CProgressLine::~CProgressLine()
{
    if (m_nShown != 0)
        std::fputs("\r\x1b[K", stderr);
}

void CProgressLine::SetDone(std::size_t done)
{
    const std::size_t percent = m_bWatched ? std::min(done, m_nTotal) / (m_nTotal / 100) : 0;
    if (percent <= m_nShown)
        return;
    m_nShown = percent;
    std::fprintf(stderr, "\r%s %zu %%\x1b[K", m_sText.c_str(), std::min<std::size_t>(percent, 100));
}
