// Whoever can run commands: a pane, a frame. A frame's command set asks the active pane first, then the
// frame.
#pragma once

#include <QString>
#include <optional>

struct SCommandState
{
    bool m_bEnabled = false;
    std::optional<bool> m_bChecked; // None for a command that is no switch.
    QString m_sLabel;               // Instead of the table's, with '&' for the mnemonic; empty keeps that.
    QString m_sWhyNot;              // Tip of a command that is disabled; empty keeps the table's tip.
};

class ICommandTarget
{
public:
    // False when the command is not this target's; `state` is untouched then. Called often: cheap.
    [[nodiscard]] virtual bool GetCommandState(int id, SCommandState& state) = 0;
    // Runs a command that GetCommandState has just called enabled. False when it is not this target's.
    virtual bool RunCommand(int id) = 0;

protected:
    ~ICommandTarget() = default;
};
