// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

/// The command list of this application, older than the editor in it, and no `QUndoStack`.
class History
{
public:
    /// Does a command again, or takes it back, and adds none. Returns whether that was possible.
    using Step = std::function<bool(bool forward)>;

    /// Adds a command that is done already; those that were taken back go.
    void add(const std::string& name, Step step)
    {
        commands_.resize(done_);
        commands_.push_back({name, std::move(step)});
        ++done_;
    }
    void undo()
    {
        if (done_ > 0 && commands_[done_ - 1].step(false))
            --done_;
    }
    void redo()
    {
        if (done_ < commands_.size() && commands_[done_].step(true))
            ++done_;
    }
    /// Of the command that would be taken back; empty if there is none.
    std::string next() const { return done_ > 0 ? commands_[done_ - 1].name : std::string(); }

private:
    struct Command
    {
        std::string name;
        Step step;
    };

    std::vector<Command> commands_;
    std::size_t done_ = 0;
};
