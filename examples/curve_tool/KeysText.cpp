// SPDX-License-Identifier: MIT
#include "KeysText.h"

#include "Fault.h"
#include "TextNumber.h"

#include <curveeditor/files/TextFields.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <ostream>
#include <sstream>
#include <utility>
#include <vector>

namespace {

using nlohmann::json;
using nlohmann::ordered_json;

constexpr std::string_view formatName = "curve-keys";
constexpr double formatVersion = 1.0;
constexpr std::size_t longestReason = 200; // bytes

constexpr std::array shapeNames{"hold", "linear", "bezier"}; // in the order of `CurveKeys::Shape`
constexpr std::array behaviourNames{"zero", "constant", "loop", "loop-offset", "follow-tangent"};
constexpr std::size_t behavioursBefore = 2;

/// Takes the pieces of a text one by one, and refuses the first one that has no place in the form. So nothing is kept
/// of a text but the curve, however deep or long it is.
class KeysReader : public nlohmann::json_sax<json>
{
public:
    explicit KeysReader(std::string_view text) : text_(text), in_(std::string(text)) {}

    KeysText read()
    {
        json::sax_parse(in_, this);
        return std::move(result_);
    }

    bool null() override { refuse("can't be null"); }
    bool boolean(bool) override { refuse("can't be true or false"); }
    bool number_integer(std::int64_t number) override { return takeNumber(double(number)); }
    bool number_unsigned(std::uint64_t number) override { return takeNumber(double(number)); }
    bool number_float(double number, const std::string&) override { return takeNumber(number); }
    bool string(std::string& text) override { return takeText(text); }
    bool binary(json::binary_t&) override { refuse("can't be binary"); }
    bool start_object(std::size_t) override;
    bool key(std::string& name) override;
    bool end_object() override;
    bool start_array(std::size_t) override;
    bool end_array() override;
    bool parse_error(std::size_t place, const std::string& token,
                     const nlohmann::detail::exception& fault) override;

private:
    enum class Kind { Curve, Color, Keys, Key, Side, Ease };
    /// An object or array that has begun and not yet ended.
    struct Level
    {
        Kind kind;
        std::vector<std::string> names{}; ///< that an object has had, the last one that of the present value
        std::size_t count = 0;            ///< of the elements that an array has had
    };

    bool isIn(Kind kind) const { return !levels_.empty() && levels_.back().kind == kind; }
    bool isAt(Kind kind, std::string_view name) const
    {
        return isIn(kind) && levels_.back().names.back() == name;
    }
    bool has(std::string_view name) const
    {
        const auto& names = levels_.back().names;
        return std::find(names.begin(), names.end(), name) != names.end();
    }
    bool enter(Kind kind)
    {
        levels_.push_back({kind});
        return true;
    }
    bool leave()
    {
        levels_.pop_back();
        return true;
    }

    bool takeNumber(double number);
    bool takeText(const std::string& text);
    void takeColor(double number);
    void takeEase(double number);
    void finishKey();
    void finishCurve();
    template <std::size_t count>
    std::size_t indexIn(const std::array<const char*, count>& names, const std::string& text,
                        std::size_t end = count) const;

    CurveKeys::Key& present() { return result_.curve.keys.back(); }
    CurveKeys::Side& side()
    {
        return levels_[levels_.size() - 2].names.back() == "in" ? present().arriving : present().leaving;
    }
    std::string path() const;
    [[noreturn]] void refuse(const std::string& reason) const
    {
        refuseAt(readBytes(), path() + ' ' + reason);
    }
    [[noreturn]] void refuseAt(std::size_t place, const std::string& reason) const;
    std::size_t readBytes() const
    {
        return std::size_t(
                   std::max<std::streamoff>(in_.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in), 1)) -
               1;
    }

    std::string_view text_;
    std::istringstream in_;
    KeysText result_;
    std::vector<Level> levels_;
    std::array<double, 4> ease_{};
    bool followsEase_ = false; ///< the key before the present one has an ease
    std::vector<std::pair<std::size_t, std::array<double, 4>>> eases_; ///< of the segments from these keys
};

std::string KeysReader::path() const
{
    std::string path;
    for (const Level& level : levels_) {
        if (!level.names.empty())
            path += (path.empty() ? "" : ".") + level.names.back();
        else if (level.count > 0)
            path += '[' + std::to_string(level.count - 1) + ']';
    }
    return path.empty() ? "the curve" : TextFields::printable(TextFields::shortened(path, longestReason));
}

