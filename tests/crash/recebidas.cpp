#include "tests/crash/recebidas.h"

#include "support/program.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace crash
{

namespace
{

using Rows = std::vector<QStringList>;

int count(const support::Program &program, const QString &select)
{
    return program.rows(select).at(0).at(0).toInt();
}

/// The lines of every note but their costs, and the entries that they make.
const Rows &lines()
{
    static const Rows all{{u"1"_s, u"2"_s, u"FILTRO"_s, u"P"_s},
                          {u"3"_s, u"5"_s, u"VELA"_s, u"P"_s},
                          {u"0"_s, u"1"_s, u"FRETE"_s, u"A"_s},
                          {u"1"_s, u"3"_s, u"FILTRO"_s, u"P"_s}};
    return all;
}

const Rows &entries()
{
    static const Rows all{{u"1"_s, u"2"_s}, {u"3"_s, u"5"_s}, {u"1"_s, u"3"_s}};
    return all;
}

/// A number in a description has four digits at least.
QString shown(int note)
{
    return QString::number(note).rightJustified(4, u'0');
}

void checkNote(const support::Program &program, int note)
{
    QCOMPARE(program.rows(
                 u"SELECT CodPeca, Quantidade, Descricao, PSA FROM NotasPecas WHERE CodNota = %1 ORDER BY Codigo"_s.arg(
                     note)),
             lines());
    QCOMPARE(
        program.rows(u"SELECT CodPeca, Entrada FROM Estoque WHERE Descricao = 'ENTRADA NOTA: %1' ORDER BY Codigo"_s.arg(
            shown(note))),
        entries());
}

/// The cost of a part is that of its last line in the newest note.
void checkCost(const support::Program &program, int part)
{
    const auto newest =
        program.rows(u"SELECT ValorUnit FROM NotasPecas WHERE CodPeca = %1 ORDER BY Codigo DESC"_s.arg(part));
    if (!newest.empty()) {
        QCOMPARE(program.rows(u"SELECT ValorCusto FROM Pecas WHERE Codigo = %1"_s.arg(part)).front(), newest.front());
    }
}

} // namespace

bool Received::read(const QStringList &words)
{
    if (words[0] != u"NOTA") {
        return false;
    }
    told_.push_back(words[1].toInt());
    return true;
}

void Received::checkNotes(const support::Program &program)
{
    for (const QStringList &row :
         program.rows(u"SELECT Codigo FROM NotasEntradas WHERE Codigo > %1 ORDER BY Codigo"_s.arg(checked_))) {
        checked_ = row[0].toInt();
        checkNote(program, checked_);
    }
}

/// Every balance is the one before it and what its row moves; the quantities are whole, so nothing is lost in 32 bits.
void Received::checkLedger(const support::Program &program, int part)
{
    const auto rows = program.rows(
        u"SELECT Codigo, Entrada, Saida, Estoque FROM Estoque WHERE CodPeca = %1 AND Codigo > %2 ORDER BY Codigo"_s
            .arg(part)
            .arg(checkedRow_[part]));
    for (const QStringList &row : rows) {
        float &balance = balance_[part];
        balance += row[1].toFloat() - row[2].toFloat(); // "<Null>" is 0
        checkedRow_[part] = row[0].toInt();
        QVERIFY2(row[3].toFloat() == balance, qPrintable(u"part %1: row %2"_s.arg(part).arg(row.join(u'|'))));
    }
}

void Received::check(const support::Program &program)
{
    checkNotes(program);
    const int notes = count(program, u"SELECT count(Codigo) FROM NotasEntradas"_s);
    QCOMPARE(count(program, u"SELECT count(Codigo) FROM NotasPecas"_s), int(lines().size()) * notes);
    QCOMPARE(count(program, u"SELECT count(Codigo) FROM Estoque WHERE Descricao LIKE 'ENTRADA NOTA: *'"_s),
             int(entries().size()) * notes);
    for (const int part : {1, 3}) {
        checkCost(program, part);
        checkLedger(program, part);
    }
    for (; checkedTold_ < told_.size(); ++checkedTold_) {
        QVERIFY2(told_[checkedTold_] <= checked_, qPrintable(u"note %1 is gone"_s.arg(told_[checkedTold_])));
    }
}

void Received::checkAll(const support::Program &program, int least) const
{
    QVERIFY2(int(told_.size()) > least, qPrintable(u"%1 notes were told"_s.arg(told_.size())));
    for (const int note : told_) {
        QCOMPARE(count(program, u"SELECT count(Codigo) FROM NotasEntradas WHERE Codigo = %1"_s.arg(note)), 1);
        checkNote(program, note);
    }
}

} // namespace crash
