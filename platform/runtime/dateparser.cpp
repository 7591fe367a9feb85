#include "platform/runtime/calendar.h"
#include "platform/runtime/clock.h"
#include "platform/runtime/dates.h"

#include <QVarLengthArray>

#include <span>

namespace runtime
{

namespace
{

enum class Slot { Day, Month, Year };

using Order = std::span<const Slot>;

constexpr std::array dayMonthYear{Slot::Day, Slot::Month, Slot::Year};
constexpr std::array yearMonthDay{Slot::Year, Slot::Month, Slot::Day};
constexpr std::array monthDayYear{Slot::Month, Slot::Day, Slot::Year};
constexpr std::array dayMonth{Slot::Day, Slot::Month};
constexpr std::array monthDay{Slot::Month, Slot::Day};
constexpr std::array monthYear{Slot::Month, Slot::Year};
constexpr std::array yearMonth{Slot::Year, Slot::Month};
constexpr std::array dayYear{Slot::Day, Slot::Year};
constexpr std::array yearDay{Slot::Year, Slot::Day};
constexpr std::array onlyDay{Slot::Day};
constexpr std::array onlyYear{Slot::Year};

// The orders that numbers may stand in; the first one that makes an existing day wins.
constexpr std::array<Order, 3> threeNumbers{dayMonthYear, yearMonthDay, monthDayYear};
constexpr std::array<Order, 4> twoNumbers{dayMonth, monthDay, monthYear, yearMonth};
constexpr std::array<Order, 2> twoNumbersAndMonth{dayYear, yearDay};
constexpr std::array<Order, 2> oneNumberAndMonth{onlyDay, onlyYear};

struct Fields {
    QVarLengthArray<int, 4> numbers;
    int month = 0;
    std::optional<int> seconds;

