// SPDX-License-Identifier: MIT
#include <curveeditor/model/SplineBase.h>

#include <curveeditor/model/NumberReading.h>
#include <curveeditor/model/PointTypes.h>

#include <array>
#include <charconv>
#include <cmath>
#include <istream>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

using namespace curveeditor;

namespace {

using PointInfo = SplineBase::PointInfo;

constexpr const char* openingWord = "spline";
constexpr const char* closingWord = "end";
constexpr double PointInfo::*textFields[] = {
    &PointInfo::time,       &PointInfo::pos,  &PointInfo::tanLeft, &PointInfo::tanRight, &PointInfo::tension,
    &PointInfo::continuity, &PointInfo::bias, &PointInfo::easeTo,  &PointInfo::easeFrom};

template <typename Number> void append(std::string& text, Number number, char separator)
{
    char digits[32];
    text.append(digits, std::to_chars(digits, digits + sizeof(digits), number).ptr);
    text += separator;
}

/// The words of a stream, between white space. Takes them from its buffer, since a stream spends more on a word than
/// the number takes that it is. What comes behind the last word stays there.
class WordReader
{
public:
    explicit WordReader(std::istream& in) : in_(in), isGood_(std::istream::sentry(in, true)) {}

    /// Takes the next word; false if there is none, or one that is longer than any number.
    bool next()
    {
        try {
            return isGood_ && take(*in_.rdbuf());
        } catch (...) {
            in_.setstate(std::ios_base::badbit);
            return false;
        }
    }
    /// Takes the next word as a number; false if it is none.
    template <typename Number> bool next(Number& number) { return next() && convert(number); }

    std::string_view word() const { return {word_.data(), size_}; }

    template <typename Number> bool convert(Number& number) const
    {
        const char* const end = word_.data() + size_;
        std::from_chars_result result{};
        if constexpr (std::is_same_v<Number, double>)
            result = curveeditor::readNumber(word_.data(), end, number);
        else
            result = std::from_chars(word_.data(), end, number);
        return result.ec == std::errc() && result.ptr == end;
    }

private:
    static constexpr int endOfText = std::char_traits<char>::eof();

    static bool isWhiteSpace(int character)
    {
        return character == ' ' || ('\t' <= character && character <= '\r');
    }

    bool take(std::streambuf& buffer)
    {
        int character = buffer.sgetc();
        while (isWhiteSpace(character))
            character = buffer.snextc();
        for (size_ = 0; character != endOfText && !isWhiteSpace(character); character = buffer.snextc()) {
            if (size_ == word_.size())
                return false;
            word_[size_++] = char(character);
        }
        if (character == endOfText)
            in_.setstate(std::ios_base::eofbit);
        return size_ > 0;
    }

    std::istream& in_;
    bool isGood_;
    std::array<char, 63> word_ = {};
    std::size_t size_ = 0;
};

bool isAmong(std::int32_t number, std::int32_t first, std::int32_t last)
{
    return first <= number && number <= last;
}

/// Reads a point whose first number is taken already.
bool readPoint(WordReader& words, PointInfo& point)
{
    for (double PointInfo::*field : textFields) {
        if (!words.convert(point.*field) || !std::isfinite(point.*field) || !words.next())
            return false;
    }
    return words.convert(point.type) && PointTypes::of(point.type).number == point.type;
}

} // namespace

void SplineBase::save(const SplineBase& spline, std::ostream& out)
{
    std::string text = openingWord;
    text += ' ';
    append(text, spline.firstType, ' ');
    append(text, spline.lastType, ' ');
    append(text, spline.defaultValue, '\n');
    for (const PointInfo* point : spline.points_) {
        for (double PointInfo::*field : textFields)
            append(text, point->*field, ' ');
        append(text, point->type, '\n');
    }
    text += closingWord;
    text += '\n';
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void SplineBase::load(SplineBase* spline, std::istream& in)
{
    SplineBase loaded;
    if (!spline || !loaded.readText(in)) {
        in.setstate(std::ios_base::failbit);
        return;
    }
    spline->firstType = loaded.firstType;
    spline->lastType = loaded.lastType;
    spline->defaultValue = loaded.defaultValue;
    spline->points_.swap(loaded.points_);
    spline->times_.swap(loaded.times_);
    spline->d_.swap(loaded.d_);
}

bool SplineBase::readText(std::istream& in)
{
    WordReader words(in);
    if (!words.next() || words.word() != openingWord || !words.next(firstType) || !words.next(lastType) ||
        !words.next(defaultValue) || !isAmong(firstType, Zero, FollowTangent) ||
        !isAmong(lastType, Zero, FollowTangent) || !std::isfinite(defaultValue))
        return false;
    clear();
    while (words.next()) {
        if (words.word() == closingWord)
            return !times_.empty();
        PointInfo point;
        if (!readPoint(words, point) || (!times_.empty() && point.time < times_.back()))
            return false;
        insertNew(times_.size(), point);
    }
    return false;
}
