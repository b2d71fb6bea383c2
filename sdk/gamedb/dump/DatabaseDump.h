// Shows a packed database as text. A failed stream ends the work early; look at its state afterwards.
#pragma once

#include <iosfwd>

class CGameDatabase;
class CGameRecord;

// The whole database as one JSON object: "format", "categories" and "records".
void DumpDatabase(const CGameDatabase& database, std::ostream& out);
// One record as a JSON object, as it stands in the whole.
void DumpRecord(const CGameRecord& record, std::ostream& out);
// The attributes of each schema that has records: "<schema>.<attribute> <type>" and a line end, in the order
// of their bytes and each once, so that two databases are compared line by line. A struct's member stands
// behind
// "[]." and its struct's name.
void DumpAttributes(const CGameDatabase& database, std::ostream& out);
// Counts and sizes, and the records of each schema, as aligned lines.
void DumpSummary(const CGameDatabase& database, std::ostream& out);
