#include "tests/fuzz/danos.h"

#include "support/jet4/jet4.h"
#include "tests/fuzz/gerador.h"

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace fuzz
{

namespace
{

using runtime::Null;

constexpr qsizetype pageSize = 4096;
constexpr qsizetype slotsAt = 14;

enum Kind : char { HeaderPage = 0, RowPage = 1, DefinitionPage = 2, MapPage = 5 };

struct Original {
    QString name;
    QByteArray bytes;
};

/// What a workshop has: numbers of all widths, dates, short and long texts.
jet4::File ledger()
{
    jet4::File file;
    jet4::Table customers{
        .name = u"Clientes"_s,
        .columns = jet4::columns(u"Codigo.Counter,Nome.Text;200,Telefone.Text;50,Observacao.Memo,Nascimento.Date"_s),
        .rows = {}};
    for (int i = 1; i <= 60; ++i) {
        customers.rows.push_back({.values = {qint32{i}, u"JOSÉ Nº %1"_s.arg(i), u"ĄŁ %1"_s.arg(i),
                                             u"LONGO "_s.repeated(i * i), runtime::Date{30000.25 + i}}});
    }
    file.tables.push_back(customers);
    jet4::Table cash{.name = u"Caixa"_s,
                     .columns = jet4::columns(u"Codigo.Counter,Data.Date,Entrada.Single,Saida.Single,Saldo.Single"_s),
                     .rows = {}};
    for (int i = 1; i <= 150; ++i) {
        cash.rows.push_back({.values = {qint32{i}, runtime::Date{45000. + i}, 0.1F, Null{}, 0.1F * float(i)}});
    }
    file.tables.push_back(cash);
    return file;
}

/// What old files have: deleted rows, rows that outgrew their page, rows older than a column, maps in pages of bits.
jet4::File aged()
{
    jet4::File file;
    jet4::Table parts{.name = u"Pecas"_s,
                      .columns = jet4::columns(u"Codigo.Counter,Nome.Text;200,Valor.Single,ICMS.Single,Nota.Memo"_s),
                      .rows = {},
                      .columnsOfOldRows = 3,
                      .oldRows = 20,
                      .bitmaps = true};
    for (int i = 1; i <= 90; ++i) {
        parts.rows.push_back({.values = {qint32{i}, u"PEÇA %1 "_s.arg(i).repeated(1 + i % 9), 1.5F * float(i), 18.F,
                                         i % 3 == 0 ? runtime::Value(Null{}) : runtime::Value(u"x"_s.repeated(i * 90))},
                              .deleted = i % 7 == 0,
                              .overflow = i % 10 == 5});
    }
    file.tables.push_back(parts);
    return file;
}

/// A definition of several pages, and a table without rows.
jet4::File wide()
{
    jet4::File file;
    jet4::Table broad{.name = u"Larga"_s, .columns = jet4::columns(u"Codigo.Counter"_s), .rows = {}};
    for (int i = 1; i < 200; ++i) {
        broad.columns.push_back({.name = u"Coluna com um nome comprido %1"_s.arg(i),
                                 .type = i % 2 == 0 ? jet4::Long : jet4::Text,
                                 .size = 20});
    }
    for (int i = 1; i <= 12; ++i) {
        jet4::Row row{.values = {qint32{i}}};
        for (int column = 1; column < 200; ++column) {
            row.values.emplace_back(column % 2 == 0 ? runtime::Value(qint32{column}) : runtime::Value(u"ABC"_s));
        }
        broad.rows.push_back(row);
    }
    file.tables.push_back(broad);
    file.tables.push_back(
        {.name = u"Clientes"_s, .columns = jet4::columns(u"Codigo.Counter,Nome.Text;200"_s), .rows = {}});
    return file;
}

const std::vector<Original> &originals()
{
    static const std::vector<Original> all = {
        {u"ledger"_s, jet4::bytes(ledger())}, {u"aged"_s, jet4::bytes(aged())}, {u"wide"_s, jet4::bytes(wide())}};
    return all;
}

/// Damages one file, telling what it does.
class Damager
{
public:
    Damager(const Original &original, Gerador &random) : bytes_(original.bytes), story_(original.name), random_(random)
    {
    }

    void damageOnce()
    {
        constexpr int chances = 100;
        const int what = random_.below(chances);
        if (what < 4) {
            truncate();
        } else if (what < 14) {
            movePages();
        } else {
            damagePage(random_.below(static_cast<int>(bytes_.size() / pageSize)));
        }
    }

    JetDamage take() { return {.bytes = std::move(bytes_), .story = std::move(story_)}; }

private:
    int below(qsizetype limit) { return random_.below(static_cast<int>(limit)); }
    void tell(const QString &what) { story_ += u"; "_s + what; }
    uchar at(qsizetype place) const { return static_cast<uchar>(bytes_.at(place)); }
    int shortAt(qsizetype place) const { return at(place) | at(place + 1) << 8; }

    void truncate()
    {
        // Whole pages as often as not: a file that ends within one is refused at once.
        const int pages = 1 + below(bytes_.size() / pageSize);
        bytes_.truncate(random_.oneIn(4) ? 1 + below(bytes_.size()) : pages * pageSize);
        bytes_ = bytes_.leftJustified(pageSize, '\0');
        tell(u"truncated to %1 bytes"_s.arg(bytes_.size()));
    }

    void movePages()
    {
        const qsizetype pages = bytes_.size() / pageSize;
        const qsizetype one = below(pages) * pageSize;
        const qsizetype other = below(pages) * pageSize;
        const QByteArray first = bytes_.mid(one, pageSize);
        const QByteArray second = bytes_.mid(other, pageSize);
        const bool swap = random_.oneIn(2);
        const bool empty = !swap && random_.oneIn(3);
        bytes_.replace(one, pageSize, empty ? QByteArray(pageSize, '\0') : second);
        if (swap) {
            bytes_.replace(other, pageSize, first);
        }
        tell(u"%1 pages %2 and %3"_s.arg(swap    ? u"swapped"_s
                                         : empty ? u"emptied one of"_s
                                                 : u"copied between"_s)
                 .arg(one / pageSize)
                 .arg(other / pageSize));
    }

    void damagePage(int page)
    {
        // A third of the damage goes to the catalogue and the definitions, few as they are.
        if (random_.oneIn(3)) {
            page = pageOf(DefinitionPage, page);
        }
        const qsizetype start = qsizetype{page} * pageSize;
        const qsizetype place = start + placeIn(start);
        if (random_.oneIn(2)) {
            bytes_[place] = static_cast<char>(random_.oneIn(2) ? at(place) ^ 1 << below(8) : below(256));
            tell(u"page %1: byte %2 = %3"_s.arg(page).arg(place - start).arg(at(place)));
            return;
        }
        putNumber(page, place);
    }

    /// Any page of a kind; the one that was meant where there is none.
    int pageOf(Kind kind, int otherwise)
    {
        std::vector<int> pages;
        for (int page = 0; page < bytes_.size() / pageSize; ++page) {
            if (bytes_[page * pageSize] == kind) {
                pages.push_back(page);
            }
        }
        return pages.empty() ? otherwise : pages[static_cast<std::size_t>(below(static_cast<int>(pages.size())))];
    }

    int placeIn(qsizetype start)
    {
        constexpr int head = 16;
        constexpr int definitionHead = 63;
        constexpr int describedColumns = 800;
        constexpr int mask = 0x98;
        if (random_.oneIn(5)) {
            return below(head);
        }
        switch (bytes_[start]) {
        case HeaderPage:
            return below(mask);
        case DefinitionPage:
            return random_.oneIn(2) ? below(definitionHead) : definitionHead + below(describedColumns);
        case RowPage:
            return placeInRows(start);
        default:
            return below(pageSize);
        }
    }

    int placeInRows(qsizetype start)
    {
        const int rows = std::min(shortAt(start + 12), 255);
        if (rows == 0 || random_.oneIn(8)) {
            return below(pageSize);
        }
        const qsizetype slot = slotsAt + 2 * qsizetype{below(rows)};
        if (random_.oneIn(3)) {
            return static_cast<int>(slot) + below(2);
        }
        // The beginning of a row has its count or the pointers of long values, its end the places of its texts.
        const int row = shortAt(start + slot) & 0x1FFF;
        const int end = slot == slotsAt ? int{pageSize} : shortAt(start + slot - 2) & 0x1FFF;
        constexpr int near = 24;
        const int place = random_.oneIn(2) ? row + below(near) : end - 1 - below(near);
        return std::clamp(place, 0, int{pageSize} - 1);
    }

    void putNumber(int page, qsizetype place)
    {
        static constexpr std::array<quint32, 14> numbers{
            0, 1, 2, 0xFF, 0x100, 0xFFF, 0x1000, 0x3FFF, 0x4000, 0x7FFF, 0xFFFF, 0x40000000, 0x7FFFFFFF, 0xFFFFFFFF};
        const auto number = random_.oneIn(3) ? static_cast<quint32>(below(bytes_.size() / pageSize) << 8 | below(4))
                                             : numbers[static_cast<std::size_t>(below(numbers.size()))];
        const int width = random_.oneIn(2) ? 2 : 4;
        for (int i = 0; i < width && place + i < bytes_.size(); ++i) {
            bytes_[place + i] = static_cast<char>(number >> (8 * i));
        }
        tell(u"page %1: %2 bytes at %3 = %4"_s.arg(page).arg(width).arg(place % pageSize).arg(number));
    }

    QByteArray bytes_;
    QString story_;
    Gerador &random_;
};

} // namespace

JetDamage jetDamage(int number)
{
    Gerador random(static_cast<quint32>(number));
    const auto &files = originals();
    Damager damager(files[static_cast<std::size_t>(number) % files.size()], random);
    for (int times = 1 + random.below(3); times > 0; --times) {
        damager.damageOnce();
    }
    return damager.take();
}

} // namespace fuzz
