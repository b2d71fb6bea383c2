// Asks how a record is to be copied.
#pragma once

#include <QDialog>

class QRadioButton;

enum class ERecordCopy : int
{
    Clone = 0,
    Reference = 1,
};

class CRecordCopyDlg final : public QDialog
{
public:
    explicit CRecordCopyDlg(QWidget* parent);

    // What was chosen; for a dialog that was accepted.
    [[nodiscard]] ERecordCopy GetMethod() const;

private:
    QRadioButton* m_pReference = nullptr;
};
