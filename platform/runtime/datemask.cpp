#include "platform/runtime/calendar.h"
#include "platform/runtime/masks.h"

#include <QChar>

namespace runtime
{

namespace
{

QString padded(int value, int width)
{
    return QString::number(value).rightJustified(width, u'0');
}

char16_t lowered(MaskItem item)
{
    return item.plain ? u'\0' : QChar::toLower(char32_t{item.character}) & 0xFFFF;
}

qsizetype runLength(const Mask &mask, qsizetype at)
{
    auto end = at + 1;
    while (end < mask.size() && lowered(mask[end]) == lowered(mask[at])) {
        ++end;
    }
    return end - at;
}

QString named(QStringView name, int length)
{
    return (length > 3 ? name : name.first(3)).toString();
}

// Writes one moment through a mask, one run of equal letters after the other.
class DateWriter
{
public:
    explicit DateWriter(Moment moment) : day_(calendarDay(moment.days)), seconds_(moment.seconds) {}
    QString field(char16_t letter, int length);

private:
    QString dayField(int length) const;
    QString monthField(int length) const;
    QString yearField(int length) const;

    QDate day_;
    int seconds_;
    char16_t previous_ = u'\0';
};

QString DateWriter::dayField(int length) const
{
    if (length < 3) {
        return padded(day_.day(), length);
    }
    return named(weekdayNames[static_cast<std::size_t>(day_.dayOfWeek() % 7)], length);
}

QString DateWriter::monthField(int length) const
{
    if (length < 3) {
        return padded(day_.month(), length);
    }
    return named(monthNames[static_cast<std::size_t>(day_.month() - 1)], length);
}

QString DateWriter::yearField(int length) const
{
    if (length == 1) {
        return QString::number(day_.dayOfYear());
    }
    return length == 2 ? padded(day_.year() % 100, 2) : padded(day_.year(), 4);
}

// "" for a letter that is none of a date's. Months behind hours are minutes: "hh:mm".
QString DateWriter::field(char16_t letter, int length)
{
    const auto meaning = letter == u'm' && length < 3 && previous_ == u'h' ? u'n' : letter;
    previous_ = letter;
    const auto width = std::min(length, 2);
    switch (meaning) {
    case u'd':
        return dayField(length);
    case u'm':
        return monthField(length);
    case u'y':
        return yearField(length);
    case u'h':
        return padded(seconds_ / 3600, width);
    case u'n':
        return padded(seconds_ / 60 % 60, width);
    case u's':
        return padded(seconds_ % 60, width);
    case u'q':
        return QString::number((day_.month() + 2) / 3);
    case u'w':
        return QString::number(day_.dayOfWeek() % 7 + 1);
    default:
        return {};
    }
}

bool isDateLetter(char16_t letter)
{
    return letter != u'\0' && QStringView(u"dmyhnsqw").contains(QChar(letter));
}

} // namespace

QString formatDate(Date date, const Mask &mask)
{
    DateWriter writer(momentOf(date));
    QString text;
    for (qsizetype at = 0; at < mask.size();) {
        if (!isDateLetter(lowered(mask[at]))) {
            text += QChar(mask[at++].character);
            continue;
        }
        const auto length = runLength(mask, at);
        text += writer.field(lowered(mask[at]), static_cast<int>(length));
        at += length;
    }
    return text;
}

QString formatDate(Date date, QStringView mask)
{
    return formatDate(date, readMask(mask));
}

} // namespace runtime
