// SPDX-License-Identifier: MIT
#include "CurveTool.h"

#include <algorithm>
#include <iostream>

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace {

bool isErrorATerminal()
{
#ifdef STDERR_FILENO
    return isatty(STDERR_FILENO) != 0;
#else
    return false;
#endif
}

} // namespace

int main(int argc, char* argv[])
{
    std::ios_base::sync_with_stdio(false);
    const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
    return runCurveTool(words, {std::cin, std::cout, std::cerr, isErrorATerminal()});
}
