// Node text as people read it: a list a line, indented by its depth, with the lists in it below.
//
// Takes any bytes. A parenthesis without its other half, a quote that is not closed or a tree of any depth
// are shown for what they are; from kDeepest on lines are not indented further. Control characters are shown
// escaped ("\n", "\x1b") and bad bytes as U+FFFD, so that a text cannot drive a terminal.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// A text of UTF-8 with its control characters escaped.
[[nodiscard]] std::string EscapeControls(std::string_view text);

class CNodeView
{
public:
    // Takes the next piece of the shown text; false when it takes no more.
    using Sink = std::function<bool(std::string_view)>;

    static constexpr std::size_t kDeepest = 40;

    explicit CNodeView(Sink sink) : m_Sink(std::move(sink)) {}

    // Shows the whole of `text`, once. False when the sink took no more.
    [[nodiscard]] bool Show(std::string_view text);

private:
    void BeginList();
    void EndList();
    // Shows the atom at the head of the rest of a text; the number of its bytes.
    std::size_t ShowAtom(std::string_view rest);
    void BeginLine();
    void Put(std::string_view text);

    Sink m_Sink;
    bool m_bOpen = true; // The sink has taken everything so far.
    std::string m_sPending;
    std::vector<bool> m_HasLists; // For each open list: whether one stands in it.
    bool m_bLineUsed = false;
    bool m_bBlankDue = false; // Before the next atom of the line.
    bool m_bListEnded = false;
};
