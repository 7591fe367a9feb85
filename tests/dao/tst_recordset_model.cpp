// Random walks over recordsets, each step compared with a plain model in memory.
#include "tests/dao/golden.h"
#include "tests/dao/recordsetmodel.h"

#include "platform/dao/snapshot.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;
using golden::errorOf;
using golden::shown;
using model::Groups;
using model::Items;
using runtime::Null;
using runtime::Value;

namespace
{

constexpr quint32 walks = 10'000;
constexpr int steps = 30;
constexpr int mostRows = 40;

/// A value that is written and what the field then holds; nothing where it can't be converted.
struct Assigned {
    QString field;
    Value given;
    std::optional<Value> converted;
};

const std::vector<Assigned> &assignments()
{
    static const std::vector<Assigned> all{
        {u"Nome"_s, u"ANA"_s, u"ANA"_s},    {u"Nome"_s, u"Bia"_s, u"Bia"_s},
        {u"Nome"_s, u"CAIO"_s, u"CAIO"_s},  {u"Nome"_s, Null{}, Null{}},
        {u"Nome"_s, u""_s, u""_s},          {u"Nome"_s, u"ONZE LETRAS"_s, u"ONZE LETRAS"_s},
        {u"Valor"_s, 10.25F, 10.25F},       {u"Valor"_s, u"1,5"_s, 1.5F},
        {u"Valor"_s, qint32{-3}, -3.0F},    {u"Valor"_s, u"dez"_s, std::nullopt},
        {u"Valor"_s, Null{}, Null{}},       {u"Dobro"_s, 1.0F, 1.0F},
        {u"Grupo"_s, qint32{1}, qint32{1}}, {u"Grupo"_s, 2.5, qint32{2}},
        {u"Grupo"_s, u"3"_s, qint32{3}},    {u"Grupo"_s, Null{}, Null{}},
        {u"Ativo"_s, true, true},           {u"Ativo"_s, u"talvez"_s, std::nullopt},
    };
    return all;
}

struct Action {
    const char *name;
    int (model::Set::*expected)();
    void (dao::Recordset::*action)();
};

constexpr std::array actions{
    Action{"MoveFirst", &model::Set::moveFirst, &dao::Recordset::MoveFirst},
    Action{"MoveLast", &model::Set::moveLast, &dao::Recordset::MoveLast},
    Action{"MoveNext", &model::Set::moveNext, &dao::Recordset::MoveNext},
    Action{"MoveNext", &model::Set::moveNext, &dao::Recordset::MoveNext},
    Action{"MovePrevious", &model::Set::movePrevious, &dao::Recordset::MovePrevious},
    Action{"MovePrevious", &model::Set::movePrevious, &dao::Recordset::MovePrevious},
    Action{"AddNew", &model::Set::addNew, &dao::Recordset::AddNew},
    Action{"Edit", &model::Set::edit, &dao::Recordset::Edit},
    Action{"Update", &model::Set::update, &dao::Recordset::Update},
    Action{"Update", &model::Set::update, &dao::Recordset::Update},
    Action{"CancelUpdate", &model::Set::cancelUpdate, &dao::Recordset::CancelUpdate},
    Action{"Delete", &model::Set::remove, &dao::Recordset::Delete},
};

/// A set of the program and the model's beside it.
struct Pair {
    dao::Recordset set;
    model::Set expected;
};

/// A list that stands open, and what stood in its rows when it was filled.
struct List {
    QString sql;
    dao::Snapshot rows;
    std::vector<std::optional<model::Row>> expected;
};

QString shownRow(const std::optional<model::Row> &row)
{
    if (!row) {
        return u"gone"_s;
    }
    QStringList fields;
    std::transform(row->begin(), row->end(), std::back_inserter(fields), shown);
    return fields.join(u" | "_s);
}

/// One walk: two sets over the same tables, lists of their rows, and statements that write beside them.
class Walk
{
public:
    Walk(dao::Database &database, model::Tables &tables, quint32 seed)
        : database_(database), tables_(tables), random_(seed)
    {
    }

    void run(int rows);
    const QStringList &steps() const { return steps_; }
    const QString &fault() const { return fault_; }

private:
    int below(int limit) { return random_.bounded(limit); }
    bool oneIn(int chances) { return below(chances) == 0; }
    QString groupCode() { return QString::number(1 + below(4)); }

