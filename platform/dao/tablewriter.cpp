#include "platform/dao/tablewriter.h"

#include "platform/dao/connection.h"
#include "platform/dao/fields.h"
#include "platform/dao/unit.h"
#include "platform/runtime/error.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

QString counterName(const Table &table)
{
    return quoted(table.fields[static_cast<size_t>(table.counter)].name);
}

QByteArray numbersSql(const Table &table)
{
    const QString name = quoted(table.name);
    const QString counter =
        table.counter < 0 ? u"0"_s : u"(SELECT max("_s + counterName(table) + u") FROM "_s + name + u')';
    return (u"SELECT (SELECT max("_s + rowName + u") FROM "_s + name + u"), "_s + counter +
            u", (SELECT Ultimo FROM "_s + quoted(countersTable) + u" WHERE Tabela = ?1)"_s)
        .toUtf8();
}

QByteArray insertSql(const Table &table)
{
    QString columns = rowName;
    QString marks = u"?1"_s;
    for (size_t i = 0; i < table.fields.size(); ++i) {
        columns += u", "_s + quoted(table.fields[i].name);
        marks += u", ?"_s + QString::number(i + 2);
    }
    return (u"INSERT INTO "_s + quoted(table.name) + u" ("_s + columns + u") VALUES ("_s + marks + u')').toUtf8();
}

QByteArray updateSql(const Table &table, const std::vector<int> &places)
{
    QStringList changes;
    for (size_t i = 0; i < places.size(); ++i) {
        changes.append(quoted(table.fields[static_cast<size_t>(places[i])].name) + u" = ?"_s + QString::number(i + 2));
    }
    return (u"UPDATE "_s + quoted(table.name) + u" SET "_s + changes.join(u", "_s) + u" WHERE "_s + rowName +
            u" = ?1"_s)
        .toUtf8();
}

} // namespace

TableWriter::TableWriter(Connection &connection, std::shared_ptr<const Table> table,
                         std::shared_ptr<GivenNumbers> given)
    : connection_(connection), table_(std::move(table)), given_(std::move(given))
{
}

/// Reads the highest numbers anew: somebody else may have the file open. While the lock for writing is held nobody else
/// can write.
void TableWriter::refresh()
{
    if (numbersAge_ == connection_.writingAge() && connection_.isWriting()) {
        return;
    }
    if (!numbers_) {
        numbers_ = Prepared(connection_.handle(), numbersSql(*table_));
        numbers_.bind(1, runtime::Value(table_->name));
    }
    numbers_.step();
    given_->row = std::max(given_->row, numbers_.integer(0));
    given_->counter = std::max({given_->counter, numbers_.integer(1), numbers_.integer(2)});
    numbers_.reset();
    numbersAge_ = connection_.writingAge();
}

/// Inside a unit the number is taken under the lock for writing: no other workstation gets the same one.
qint32 TableWriter::nextCounter()
{
    if (Unit::isOpen()) {
        connection_.begin();
    }
    refresh();
    if (given_->counter >= std::numeric_limits<qint32>::max()) {
        runtime::raise(6);
    }
    return static_cast<qint32>(++given_->counter);
}

qint64 TableWriter::lastNumber()
{
    refresh();
    return given_->counter;
}

qint64 TableWriter::insert(const std::vector<runtime::Value> &values)
{
    for (size_t i = 0; i < values.size(); ++i) {
        checkForWriting(values[i], table_->fields[i]);
    }
    return append(values);
}

qint64 TableWriter::append(const std::vector<runtime::Value> &values)
{
    Transaction transaction(connection_, Transaction::Holds::One);
    if (numbersAge_ < 0) {
        refresh();
    }
    if (!insertRow(given_->row + 1, values)) {
        // Somebody else has added rows since.
        refresh();
        if (!insertRow(given_->row + 1, values)) {
            runtime::raise(3051, {connection_.path()});
        }
    }
    ++given_->row;
    if (table_->counter >= 0) {
        const auto *const counter = std::get_if<qint32>(&values[static_cast<size_t>(table_->counter)]);
        given_->counter = counter != nullptr ? std::max<qint64>(given_->counter, *counter) : given_->counter;
    }
    connection_.rowAdded(table_->name, given_->row);
    transaction.commit();
    return given_->row;
}

/// False where the row number is taken.
bool TableWriter::insertRow(qint64 row, const std::vector<runtime::Value> &values)
{
    if (!insert_) {
        insert_ = Prepared(connection_.handle(), insertSql(*table_));
    }
    insert_.bind(1, row);
    for (size_t i = 0; i < values.size(); ++i) {
        insert_.bind(static_cast<int>(i) + 2, values[i]);
    }
    return insert_.stepUnlessTaken();
}

bool TableWriter::update(qint64 row, const std::vector<int> &places, const std::vector<runtime::Value> &values)
{
    for (size_t i = 0; i < places.size(); ++i) {
        checkForWriting(values[i], table_->fields[static_cast<size_t>(places[i])]);
    }
    if (!update_ || updatePlaces_ != places) {
        update_ = Prepared(connection_.handle(), updateSql(*table_, places));
        updatePlaces_ = places;
    }
    update_.bind(1, row);
    for (size_t i = 0; i < values.size(); ++i) {
        update_.bind(static_cast<int>(i) + 2, values[i]);
    }
    connection_.settle(table_->name);
    connection_.rowChanges(table_->name, row);
    Transaction transaction(connection_, Transaction::Holds::One);
    const auto change = [this] {
        update_.step();
        return sqlite3_changes(connection_.handle());
    };
    const bool counted = std::find(places.begin(), places.end(), table_->counter) != places.end();
    const int changed = counted ? keepingCounter(change) : change();
    transaction.commit();
    return changed > 0;
}

bool TableWriter::remove(qint64 row)
{
    if (!remove_) {
        remove_ = Prepared(connection_.handle(),
                           (u"DELETE FROM "_s + quoted(table_->name) + u" WHERE "_s + rowName + u" = ?1"_s).toUtf8());
    }
    remove_.bind(1, row);
    connection_.settle(table_->name);
    connection_.rowChanges(table_->name, row);
    const int removed = keepingCounter([this] {
        remove_.step();
        return sqlite3_changes(connection_.handle());
    });
    return removed > 0;
}

int TableWriter::keepingCounter(const std::function<int()> &change)
{
    Transaction transaction(connection_, table_->counter < 0 ? Transaction::Holds::One : Transaction::Holds::Several);
    refresh();
    if (table_->counter < 0) {
        const int changed = change();
        transaction.commit();
        return changed;
    }
    const qint64 before = highestCounter();
    given_->counter = std::max(given_->counter, before);
    const int changed = change();
    if (highestCounter() < before) {
        rememberCounter();
    }
    transaction.commit();
    return changed;
}

qint64 TableWriter::highestCounter()
{
    if (!highest_) {
        highest_ = Prepared(connection_.handle(),
                            (u"SELECT max("_s + counterName(*table_) + u") FROM "_s + quoted(table_->name)).toUtf8());
    }
    highest_.step();
    const qint64 highest = highest_.integer(0);
    highest_.reset();
    return highest;
}

void TableWriter::rememberCounter()
{
    Prepared remember(
        connection_.handle(),
        (u"INSERT OR REPLACE INTO "_s + quoted(countersTable) + u" (Tabela, Ultimo) VALUES (?1, ?2)"_s).toUtf8());
    remember.bind(1, runtime::Value(table_->name));
    remember.bind(2, given_->counter);
    remember.step();
}

} // namespace dao
