#include "core/funcoes.h"
#include "platform/dao/database.h"
#include "tests/tools/oficina.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using oficina::count;
using oficina::single;

/// What the sample workshop buys, and its origin book. The cases only read: they share one sample.
class TestAmostraCompras : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { program_.reset(); }

    void partsComeByNotesOfSuppliers();
    void theNewestNoteGivesTheCost();
    void mostNotesArePaidSomeDaysLater();
    void theOriginBookRunsOverTheLastMonths();

private:
    std::unique_ptr<support::Program> program_;
    amostra::Resumo resumo_;
};

void TestAmostraCompras::initTestCase()
{
    program_ = std::make_unique<support::Program>();
    resumo_ = amostra::Preenche(oficina::size());
}

/// A part under stock control comes into its ledger with the note that it was bought by, and no other way.
void TestAmostraCompras::partsComeByNotesOfSuppliers()
{
    QVERIFY(resumo_.notas > 20);
    const auto bought = program_->rows(u"SELECT NotasPecas.CodNota, NotasPecas.CodPeca, NotasPecas.Quantidade FROM "
                                       "NotasPecas, Pecas WHERE Pecas.Codigo = NotasPecas.CodPeca AND "
                                       "Pecas.ControlaEstoque = True ORDER BY NotasPecas.Codigo"_s);
    const auto entered = program_->rows(u"SELECT Descricao, CodPeca, Entrada FROM Estoque WHERE Descricao LIKE "
                                        "'ENTRADA NOTA: *' ORDER BY Codigo"_s);
    QVERIFY(bought.size() > 20);
    QCOMPARE(entered.size(), bought.size());
    for (std::size_t i = 0; i < bought.size(); ++i) {
        QCOMPARE(entered[i][0], u"ENTRADA NOTA: "_s + runtime::Format(bought[i][0], core::mascaraCodigo));
        QCOMPARE(entered[i].mid(1), bought[i].mid(1));
    }
    QCOMPARE(count(*program_, u"Estoque WHERE Entrada > 0 AND Descricao NOT LIKE 'ENTRADA *'"_s), 0);
}

void TestAmostraCompras::theNewestNoteGivesTheCost()
{
    int parts = 0;
    for (const QStringList &part : program_->rows(u"SELECT DISTINCT CodPeca FROM NotasPecas WHERE CodPeca <> 0"_s)) {
        const auto newest =
            program_->rows(u"SELECT ValorUnit FROM NotasPecas WHERE CodPeca = %1 ORDER BY Codigo DESC"_s.arg(part[0]));
        const auto cost = program_->rows(u"SELECT ValorCusto FROM Pecas WHERE Codigo = "_s + part[0]);
        QCOMPARE(cost.front(), newest.front());
        ++parts;
    }
    QVERIFY(parts > 20);
}

void TestAmostraCompras::mostNotesArePaidSomeDaysLater()
{
    const int paid = count(*program_, u"NotasEntradas WHERE Pago = True"_s);
    QVERIFY(paid < resumo_.notas);
    QVERIFY(2 * paid > resumo_.notas);
    QCOMPARE(count(*program_, u"NotasEntradas WHERE Pago = True AND DataPagto IS NULL"_s), 0);
    QCOMPARE(count(*program_, u"NotasEntradas WHERE Pago = True AND DataPagto <= Data"_s), 0);
    QCOMPARE(count(*program_, u"NotasEntradas WHERE Pago = True AND DataPagto >= #05/15/2024#"_s), 0);
    QCOMPARE(count(*program_, u"NotasEntradas WHERE Pago = False AND DataPagto IS NOT NULL"_s), 0);
}

void TestAmostraCompras::theOriginBookRunsOverTheLastMonths()
{
    const auto today = runtime::CDate(u"15/05/2024"_s);
    QSet<double> days;
    double last = today.serial - 120;
    for (auto row = core::DBDados->OpenRecordset(u"SELECT * FROM LivroOrigem ORDER BY Codigo"_s); !row.Eof();
         row.MoveNext()) {
        const auto day = runtime::CDate(row.value(u"Data"));
        QVERIFY(day.serial >= last && day.serial < today.serial);
        QVERIFY(runtime::toDateTime(day).date().dayOfWeek() != Qt::Sunday);
        QVERIFY(single(row.value(u"Dinheiro")) > 0);
        last = day.serial;
        days.insert(day.serial);
    }
    QVERIFY(days.size() > 60);
    QVERIFY(resumo_.origens > days.size());
    for (const auto &column : {u"Avista"_s, u"Aprazo"_s, u"Duplicata"_s}) {
        QVERIFY(count(*program_, u"LivroOrigem WHERE %1 > 0"_s.arg(column)) > 0);
        QVERIFY(count(*program_, u"LivroOrigem WHERE %1 = 0"_s.arg(column)) > 0);
    }
    QCOMPARE(count(*program_, u"LivroOrigem WHERE Origem IS NULL OR Duplicata IS NULL"_s), 0);
}

TARVELO_TEST_MAIN(TestAmostraCompras)

#include "tst_amostra_compras.moc"
