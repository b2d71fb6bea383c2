// What a user's edit of one value costs: in an undo group of its own, and undone again.
#pragma once

class CBenchHost;
struct SMeasurement;

// Edits values of the loaded database and leaves them as they were. False when an edit fails.
[[nodiscard]] bool MeasureEdits(CBenchHost& host, SMeasurement& out);