void KeysReader::refuseAt(std::size_t place, const std::string& reason) const
{
    const std::string_view before = text_.substr(0, place);
    throw TextFault(std::size_t(std::count(before.begin(), before.end(), '\n')) + 1, reason);
}

bool KeysReader::parse_error(std::size_t place, const std::string&, const nlohmann::detail::exception& fault)
{
    std::string_view reason = fault.what();
    for (const std::string_view end : {"] ", "column "}) {
        const std::size_t found = reason.find(end);
        if (found != reason.npos)
            reason.remove_prefix(found + (end == "] " ? end.size() : 0));
    }
    refuseAt(std::max<std::size_t>(place, 1) - 1,
             TextFields::printable(TextFields::shortened(reason, longestReason)));
}

bool KeysReader::start_object(std::size_t)
{
    if (levels_.empty())
        return enter(Kind::Curve);
    if (isIn(Kind::Keys)) {
        ++levels_.back().count;
        if (result_.curve.keys.size() == CurveKeys::pointLimit)
            refuse("is one key too many");
        result_.curve.keys.push_back({});
        return enter(Kind::Key);
    }
    if (isAt(Kind::Key, "in") || isAt(Kind::Key, "out"))
        return enter(Kind::Side);
    refuse("can't be an object");
}

bool KeysReader::start_array(std::size_t)
{
    if (isAt(Kind::Curve, "color"))
        return enter(Kind::Color);
    if (isAt(Kind::Curve, "keys"))
        return enter(Kind::Keys);
    if (isAt(Kind::Key, "ease"))
        return enter(Kind::Ease);
    refuse("can't be an array");
}

bool KeysReader::key(std::string& name)
{
    constexpr std::array<std::string_view, 8> curveNames{"format", "version", "color",   "before",
                                                         "after",  "default", "formula", "keys"};
    constexpr std::array<std::string_view, 6> keyNames{"time", "value", "shape", "in", "out", "ease"};
    constexpr std::array<std::string_view, 2> sideNames{"slope", "reach"};
    const auto isAmong = [&name](const auto& names) {
        return std::find(names.begin(), names.end(), name) != names.end();
    };
    const bool isTwice = has(name);
    levels_.back().names.push_back(name);
    if (isTwice)
        refuse("is there twice");
    if (!(isIn(Kind::Curve) ? isAmong(curveNames) : isIn(Kind::Key) ? isAmong(keyNames) : isAmong(sideNames)))
        refuse("is not known");
    return true;
}

bool KeysReader::end_object()
{
    if (isIn(Kind::Key))
        finishKey();
    if (isIn(Kind::Curve))
        finishCurve();
    return leave();
}

bool KeysReader::end_array()
{
    if (isIn(Kind::Color) && levels_.back().count != 3)
        refuse("ends a colour that is not of three numbers");
    if (isIn(Kind::Ease)) {
        if (levels_.back().count != ease_.size())
            refuse("ends an ease that is not of four numbers");
        eases_.emplace_back(result_.curve.keys.size() - 1, ease_);
    }
    return leave();
}

bool KeysReader::takeNumber(double number)
{
    if (isIn(Kind::Color)) {
        takeColor(number);
    } else if (isIn(Kind::Ease)) {
        takeEase(number);
    } else if (isAt(Kind::Key, "time")) {
        present().time = number;
    } else if (isAt(Kind::Key, "value")) {
        present().value = number;
    } else if (isAt(Kind::Side, "slope")) {
        side().slope = number;
    } else if (isAt(Kind::Side, "reach")) {
        if (!(number >= 0.0 && number <= 1.0))
            refuse("is not within 0 and 1");
        side().reach = number;
    } else if (isAt(Kind::Curve, "default")) {
        result_.curve.defaultValue = number;
    } else if (isAt(Kind::Curve, "version")) {
        if (number != formatVersion)
            refuse("is not 1, the only one that is known");
    } else {
        refuse("can't be a number");
    }
    return true;
}

void KeysReader::takeColor(double number)
{
    constexpr std::array components{&CurveFile::Color::red, &CurveFile::Color::green,
                                    &CurveFile::Color::blue};
    const std::size_t index = levels_.back().count++;
    if (index == components.size())
        refuse("is one number too many");
    if (!(number >= 0.0 && number <= 255.0 && number == std::floor(number)))
        refuse("is no whole number within 0 and 255");
    result_.color.*components[index] = int(number);
}

void KeysReader::takeEase(double number)
{
    const std::size_t index = levels_.back().count++;
    if (index == ease_.size())
        refuse("is one number too many");
    if (index % 2 == 0 && !(number >= 0.0 && number <= 1.0))
        refuse("is not within 0 and 1");
    ease_[index] = number;
}

