// SPDX-License-Identifier: MIT
#include "CurveTool.h"

#include <algorithm>
#include <iostream>

#ifdef _WIN32
#include "TextFiles.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace {

int run(const std::vector<std::string>& words, bool isErrorATerminal)
{
    std::ios_base::sync_with_stdio(false);
    return runCurveTool(words, {std::cin, std::cout, std::cerr, isErrorATerminal});
}

} // namespace

#ifdef _WIN32
int wmain(int argc, wchar_t* argv[])
{
    std::vector<std::string> words;
    for (int i = 1; i < argc; ++i)
        words.push_back(TextFiles::toName(argv[i]));
    for (const int stream : {0, 1, 2}) // the same bytes as elsewhere
        _setmode(stream, _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
    return run(words, _isatty(2) != 0);
}
#else
int main(int argc, char* argv[])
{
    return run({argv + std::min(argc, 1), argv + argc}, isatty(STDERR_FILENO) != 0);
}
#endif
