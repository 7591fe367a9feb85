#include "estimates/orcamento.h"

#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "support/program.h"

#include <memory>

using namespace Qt::StringLiterals;
using namespace estimates;

namespace
{

using Rows = std::vector<QStringList>;

Orcamento estimate()
{
    return {.marca = u"GOL 1.0"_s,
            .ano = u"2001/2002"_s,
            .codCliente = u"0001"_s,
            .nome = u"MARIA"_s,
            .fone = u"(11) 5555-0001"_s,
            .observacoes = u"RETORNA SEXTA"_s,
            .valor = u"1.110,50"_s,
            .itens = {{u"0002"_s, u"P"_s, u"02"_s, u"FILTRO"_s, u"30,25"_s, u"60,50"_s},
                      {u"0003"_s, u"S"_s, u"1,500"_s, u"REVISÃO"_s, u"700,00"_s, u"1.050,00"_s},
                      {u"0000"_s, u"A"_s, u"01"_s, QString(200, u'X'), u"0,00"_s, u"0,00"_s}}};
}

} // namespace

/// What an estimate leaves in the tables.
class TstOrcamento : public QObject
{
    Q_OBJECT

private slots:
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void writesTheEstimateAndItsItems();
    void whatIsEmptyIsStoredAsNull();
    void numbersFollowEachOther();
    void nothingElseIsTouched();
    void readsWhatWasWritten();
    void nullsAreReadAsEmpty();
    void altersTheColumnsOfOneEstimate();
    void anAlteredTextThatIsEmptyIsStoredAsNull();
    void altersNothingWhereTheEstimateIsGone();

private:
    std::unique_ptr<support::Program> program_;
};

void TstOrcamento::writesTheEstimateAndItsItems()
{
    QCOMPARE(IncluiOrcamento(estimate()), 1);
    QCOMPARE(program_->rows(u"SELECT * FROM Orcamento"_s),
             (Rows{{u"1"_s, u"15/05/2024 00:00:00"_s, u"GOL 1.0"_s, u"2001/2002"_s, u"1"_s, u"MARIA"_s,
                    u"(11) 5555-0001"_s, u"RETORNA SEXTA"_s, u"1110.5"_s}}));
    QCOMPARE(program_->rows(u"SELECT * FROM OrcaPecas"_s),
             (Rows{{u"1"_s, u"1"_s, u"2"_s, u"2"_s, u"FILTRO"_s, u"30.25"_s, u"P"_s},
                   {u"2"_s, u"1"_s, u"3"_s, u"1.5"_s, u"REVISÃO"_s, u"700"_s, u"S"_s},
                   {u"3"_s, u"1"_s, u"0"_s, u"1"_s, QString(200, u'X'), u"0"_s, u"A"_s}}));
}

void TstOrcamento::whatIsEmptyIsStoredAsNull()
{
    IncluiOrcamento({.marca = u"GOL"_s, .valor = u"0,00"_s});
    const QString null = u"<Null>"_s;
    QCOMPARE(program_->rows(u"SELECT * FROM Orcamento"_s),
             (Rows{{u"1"_s, u"15/05/2024 00:00:00"_s, u"GOL"_s, null, null, null, null, null, u"0"_s}}));
    QVERIFY(program_->rows(u"SELECT * FROM OrcaPecas"_s).empty());
}

void TstOrcamento::numbersFollowEachOther()
{
    QCOMPARE(IncluiOrcamento(estimate()), 1);
    QCOMPARE(IncluiOrcamento(estimate()), 2);
    QCOMPARE(program_->rows(u"SELECT CodOrca FROM OrcaPecas"_s),
             (Rows{{u"1"_s}, {u"1"_s}, {u"1"_s}, {u"2"_s}, {u"2"_s}, {u"2"_s}}));
}

