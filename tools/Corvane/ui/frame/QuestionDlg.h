// One message box: icon, text, and where the question has them a file, a warning and words of its own on the
// buttons.
#pragma once

#include "host/Questions.h"

#include <QDialog>
#include <array>

class QDialogButtonBox;
class QLabel;

class CQuestionDlg final : public QDialog
{
    Q_OBJECT

public:
    CQuestionDlg(const CQuestion& question, QWidget* parent);

    // Valid once the box has ended. Escape and the window's own button take Cancel where there is one, else
    // the answer that changes nothing.
    [[nodiscard]] EAnswer GetAnswer() const { return m_Answer; }

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QWidget* MakeText(const QString& text);
    [[nodiscard]] QWidget* MakeFile(const QString& path);
    [[nodiscard]] QWidget* MakeWarning(const QString& warning);
    [[nodiscard]] QLabel* MakeLabel(const QString& text, const char* name);
    void AddButtons(const CQuestion& question);
    void Answer(EAnswer answer);
    void Copy() const;

    CQuestion m_Question;
    QDialogButtonBox* m_pButtons;
    EAnswer m_Answer;
};