template <std::size_t count>
std::size_t KeysReader::indexIn(const std::array<const char*, count>& names, const std::string& text,
                                std::size_t end) const
{
    const auto last = names.begin() + std::ptrdiff_t(end);
    const auto found = std::find(names.begin(), last, text);
    if (found == last)
        refuse("can't be " + TextFields::inQuotes(text));
    return std::size_t(found - names.begin());
}

bool KeysReader::takeText(const std::string& text)
{
    if (isAt(Kind::Key, "shape")) {
        present().shape = CurveKeys::Shape(indexIn(shapeNames, text));
    } else if (isAt(Kind::Curve, "before")) {
        result_.curve.firstType = std::int32_t(indexIn(behaviourNames, text, behavioursBefore));
    } else if (isAt(Kind::Curve, "after")) {
        result_.curve.lastType = std::int32_t(indexIn(behaviourNames, text));
    } else if (isAt(Kind::Curve, "format")) {
        if (text != formatName)
            refuse("is not " + TextFields::inQuotes(formatName));
    } else if (isAt(Kind::Curve, "formula")) {
        std::istringstream in(text);
        if (!CurveFile::readExpression(in, result_.formula) || result_.formula != text)
            refuse("is empty, too long, or has blanks");
    } else {
        refuse("can't be a text");
    }
    return true;
}

void KeysReader::finishKey()
{
    const auto& keys = result_.curve.keys;
    const bool hasAll = has("time") && has("value");
    const bool hasEase = has("ease"), hasHandleIn = has("in");
    const bool isDoubled = hasEase && (has("out") || keys.back().shape != CurveKeys::Shape::Bezier);
    if (!has("shape") && !hasEase && !has("out"))
        present().shape = CurveKeys::Shape::Linear;
    levels_.back().names.clear();
    if (!hasAll)
        refuse("has no time or no value");
    if (isDoubled)
        refuse("has an ease and another shape");
    if (hasHandleIn && followsEase_)
        refuse("has a handle where an ease arrives");
    followsEase_ = hasEase;
    if (keys.size() > 1 && keys.back().time < keys[keys.size() - 2].time)
        refuse("is earlier than the key before it");
}

void KeysReader::finishCurve()
{
    auto& keys = result_.curve.keys;
    const bool hasFormat = has("format") && has("version");
    const bool hasFormula = has("formula"), hasKeys = has("keys");
    levels_.back().names.clear();
    if (!hasFormat)
        refuse("has no format or no version");
    if (hasFormula == hasKeys)
        refuse("needs either keys or a formula");
    if (hasKeys && keys.empty())
        refuse("has no keys");
    for (const auto& [index, ease] : eases_) {
        if (index + 1 == keys.size())
            refuse("ends with an ease that leads nowhere");
        CurveKeys::setEase(keys[index], keys[index + 1], ease[0], ease[1], ease[2], ease[3]);
    }
}

ordered_json toJson(const CurveKeys::Side& side)
{
    ordered_json object{{"slope", side.slope}};
    if (side.reach != CurveKeys::usualReach)
        object["reach"] = side.reach;
    return object;
}

ordered_json toJson(const CurveKeys::Key& key)
{
    return {{"time", key.time},
            {"value", key.value},
            {"shape", shapeNames.at(std::size_t(key.shape))},
            {"in", toJson(key.arriving)},
            {"out", toJson(key.leaving)}};
}

} // namespace

KeysText KeysText::read(std::string_view text)
{
    return KeysReader(text).read();
}

void KeysText::tellDeviation(double deviation, std::ostream& messages)
{
    if (deviation > 0.0)
        messages << "the new curve is at most " << toShortLimit(deviation) << " away from the old one\n";
}

std::string KeysText::write() const
{
    ordered_json head{
        {"format", formatName}, {"version", 1}, {"color", {color.red, color.green, color.blue}}};
    if (formula.empty()) {
        head["before"] = behaviourNames.at(curve.firstType == SplineBase::Zero ? 0 : 1);
        head["after"] = behaviourNames.at(std::size_t(curve.lastType));
        head["default"] = curve.defaultValue;
    } else {
        head["formula"] = formula;
    }
    std::string text;
    try {
        text = head.dump();
    } catch (const json::type_error&) {
        throw Fault("the formula is no UTF-8");
    }
    if (formula.empty()) {
        text.replace(text.size() - 1, 1, ",\"keys\":[");
        for (const CurveKeys::Key& key : curve.keys)
            text += '\n' + toJson(key).dump() + ',';
        text.back() = ']';
        text += '}';
    }
    return text + '\n';
}
