#include "support/jet4/jet4.h"

#include "platform/runtime/numbers.h"
#include "support/jet4/pages.h"

#include <QFile>
#include <QStringList>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace jet4
{

namespace
{

using runtime::Value;

constexpr quint32 signature = 1625;
constexpr quint32 longValues = 0x4C41564C; // "LVAL"
constexpr qsizetype mapSize = 69;
constexpr qsizetype pagesOfABitmap = 32736;
constexpr double created = 40000; // a day of 2009
constexpr std::array<qsizetype, 4> systemPages{2, 3, 4, 5};
constexpr quint32 tablesParent = 0x0F000001;

qsizetype fixedSize(int type)
{
    constexpr std::array<qsizetype, 9> sizes{0, 0, 1, 2, 4, 8, 4, 8, 8};
    return type < static_cast<int>(sizes.size()) ? sizes[static_cast<std::size_t>(type)] : 0;
}

bool isFixed(const Column &column)
{
    return column.type <= Date;
}

bool isLong(const Column &column)
{
    return column.type == Ole || column.type == Memo;
}

QByteArray rc4(QByteArray bytes, const QByteArray &key)
{
    std::array<quint8, 256> state{};
    for (std::size_t i = 0; i < state.size(); ++i) {
        state[i] = static_cast<quint8>(i);
    }
    quint8 j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<quint8>(j + state[i] + static_cast<quint8>(key[static_cast<qsizetype>(i) % key.size()]));
        std::swap(state[i], state[j]);
    }
    quint8 i = 0;
    j = 0;
    for (char &byte : bytes) {
        ++i;
        j = static_cast<quint8>(j + state[i]);
        std::swap(state[i], state[j]);
        byte = static_cast<char>(byte ^ state[static_cast<quint8>(state[i] + state[j])]);
    }
    return bytes;
}

QByteArray utf16(const QString &text)
{
    QByteArray bytes;
    for (const QChar unit : text) {
        bytes += number(unit.unicode());
    }
    return bytes;
}

/// One byte a character below U+0100; a zero switches to two bytes and back.
QByteArray compressed(const QString &text)
{
    QByteArray bytes("\xFF\xFE");
    bool narrow = true;
    for (const QChar unit : text) {
        if (unit.cell() == 0) {
            return {};
        }
        if ((unit.row() == 0) != narrow) {
            bytes += '\0';
            narrow = !narrow;
        }
        bytes += static_cast<char>(unit.cell());
        if (!narrow) {
            bytes += static_cast<char>(unit.row());
        }
    }
    return bytes;
}

QByteArray textBytes(const QString &text, bool mayCompress)
{
    constexpr qsizetype mostCompressed = 1024;
    const QByteArray whole = utf16(text);
    const QByteArray shorter = mayCompress && text.size() <= mostCompressed ? compressed(text) : QByteArray();
    return !shorter.isEmpty() && shorter.size() < whole.size() ? shorter : whole;
}

QByteArray fixedBytes(const Column &column, const Value &value)
{
    if (runtime::IsNull(value)) {
        return QByteArray(fixedSize(column.type), '\0');
    }
    switch (column.type) {
    case Byte:
        return number(static_cast<quint8>(runtime::CInt(value)));
    case Integer:
        return number(runtime::CInt(value));
    case Long:
        return number(runtime::CLng(value));
    case Currency:
        return number(static_cast<qint64>(std::llround(runtime::CDbl(value) * 10'000)));
    case Single: {
        const auto *const single = std::get_if<float>(&value);
        return number(std::bit_cast<quint32>(single != nullptr ? *single : runtime::CSng(value)));
    }
    case Double:
        return number(std::bit_cast<quint64>(std::holds_alternative<double>(value) ? std::get<double>(value)
                                                                                   : runtime::CDbl(value)));
    case Date:
        return number(std::bit_cast<quint64>(std::holds_alternative<runtime::Date>(value)
                                                 ? std::get<runtime::Date>(value).serial
                                                 : runtime::CDbl(value)));
    default:
        return {};
    }
}

struct Place {
    QList<qsizetype> pages;
    QList<QList<qsizetype>> longPages; ///< of each column of long values
    qsizetype live = 0;
};

/// The pages of a file in the making.
class Writer
{
public:
    explicit Writer(const File &file) : file_(file), pages_(6) {}

    Layout all();

private:
    qsizetype add(const QByteArray &page)
    {
        pages_.append(page);
        return pages_.size() - 1;
    }

    quint32 longValueOnAPage(const QByteArray &bytes, QList<qsizetype> &used);
    QByteArray longValue(const QByteArray &bytes, QList<qsizetype> &used);
    QByteArray rowBytes(const Table &table, std::size_t row, Place &place);
    Place addRows(const Table &table, qsizetype owner);
    QByteArray map(const QList<qsizetype> &used, bool bitmaps = false);
    Pages addTable(const Table &table, qsizetype page, char kind);
    QByteArray definition(const Table &table, const Place &place, qsizetype maps, char kind) const;
    void putDefinition(const QByteArray &stream, qsizetype page);
    Table catalogue(const QList<qsizetype> &pages) const;
    QByteArray header() const;

    const File &file_;
    QList<QByteArray> pages_;
    RowPage shared_; ///< the page that takes the next long value that needs no other
    qsizetype sharedNumber_ = 0;
};

/// Values of one page lie together where there is room.
quint32 Writer::longValueOnAPage(const QByteArray &bytes, QList<qsizetype> &used)
{
    if (sharedNumber_ == 0 || !shared_.fits(bytes.size())) {
        shared_ = RowPage();
        sharedNumber_ = add({});
    }
    const qsizetype row = shared_.add(bytes);
    pages_[sharedNumber_] = shared_.bytes(longValues);
    if (!used.contains(sharedNumber_)) {
        used.append(sharedNumber_);
    }
    return pointer(sharedNumber_, row);
}

QByteArray Writer::longValue(const QByteArray &bytes, QList<qsizetype> &used)
{
    constexpr qsizetype mostInline = 64;
    constexpr qsizetype mostOnAPage = 4076;
    const auto size = static_cast<quint32>(bytes.size());
    if (bytes.size() <= mostInline) {
        return number(size | 0x80000000U) + QByteArray(8, '\0') + bytes;
    }
    if (bytes.size() <= mostOnAPage) {
        return number(size | 0x40000000U) + number(longValueOnAPage(bytes, used)) + number(quint32{0});
    }
    quint32 next = 0;
    const qsizetype pieces = (bytes.size() + mostOnAPage - 1) / mostOnAPage;
    for (qsizetype i = pieces - 1; i >= 0; --i) {
        RowPage page;
        page.add(number(next) + bytes.mid(i * mostOnAPage, mostOnAPage));
        next = pointer(add(page.bytes(longValues)), 0);
        used.append(pages_.size() - 1);
    }
    return number(size) + number(next) + number(quint32{0});
}

QByteArray Writer::rowBytes(const Table &table, std::size_t row, Place &place)
{
    if (!table.rows[row].raw.isEmpty()) {
        return table.rows[row].raw;
    }
    const bool old = table.columnsOfOldRows && static_cast<int>(row) < table.oldRows;
    const std::size_t count = old ? static_cast<std::size_t>(*table.columnsOfOldRows) : table.columns.size();
    QByteArray fixed;
    QByteArrayList variable;
    QByteArray mask(static_cast<qsizetype>((count + 7) / 8), '\0');
    bool anyVariable = false;
    qsizetype longColumn = -1;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const Column &column = table.columns[i];
        anyVariable = anyVariable || !isFixed(column);
        longColumn += isLong(column) ? 1 : 0;
        if (i >= count) {
            continue;
        }
        const Value &value = table.rows[row].values[i];
        const bool set = column.type == Boolean ? std::holds_alternative<bool>(value) && std::get<bool>(value)
                                                : !runtime::IsNull(value);
        if (set) {
            mask[static_cast<qsizetype>(i / 8)] = static_cast<char>(mask[static_cast<qsizetype>(i / 8)] | 1 << (i % 8));
        }
        if (isFixed(column)) {
            fixed += fixedBytes(column, value);
            continue;
        }
        const auto *const text = std::get_if<QString>(&value);
        QByteArray content;
        if (text != nullptr) {
            const bool letters = column.type == Text || column.type == Memo;
            content = letters ? textBytes(*text, table.compressed) : text->toLatin1();
            content = isLong(column) ? longValue(content, place.longPages[longColumn]) : content;
        }
        variable.append(content);
    }
    QByteArray bytes = number(static_cast<quint16>(count)) + fixed;
    if (anyVariable) {
        QList<quint16> starts;
        for (const QByteArray &content : variable) {
            starts.prepend(static_cast<quint16>(bytes.size()));
            bytes += content;
        }
        bytes += number(static_cast<quint16>(bytes.size()));
        for (const quint16 start : starts) {
            bytes += number(start);
        }
        bytes += number(static_cast<quint16>(starts.size()));
    }
    return bytes + mask;
}

/// Rows that outgrew their page go on pages of their own, as the pages before them may be full.
Place Writer::addRows(const Table &table, qsizetype owner)
{
    Place place;
    sharedNumber_ = 0;
    place.longPages.resize(std::count_if(table.columns.begin(), table.columns.end(), isLong));
    RowPage page;
    const auto close = [&] {
        if (!page.isEmpty()) {
            place.pages.append(add(page.bytes(static_cast<quint32>(owner))));
            page = RowPage();
        }
    };
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        QByteArray bytes = rowBytes(table, i, place);
        SlotFlag flag = table.rows[i].deleted ? Deleted : Plain;
        if (table.rows[i].overflow) {
            RowPage other;
            other.add(bytes, Moved);
            place.pages.append(add(other.bytes(static_cast<quint32>(owner))));
            bytes = number(pointer(place.pages.last(), 0));
            flag = Overflow;
        }
        place.live += table.rows[i].deleted ? 0 : 1;
        if (!page.fits(bytes.size()) || page.count() >= table.mostRowsOfAPage) {
            close();
        }
        page.add(bytes, flag);
    }
    close();
    std::sort(place.pages.begin(), place.pages.end());
    return place;
}

/// Which pages belong to something: a bit a page where they lie close together, else pages of bits.
QByteArray Writer::map(const QList<qsizetype> &used, bool bitmaps)
{
    constexpr qsizetype pagesOfASmallOne = 512;
    const qsizetype first = used.isEmpty() ? 0 : *std::min_element(used.begin(), used.end());
    const qsizetype last = used.isEmpty() ? 0 : *std::max_element(used.begin(), used.end());
    const auto mark = [](QByteArray &bits, qsizetype place) {
        bits[place / 8] = static_cast<char>(bits[place / 8] | 1 << (place % 8));
    };
    if (!bitmaps && last - first < pagesOfASmallOne) {
        QByteArray bits(pagesOfASmallOne / 8, '\0');
        for (const qsizetype page : used) {
            mark(bits, page - first);
        }
        return '\0' + number(static_cast<quint32>(first)) + bits;
    }
    QByteArray entries("\1");
    for (qsizetype i = 0; i < 17; ++i) {
        QByteArray bits(pageSize - 4, '\0');
        bool any = false;
        for (const qsizetype page : used) {
            if (page / pagesOfABitmap == i) {
                mark(bits, page % pagesOfABitmap);
                any = true;
            }
        }
        entries += number(any ? static_cast<quint32>(add(QByteArray("\5\1\0\0", 4) + bits)) : quint32{0});
    }
    return entries;
}

QByteArray Writer::definition(const Table &table, const Place &place, qsizetype maps, char kind) const
{
    const auto count = static_cast<quint16>(table.columns.size());
    const auto known = static_cast<quint16>(
        std::count_if(table.columns.begin(), table.columns.end(), [](const Column &column) { return !column.gone; }));
    const auto variable = static_cast<quint16>(std::count_if(table.columns.begin(), table.columns.end(),
                                                             [](const Column &column) { return !isFixed(column); }));
    QByteArray bytes = number(signature) + number(table.promised.value_or(static_cast<quint32>(place.live))) +
                       number(static_cast<quint32>(table.rows.size())) + number(quint32{1}) + QByteArray(12, '\0') +
                       kind + number(count) + number(variable) + number(known) + number(quint32{0}) +
                       number(table.indexes) + number(pointer(maps, 0)) + number(pointer(maps, 1));
    for (quint32 i = 0; i < table.indexes * 3; ++i) {
        bytes += number(0xA5F0'0001U + i);
    }
    quint16 offset = 0;
    quint16 before = 0;
    for (quint16 i = 0; i < count; ++i) {
        const Column &column = table.columns[i];
        const auto size = static_cast<quint16>(fixedSize(column.type));
        quint16 length = column.type == Boolean ? 1 : size;
        length = column.type == Text ? static_cast<quint16>(column.size * 2) : length;
        length = column.type == Binary ? static_cast<quint16>(column.size) : length;
        const auto flags =
            static_cast<quint8>(2 | (isFixed(column) ? 1 : 0) | (column.counter ? 4 : 0) | (kind == 'S' ? 0x10 : 0));
        if (!column.gone) {
            bytes += static_cast<char>(column.type);
            bytes += number(signature) + number(i) + number(before) + number(i) + number(quint16{0x409}) +
                     number(quint16{0}) + number(flags) + number(quint8{1}) + number(quint32{0}) +
                     number(isFixed(column) && column.type != Boolean ? offset : quint16{0}) + number(length);
        }
        offset = static_cast<quint16>(offset + size);
        before = static_cast<quint16>(before + (isFixed(column) ? 0 : 1));
    }
    for (const Column &column : table.columns) {
        const QByteArray name = utf16(column.name);
        if (!column.gone) {
            bytes += number(static_cast<quint16>(name.size())) + name;
        }
    }
    qsizetype row = 2;
    for (quint16 i = 0; i < count; ++i) {
        if (isLong(table.columns[i]) && !table.columns[i].gone) {
            bytes += number(i) + number(pointer(maps, row)) + number(pointer(maps, row + 1));
            row += 2;
        }
    }
    return bytes + QByteArray("\xFF\xFF");
}

/// Bytes 8 and up of the stream; each further page has a head of its own.
void Writer::putDefinition(const QByteArray &stream, qsizetype page)
{
    constexpr qsizetype head = 8;
    const QByteArray whole = number(static_cast<quint32>(stream.size() + head + 4)) + stream;
    qsizetype done = 0;
    while (true) {
        const QByteArray piece = whole.mid(done, pageSize - head);
        done += piece.size();
        const qsizetype next = done < whole.size() ? add({}) : 0;
        const qsizetype room = std::max<qsizetype>(0, pageSize - head - piece.size());
        const QByteArray bytes =
            QByteArray("\2\1") + number(static_cast<quint16>(room)) + number(static_cast<quint32>(next)) + piece;
        pages_[page] = bytes.leftJustified(pageSize, '\0');
        if (next == 0) {
            return;
        }
        page = next;
    }
}

Pages Writer::addTable(const Table &table, qsizetype page, char kind)
{
    const Place place = addRows(table, page);
    RowPage maps;
    maps.add(map(place.pages, table.bitmaps));
    maps.add(map({}));
    for (const QList<qsizetype> &used : place.longPages) {
        maps.add(map(used));
        maps.add(map({}));
    }
    const qsizetype mapsPage = add(maps.bytes(0));
    putDefinition(definition(table, place, mapsPage, kind), page);
    Pages pages{.definition = static_cast<quint32>(page), .maps = static_cast<quint32>(mapsPage)};
    pages.rows.assign(place.pages.begin(), place.pages.end());
    for (const QList<qsizetype> &used : place.longPages) {
        pages.longValues.insert(pages.longValues.end(), used.begin(), used.end());
    }
    return pages;
}

Table Writer::catalogue(const QList<qsizetype> &pages) const
{
    Table table{.name = u"MSysObjects"_s,
                .columns = columns(u"Id.Long,ParentId.Long,Name.Text;255,Type.Integer,DateCreate.Date,DateUpdate.Date,"
                                   "Owner.Binary;510,Flags.Long,Database.Memo,Connect.Memo,ForeignName.Text;255,"
                                   "RmtInfoShort.Binary;510,RmtInfoLong.Ole,Lv.Ole,LvProp.Ole,LvModule.Ole,"
                                   "LvExtra.Ole"_s),
                .rows = {}};
    const auto add = [&table](qsizetype id, quint32 parent, const QString &name, qint16 type, quint32 flags) {
        Row row{.values = std::vector<Value>(table.columns.size(), runtime::Null())};
        const std::array<Value, 8> values{
            static_cast<qint32>(id), static_cast<qint32>(parent), name,      type,
            runtime::Date{created},  runtime::Date{created},      u"\1\2"_s, static_cast<qint32>(flags)};
        std::copy(values.begin(), values.end(), row.values.begin());
        table.rows.push_back(row);
    };
    const QStringList system{u"MSysObjects"_s, u"MSysACEs"_s, u"MSysQueries"_s, u"MSysRelationships"_s};
    for (qsizetype i = 0; i < system.size(); ++i) {
        add(systemPages[static_cast<std::size_t>(i)], tablesParent, system[i], 1, 0x80000000U);
    }
    qint32 folder = 0x0F000001;
    for (const QString &name : {u"Tables"_s, u"Databases"_s, u"Relationships"_s}) {
        add(folder++, 0x0F000000, name, 3, 0x80000000U);
    }
    for (qsizetype i = 0; i < pages.size(); ++i) {
        const Table &own = file_.tables[static_cast<std::size_t>(i)];
        add(pages[i], tablesParent, own.name, own.object, own.flags);
    }
    return table;
}

QByteArray Writer::header() const
{
    constexpr qsizetype masked = 0x18;
    constexpr qsizetype maskedSize = 128;
    QByteArray page(pageSize, '\0');
    const auto put = [&page](qsizetype at, const QByteArray &bytes) { page.replace(at, bytes.size(), bytes); };
    put(0, QByteArray("\0\1\0\0", 4));
    put(4, file_.name);
    page[0x14] = file_.version;
    put(masked, number(pointer(1, 0)) + number(pointer(1, 1)) + number(quint32{2}) + number(quint32{3}) +
                    number(quint32{4}) + number(quint32{5}));
    put(0x3C, number(quint16{1252}) + number(file_.pageKey));
    QByteArray password = utf16(file_.password).leftJustified(40, '\0');
    const QByteArray mask = number(static_cast<quint32>(created)).repeated(10);
    for (qsizetype i = 0; i < password.size(); ++i) {
        password[i] = static_cast<char>(password[i] ^ mask[i]);
    }
    put(0x42, password);
    put(0x6E, number(quint32{0x409}));
    put(0x72, number(std::bit_cast<quint64>(created)));
    put(masked, rc4(page.mid(masked, maskedSize), QByteArray("\xC7\xDA\x39\x6B")));
    put(0x98, number(quint32{0x654}) + "4.0");
    return page;
}

Layout Writer::all()
{
    Layout layout;
    QList<qsizetype> definitions;
    for (std::size_t i = 0; i < file_.tables.size(); ++i) {
        definitions.append(add({}));
    }
    layout.catalogue = addTable(catalogue(definitions), systemPages[0], 'S');
    for (std::size_t i = 1; i < systemPages.size(); ++i) {
        addTable({.name = {}, .columns = columns(u"Id.Long"_s), .rows = {}}, systemPages[i], 'S');
    }
    for (std::size_t i = 0; i < file_.tables.size(); ++i) {
        layout.tables.push_back(addTable(file_.tables[i], definitions[static_cast<qsizetype>(i)], 'N'));
    }
    RowPage first;
    first.add(QByteArray(mapSize, '\0'));
    first.add(QByteArray(mapSize, '\0'));
    pages_[1] = first.bytes(1);
    pages_[0] = header();
    layout.bytes = pages_.join();
    return layout;
}

struct Word {
    QStringView word;
    int type;
};

constexpr std::array words{Word{u"BOOLEAN", Boolean}, Word{u"BYTE", Byte},     Word{u"INTEGER", Integer},
                           Word{u"LONG", Long},       Word{u"COUNTER", Long},  Word{u"CURRENCY", Currency},
                           Word{u"SINGLE", Single},   Word{u"DOUBLE", Double}, Word{u"DATE", Date},
                           Word{u"BINARY", Binary},   Word{u"TEXT", Text},     Word{u"OLE", Ole},
                           Word{u"MEMO", Memo}};

} // namespace

qsizetype RowPage::add(const QByteArray &row, SlotFlag flag)
{
    rows_.prepend(row);
    room_ -= row.size() + 2;
    slots_.append(static_cast<quint16>((pageSize - rows_.size()) | flag));
    return slots_.size() - 1;
}

QByteArray RowPage::bytes(quint32 owner) const
{
    constexpr qsizetype head = 14;
    QByteArray page = QByteArray("\1\1") +
                      number(static_cast<quint16>(pageSize - rows_.size() - head - 2 * slots_.size())) + number(owner) +
                      number(quint32{0}) + number(static_cast<quint16>(slots_.size()));
    for (const quint16 slot : slots_) {
        page += number(slot);
    }
    return page.leftJustified(pageSize - rows_.size(), '\0') + rows_;
}

std::vector<Column> columns(const QString &list)
{
    std::vector<Column> found;
    for (const QString &item : list.split(u',')) {
        const QString type = item.section(u'.', 1).section(u';', 0, 0).toUpper();
        const auto *const known =
            std::find_if(words.begin(), words.end(), [&type](const Word &word) { return word.word == type; });
        Q_ASSERT(known != words.end());
        found.push_back({.name = item.section(u'.', 0, 0),
                         .type = known->type,
                         .size = item.section(u';', 1).toInt(),
                         .counter = type == u"COUNTER"});
    }
    return found;
}

void Layout::put(quint32 page, int at, const QByteArray &these)
{
    bytes.replace(qsizetype{page} * pageSize + at, these.size(), these);
}

void Layout::put16(quint32 page, int at, quint16 number)
{
    put(page, at, jet4::number(number));
}

void Layout::put32(quint32 page, int at, quint32 number)
{
    put(page, at, jet4::number(number));
}

Layout layOut(const File &file)
{
    return Writer(file).all();
}

QByteArray bytes(const File &file)
{
    return layOut(file).bytes;
}

bool write(const QString &path, const File &file)
{
    const QByteArray all = bytes(file);
    QFile out(path);
    return out.open(QIODevice::WriteOnly) && out.write(all) == all.size();
}

} // namespace jet4
