#include "tests/crash/alteradas.h"

#include "support/program.h"

#include <QTest>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace crash
{

namespace
{

/// How an order stands behind each step: its mileage and its value, its items, and what these come to.
const QStringList &standing()
{
    static const QStringList all{u"1000|100|3|100"_s, u"1000|125|4|125"_s, u"1000|155|4|155"_s,
                                 u"2500|155|4|155"_s, u"2500|125|3|125"_s, u"|0|0"_s};
    return all;
}

QString seen(const support::Program &program, int order)
{
    const auto header = program.rows(u"SELECT KM, Valor FROM OrdemServico WHERE Codigo = %1"_s.arg(order));
    const auto items = program.rows(u"SELECT Quantidade, ValorUnit FROM OSPecas WHERE CodOS = %1"_s.arg(order));
    double sum = 0;
    for (const QStringList &item : items) {
        sum += item[0].toDouble() * item[1].toDouble();
    }
    const QString head = header.empty() ? QString() : header.front().join(u'|');
    return u"%1|%2|%3"_s.arg(head).arg(items.size()).arg(sum);
}

QStringList itemsOf(const support::Program &program, const QString &table, const QString &column, int code)
{
    QStringList items;
    for (const QStringList &row :
         program.rows(u"SELECT CodPeca, Quantidade, Descricao, ValorUnit, PSA FROM %1 WHERE %2 = %3 ORDER BY Codigo"_s
                          .arg(table, column)
                          .arg(code))) {
        items << row.join(u'|');
    }
    return items;
}

const QStringList &itemsOfEstimate()
{
    static const QStringList all{u"1|2|FILTRO|30|P"_s, u"2|1|REVISÃO|30|S"_s, u"0|1|ESTOPA|10|A"_s};
    return all;
}

int count(const support::Program &program, const QString &select)
{
    return program.rows(select).at(0).at(0).toInt();
}

/// No item without its document.
void checkItems(const support::Program &program, const QString &items, const QString &column, const QString &documents)
{
    const int all = count(program, u"SELECT count(Codigo) FROM "_s + items);
    const int joined =
        count(program, u"SELECT count(%1.Codigo) FROM %1, %2 WHERE %1.%3 = %2.Codigo"_s.arg(items, documents, column));
    QVERIFY2(all == joined, qPrintable(u"%1 items without their document in %2"_s.arg(all - joined).arg(items)));
}

} // namespace

bool Altered::read(const QStringList &words)
{
    if (words[0] == u"ALTERADA") {
        const int order = words[1].toInt();
        const int step = words[2].toInt();
        steps_[order] = step;
        told_.push_back(order);
        ++timesTold_.at(static_cast<std::size_t>(step));
    } else if (words[0] == u"ORCADO") {
        estimates_.push_back(words[1].toInt());
    } else if (words[0] == u"CONVERTIDA") {
        estimateOf_[words[1].toInt()] = words[2].toInt();
    } else {
        return false;
    }
    return true;
}

/// Only the order that was told last may be a step further.
void Altered::checkTold(const support::Program &program)
{
    const int last = told_.empty() ? 0 : told_.back();
    for (const int order : std::exchange(told_, {})) {
        const int step = steps_.at(order);
        const QString found = seen(program, order);
        const int further = order == last ? std::min<int>(step + 1, int(standing().size()) - 1) : step;
        QVERIFY2(found == standing().at(step) || found == standing().at(further),
                 qPrintable(u"order %1 at step %2: %3"_s.arg(order).arg(step).arg(found)));
        steps_[order] = found == standing().at(step) ? step : further;
    }
}

/// An order may have been opened and not told: it stands, whole.
void Altered::checkUntold(const support::Program &program)
{
    const auto orders = program.rows(
        u"SELECT Codigo FROM OrdemServico WHERE Mecanico = 'ALTERADA' AND Codigo > %1 ORDER BY Codigo"_s.arg(
            checkedUntold_));
    for (const QStringList &row : orders) {
        checkedUntold_ = row[0].toInt();
        const QString found = seen(program, checkedUntold_);
        const QString due = standing().at(steps_.contains(checkedUntold_) ? steps_.at(checkedUntold_) : 0);
        QVERIFY2(found == due, qPrintable(u"order %1: %2 and not %3"_s.arg(checkedUntold_).arg(found, due)));
    }
}

void Altered::check(const support::Program &program)
{
    checkItems(program, u"OSPecas"_s, u"CodOS"_s, u"OrdemServico"_s);
    checkItems(program, u"OrcaPecas"_s, u"CodOrca"_s, u"Orcamento"_s);
    checkTold(program);
    checkUntold(program);
    const int estimates = count(program, u"SELECT count(Codigo) FROM Orcamento WHERE Valor = 100"_s);
    QVERIFY(estimates >= int(estimates_.size()));
    QCOMPARE(count(program, u"SELECT count(Codigo) FROM OrcaPecas"_s), int(itemsOfEstimate().size()) * estimates);
}

void Altered::checkAll(const support::Program &program, int least) const
{
    for (const auto &[order, step] : steps_) {
        QCOMPARE(seen(program, order), standing().at(step));
    }
    for (const int estimate : estimates_) {
        QCOMPARE(itemsOf(program, u"OrcaPecas"_s, u"CodOrca"_s, estimate), itemsOfEstimate());
    }
    for (const auto &[order, estimate] : estimateOf_) {
        QCOMPARE(itemsOf(program, u"OSPecas"_s, u"CodOS"_s, order), itemsOfEstimate());
        QVERIFY(std::ranges::find(estimates_, estimate) != estimates_.end());
    }
    for (std::size_t step = 0; step < timesTold_.size(); ++step) {
        QVERIFY2(timesTold_.at(step) > least,
                 qPrintable(u"step %1 was told %2 times"_s.arg(step).arg(timesTold_.at(step))));
    }
    QVERIFY2(int(estimateOf_.size()) > least, "too few estimates became orders");
}

} // namespace crash