    void fill(int rows);
    void addItem(const Value &name, const Value &price, const Value &group);
    void open();
    void open(const model::Source &source);
    void step();
    void close(size_t chosen);
    void show(Pair pair);
    void compareLists(bool all);
    void compareList(List &list);
    void act(Pair &pair);
    void add(Pair &pair);
    void assign(Pair &pair);
    void walkOn(Pair &pair, int count, bool forward);
    void executeBeside();
    void writeItemsBeside();
    void writeGroupsBeside();
    void insertBeside();
    int change(model::TableName table, int where, const Value &key, const std::function<void(model::Row &)> &change);
    int removeRows(model::TableName table, int where, const Value &key);
    void execute(const QString &statement, int count);
    void perform(Pair &pair, const Action &action);
    void compare(Pair &pair, bool values);
    void compareValues(Pair &pair);
    void compareTables();
    void check(bool holds, const QString &what);
    void same(const QString &found, const QString &expected, const QString &what);

    dao::Database &database_;
    model::Tables &tables_;
    QRandomGenerator random_;
    std::vector<Pair> pairs_;
    std::vector<List> lists_;
    QStringList steps_;
    QString fault_;
};

void Walk::check(bool holds, const QString &what)
{
    if (!holds && fault_.isEmpty()) {
        fault_ = what;
    }
}

void Walk::same(const QString &found, const QString &expected, const QString &what)
{
    if (found != expected) {
        check(false, u"%1 gives %2, expected is %3"_s.arg(what, found, expected));
    }
}

void Walk::addItem(const Value &name, const Value &price, const Value &group)
{
    const qint32 code = ++tables_[Items].counter;
    tables_[Items].add({code, name, price, group, true});
}

/// Empties the tables and fills them anew; the numbers that were given are not given again.
void Walk::fill(int rows)
{
    database_.Execute(u"DELETE * FROM Itens"_s);
    database_.Execute(u"DELETE * FROM Grupos"_s);
    tables_[Items].rows.clear();
    tables_[Groups].rows.clear();
    auto groups = database_.OpenRecordset(u"Grupos"_s);
    for (int i = below(5); i > 0; --i) {
        const model::Row row{qint32{1 + below(3)}, u"G%1"_s.arg(i)};
        groups.AddNew();
        groups[0] = row[0];
        groups[1] = row[1];
        groups.Update();
        tables_[Groups].add(row);
    }
    auto items = database_.OpenRecordset(u"Itens"_s);
    for (int i = 0; i < rows; ++i) {
        const auto letter = QChar(u'A' + below(4));
        const Value name = oneIn(6) ? Value(Null{}) : Value(QString(1 + below(3), letter));
        const Value price = oneIn(6) ? Value(Null{}) : Value(static_cast<float>(below(40)) / 4 - 2);
        const Value group = oneIn(6) ? Value(Null{}) : Value(qint32{1 + below(4)});
        items.AddNew();
        items[u"Nome"] = name;
        items[u"Valor"] = price;
        items[u"Grupo"] = group;
        items[u"Ativo"] = true;
        items.Update();
        addItem(name, price, group);
    }
}

void Walk::open()
{
    const auto &sources = model::sources();
    open(sources[static_cast<size_t>(below(static_cast<int>(sources.size())))]);
}

void Walk::open(const model::Source &source)
{
    steps_.append(u"open "_s + source.sql);
    pairs_.push_back({database_.OpenRecordset(source.sql), model::Set(tables_, source)});
    compare(pairs_.back(), oneIn(2));
}

void Walk::run(int rows)
{
    fill(rows);
    steps_.append(u"%1 items, %2 groups"_s.arg(rows).arg(tables_[Groups].rows.size()));
    rows > mostRows ? open(model::sources()[static_cast<size_t>(below(3))]) : open();
    open();
    if (rows > mostRows) {
        walkOn(pairs_.front(), rows / 2 + below(rows / 2), true);
    }
    for (int i = 0; i < ::steps && fault_.isEmpty(); ++i) {
        step();
    }
    for (Pair &pair : pairs_) {
        compare(pair, true);
    }
    pairs_.clear();
    compareLists(true);
    lists_.clear();
    compareTables();
}

void Walk::step()
{
    const auto chosen = static_cast<size_t>(below(2));
    if (dao::Unit::isOpen() && oneIn(1000)) {
        steps_.append(u"the unit ends, another begins"_s);
        dao::Unit::resume(dao::Unit::pause());
    }
    compareLists(false);
    switch (below(16)) {
    case 0:
        return close(chosen);
    case 1:
    case 2:
        return executeBeside();
    case 3:
        return walkOn(pairs_[chosen], below(static_cast<int>(tables_[Items].rows.size()) + 2), !oneIn(3));
    case 4:
    case 5:
        return add(pairs_[chosen]);
    case 6:
    case 7:
    case 8:
        return assign(pairs_[chosen]);
    default:
        return act(pairs_[chosen]);
    }
}

/// What is closed may go on as a list.
void Walk::close(size_t chosen)
{
    Pair pair = std::move(pairs_[chosen]);
    pairs_.erase(pairs_.begin() + static_cast<std::ptrdiff_t>(chosen));
    if (oneIn(2)) {
        steps_.append(u"list %1"_s.arg(chosen));
        show(std::move(pair));
    } else {
        steps_.append(u"close %1"_s.arg(chosen));
        pair.set.Close();
        check(errorOf([&] { pair.set.MoveNext(); }) == 91, u"a closed set is no object"_s);
    }
    open();
}

/// A list of the rows that a set holds, wherever it stands and whatever it has done.
void Walk::show(Pair pair)
{
    constexpr size_t most = 3;
    if (lists_.size() == most) {
        lists_.erase(lists_.begin());
    }
    lists_.push_back({pair.expected.source().sql, dao::Snapshot(std::move(pair.set)), pair.expected.rows()});
}

void Walk::compareLists(bool all)
{
    for (List &list : lists_) {
        if (all || oneIn(4)) {
            compareList(list);
        }
    }
}

/// One by one from any row on, or all in one go: the same rows.
void Walk::compareList(List &list)
{
    const auto count = static_cast<int>(list.expected.size());
    same(QString::number(list.rows.count()), QString::number(count), u"the count of the list "_s + list.sql);
    std::vector<QString> found(list.expected.size(), u"gone"_s);
    const auto put = [&](int row, const dao::Recordset &set) {
        check(found[static_cast<size_t>(row)] == u"gone", u"row %1 comes twice"_s.arg(row));
        found[static_cast<size_t>(row)] = golden::shownRow(set);
    };
    if (oneIn(2)) {
        list.rows.readAll(put);
    } else {
        const int first = below(count + 1);
        for (int i = 0; i < count; ++i) {
            const int row = (first + i) % count;
            list.rows.read(row, [&](const dao::Recordset &set) { put(row, set); });
        }
    }
    for (size_t row = 0; row < found.size(); ++row) {
        same(found[row], shownRow(list.expected[row]), u"row %1 of the list %2"_s.arg(row).arg(list.sql));
    }
}

void Walk::act(Pair &pair)
{
    perform(pair, actions[static_cast<size_t>(below(static_cast<int>(actions.size())))]);
}

/// A row that can be written, in one go.
void Walk::add(Pair &pair)
{
    perform(pair, {"AddNew", &model::Set::addNew, &dao::Recordset::AddNew});
    assign(pair);
    perform(pair, {"Update", &model::Set::update, &dao::Recordset::Update});
}

void Walk::perform(Pair &pair, const Action &action)
{
    const int place = &pair == &pairs_.front() ? 0 : 1;
    steps_.append(u"%1 %2"_s.arg(QLatin1StringView(action.name)).arg(place));
    const int expected = (pair.expected.*action.expected)();
    const int error = errorOf([&] { (pair.set.*action.action)(); });
    same(QString::number(error), QString::number(expected), u"the step"_s);
    compare(pairs_[static_cast<size_t>(below(2))], oneIn(2));
}

void Walk::assign(Pair &pair)
{
    const auto &[field, given, converted] =
        assignments()[static_cast<size_t>(below(static_cast<int>(assignments().size())))];
    int place = -1;
    if (errorOf([&] { place = pair.set.fieldPlace(field); }) != 0) {
        return;
    }
    steps_.append(u"%1 of %2 = %3"_s.arg(field).arg(&pair == &pairs_.front() ? 0 : 1).arg(shown(given)));
    const int expected = pair.expected.assign(static_cast<size_t>(place), converted);
    const int error = errorOf([&] { pair.set[place] = given; });
    same(QString::number(error), QString::number(expected), u"the assignment"_s);
    compare(pair, oneIn(2));
}

void Walk::walkOn(Pair &pair, int count, bool forward)
{
    steps_.append(u"%1 moves of %2 %3"_s.arg(count).arg(&pair == &pairs_.front() ? 0 : 1).arg(forward ? 1 : -1));
    for (int i = 0; i < count && fault_.isEmpty(); ++i) {
        const int expected = forward ? pair.expected.moveNext() : pair.expected.movePrevious();
        const int error = errorOf([&] { forward ? pair.set.MoveNext() : pair.set.MovePrevious(); });
        same(QString::number(error), QString::number(expected), u"move %1"_s.arg(i));
        compare(pair, oneIn(4));
    }
}

void Walk::executeBeside()
{
    switch (below(4)) {
    case 0:
        return insertBeside();
    case 1:
        return writeGroupsBeside();
    default:
        return writeItemsBeside();
    }
}

void Walk::execute(const QString &statement, int count)
{
    steps_.append(statement);
    int found = -1;
    const int error = errorOf([&] { found = database_.Execute(statement); });
    same(QString::number(error), u"0"_s, u"the statement"_s);
    same(QString::number(found), QString::number(count), u"the statement's count"_s);
    for (Pair &pair : pairs_) {
        compare(pair, oneIn(2));
    }
}

int Walk::change(model::TableName table, int where, const Value &key, const std::function<void(model::Row &)> &change)
{
    int count = 0;
    for (auto &[number, row] : tables_[table].rows) {
        if (row[static_cast<size_t>(where)] == key) {
            change(row);
            ++count;
        }
    }
    return count;
}

int Walk::removeRows(model::TableName table, int where, const Value &key)
{
    return static_cast<int>(std::erase_if(
        tables_[table].rows, [&](const auto &row) { return row.second[static_cast<size_t>(where)] == key; }));
}

void Walk::writeItemsBeside()
{
    const qint32 group = 1 + below(4);
    const qint32 code = std::max(1, tables_[Items].counter - below(20));
    switch (below(4)) {
    case 0: {
        const int count = change(Items, model::Group, group, [](model::Row &row) { row[model::Price] = 7.5F; });
        return execute(u"UPDATE Itens SET Valor = 7.5 WHERE Grupo = %1"_s.arg(group), count);
    }
    case 1: {
        const qint32 other = 1 + below(4);
        const int count = change(Items, model::Group, group, [&](model::Row &row) { row[model::Group] = other; });
        return execute(u"UPDATE Itens SET Grupo = %1 WHERE Grupo = %2"_s.arg(other).arg(group), count);
    }
    case 2: {
        const int count = change(Items, model::Code, code, [](model::Row &row) { row[model::Name] = u"BB"_s; });
        return execute(u"UPDATE Itens SET Nome = 'BB' WHERE Codigo = %1"_s.arg(code), count);
    }
    default:
        return execute(u"DELETE * FROM Itens WHERE Codigo = %1"_s.arg(code), removeRows(Items, model::Code, code));
    }
}

void Walk::writeGroupsBeside()
{
    const qint32 group = 1 + below(4);
    switch (below(3)) {
    case 0: {
        const int count =
            change(Groups, model::GroupCode, group, [](model::Row &row) { row[model::GroupName] = u"NOVO"_s; });
        return execute(u"UPDATE Grupos SET Nome = 'NOVO' WHERE Codigo = %1"_s.arg(group), count);
    }
    case 1:
        return execute(u"DELETE * FROM Grupos WHERE Codigo = %1"_s.arg(group),
                       removeRows(Groups, model::GroupCode, group));
    default:
        tables_[Groups].add({group, u"OUTRO"_s});
        return execute(u"INSERT INTO Grupos (Codigo, Nome) VALUES (%1, 'OUTRO')"_s.arg(group), 1);
    }
}

void Walk::insertBeside()
{
    const qint32 group = 1 + below(4);
    if (tables_[Items].rows.size() > mostRows || oneIn(2)) {
        addItem(u"EVA"_s, 2.5F, group);
        const QString statement = u"INSERT INTO Itens (Nome, Valor, Grupo, Ativo) VALUES ('EVA', 2.5, %1, True)"_s;
        return execute(statement.arg(group), 1);
    }
    for (const auto &[number, row] : tables_[Groups].rows) {
        addItem(row[model::GroupName], Null{}, row[model::GroupCode]);
    }
    execute(u"INSERT INTO Itens (Nome, Grupo, Ativo) SELECT Nome, Codigo, True FROM Grupos"_s,
            static_cast<int>(tables_[Groups].rows.size()));
}

void Walk::compare(Pair &pair, bool values)
{
    const QString place = u" of %1"_s.arg(&pair == &pairs_.front() ? 0 : 1);
    check(pair.set.Bof() == pair.expected.bof(), u"Bof"_s + place);
    check(pair.set.Eof() == pair.expected.eof(), u"Eof"_s + place);
    if (values) {
        compareValues(pair);
    }
}

void Walk::compareValues(Pair &pair)
{
    for (size_t column = 0; column < pair.expected.columnCount(); ++column) {
        Value expected;
        Value found;
        const int error = pair.expected.read(column, expected);
        const int raised = errorOf([&] { found = pair.set.value(static_cast<int>(column)); });
        const QString what = u"field %1 of set %2"_s.arg(column).arg(&pair == &pairs_.front() ? 0 : 1);
        same(QString::number(raised), QString::number(error), u"error of "_s + what);
        same(shown(found), shown(expected), what);
    }
}

void Walk::compareTables()
{
    for (const model::Table &table : tables_) {
        QStringList expected;
        for (const auto &[number, row] : table.rows) {
            QStringList fields;
            std::transform(row.begin(), row.end(), std::back_inserter(fields), shown);
            expected.append(fields.join(u" | "_s));
        }
        same(golden::rows(database_, table.name).join(u'\n'), expected.join(u'\n'), table.name);
    }
}

class tst_recordset_model : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void setsDoAsTheModelDoes();
    void setsDoAsTheModelDoesWithEveryWriteOnItsOwn();
    void longSetsDoAsTheModelDoes();

private:
    void walk(quint32 seed, int rows);
    void walkAll(quint32 first, quint32 count, int rows = -1);

