#include "platform/runtime/decimal.h"
#include "platform/runtime/masks.h"

#include <algorithm>

namespace runtime
{

namespace
{

// What a number mask asks for: places it has, and how many of them are written even when empty.
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

Places placesOf(const Mask &mask)
{
    Places places;
    for (const auto item : mask) {
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

} // namespace

QString formatNumber(Decimal number, const Mask &mask)
{
    const auto places = placesOf(mask);
    if (places.percent && number.count > 0) {
        number.point += 2;
    }
    roundDecimal(number, places.decimals);
    NumberWriter writer(number, places);
    for (const auto item : mask) {
        writer.write(item);
    }
    return writer.text();
}

} // namespace runtime
