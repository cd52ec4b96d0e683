// SPDX-License-Identifier: MIT
#include <curveeditor/model/ParserVarMapper.h>

#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/model/ExpressionToken.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/VariableSource.h>

#include <algorithm>
#include <iterator>
#include <set>

using namespace curveeditor;

namespace {

bool endsInsideName(std::string_view text, std::size_t length)
{
    return length < text.size() && isNameByte(text[length - 1]) && isNameByte(text[length]);
}

bool equalFolded(char a, char b)
{
    return toLowerAscii(a) == toLowerAscii(b);
}

bool lessFolded(char a, char b)
{
    return static_cast<unsigned char>(toLowerAscii(a)) < static_cast<unsigned char>(toLowerAscii(b));
}

/// Without regard to ASCII case.
struct NameOrder
{
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const
    {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), lessFolded);
    }
};

std::size_t commonLength(std::string_view a, std::string_view b)
{
    return std::size_t(std::mismatch(a.begin(), a.end(), b.begin(), b.end(), equalFolded).first - a.begin());
}

} // namespace

struct ParserVarMapper::Private
{
    explicit Private(const ParserVarMapper& owner) : source(std::make_shared<VariableSource>(&owner)) {}

    std::shared_ptr<VariableSource> source;
    std::set<std::string, NameOrder> names;
};

ParserVarMapper::ParserVarMapper() : d_(std::make_unique<Private>(*this)) {}

ParserVarMapper::~ParserVarMapper()
{
    FunctionParserBase* const parser = FunctionParserBase::instance();
    if (parser->getVarMapper() == this)
        parser->setVarMapper(nullptr);
    d_->source->letGo();
}

std::shared_ptr<VariableSource> VariableSource::of(const ParserVarMapper& mapper)
{
    return mapper.d_->source;
}

void ParserVarMapper::getValues(const std::string& name, const double* times, double framesPerTimeUnit,
                                double* values, std::size_t count) const
{
    EvaluationTime now;
    for (std::size_t i = 0; i < count; ++i) {
        now.set(times[i], framesPerTimeUnit);
        values[i] = hasName(name) ? getValue(name) : 0.0;
    }
}

const FunctionFloatBase* ParserVarMapper::getExpression(const std::string&) const
{
    return nullptr;
}

std::int32_t ParserVarMapper::getType(const std::string&) const
{
    return 3;
}

bool ParserVarMapper::hasName(std::string_view name) const
{
    return d_->names.find(name) != d_->names.end();
}

std::size_t ParserVarMapper::getNameLength(std::string_view text) const
{
    // Of the names up to `begin`, the last is its longest beginning, or else shows how long one can be at
    // most.
    std::string_view begin = text;
    while (!begin.empty()) {
        const auto behind = d_->names.upper_bound(begin);
        if (behind == d_->names.begin())
            break;
        const std::string& name = *std::prev(behind);
        const std::size_t common = commonLength(begin, name);
        if (common < name.size()) {
            begin = begin.substr(0, common);
        } else if (endsInsideName(text, common)) {
            begin = begin.substr(0, common - 1);
        } else {
            return common;
        }
    }
    return 0;
}

std::string ParserVarMapper::getStoredName(std::string_view name)
{
    std::string stored(name);
    std::transform(stored.begin(), stored.end(), stored.begin(),
                   [](char c) { return isBlank(c) ? '_' : toLowerAscii(c); });
    return stored;
}

void ParserVarMapper::addName(std::string_view name)
{
    if (!name.empty())
        d_->names.insert(getStoredName(name));
}

void ParserVarMapper::removeName(std::string_view name)
{
    const auto place = d_->names.find(getStoredName(name));
    if (place != d_->names.end())
        d_->names.erase(place);
}