    QTemporaryDir folder_;
    std::shared_ptr<dao::Database> database_;
    model::Tables tables_ = model::emptyTables();
};

void tst_recordset_model::initTestCase()
{
    database_ = golden::createDatabase(folder_);
    database_->Execute(
        u"CREATE TABLE Itens (Codigo COUNTER, Nome TEXT(10), Valor SINGLE, Grupo LONG, Ativo BOOLEAN)"_s);
    database_->Execute(u"CREATE TABLE Grupos (Codigo LONG, Nome TEXT(10))"_s);
}

void tst_recordset_model::walk(quint32 seed, int rows)
{
    Walk walk(*database_, tables_, seed);
    walk.run(rows);
    if (!walk.fault().isEmpty()) {
        QFAIL(qPrintable(u"seed %1: %2\n%3"_s.arg(seed).arg(walk.fault(), walk.steps().join(u'\n'))));
    }
}

void tst_recordset_model::walkAll(quint32 first, quint32 count, int rows)
{
    for (quint32 seed = first; seed < first + count && !QTest::currentTestFailed(); ++seed) {
        walk(seed, rows < 0 ? static_cast<int>(seed % 12) : rows);
    }
}

/// Many walks share one physical write, as waiting for the disk would take nearly all of their time.
void tst_recordset_model::setsDoAsTheModelDoes()
{
    constexpr quint32 together = 500;
    for (quint32 first = 0; first < walks && !QTest::currentTestFailed(); first += together) {
        const dao::Unit unit;
        walkAll(first, together);
    }
}

void tst_recordset_model::setsDoAsTheModelDoesWithEveryWriteOnItsOwn()
{
    walkAll(walks, 20);
}

void tst_recordset_model::longSetsDoAsTheModelDoes()
{
    constexpr int manyRows = 2000;
    const dao::Unit unit;
    walkAll(2 * walks, 20, manyRows);
}

} // namespace

QTEST_GUILESS_MAIN(tst_recordset_model)

#include "tst_recordset_model.moc"
