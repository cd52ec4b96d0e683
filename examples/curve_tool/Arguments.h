// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// An option of a command, written `--name` or, with a value, `--name VALUE` or `--name=VALUE`.
struct Option
{
    std::string_view name;
    std::string_view value; ///< what the help calls it; empty for a switch
    std::string_view help;
};

/// The words behind the name of a command. `-o` stands for `--output`, `-h` for `--help`; behind `--` all words are
/// operands. A value is taken whatever it looks like, so that it may be negative.
class Arguments
{
public:
    /// Throws a `UsageFault` for an option that is unknown, is there twice, or whose value is missing.
    Arguments(const std::vector<std::string>& words, const std::vector<Option>& options);

    const std::vector<std::string>& getOperands() const { return operands_; }
    bool has(const std::string& name) const { return values_.count(name) > 0; }
    std::optional<std::string> getText(const std::string& name) const;
    /// Throws a `UsageFault` for a value that is no finite number.
    std::optional<double> getNumber(const std::string& name) const;
    /// The same, for one that must be above 0.0.
    std::optional<double> getPositive(const std::string& name) const;

private:
    std::map<std::string, std::string> values_;
    std::vector<std::string> operands_;
};
