#pragma once

#include "tests/fuzz/gerador.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <vector>

namespace fuzz
{

/// Makes statements of every kind over the golden tables: joins of two and three tables, sub-selects, functions. They
/// are whole in their form; what they name and compare fits together most of the time, not always.
class Instrucoes
{
public:
    explicit Instrucoes(quint32 seed) : random_(seed) {}

    QString next();

private:
    struct Table {
        QString name;
        QStringList numbers;
        QStringList others;
    };
    struct Used {
        QString name; ///< the alias, where the table has one
        const Table *table;
    };

    static const std::vector<Table> &tables();

    template<std::size_t count>
    QString pick(const std::array<QStringView, count> &list)
    {
        return list[static_cast<std::size_t>(random_.below(static_cast<int>(count)))].toString();
    }
    const Table &anyTable()
    {
        return tables()[static_cast<std::size_t>(random_.below(static_cast<int>(tables().size())))];
    }
    QString anyColumn(const Table &table)
    {
        const QStringList columns = table.numbers + table.others;
        return columns[random_.below(static_cast<int>(columns.size()))];
    }
    QString anyNumber(const Table &table)
    {
        return table.numbers[random_.below(static_cast<int>(table.numbers.size()))];
    }
    const Used &anyUsed() { return used_[static_cast<std::size_t>(random_.below(static_cast<int>(used_.size())))]; }

    QString from();
    QString joined(const QString &left, const QString &right, std::size_t first);
    QString useTable();
    QString column();
    QString number();
    QString literal();
    QString value(int depth);
    QString call(int depth);
    QString condition(int depth);
    QString joinCondition(std::size_t first);
    QString where() { return random_.oneIn(3) ? QString() : QStringLiteral(" WHERE ") + condition(2); }
    QString subselect(int depth, const QString &items);
    QString items(int count);
    QString select();
    QString grouped();
    QString unionOf();
    QString deletion();
    QString update();
    QString insertion();
    QString definition();
    QString index();

