// The two forms in which a record is shown, which docs/corvanectl.md describes.
#pragma once

#include <string>

class CJsonReport;
struct SShownRecord;

// A head, then an attribute a line with its values, marks and comment below it. UTF-8.
[[nodiscard]] std::string FormatRecord(const SShownRecord& record);
// The fields of the report between its frame.
void WriteRecord(CJsonReport& report, const SShownRecord& record);
