#include "platform/jet/frames.h"

#include <cstring>
#include <type_traits>

namespace jet
{

namespace
{

class Packer
{
public:
    explicit Packer(QByteArray &bytes) : bytes_(bytes) {}

    template<typename Number>
    void put(Number number)
    {
        static_assert(std::is_trivially_copyable_v<Number>);
        bytes_.append(reinterpret_cast<const char *>(&number), sizeof number);
    }
    void put(const QString &text)
    {
        put(static_cast<qint32>(text.size()));
        bytes_.append(reinterpret_cast<const char *>(text.utf16()), text.size() * charSize);
    }

    static constexpr qsizetype charSize = sizeof(char16_t);

private:
    QByteArray &bytes_;
};

class Unpacker
{
public:
    explicit Unpacker(QByteArrayView bytes) : bytes_(bytes) {}

    bool atEnd() const { return bytes_.isEmpty(); }

    template<typename Number>
    Number take()
    {
        static_assert(std::is_trivially_copyable_v<Number>);
        Number number;
        std::memcpy(&number, next(sizeof number).data(), sizeof number);
        return number;
    }
    bool takeBool() { return take<quint8>() != 0; }
    QString takeText()
    {
        const qsizetype size = take<qint32>();
        const QByteArrayView bytes = next(size * Packer::charSize);
        QString text(size, Qt::Uninitialized);
        std::memcpy(text.data(), bytes.data(), bytes.size());
        return text;
    }

private:
    QByteArrayView next(qsizetype size)
    {
        if (size < 0 || size > bytes_.size()) {
            throw Damaged(Damage::Garbled);
        }
        const QByteArrayView taken = bytes_.first(size);
        bytes_ = bytes_.sliced(size);
        return taken;
    }

    QByteArrayView bytes_;
};

/// What stands before a value.
enum class Tag : quint8 { Null, Unreadable, False, True, Short, Long, Single, Double, Date, Text };

class ValuePacker
{
public:
    explicit ValuePacker(Packer &packer) : packer_(packer) {}

    void operator()(runtime::Empty) { packer_.put(Tag::Null); }
    void operator()(runtime::Null) { packer_.put(Tag::Null); }
    void operator()(bool value) { packer_.put(value ? Tag::True : Tag::False); }
    void operator()(qint16 value) { put(Tag::Short, value); }
    void operator()(qint32 value) { put(Tag::Long, value); }
    void operator()(float value) { put(Tag::Single, value); }
    void operator()(double value) { put(Tag::Double, value); }
    void operator()(runtime::Date value) { put(Tag::Date, value); }
    void operator()(const QString &value) { put(Tag::Text, value); }

private:
    template<typename Type>
    void put(Tag tag, const Type &value)
    {
        packer_.put(tag);
        packer_.put(value);
    }

    Packer &packer_;
};

// Null for a value that could not be read, too.
runtime::Value unpackValue(Tag tag, Unpacker &unpacker)
{
    switch (tag) {
    case Tag::Null:
    case Tag::Unreadable:
        return runtime::Null{};
    case Tag::False:
        return false;
    case Tag::True:
        return true;
    case Tag::Short:
        return unpacker.take<qint16>();
    case Tag::Long:
        return unpacker.take<qint32>();
    case Tag::Single:
        return unpacker.take<float>();
    case Tag::Double:
        return unpacker.take<double>();
    case Tag::Date:
        return unpacker.take<runtime::Date>();
    case Tag::Text:
        return unpacker.takeText();
    }
    throw Damaged(Damage::Garbled);
}

void requireEnd(const Unpacker &unpacker)
{
    if (!unpacker.atEnd()) {
        throw Damaged(Damage::Garbled);
    }
}

Table unpackTable(Unpacker &unpacker)
{
    Table table;
    table.name = unpacker.takeText();
    table.promisedRows = unpacker.take<qint64>();
    table.readable = unpacker.takeBool();
    const auto columns = unpacker.take<quint32>();
    for (quint32 i = 0; i < columns; ++i) {
        Column column;
        column.name = unpacker.takeText();
        column.type = unpacker.take<qint32>();
        column.size = unpacker.take<qint32>();
        column.counter = unpacker.takeBool();
        table.columns.push_back(std::move(column));
    }
    return table;
}

} // namespace

QByteArray packTables(const std::vector<Table> &tables)
{
    QByteArray bytes;
    Packer packer(bytes);
    for (const Table &table : tables) {
        packer.put(table.name);
        packer.put(table.promisedRows);
        packer.put(table.readable);
        packer.put(static_cast<quint32>(table.columns.size()));
        for (const Column &column : table.columns) {
            packer.put(column.name);
            packer.put(column.type);
            packer.put(column.size);
            packer.put(column.counter);
        }
    }
    return bytes;
}

std::vector<Table> unpackTables(QByteArrayView bytes)
{
    Unpacker unpacker(bytes);
    std::vector<Table> tables;
    while (!unpacker.atEnd()) {
        tables.push_back(unpackTable(unpacker));
    }
    return tables;
}

QByteArray packReading(const Reading &reading)
{
    QByteArray bytes;
    Packer packer(bytes);
    packer.put(reading.rows);
    packer.put(reading.lost);
    return bytes;
}

Reading unpackReading(QByteArrayView bytes)
{
    Unpacker unpacker(bytes);
    Reading reading;
    reading.rows = unpacker.take<qint64>();
    reading.lost = unpacker.take<qint64>();
    requireEnd(unpacker);
    return reading;
}

QByteArray packDamage(Damage damage)
{
    QByteArray bytes;
    Packer(bytes).put(damage);
    return bytes;
}

Damage unpackDamage(QByteArrayView bytes)
{
    Unpacker unpacker(bytes);
    const auto damage = unpacker.take<Damage>();
    requireEnd(unpacker);
    return damage == Damage::Catalogue ? damage : Damage::Garbled;
}

void packRow(const Row &row, QByteArray &bytes)
{
    Packer packer(bytes);
    auto unreadable = row.unreadable.cbegin();
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        if (unreadable != row.unreadable.cend() && *unreadable == static_cast<int>(i)) {
            packer.put(Tag::Unreadable);
            ++unreadable;
        } else {
            std::visit(ValuePacker(packer), row.values[i]);
        }
    }
}

void unpackRows(QByteArrayView bytes, std::size_t columns, const TakeRow &take)
{
    Unpacker unpacker(bytes);
    Row row;
    row.values.resize(columns);
    while (!unpacker.atEnd()) {
        row.unreadable.clear();
        for (std::size_t i = 0; i < columns; ++i) {
            const auto tag = unpacker.take<Tag>();
            if (tag == Tag::Unreadable) {
                row.unreadable.push_back(static_cast<int>(i));
            }
            row.values[i] = unpackValue(tag, unpacker);
        }
        if (!take(row)) {
            return;
        }
    }
}

} // namespace jet