    Gerador random_;
    std::vector<Used> used_; ///< the tables of the statement being made
};

inline const std::vector<Instrucoes::Table> &Instrucoes::tables()
{
    using namespace Qt::StringLiterals;
    static const std::vector<Table> all = {
        {u"Clientes"_s, {u"Codigo"_s, u"Numero"_s, u"LimiteCredito"_s}, {u"Nome"_s, u"DataCadastro"_s}},
        {u"Veiculos"_s, {u"Codigo"_s, u"CodCliente"_s}, {u"Placas"_s}},
        {u"OSPecas"_s, {u"Codigo"_s, u"CodOS"_s, u"Quantidade"_s, u"ValorUnit"_s}, {u"PSA"_s}},
        {u"Fiados"_s, {u"Codigo"_s, u"CodOs"_s, u"CodCliente"_s, u"Valor"_s, u"Pago"_s}, {u"Data"_s}},
        {u"ContasReceber"_s, {u"Codigo"_s, u"CodOs"_s, u"Valor"_s, u"Pago"_s}, {u"Descricao"_s}},
        {u"Combos"_s, {u"Codigo"_s}, {u"Texto"_s}},
        {u"Senha"_s, {u"Codigo"_s, u"Admin"_s}, {u"Nome"_s}}};
    return all;
}

inline QString Instrucoes::next()
{
    used_.clear();
    switch (random_.below(12)) {
    case 0:
    case 1:
        return select();
    case 2:
        return grouped();
    case 3:
        return unionOf();
    case 4:
        return deletion();
    case 5:
        return insertion();
    case 6:
        return definition();
    case 7:
        return index();
    default:
        return update();
    }
}

inline QString Instrucoes::useTable()
{
    const Table &table = anyTable();
    const bool taken =
        std::any_of(used_.begin(), used_.end(), [&table](const Used &use) { return use.name == table.name; });
    if (taken || random_.oneIn(4)) {
        const QString alias = QStringLiteral("T%1").arg(used_.size());
        used_.push_back({alias, &table});
        return table.name + QStringLiteral(" AS ") + alias;
    }
    used_.push_back({table.name, &table});
    return table.name;
}

/// Mostly two numbers of the tables from `first` on, the last of which has just come.
inline QString Instrucoes::joinCondition(std::size_t first)
{
    if (random_.oneIn(10)) {
        return condition(1);
    }
    const Used &left =
        used_[first + static_cast<std::size_t>(random_.below(static_cast<int>(used_.size() - 1 - first)))];
    const Used &right = used_.back();
    return left.name + u'.' + anyNumber(*left.table) + QStringLiteral(" = ") + right.name + u'.' +
           anyNumber(*right.table);
}

inline QString Instrucoes::joined(const QString &left, const QString &right, std::size_t first)
{
    static constexpr std::array<QStringView, 3> kinds = {u" INNER JOIN ", u" LEFT JOIN ", u" RIGHT JOIN "};
    return left + pick(kinds) + right + QStringLiteral(" ON ") + joinCondition(first);
}

inline QString Instrucoes::from()
{
    QString text = useTable();
    if (random_.oneIn(4)) {
        text += QStringLiteral(", ") + useTable();
        return random_.oneIn(2) ? text : text + QStringLiteral(", ") + useTable();
    }
    const int more = random_.below(3);
    if (more == 2 && random_.oneIn(2)) {
        const QString middle = useTable();
        const QString last = useTable();
        return joined(text, u'(' + joined(middle, last, 1) + u')', 0);
    }
    for (int i = 0; i < more; ++i) {
        const QString right = useTable();
        text = joined(random_.oneIn(2) && i > 0 ? u'(' + text + u')' : text, right, 0);
    }
    return text;
}

inline QString Instrucoes::column()
{
    if (used_.empty() || random_.oneIn(60)) {
        const Table &table = anyTable();
        return table.name + u'.' + anyColumn(table);
    }
    const Used &use = anyUsed();
    return random_.oneIn(8) ? anyColumn(*use.table) : use.name + u'.' + anyColumn(*use.table);
}

inline QString Instrucoes::number()
{
    if (used_.empty()) {
        return QStringLiteral("1");
    }
    const Used &use = anyUsed();
    return use.name + u'.' + anyNumber(*use.table);
}

inline QString Instrucoes::literal()
{
    static constexpr std::array<QStringView, 14> list = {
        u"0",  u"1",   u"3",    u"-1",   u"0.5",  u"1e20",         u"'A'",
        u"''", u"'5'", u"'A*'", u"Null", u"True", u"#05/13/2024#", u"\"01/02/2024\""};
    return pick(list);
}

inline QString Instrucoes::call(int depth)
{
    static constexpr std::array<QStringView, 24> calls = {u"Left(%1, 2)",
                                                          u"Mid(%1, %2)",
                                                          u"Len(%1)",
                                                          u"UCase(%1)",
                                                          u"Val(%1)",
                                                          u"CStr(%1)",
                                                          u"CDbl(%1)",
                                                          u"Abs(%1)",
                                                          u"Round(%1, 1)",
                                                          u"Year(%1)",
                                                          u"Format(%1, '0')",
                                                          u"IsNull(%1)",
                                                          u"Chr(%1)",
                                                          u"Asc(%1)",
                                                          u"String(3, %1)",
                                                          u"Space(%1)",
                                                          u"Sgn(%1)",
                                                          u"DatePart('ww', %1)",
                                                          u"TimeValue(%1)",
                                                          u"CCur(%1)",
                                                          u"Switch(%3, %1, True, %2)",
                                                          u"DateAdd('m', %1, %2)",
                                                          u"DateDiff('d', %1, %2)",
                                                          u"Nada(%1)"};
    return pick(calls).arg(value(depth - 1), value(depth - 1), condition(0));
}

inline QString Instrucoes::value(int depth)
{
    static constexpr std::array<QStringView, 7> operators = {u" + ", u" - ", u" * ", u" / ", u" & ", u" MOD ", u" ^ "};
    static constexpr std::array<QStringView, 4> aggregates = {u"Max(", u"Sum(", u"Count(", u"Last("};
    switch (depth <= 0 ? random_.below(6) : random_.below(12)) {
    case 6:
    case 7:
        return value(depth - 1) + pick(operators) + value(depth - 1);
    case 8:
        return call(depth);
    case 9:
        return QStringLiteral("IIf(") + condition(depth - 1) + u", " + value(depth - 1) + u", " + value(depth - 1) +
               u')';
    case 10:
        return u'(' + subselect(depth - 1, random_.oneIn(2) ? pick(aggregates) + QStringLiteral("Codigo)") : column()) +
               u')';
    case 4:
    case 5:
        return literal();
    default:
        return column();
    }
}

inline QString Instrucoes::condition(int depth)
{
    static constexpr std::array<QStringView, 6> signs = {u" = ", u" = ", u" <> ", u" < ", u" >= ", u" LIKE "};
    switch (depth <= 0 ? random_.below(6) : random_.below(12)) {
    case 6:
        return condition(depth - 1) + QStringLiteral(" AND ") + condition(depth - 1);
    case 7:
        return u'(' + condition(depth - 1) + QStringLiteral(" OR ") + condition(depth - 1) + u')';
    case 8:
        return QStringLiteral("NOT ") + condition(depth - 1);
    case 9:
        return number() + QStringLiteral(" IN (") + subselect(depth - 1, QStringLiteral("Codigo")) + u')';
    case 10:
        return QStringLiteral("EXISTS (") + subselect(depth - 1, QStringLiteral("*")) + u')';
    case 5:
        return value(depth);
    case 4:
        return number() + QStringLiteral(" BETWEEN ") + value(0) + QStringLiteral(" AND ") + value(0);
    case 3:
        return number() + QStringLiteral(" IN (") + literal() + u", " + literal() + u')';
    default:
        return random_.oneIn(3) ? value(depth) + pick(signs) + value(depth) : number() + pick(signs) + number();
    }
}

/// The tables of a sub-select stand beside those around it while its condition is made.
inline QString Instrucoes::subselect(int depth, const QString &items)
{
    const std::size_t outer = used_.size();
    const QString table = useTable();
    const QString text = QStringLiteral("SELECT ") + items + QStringLiteral(" FROM ") + table +
                         (random_.oneIn(3) ? QString() : QStringLiteral(" WHERE ") + condition(depth - 1));
    used_.resize(outer);
    return text;
}

inline QString Instrucoes::items(int count)
{
    QStringList list;
    for (; count > 0; --count) {
        list.append(value(2));
    }
    return list.join(u", ");
}

inline QString Instrucoes::select()
{
    static constexpr std::array<QStringView, 6> starts = {u"SELECT ",
                                                          u"SELECT ",
                                                          u"SELECT DISTINCT ",
                                                          u"SELECT TOP 2 ",
                                                          u"SELECT TOP 30 PERCENT ",
                                                          u"SELECT DISTINCT TOP 1 "};
    const QString tables = from();
    const QString list = random_.oneIn(3) ? QStringLiteral("*") : items(1 + random_.below(3));
    const QString into = random_.oneIn(8) ? QStringLiteral(" INTO Nova%1").arg(random_.below(3)) : QString();
    return pick(starts) + list + into + QStringLiteral(" FROM ") + tables + where() +
           (random_.oneIn(2) ? QString() : QStringLiteral(" ORDER BY ") + value(1));
}

inline QString Instrucoes::grouped()
{
    static constexpr std::array<QStringView, 5> aggregates = {u"Count(*)", u"Sum(", u"Max(", u"First(", u"Avg("};
    const QString tables = from();
    const QString key = value(1);
    const QString aggregate = pick(aggregates);
    const QString total = aggregate.endsWith(u'(') ? aggregate + column() + u')' : aggregate;
    return QStringLiteral("SELECT ") + key + u", " + total + QStringLiteral(" FROM ") + tables + where() +
           QStringLiteral(" GROUP BY ") + key +
           (random_.oneIn(3) ? QStringLiteral(" HAVING ") + total + QStringLiteral(" > 1") : QString());
}

inline QString Instrucoes::unionOf()
{
    const int width = 1 + random_.below(3);
    QString text;
    for (int count = 2 + random_.below(2); count > 0; --count) {
        used_.clear();
        const QString tables = from();
        text += QStringLiteral("SELECT ") + items(width) + QStringLiteral(" FROM ") + tables + where();
        text += count == 1 ? QString() : random_.oneIn(2) ? QStringLiteral(" UNION ALL ") : QStringLiteral(" UNION ");
    }
    return text + (random_.oneIn(2) ? QString() : QStringLiteral(" ORDER BY 1"));
}

inline QString Instrucoes::deletion()
{
    const QString tables = from();
    const QString target = random_.oneIn(3) ? QStringLiteral("*") : used_[0].name + QStringLiteral(".*");
    return QStringLiteral("DELETE ") + target + QStringLiteral(" FROM ") + tables + QStringLiteral(" WHERE ") +
           condition(2);
}

inline QString Instrucoes::update()
{
    const QString tables = from();
    QStringList changes;
    for (int count = 1 + random_.below(3); count > 0; --count) {
        changes.append(column() + QStringLiteral(" = ") + (random_.oneIn(2) ? number() : value(1)));
    }
    return QStringLiteral("UPDATE ") + tables + QStringLiteral(" SET ") + changes.join(u", ") + where();
}

inline QString Instrucoes::insertion()
{
    const Table &target = anyTable();
    const QStringList all = target.numbers.mid(1) + target.others;
    const int width = 1 + random_.below(static_cast<int>(all.size()));
    const QString columns = random_.oneIn(3) ? QString() : u" (" + all.mid(0, width).join(u", ") + u')';
    const QString start = QStringLiteral("INSERT INTO ") + target.name + columns;
    if (random_.oneIn(2)) {
        return start + QStringLiteral(" VALUES (") + items(width) + u')';
    }
    const QString tables = from();
    return start + QStringLiteral(" SELECT ") + (random_.oneIn(3) ? QStringLiteral("*") : items(width)) +
           QStringLiteral(" FROM ") + tables + where();
}

inline QString Instrucoes::definition()
{
    static constexpr std::array<QStringView, 10> types = {u"COUNTER", u"TEXT(20)", u"MEMO",   u"CURRENCY", u"BYTE",
                                                          u"SINGLE",  u"BOOLEAN",  u"DOUBLE", u"DATE",     u"NADA"};
    const QString table = random_.oneIn(3) ? anyTable().name : QStringLiteral("Nova%1").arg(random_.below(3));
    switch (random_.below(4)) {
    case 0:
        return QStringLiteral("CREATE TABLE ") + table + QStringLiteral(" (Codigo ") + pick(types) +
               QStringLiteral(", Nome ") + pick(types) + u')';
    case 1:
        return QStringLiteral("ALTER TABLE ") + table + QStringLiteral(" ADD X%1 ").arg(random_.below(3)) + pick(types);
    case 2:
        return QStringLiteral("ALTER TABLE ") + table + QStringLiteral(" DROP COLUMN X%1").arg(random_.below(3));
    default:
        return QStringLiteral("DROP TABLE Nova%1").arg(random_.below(3));
    }
}

inline QString Instrucoes::index()
{
    const Table &table = anyTable();
    const QString name = QStringLiteral("I%1").arg(random_.below(3));
    if (random_.oneIn(3)) {
        return QStringLiteral("DROP INDEX ") + name + QStringLiteral(" ON ") + table.name;
    }
    return QStringLiteral("CREATE INDEX ") + name + QStringLiteral(" ON ") + table.name + u" (" + anyColumn(table) +
           (random_.oneIn(2) ? QStringLiteral(" DESC, ") + anyColumn(table) : QString()) + u')';
}

} // namespace fuzz
