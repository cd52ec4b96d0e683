// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// Answers whether a curve's expression depends on the curve itself. The canvas asks; the editor, which knows
/// every registered curve, answers.
class DependencyCheck
{
public:
    virtual ~DependencyCheck() = default;

    /// The name by which expressions know the curve: the full name as `ParserVarMapper` stores it, with "_"
    /// for each blank and ASCII letters in lower case. Capitals beyond ASCII stay.
    static QString lowerVariableName(const QString& fullName);

    /// Follows the expressions from the curve `current` on, and returns true if one of them reads
    /// `firstFunc`. Both are lower variable names. On true `withFunc` becomes the full name of the curve
    /// through which the cycle runs; on false it stays as it is.
    virtual bool checkDependencies(const QString& firstFunc, const QString& current, QString& withFunc) = 0;

    /// The lower variable names of all curves whose expressions read the curve of that lower variable name,
    /// directly or through others.
    virtual QStringList readersOf(const QString& curve) const = 0;
};
