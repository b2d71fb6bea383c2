// The questions of a refresh about a file that another program changed or deleted while its object has
// changes in memory or is checked out. Yes takes what is on the disk, No keeps what is in memory and is
// the answer of a host that has nobody to ask.
#pragma once

#include "host/Questions.h"

// Yes: "Reload From File".
[[nodiscard]] CQuestion MakeExternalModificationQuestion(std::u16string_view path);
// Yes: "Remove From Database".
[[nodiscard]] CQuestion MakeExternalDeletionQuestion(std::u16string_view path);
