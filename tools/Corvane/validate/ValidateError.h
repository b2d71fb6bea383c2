// One finding of a validation. Copies share the attribute by reference.
#pragma once

#include "CorvaneAttrib.h"
#include "ValidationSink.h"

#include <cstddef>
#include <string>

struct CValidateError
{
    ESeverity m_Severity = ESeverity::Warning;
    std::u16string m_sType; // A short label, such as "Invalid Record Link".
    std::u16string m_sDescription;
    std::size_t m_nValueIndex = 0;  // From 0.
    CRef<CCorvaneAttrib> m_pAttrib; // Null when the finding belongs to no attribute.
};
