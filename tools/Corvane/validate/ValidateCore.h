// Walks records and collects what their attributes report as not usable. Nothing is repaired.
//
// The findings hold references on attributes, which know their manager: a core must not outlive the manager
// whose records it walked. Main thread only.
#pragma once

#include "ValidateError.h"
#include "ValidationSink.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CBuildFilter;
class CCorvaneCategory;
class CCorvaneMgr;
class CCorvaneRecord;
class IFileSystem;

class CValidateCore final : public IValidationSink
{
public:
    explicit CValidateCore(std::uint32_t build = 0) : m_nBuild(build) {}

    void AddError(ESeverity severity, std::u16string_view type, std::u16string_view description,
                  CCorvaneAttrib* attrib, std::size_t valueIndex) override;
    [[nodiscard]] std::uint32_t GetBuild() const override { return m_nBuild; }
    // Forgets the findings and zeroes the counts.
    void Clear();

    // Starts over with `build` and checks every record, then writes the log when the run has a log path. True
    // when no attribute failed; a log that cannot be written does not change that.
    [[nodiscard]] bool ValidateDatabase(CCorvaneMgr& manager, std::uint32_t build);
    // These add to what is there. All records and attributes are checked, also after a failure.
    [[nodiscard]] bool ValidateCategory(CCorvaneCategory& category);
    [[nodiscard]] bool ValidateRecord(CCorvaneRecord& record);

    // In the order of reporting.
    [[nodiscard]] std::span<const CValidateError> GetErrors() const { return m_Errors; }
    [[nodiscard]] std::uint32_t GetCriticalCount() const { return m_nCritical; }
    [[nodiscard]] std::uint32_t GetWarningCount() const { return m_nWarnings; }

    // The log of a batch run; its form is described in docs/formats/validation-log.md. Directories above the
    // file are created. False when the file cannot be written.
    [[nodiscard]] bool WriteLog(IFileSystem& files, std::u16string_view path) const;
    // The list as a person copies or saves it: titles, then one line a finding, fields between tabs. Values
    // are counted from 1.
    [[nodiscard]] std::u16string FormatList() const;
    // The list in a file of its own, UTF-16 with its mark. False when it cannot be written.
    [[nodiscard]] bool SaveList(IFileSystem& files, std::u16string_view path) const;

private:
    [[nodiscard]] bool CheckCategory(CCorvaneCategory& category, CBuildFilter& filter);
    [[nodiscard]] bool CheckRecord(CCorvaneRecord& record, CBuildFilter& filter);

    std::vector<CValidateError> m_Errors;
    std::uint32_t m_nCritical = 0;
    std::uint32_t m_nWarnings = 0;
    std::uint32_t m_nBuild;
};