    bool isEmpty() const { return numbers.isEmpty() && month == 0; }
};

std::span<const Order> ordersFor(const Fields &fields)
{
    const auto count = fields.numbers.size();
    if (fields.month == 0) {
        return count == 3 ? std::span<const Order>(threeNumbers)
                          : std::span<const Order>(twoNumbers).first(count == 2 ? twoNumbers.size() : 0);
    }
    return count == 2 ? std::span<const Order>(twoNumbersAndMonth)
                      : std::span<const Order>(oneNumberAndMonth).first(count == 1 ? oneNumberAndMonth.size() : 0);
}

int presentYear()
{
    return calendarDay(momentOf(Today()).days).year();
}

bool contains(Order order, Slot slot)
{
    return std::find(order.begin(), order.end(), slot) != order.end();
}

std::optional<qint64> dayIn(Order order, const Fields &fields)
{
    int year = contains(order, Slot::Year) ? 0 : presentYear();
    int month = fields.month;
    int day = 1;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const auto number = fields.numbers[static_cast<qsizetype>(i)];
        switch (order[i]) {
        case Slot::Day:
            day = number;
            break;
        case Slot::Month:
            month = number;
            break;
        case Slot::Year:
            year = fullYear(number);
            break;
        }
    }
    return year <= 9999 ? dayNumber(year, month, day) : std::nullopt;
}

std::optional<qint64> dayOf(const Fields &fields)
{
    for (const auto order : ordersFor(fields)) {
        if (const auto day = dayIn(order, fields)) {
            return day;
        }
    }
    return std::nullopt;
}

int monthNamed(QStringView word)
{
    for (std::size_t i = 0; i < monthNames.size(); ++i) {
        const auto name = monthNames[i];
        if (word.compare(name, Qt::CaseInsensitive) == 0 || word.compare(name.first(3), Qt::CaseInsensitive) == 0) {
            return static_cast<int>(i) + 1;
        }
    }
    return 0;
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isTimeMark(QChar c)
{
    return c == u':' || c == u'.';
}

// Reads the parts of a date text from left to right: numbers, a month's name, one time before or behind them.
class FieldReader
{
public:
    explicit FieldReader(QStringView text) : text_(text) {}
    std::optional<Fields> read();

private:
    bool atEnd() const { return at_ == text_.size(); }
    bool skipBlanks();
    int readNumber();
    bool readItem();
    bool readMonth();
    bool readNumberOrTime();
    bool readTime(int hours);
    bool readSeparator();

    QStringView text_;
    qsizetype at_ = 0;
    Fields fields_;
    bool dateClosed_ = false;
    bool lastWasTime_ = false;
    QChar mark_;
};

bool FieldReader::skipBlanks()
{
    const auto start = at_;
    while (!atEnd() && text_[at_].isSpace()) {
        ++at_;
    }
    return at_ > start;
}

// Numbers of five digits and more fit no field; their value does not matter, only that it stays large.
int FieldReader::readNumber()
{
    int value = 0;
    for (; !atEnd() && isDigit(text_[at_]); ++at_) {
        value = std::min(value * 10 + text_[at_].digitValue(), 100000);
    }
    return value;
}

bool FieldReader::readMonth()
{
    const auto start = at_;
    while (!atEnd() && text_[at_].isLetter()) {
        ++at_;
    }
    const auto month = monthNamed(text_.mid(start, at_ - start));
    if (month == 0 || fields_.month != 0 || dateClosed_) {
        return false;
    }
    fields_.month = month;
    lastWasTime_ = false;
    return true;
}

bool FieldReader::readTime(int hours)
{
    std::array parts{hours, 0, 0};
    std::size_t count = 1;
    while (!atEnd() && isTimeMark(text_[at_])) {
        ++at_;
        if (count == parts.size() || atEnd() || !isDigit(text_[at_])) {
            return false;
        }
        parts[count++] = readNumber();
    }
    if (fields_.seconds || parts[0] > 23 || parts[1] > 59 || parts[2] > 59) {
        return false;
    }
    fields_.seconds = parts[0] * 3600 + parts[1] * 60 + parts[2];
    dateClosed_ = !fields_.isEmpty();
    lastWasTime_ = true;
    return true;
}

bool FieldReader::readNumberOrTime()
{
    const auto number = readNumber();
    if (!atEnd() && isTimeMark(text_[at_])) {
        return mark_ != u'/' && mark_ != u'-' && readTime(number);
    }
    if (dateClosed_ || fields_.numbers.size() == 3) {
        return false;
    }
    fields_.numbers.append(number);
    lastWasTime_ = false;
    return true;
}

bool FieldReader::readItem()
{
    return !atEnd() && (isDigit(text_[at_]) ? readNumberOrTime() : readMonth());
}

// One mark with blanks around it, or blanks alone. Beside a time only a comma may stand.
bool FieldReader::readSeparator()
{
    const bool blank = skipBlanks();
    mark_ = QChar();
    if (!atEnd() && QStringView(u"/-,").contains(text_[at_])) {
        mark_ = text_[at_++];
        skipBlanks();
    }
    if (lastWasTime_ && (mark_ == u'/' || mark_ == u'-')) {
        return false;
    }
    return blank || !mark_.isNull();
}

std::optional<Fields> FieldReader::read()
{
    if (!readItem()) {
        return std::nullopt;
    }
    while (!atEnd()) {
        if (!readSeparator() || !readItem()) {
            return std::nullopt;
        }
    }
    return fields_;
}

} // namespace

std::optional<Date> parseDate(QStringView text)
{
    const auto fields = FieldReader(text.trimmed()).read();
    if (!fields) {
        return std::nullopt;
    }
    if (fields->isEmpty()) {
        return dateOf({.days = 0, .seconds = fields->seconds.value_or(0)});
    }
    const auto days = dayOf(*fields);
    if (!days) {
        return std::nullopt;
    }
    return dateOf({.days = *days, .seconds = fields->seconds.value_or(0)});
}

} // namespace runtime
