// Asks, after a compile for the server, to test the packed file before it is submitted.
#pragma once

#include <QDialog>
#include <string_view>

class CTestBuildDlg final : public QDialog
{
public:
    // `target` is the packed file. Accepted means Continue, rejected Abort.
    CTestBuildDlg(std::u16string_view target, QWidget* parent);
};