void TstOrcamento::nothingElseIsTouched()
{
    program_->part(u"OLEO"_s, u"P"_s, u"30,00"_s, true);
    const auto count = [this](const QString &table) {
        return program_->rows(u"SELECT Count(*) FROM "_s + table).front().front();
    };
    const QStringList tables{u"Estoque"_s,     u"Caixa"_s,    u"Banco1"_s,  u"Banco2"_s,     u"ContasReceber"_s,
                             u"ContasPagar"_s, u"Cheques"_s,  u"Fiados"_s,  u"ContaFiado"_s, u"OrdemServico"_s,
                             u"OSPecas"_s,     u"Clientes"_s, u"Veiculos"_s};
    QStringList before;
    for (const QString &table : tables) {
        before << count(table);
    }
    IncluiOrcamento(estimate());
    QStringList after;
    for (const QString &table : tables) {
        after << count(table);
    }
    QCOMPARE(after, before);
}

void TstOrcamento::readsWhatWasWritten()
{
    IncluiOrcamento({.marca = u"UNO"_s, .valor = u"0,00"_s});
    IncluiOrcamento(estimate());
    const auto read = LeOrcamento(u"2"_s);
    QVERIFY(read.has_value());
    const QStringList texts{read->codigo, read->data, read->marca,       read->ano,  read->codCliente,
                            read->nome,   read->fone, read->observacoes, read->valor};
    QCOMPARE(texts, (QStringList{u"0002"_s, u"15/05/2024"_s, u"GOL 1.0"_s, u"2001/2002"_s, u"0001"_s, u"MARIA"_s,
                                 u"(11) 5555-0001"_s, u"RETORNA SEXTA"_s, u"1.110,50"_s}));
    QVERIFY(!LeOrcamento(u"3"_s));
}

void TstOrcamento::nullsAreReadAsEmpty()
{
    program_->sql(u"INSERT INTO Orcamento (Observacoes) VALUES ('X')"_s);
    const auto read = LeOrcamento(u"1"_s);
    QVERIFY(read.has_value());
    const QStringList texts{read->data, read->marca, read->ano, read->codCliente, read->nome, read->fone, read->valor};
    QCOMPARE(texts, QStringList(7, QString()));
}

void TstOrcamento::altersTheColumnsOfOneEstimate()
{
    IncluiOrcamento(estimate());
    IncluiOrcamento(estimate());
    const Rows items = program_->rows(u"SELECT * FROM OrcaPecas"_s);
    runtime::setClock(runtime::CDate(u"29/02/2028 23:59:59"_s));
    QVERIFY(AlteraOrcamento(2, {.marca = u"UNO"_s,
                                .ano = u"2010"_s,
                                .codCliente = u"0007"_s,
                                .nome = u"JOSÉ"_s,
                                .fone = u"1"_s,
                                .observacoes = u"NADA"_s,
                                .valor = u"0,10"_s}));
    QCOMPARE(program_->rows(u"SELECT * FROM Orcamento"_s),
             (Rows{{u"1"_s, u"15/05/2024 00:00:00"_s, u"GOL 1.0"_s, u"2001/2002"_s, u"1"_s, u"MARIA"_s,
                    u"(11) 5555-0001"_s, u"RETORNA SEXTA"_s, u"1110.5"_s},
                   {u"2"_s, u"29/02/2028 00:00:00"_s, u"UNO"_s, u"2010"_s, u"7"_s, u"JOSÉ"_s, u"1"_s, u"NADA"_s,
                    u"0.1"_s}}));
    QCOMPARE(program_->rows(u"SELECT * FROM OrcaPecas"_s), items);
}

void TstOrcamento::anAlteredTextThatIsEmptyIsStoredAsNull()
{
    IncluiOrcamento(estimate());
    QVERIFY(AlteraOrcamento(1, {.marca = u"GOL"_s, .valor = u"0,00"_s}));
    const QString null = u"<Null>"_s;
    QCOMPARE(program_->rows(u"SELECT * FROM Orcamento"_s),
             (Rows{{u"1"_s, u"15/05/2024 00:00:00"_s, u"GOL"_s, null, null, null, null, null, u"0"_s}}));
}

void TstOrcamento::altersNothingWhereTheEstimateIsGone()
{
    IncluiOrcamento(estimate());
    const Rows before = program_->rows(u"SELECT * FROM Orcamento"_s);
    QVERIFY(!AlteraOrcamento(2, {.marca = u"UNO"_s, .valor = u"0,00"_s}));
    QCOMPARE(program_->rows(u"SELECT * FROM Orcamento"_s), before);
}

TARVELO_TEST_MAIN(TstOrcamento)
#include "tst_orcamento.moc"
