// The start of the toolkit, which by itself ends the process where there is no display.
#pragma once

#include <memory>

class QApplication;

// Null when there is no display to show windows on, or no font to show text with; standard error says which.
// A display that is named but cannot be reached ends the process with the status of a failed start, and tells
// it.
[[nodiscard]] std::unique_ptr<QApplication> StartToolkit();
