// Holds the packed values of a record against what its source file says, each type by a reading of its own.
#pragma once

#include "SampleFiles.h"

class CGameRecord;

// Every attribute that the build has and no other, with all values; structs row by row, links followed.
void ExpectRecord(const CGameRecord& packed, const CSampleFiles& files, const CSampleFiles::SRecord& source,
                  std::uint32_t build);
