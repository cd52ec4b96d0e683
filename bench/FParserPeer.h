// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

/// A formula of fparser in t and f. Its headers have a class of the same name as ours.
class FParserPeer
{
public:
    explicit FParserPeer(const std::string& text);
    ~FParserPeer();

    double evaluate(double t, double f);

private:
    class Parser;
    std::unique_ptr<Parser> parser_;
};
