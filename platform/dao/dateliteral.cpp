#include "platform/dao/dateliteral.h"

#include <QDate>
#include <QStringTokenizer>

#include <array>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

/// The numbers of `text` between separators; none where a piece is no number of at most four digits.
std::optional<std::vector<int>> numbers(QStringView text, QStringView separators)
{
    std::vector<int> found(1);
    int digits = 0;
    for (const QChar character : text) {
        if (separators.contains(character) && digits > 0) {
            found.push_back(0);
            digits = 0;
        } else if (character >= u'0' && character <= u'9' && digits < 4) {
            found.back() = found.back() * 10 + character.digitValue();
            ++digits;
        } else {
            return std::nullopt;
        }
    }
    return digits > 0 ? std::optional(found) : std::nullopt;
}

int fullYear(int year)
{
    if (year >= 100) {
        return year;
    }
    return year < 30 ? 2000 + year : 1900 + year;
}

std::optional<double> dayNumber(QStringView text)
{
    const auto parts = numbers(text, u"/-.");
    if (!parts || parts->size() != 3) {
        return std::nullopt;
    }
    const bool yearFirst = parts->front() > 31;
    int year = yearFirst ? (*parts)[0] : (*parts)[2];
    int month = yearFirst ? (*parts)[1] : (*parts)[0];
    int day = yearFirst ? (*parts)[2] : (*parts)[1];
    if (month > 12) {
        std::swap(month, day);
    }
    year = fullYear(year);
    if (!QDate::isValid(year, month, day)) {
        return std::nullopt;
    }
    return static_cast<double>(QDate(1899, 12, 30).daysTo(QDate(year, month, day)));
}

/// Takes an AM or PM off the end; hours of the afternoon get 12 more.
std::optional<int> halfDay(QStringView &text)
{
    for (const auto &[mark, hours] : {std::pair{"AM"_L1, 0}, std::pair{"PM"_L1, 12}}) {
        if (text.endsWith(mark, Qt::CaseInsensitive)) {
            text = text.chopped(2).trimmed();
            return hours;
        }
    }
    return std::nullopt;
}

std::optional<double> dayFraction(QStringView text)
{
    const auto half = halfDay(text);
    auto parts = numbers(text, u":");
    if (!parts || parts->size() < 2 || parts->size() > 3 || (half && parts->front() > 12)) {
        return std::nullopt;
    }
    parts->resize(3);
    const int hour = half ? (*parts)[0] % 12 + *half : (*parts)[0];
    if (hour > 23 || (*parts)[1] > 59 || (*parts)[2] > 59) {
        return std::nullopt;
    }
    return (hour * 3600 + (*parts)[1] * 60 + (*parts)[2]) / 86400.0;
}

} // namespace

std::optional<runtime::Date> parseDateLiteral(QStringView text)
{
    text = text.trimmed();
    const qsizetype blank = text.indexOf(u' ');
    const QStringView first = blank < 0 ? text : text.left(blank);
    if (first.contains(u':')) {
        const auto time = dayFraction(text);
        return time ? std::optional(runtime::Date{*time}) : std::nullopt;
    }
    const auto day = dayNumber(first);
    const auto time = blank < 0 ? std::optional(0.0) : dayFraction(text.mid(blank).trimmed());
    if (!day || !time) {
        return std::nullopt;
    }
    return runtime::Date{*day < 0 ? *day - *time : *day + *time};
}

} // namespace dao
