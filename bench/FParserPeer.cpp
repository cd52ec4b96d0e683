// SPDX-License-Identifier: MIT
#include "FParserPeer.h"

#include <fparser.hh>

class FParserPeer::Parser : public FunctionParser
{
};

FParserPeer::FParserPeer(const std::string& text) : parser_(std::make_unique<Parser>())
{
    parser_->Parse(text, "t,f");
}

FParserPeer::~FParserPeer() = default;

double FParserPeer::evaluate(double t, double f)
{
    const double variables[] = {t, f};
    return parser_->Eval(variables);
}
