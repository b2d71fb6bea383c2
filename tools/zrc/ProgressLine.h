// How far a long conversion is: a line on standard error that goes when the object goes. Nothing for a short
// one, or where nobody watches.
#pragma once

#include <cstddef>
#include <string>

class CProgressLine
{
public:
    // `text` is UTF-8 without control characters; `total` the number of bytes to convert.
    CProgressLine(std::string text, std::size_t total);
    ~CProgressLine();
    CProgressLine(const CProgressLine&) = delete;
    CProgressLine& operator=(const CProgressLine&) = delete;

    void SetDone(std::size_t done);

private:
    std::string m_sText;
    std::size_t m_nTotal;
    std::size_t m_nShown = 0; // Per cent.
    bool m_bWatched;
};
