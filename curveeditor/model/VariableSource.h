// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>
#include <curveeditor/model/FunctionParserBase.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

class FunctionFloatBase;
class ParserVarMapper;

namespace curveeditor {

/// The variables of one mapper that formulas have named. The mapper and the formulas that were parsed with it share
/// it. Once the mapper is gone all of them read 0.0.
class CURVEEDITOR_EXPORT VariableSource
{
public:
    using Key = FunctionParserBase::keyStruct;

    /// Null for variables that are set, not read.
    explicit VariableSource(const ParserVarMapper* mapper) : mapper_(mapper) {}
    VariableSource(const VariableSource&) = delete;
    VariableSource& operator=(const VariableSource&) = delete;

    static std::shared_ptr<VariableSource> of(const ParserVarMapper& mapper);

    /// Null when it is gone.
    const ParserVarMapper* mapper() const { return mapper_; }
    void letGo() { mapper_ = nullptr; }

    /// The variable of a stored name, of `type` from now on. It stays where it is.
    Key& key(std::string_view name, std::int32_t type);

    /// Asks the mapper for the variable of `key`, stores its value there, and returns it as the type of the key; 0.0 if
    /// the name is not known.
    double read(Key& key) const;
    /// The same at `count` times, as `ParserVarMapper::getValues`; the last value stays in `key`.
    void read(Key& key, const double* times, double framesPerTimeUnit, double* values,
              std::size_t count) const;

private:
    struct Variable
    {
        Key key;
        alignas(double) std::byte storage[sizeof(double)]{};
    };

    const ParserVarMapper* mapper_;
    std::map<std::string, Variable, std::less<>> variables_;
};

/// Whose names the text of a tree must not be read as: the mapper that it was parsed with or, without one, that of the
/// parser. Null if there is none.
const ParserVarMapper* mapperOf(const FunctionFloatBase& tree);

} // namespace curveeditor
