// SPDX-License-Identifier: MIT
#include "Arguments.h"

#include "Fault.h"

#include <curveeditor/files/TextFields.h>

#include <algorithm>
#include <cmath>

namespace {

const Option& find(const std::vector<Option>& options, const std::string& name)
{
    const auto found = std::find_if(options.begin(), options.end(),
                                    [&](const Option& option) { return option.name == name; });
    if (found == options.end())
        throw UsageFault("there is no option " + TextFields::inQuotes("--" + name));
    return *found;
}

} // namespace

Arguments::Arguments(const std::vector<std::string>& words, const std::vector<Option>& options)
{
    bool areOperands = false;
    for (auto word = words.begin(); word != words.end(); ++word) {
        if (areOperands || word->size() < 2 || word->front() != '-') {
            operands_.push_back(*word);
            continue;
        }
        if (*word == "--") {
            areOperands = true;
            continue;
        }
        std::string name = *word == "-o" ? "--output" : *word == "-h" ? "--help" : *word;
        if (name.compare(0, 2, "--") != 0)
            throw UsageFault("there is no option " + TextFields::inQuotes(*word));
        name.erase(0, 2);
        const std::size_t equals = name.find('=');
        const bool isJoined = equals != name.npos;
        std::string value = isJoined ? name.substr(equals + 1) : std::string();
        name.erase(std::min(equals, name.size()));

        const bool takesValue = !find(options, name).value.empty();
        if (isJoined && !takesValue)
            throw UsageFault("--" + name + " takes no value");
        if (takesValue && !isJoined) {
            if (++word == words.end())
                throw UsageFault("--" + name + " takes a value");
            value = *word;
        }
        if (!values_.emplace(name, value).second)
            throw UsageFault("--" + name + " is there twice");
    }
}

std::optional<std::string> Arguments::getText(const std::string& name) const
{
    const auto found = values_.find(name);
    return found == values_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<double> Arguments::getNumber(const std::string& name) const
{
    const std::optional<std::string> text = getText(name);
    if (!text)
        return std::nullopt;
    const std::optional<double> number = TextFields::number(*text);
    if (!number || !std::isfinite(*number))
        throw UsageFault("--" + name + ": " + TextFields::inQuotes(*text) + " is no number");
    return number;
}

std::optional<double> Arguments::getPositive(const std::string& name) const
{
    const std::optional<double> number = getNumber(name);
    if (number && !(*number > 0.0))
        throw UsageFault("--" + name + " has to be above 0");
    return number;
}
