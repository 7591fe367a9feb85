#include "platform/jet/values.h"

#include "platform/jet/text.h"

#include <bit>

namespace jet
{

namespace
{

constexpr double currencyUnits = 10'000;

std::optional<runtime::Value> textOf(Bytes bytes)
{
    auto text = decodeText(bytes);
    return text ? std::optional<runtime::Value>(std::move(*text)) : std::nullopt;
}

std::optional<runtime::Value> memoOf(Bytes field, LongValues &longValues)
{
    const auto bytes = longValues.read(field);
    if (!bytes) {
        return std::nullopt;
    }
    return textOf({reinterpret_cast<const uchar *>(bytes->constData()), static_cast<std::size_t>(bytes->size())});
}

// The definition has seen to it that fixed columns are as wide as their type.
std::optional<runtime::Value> numberOf(int type, Bytes bytes)
{
    switch (type) {
    case Byte:
        return static_cast<qint16>(bytes[0]);
    case Integer:
        return numberAt<qint16>(bytes, 0);
    case Long:
        return numberAt<qint32>(bytes, 0);
    case Currency:
        return static_cast<double>(numberAt<qint64>(bytes, 0)) / currencyUnits;
    case Single:
        return std::bit_cast<float>(numberAt<quint32>(bytes, 0));
    case Double:
        return std::bit_cast<double>(numberAt<quint64>(bytes, 0));
    case Date:
        return runtime::Date{std::bit_cast<double>(numberAt<quint64>(bytes, 0))};
    default:
        return runtime::Null{};
    }
}

} // namespace

std::optional<runtime::Value> valueOf(const Column &column, const ColumnPlace &place, const Record &record,
                                      LongValues &longValues)
{
    const bool bit = record.bit(place.number);
    if (column.type == Boolean) {
        return bit;
    }
    if (!bit) {
        return runtime::Null{};
    }
    const auto bytes = record.field(place);
    if (!bytes) {
        return std::nullopt;
    }
    switch (column.type) {
    case Text:
        return textOf(*bytes);
    case Memo:
        return memoOf(*bytes, longValues);
    default:
        return numberOf(column.type, *bytes);
    }
}

} // namespace jet
