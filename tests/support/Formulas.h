// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>

/// An expression of a host's own that no parser has made, and that counts those that live.
struct CountedNode : FunctionFloatBase
{
    explicit CountedNode(int& count) : living(++count) {}
    ~CountedNode() override { --living; }
    double evaluate() override { return 7.0; }
    std::string getString() override { return "no formula"; }
    int& living;
};

/// The curves that formulas read once they are parsed.
struct ReadCurves : CurveVariables
{
    ReadCurves() { FunctionParserBase::instance()->setVarMapper(this); }
};

/// The formula, or null for a faulty text.
inline std::unique_ptr<FunctionFloatBase> parsed(const std::string& text)
{
    ParseMessage message;
    return std::unique_ptr<FunctionFloatBase>(FunctionParserBase::instance()->parseString(text, message));
}
