// The seam between the core, which asks, and whoever answers: a window, a console, nobody.
//
// Every message box of the system passes through IQuestions::Ask. Long work reports through IProgress.
#pragma once

#include <memory>
#include <string>
#include <string_view>

enum class EButtons
{
    Ok,
    OkCancel,
    YesNo,
    YesNoCancel,
    AbortRetryIgnore,
};

enum class EIcon
{
    None,
    Information,
    Question,
    Exclamation,
    Stop,
};

// The numbers are those of message boxes. A silent run answers Abort, which is none of yes, no or cancel.
enum class EAnswer : int
{
    Ok = 1,
    Cancel = 2,
    Abort = 3,
    Retry = 4,
    Ignore = 5,
    Yes = 6,
    No = 7,
};

struct CQuestion
{
    std::u16string m_sTitle;
    std::u16string m_sText;
    EButtons m_Buttons = EButtons::Ok;
    EIcon m_Icon = EIcon::Exclamation;
    // The answer that changes nothing: what a host takes when there is nobody to ask.
    EAnswer m_Unattended = EAnswer::Ok;
    // What a plain message box does not have; empty there.
    std::u16string m_sFile;    // The file that the question is about, on a read-only line of its own.
    std::u16string m_sWarning; // Set apart from the text.
    std::u16string m_sYes;     // Other words on the buttons than Yes and No.
    std::u16string m_sNo;
};

// A question with the unattended answer that fits its buttons: Ok, Cancel (with OK), No, Cancel (with Yes
// and No), Abort.
[[nodiscard]] CQuestion MakeQuestion(std::u16string_view title, std::u16string_view text, EButtons buttons,
                                     EIcon icon);

// Progress of one long operation; closes with the object.
class IProgress
{
public:
    virtual ~IProgress() = default;
    virtual void SetText(std::u16string_view text) = 0;
    // 0 to 100.
    virtual void SetPercent(int percent) = 0;
    // Lets the host breathe: a window handles its input. True once the user has cancelled.
    [[nodiscard]] virtual bool Pump() = 0;
};

class IQuestions
{
public:
    virtual ~IQuestions() = default;
    [[nodiscard]] virtual EAnswer Ask(const CQuestion& question) = 0;
    // Never null.
    [[nodiscard]] virtual std::unique_ptr<IProgress> CreateProgress(std::u16string_view title) = 0;
    // Brings work that was posted to the main thread forward; a window handles its input.
    virtual void PumpMessages() = 0;
    // Whether there is a window, whose input must be handled while long work runs. Such work then leaves the
    // main thread to it.
    [[nodiscard]] virtual bool HasWindow() const { return false; }

    // Shows a message with an OK button.
    void Tell(std::u16string_view title, std::u16string_view text, EIcon icon = EIcon::Exclamation);
};
