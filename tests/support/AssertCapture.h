// Records assertions for the length of a test, so that a test can say which ones must fire.
#pragma once

#include "zrassert.h"

#include <string>
#include <vector>

class CAssertCapture
{
public:
    CAssertCapture();
    ~CAssertCapture();
    CAssertCapture(const CAssertCapture&) = delete;
    CAssertCapture& operator=(const CAssertCapture&) = delete;

    struct SEntry
    {
        std::string expression;
        std::string message;
    };

    const std::vector<SEntry>& GetEntries() const { return m_Entries; }
    // True when an entry's expression or message equals `text`.
    bool Has(const std::string& text) const;

private:
    static int Handle(const char* expression, const char* file, int line, const char* function,
                      const char* message);

    static CAssertCapture* s_pCurrent;
    CAssertCapture* m_pOuter;
    ZRAssertHandler m_pBefore;
    std::vector<SEntry> m_Entries;
};
