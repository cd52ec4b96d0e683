// SPDX-License-Identifier: MIT
#include "CurveTool.h"

#include "Commands.h"
#include "Fault.h"

#include <curveeditor/files/TextFields.h>

#include <algorithm>
#include <exception>
#include <istream>
#include <ostream>

namespace {

enum ExitCode { Done = 0, FileFault = 1, BadUsage = 2 };

constexpr std::size_t helpColumn = 26;

std::vector<Command> allCommands()
{
    return {Commands::info(), Commands::sample(), Commands::simplify(), Commands::convert()};
}

void showHelp(std::ostream& out)
{
    out << "usage: curve-tool COMMAND ...\n"
           "Works with curve files without the editor. \"-\" is standard input or output.\n\n";
    for (const Command& command : allCommands())
        out << "  " << command.name << std::string(10 - command.name.size(), ' ') << command.summary << '\n';
    out << "\n  --help, COMMAND --help, --version\n"
           "\nExit codes: 0 done, 1 a file or its content is at fault, 2 the command line is.\n";
}

void showHelp(const Command& command, std::ostream& out)
{
    out << "usage: curve-tool " << command.name << " [OPTIONS] " << command.operands << '\n'
        << command.summary << "\n\n";
    for (const Option& option : command.options) {
        std::string left = "  --" + std::string(option.name);
        if (!option.value.empty())
            left += ' ' + std::string(option.value);
        left.resize(std::max(left.size() + 1, helpColumn), ' ');
        out << left << option.help << '\n';
    }
}

void checkOperands(const Command& command, const Arguments& arguments)
{
    const auto most = std::size_t(std::count(command.operands.begin(), command.operands.end(), ' ')) + 1;
    if (arguments.getOperands().empty())
        throw UsageFault("the file is missing");
    if (arguments.getOperands().size() > most)
        throw UsageFault(TextFields::inQuotes(arguments.getOperands()[most]) + " is one operand too many");
}

void runCommand(const std::vector<std::string>& words, const Streams& streams)
{
    if (words.empty())
        throw UsageFault("a command is missing");
    if (words[0] == "--help" || words[0] == "-h")
        return showHelp(streams.out);
    if (words[0] == "--version") {
        streams.out << "curve-tool " CURVE_TOOL_VERSION "\n";
        return;
    }
    for (const Command& command : allCommands()) {
        if (command.name != words[0])
            continue;
        const Arguments arguments({words.begin() + 1, words.end()}, command.options);
        if (arguments.has("help"))
            return showHelp(command, streams.out);
        checkOperands(command, arguments);
        return command.run(arguments, streams);
    }
    throw UsageFault("there is no command " + TextFields::inQuotes(words[0]));
}

} // namespace

int runCurveTool(const std::vector<std::string>& words, const Streams& streams)
{
    try {
        runCommand(words, streams);
        streams.out.flush();
        if (streams.out)
            return Done;
        streams.messages << "standard output: could not be written\n";
    } catch (const UsageFault& fault) {
        streams.messages << "curve-tool: " << fault.what() << "; see curve-tool --help\n";
        return BadUsage;
    } catch (const std::bad_alloc&) {
        streams.messages << "curve-tool: there is not enough memory\n";
    } catch (const std::exception& fault) {
        streams.messages << fault.what() << '\n';
    }
    return FileFault;
}
