#include "platform/runtime/decimal.h"
#include "platform/runtime/masks.h"

#include <algorithm>
#include <array>
#include <span>

namespace runtime
{

namespace
{

using Section = std::span<const MaskItem>;

// What a section of a number mask asks for: places it has, and how many of them are written even when empty.
struct Places {
    int integer = 0;
    int integerShown = 0;
    int decimals = 0;
    int decimalsShown = 0;
    bool point = false;
    bool grouped = false;
    bool percent = false;
};

bool isPlace(MaskItem item)
{
    return !item.plain && (item.character == u'0' || item.character == u'#');
}

void countPlace(Places &places, bool shown)
{
    if (places.point) {
        ++places.decimals;
        places.decimalsShown = shown ? places.decimals : places.decimalsShown;
        return;
    }
    ++places.integer;
    places.integerShown += shown || places.integerShown > 0 ? 1 : 0;
}

Places placesOf(Section section)
{
    Places places;
    for (const auto item : section) {
        if (isPlace(item)) {
            countPlace(places, item.character == u'0');
        } else if (!item.plain) {
            places.point = places.point || item.character == u'.';
            places.grouped = places.grouped || item.character == u',';
            places.percent = places.percent || item.character == u'%';
        }
    }
    return places;
}

// Writes one rounded number through a mask, character by character.
class NumberWriter
{
public:
    NumberWriter(const Decimal &number, const Places &places);
    void write(MaskItem item);
    QString text() { return std::move(text_); }

private:
    void writePlace();
    void writeMark(char16_t mark);
    void writeInteger(int from, int to);
    void writePoint();
    void writeDecimal();

    const Decimal &number_;
    const Places &places_;
    QString text_;
    int integerWidth_;
    int decimalWidth_;
    int place_;
    bool pointWritten_ = false;
};

NumberWriter::NumberWriter(const Decimal &number, const Places &places)
    : number_(number), places_(places), integerWidth_(std::max(number.integerDigits(), places.integerShown)),
      decimalWidth_(std::max(number.decimalDigits(), places.decimalsShown)), place_(places.integer)
{
    text_.reserve(32);
    if (number.negative) {
        text_ += u'-';
    }
}

void NumberWriter::writeInteger(int from, int to)
{
    for (int place = std::min(from, integerWidth_ - 1); place >= to; --place) {
        text_ += QLatin1Char(number_.digitAt(place));
        if (places_.grouped && place > 0 && place % 3 == 0) {
            text_ += u'.';
        }
    }
}

// The first place of the mask takes all the digits that the mask has no place for.
void NumberWriter::writePlace()
{
    --place_;
    if (pointWritten_) {
        writeDecimal();
        return;
    }
    writeInteger(place_ + 1 == places_.integer ? integerWidth_ - 1 : place_, place_);
}

void NumberWriter::writePoint()
{
    if (places_.integer == 0) {
        writeInteger(integerWidth_ - 1, 0);
    }
    pointWritten_ = true;
    place_ = 0;
    text_ += u',';
}

void NumberWriter::writeDecimal()
{
    if (-place_ <= decimalWidth_) {
        text_ += QLatin1Char(number_.digitAt(place_));
    }
}

void NumberWriter::writeMark(char16_t mark)
{
    if (mark == u'.' && !pointWritten_) {
        writePoint();
    } else if (mark != u',' && mark != u'.') {
        text_ += QChar(mark);
    }
}

void NumberWriter::write(MaskItem item)
{
    if (isPlace(item)) {
        writePlace();
    } else if (item.plain) {
        text_ += QChar(item.character);
    } else {
        writeMark(item.character);
    }
}

// The sections of a mask, between semicolons: positive, negative, zero, Null. One that is missing or empty is that of
// the positive numbers; that of Null stays empty.
struct Sections {
    std::array<Section, 4> all;

    Section positive() const { return all[0]; }
    Section negative() const { return hasNegative() ? all[1] : all[0]; }
    Section zero() const { return all[2].empty() ? all[0] : all[2]; }
    bool hasNegative() const { return !all[1].empty(); }
};

Sections sectionsOf(const Mask &mask)
{
    Sections sections;
    const auto isEnd = [](MaskItem item) { return !item.plain && item.character == u';'; };
    const auto *begin = mask.begin();
    for (auto &section : sections.all) {
        const auto *const end = std::find_if(begin, mask.end(), isEnd);
        section = {begin, end};
        begin = end == mask.end() ? end : end + 1;
    }
    return sections;
}

// A number as a section shows it, rounded to its decimals.
Decimal roundedFor(Decimal number, const Places &places)
{
    if (places.percent && number.count > 0) {
        number.point += 2;
    }
    roundDecimal(number, places.decimals);
    return number;
}

QString writeSection(const Decimal &rounded, Section section, const Places &places)
{
    NumberWriter writer(rounded, places);
    for (const auto item : section) {
        writer.write(item);
    }
    return writer.text();
}

} // namespace

// A number that its own section rounds to zero is none of that section's any more.
QString formatNumber(const Decimal &number, const Mask &mask)
{
    const auto sections = sectionsOf(mask);
    const auto section = number.negative ? sections.negative() : sections.positive();
    const auto places = placesOf(section);
    auto rounded = roundedFor(number, places);
    if (rounded.count == 0) {
        return writeSection(rounded, sections.zero(), placesOf(sections.zero()));
    }
    rounded.negative = rounded.negative && !sections.hasNegative();
    return writeSection(rounded, section, places);
}

QString formatNull(const Mask &mask)
{
    const auto section = sectionsOf(mask).all[3];
    return writeSection({}, section, placesOf(section));
}

} // namespace runtime
