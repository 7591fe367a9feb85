// A genuine Jet file becomes a database of the program: what stands in it afterwards, value by value.
#include "tests/tools/importado.h"

#include "core/esquema.h"
#include "platform/dao/unit.h"

#include <bit>
#include <limits>

using namespace Qt::StringLiterals;
using importa::Falha;
using importa::Mudanca;
using importado::Import;
using runtime::Date;
using runtime::Null;
using runtime::Value;

namespace
{

class tst_importa : public QObject
{
    Q_OBJECT

private slots:
    void init() { import_ = std::make_unique<Import>(); }

    void rowsComeInTheirOrderWithTheirCodes();
    void theProgramGoesOnCountingBehindTheHighest();
    void singlesKeepTheirBits();
    void datesKeepDayAndTime();
    void nullStaysApartFromTheEmptyText();
    void textsComeAsTheyAre_data();
    void textsComeAsTheyAre();
    void truthsComeIntoBothKindsOfColumns();
    void everyTableOfTheProgramComesOver();
    void anOlderFileComesOver();
    void columnsComeByNameWhateverTheirOrder();
    void deletedRowsStayBehindAndMovedOnesKeepTheirPlace();
    void rowsOlderThanAColumnHaveNullInIt();
    void aLongMemoIsCutToItsColumn();
    void whatCouldNotComeAsItIsIsTold();
    void onlyTheFirstPlacesAreKept();
    void unknownTablesAndColumnsAreListed();
    void unknownTablesAndColumnsComeWhenAllIsAskedFor();
    void theOriginBookComesOver();
    void theSumsOfBothSidesAreTold();
    void theLastBalancesOfTheLedgersAreTold();
    void aBalanceThatChangesOnTheWayIsTold();
    void postalCodesComeOver();
    void postalCodesThatWereNumbersGetTheirZerosBack();
    void theSourceIsNotTouched();
    void theWorkIsToldAsItGoesOn();
    void twoHundredThousandRowsKeepTheirOrder();

private:
    std::unique_ptr<Import> import_;
};

const QString boxes =
    u"Codigo.Counter,Data.Date,Descricao.Text;100,Entrada.Single,Saida.Single,Saldo.Single,CodOs.Long"_s;

jet4::Row posting(qint32 code, float balance)
{
    return {{code, Date{45000.0 + code}, u"LANÇAMENTO %1"_s.arg(code), balance, Null(), balance, qint32{0}}};
}

void tst_importa::rowsComeInTheirOrderWithTheirCodes()
{
    import_->table(u"Combos"_s, u"Codigo.Integer,Texto.Text;250"_s,
                   {{{qint16{3}, u"C"_s}}, {{qint16{1}, u"A"_s}}, {{qint16{3}, u"B"_s}}});
    import_->table(u"Caixa"_s, boxes, {posting(9, 1), posting(2, 2), posting(9, 3)});
    const auto result = import_->run();
    QVERIFY(result.tudoVeio());
    QCOMPARE(import_->rows(u"SELECT * FROM Combos"_s), (QStringList{u"3 | C"_s, u"1 | A"_s, u"3 | B"_s}));
    QCOMPARE(import_->rows(u"SELECT Codigo, Saldo FROM Caixa"_s), (QStringList{u"9 | 1"_s, u"2 | 2"_s, u"9 | 3"_s}));
    QCOMPARE(import_->rows(u"SELECT Saldo FROM Caixa ORDER BY Codigo"_s), (QStringList{u"2"_s, u"1"_s, u"3"_s}));
    const auto &table = importado::tableOf(result, u"Caixa"_s);
    QCOMPARE(table.prometidas, 3);
    QCOMPARE(table.lidas, 3);
    QCOMPARE(table.gravadas, 3);
}

void tst_importa::theProgramGoesOnCountingBehindTheHighest()
{
    import_->table(u"Caixa"_s, boxes, {posting(40, 1), posting(7, 2)});
    import_->run();
    const auto database = dao::DBEngine::OpenDatabase(import_->target());
    database->Execute(u"INSERT INTO Caixa (Descricao) VALUES ('NOVO')"_s);
    database->Execute(u"INSERT INTO Clientes (Nome) VALUES ('NOVO')"_s);
    QCOMPARE(golden::rows(*database, u"SELECT Codigo FROM Caixa"_s), (QStringList{u"40"_s, u"7"_s, u"41"_s}));
    QCOMPARE(golden::rows(*database, u"SELECT Codigo FROM Clientes"_s), QStringList{u"1"_s});
}

void tst_importa::singlesKeepTheirBits()
{
    const std::vector<float> singles{0.1F,
                                     1234567.9F,
                                     -0.01F,
                                     16777217.0F,
                                     std::numeric_limits<float>::max(),
                                     std::numeric_limits<float>::denorm_min(),
                                     33.33F};
    std::vector<jet4::Row> rows;
    for (const float single : singles) {
        rows.push_back(posting(1, single));
    }
    import_->table(u"Caixa"_s, boxes, rows);
    QVERIFY(import_->run().tudoVeio());
    const auto database = dao::DBEngine::OpenDatabase(import_->target());
    auto row = database->OpenRecordset(u"Caixa"_s);
    for (const float single : singles) {
        QCOMPARE(std::bit_cast<quint32>(std::get<float>(row.value(u"Saldo"))), std::bit_cast<quint32>(single));
        row.MoveNext();
    }
}

void tst_importa::datesKeepDayAndTime()
{
    const std::vector<double> serials{-657434, -36522.75, -1.25, 0, 0.5, 45427.4375, 2958465.999988426};
    std::vector<jet4::Row> rows;
    for (const double serial : serials) {
        rows.push_back(posting(1, 1));
        rows.back().values[1] = Date{serial};
    }
    import_->table(u"Caixa"_s, boxes, rows);
    QVERIFY(import_->run().tudoVeio());
    const auto database = dao::DBEngine::OpenDatabase(import_->target());
    auto row = database->OpenRecordset(u"Caixa"_s);
    for (const double serial : serials) {
        QCOMPARE(std::bit_cast<quint64>(std::get<Date>(row.value(u"Data")).serial), std::bit_cast<quint64>(serial));
        row.MoveNext();
    }
}

void tst_importa::nullStaysApartFromTheEmptyText()
{
    import_->table(u"Combos"_s, u"Codigo.Integer,Texto.Text;250"_s,
                   {{{qint16{1}, u""_s}}, {{qint16{1}, Null()}}, {{Null(), u"A"_s}}});
    QVERIFY(import_->run().tudoVeio());
    const auto database = dao::DBEngine::OpenDatabase(import_->target());
    auto row = database->OpenRecordset(u"Combos"_s);
    QVERIFY(row.value(u"Texto") == Value(QString()));
    row.MoveNext();
    QVERIFY(row.value(u"Texto") == Value(Null()));
    row.MoveNext();
    QVERIFY(row.value(u"Codigo") == Value(Null()));
}

void tst_importa::textsComeAsTheyAre_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("compressed");
    for (const bool compressed : {true, false}) {
        const auto row = [compressed](const char *name, const QString &text) {
            QTest::addRow("%s, %s", name, compressed ? "compressed" : "as it is") << text << compressed;
        };
        row("capitals with accents", u"JOÃO D'ÁVILA CONCEIÇÃO ÀÉÍÓÚÇ"_s);
        row("lower case", u"joão da silva"_s);
        row("beyond Latin", u"Šárka Łódź — “aspas” €"_s);
        row("of two halves", u"oficina \U0001F600"_s);
        row("blanks", u"  A  B  "_s);
        row("line breaks", u"A\r\nB"_s);
        row("a long one", QString(200, u'Ç') + QString(50, u'x'));
    }
}

void tst_importa::textsComeAsTheyAre()
{
    QFETCH(const QString, text);
    QFETCH(const bool, compressed);
    import_->table(u"Combos"_s, u"Codigo.Integer,Texto.Text;250"_s, {{{qint16{1}, text}}}).compressed = compressed;
    QVERIFY(import_->run().tudoVeio());
    QCOMPARE(import_->rows(u"SELECT Texto FROM Combos"_s), QStringList{text});
}

void tst_importa::truthsComeIntoBothKindsOfColumns()
{
    import_->table(u"ContasPagar"_s, u"Codigo.Counter,Pago.Boolean"_s, {{{qint32{1}, true}}, {{qint32{2}, false}}});
    import_->table(u"Cheques"_s, u"Codigo.Counter,Pago.Integer"_s,
                   {{{qint32{1}, qint16{-1}}}, {{qint32{2}, qint16{0}}}});
    QVERIFY(import_->run().tudoVeio());
    QCOMPARE(import_->rows(u"SELECT Codigo FROM ContasPagar WHERE Pago = True"_s), QStringList{u"1"_s});
    QCOMPARE(import_->rows(u"SELECT Codigo FROM ContasPagar WHERE Pago = False"_s), QStringList{u"2"_s});
    QCOMPARE(import_->rows(u"SELECT Codigo FROM Cheques WHERE Pago = True"_s), QStringList{u"1"_s});
}

/// Each table as the program makes it, with a row of its own.
void tst_importa::everyTableOfTheProgramComesOver()
{
    const auto model = importado::emptyWorkshop(import_->beside(u"modelo.mdb"_s));
    QStringList expected;
    for (const dao::TableDef &table : model->TableDefs()) {
        import_->tables.push_back(importado::like(table));
        jet4::Row row;
        for (std::size_t i = 0; i < table.fields().size(); ++i) {
            row.values.push_back(importado::sample(table.fields()[i], static_cast<int>(i)));
        }
        QStringList texts;
        for (const Value &value : row.values) {
            texts.append(golden::shown(value));
        }
        expected.append(texts.join(u" | "_s));
        import_->tables.back().rows = {row};
    }
    const auto result = import_->run();
    QVERIFY(result.tudoVeio());
    QCOMPARE(result.tabelas.size(), size_t{21});
    QStringList found;
    for (const dao::TableDef &table : model->TableDefs()) {
        found += import_->rows(u"SELECT * FROM ["_s + table.name() + u']');
        QCOMPARE(importado::tableOf(result, table.name()).colunasAusentes, QStringList());
    }
    QCOMPARE(found, expected);
}

/// As the first version made it: no column that an upgrade brought, and some tables not yet.
void tst_importa::anOlderFileComesOver()
{
    import_->table(u"Pecas"_s,
                   u"Codigo.Counter,Nome.Text;200,MarcaModelo.text;200,PS.text;1,UM.Integer,ValorCusto.Single,"
                   "ValorVenda.Single,EstoqueMinimo.Single,ControlaEstoque.Integer"_s,
                   {{{qint32{5}, u"VELA"_s, Null(), u"P"_s, qint16{0}, 1.5F, 2.5F, Null(), qint16{-1}}}});
    import_->table(u"Caixa"_s,
                   u"Codigo.Counter,Data.Date,Descricao.Text;100,Entrada.Single,Saida.Single,Saldo.Single"_s,
                   {{{qint32{1}, Date{40000}, u"A"_s, 1.0F, Null(), 1.0F}}});
    const auto result = import_->run();
    QVERIFY(result.tudoVeio());
    QCOMPARE(import_->rows(u"SELECT Codigo, Nome, ControlaEstoque, CodExterno, ICMS, ClassFiscal FROM Pecas"_s),
             QStringList{u"5 | VELA | -1 | <Null> | <Null> | <Null>"_s});
    QCOMPARE(import_->rows(u"SELECT Codigo FROM Pecas WHERE ControlaEstoque = True"_s), QStringList{u"5"_s});
    QCOMPARE(import_->rows(u"SELECT CodOs FROM Caixa"_s), QStringList{u"<Null>"_s});
    QCOMPARE(importado::tableOf(result, u"Pecas"_s).colunasAusentes,
             (QStringList{u"CodExterno"_s, u"ICMS"_s, u"ClassFiscal"_s}));
    QVERIFY(!importado::tableOf(result, u"Veiculos"_s).naOrigem);
    QCOMPARE(import_->rows(u"SELECT * FROM Veiculos"_s), QStringList());
}

void tst_importa::columnsComeByNameWhateverTheirOrder()
{
    import_->table(u"CAIXA"_s, u"SALDO.Single,descricao.Text;100,Codigo.Counter"_s, {{{7.5F, u"A"_s, qint32{3}}}});
    QVERIFY(import_->run().tudoVeio());
    QCOMPARE(import_->rows(u"SELECT Codigo, Descricao, Saldo, Data FROM Caixa"_s),
             QStringList{u"3 | A | 7.5 | <Null>"_s});
}

void tst_importa::deletedRowsStayBehindAndMovedOnesKeepTheirPlace()
{
    std::vector<jet4::Row> rows;
    QStringList expected;
    for (qint32 i = 1; i <= 300; ++i) {
        rows.push_back(posting(i, static_cast<float>(i)));
        rows.back().deleted = i % 5 == 0;
        rows.back().overflow = i % 7 == 0 && !rows.back().deleted;
        if (i % 5 != 0) {
            expected.append(QString::number(i));
        }
    }
    import_->table(u"Caixa"_s, boxes, rows);
    const auto result = import_->run();
    QVERIFY(result.tudoVeio());
    QCOMPARE(importado::tableOf(result, u"Caixa"_s).gravadas, 240);
    QCOMPARE(import_->rows(u"SELECT Codigo FROM Caixa"_s), expected);
}

void tst_importa::rowsOlderThanAColumnHaveNullInIt()
{
    jet4::Table &table = import_->table(u"Caixa"_s, boxes, {posting(1, 1), posting(2, 2), posting(3, 3)});
    table.columnsOfOldRows = 6;
    table.oldRows = 2;
    QVERIFY(import_->run().tudoVeio());
    QCOMPARE(import_->rows(u"SELECT Codigo, Saldo, CodOs FROM Caixa"_s),
             (QStringList{u"1 | 1 | <Null>"_s, u"2 | 2 | <Null>"_s, u"3 | 3 | 0"_s}));
}

void tst_importa::aLongMemoIsCutToItsColumn()
{
    QString memo;
    for (int i = 0; i < 3000; ++i) {
        memo += u"LINHA %1 DO SERVIÇO\r\n"_s.arg(i);
    }
    import_->table(u"OrdemServico"_s, u"Codigo.Counter,Descricao.Memo"_s,
                   {{{qint32{8}, memo}}, {{qint32{9}, u"CURTA"_s}}});
    const auto result = import_->run();
    QVERIFY(!result.tudoVeio());
    QCOMPARE(import_->rows(u"SELECT Descricao FROM OrdemServico"_s), (QStringList{memo.left(255), u"CURTA"_s}));
    QCOMPARE(importado::told(result), QStringList{u"OrdemServico.Descricao Cortado 1: linha 1 código 8"_s});
    QCOMPARE(result.ocorrencias.front().lugares.front().valor, memo);
}

void tst_importa::whatCouldNotComeAsItIsIsTold()
{
    import_->table(u"Clientes"_s,
                   u"Codigo.Counter,Nome.Text;250,Numero.Text;10,LimiteCredito.Double,DataNascimento.Date"_s,
                   {{{qint32{1}, u"A"_s, u"12"_s, 100.1, Date{20000}}},
                    {{qint32{2}, QString(250, u'B'), u"S/N"_s, 123456.789, Date{5e9}}},
                    {{qint32{4}, u"C"_s, u"99999"_s, 1e300, Null()}}});
    const auto result = import_->run();
    QVERIFY(!result.tudoVeio());
    QStringList found = importado::told(result);
    found.sort();
    QCOMPARE(found, (QStringList{u"Clientes.DataNascimento SemLugar 1: linha 2 código 2"_s,
                                 u"Clientes.LimiteCredito Arredondado 1: linha 2 código 2"_s,
                                 u"Clientes.LimiteCredito SemLugar 1: linha 3 código 4"_s,
                                 u"Clientes.Nome Cortado 1: linha 2 código 2"_s,
                                 u"Clientes.Numero SemLugar 1: linha 3 código 4"_s,
                                 u"Clientes.Numero SemSentido 1: linha 2 código 2"_s}));
    QCOMPARE(import_->rows(u"SELECT Codigo, Numero, LimiteCredito, DataNascimento FROM Clientes"_s),
             (QStringList{u"1 | 12 | 100.1 | 03/10/1954"_s, u"2 | <Null> | 123456.79 | <Null>"_s,
                          u"4 | <Null> | <Null> | <Null>"_s}));
    QCOMPARE(importado::tableOf(result, u"Clientes"_s).gravadas, 3);
}

void tst_importa::onlyTheFirstPlacesAreKept()
{
    std::vector<jet4::Row> rows;
    for (qint32 i = 0; i < 500; ++i) {
        rows.push_back({{qint32{i}, QString(251, u'X')}});
    }
    import_->table(u"Combos"_s, u"Codigo.Long,Texto.Text;255"_s, rows);
    const auto result = import_->run();
    QCOMPARE(result.ocorrencias.size(), size_t{1});
    QCOMPARE(result.ocorrencias.front().quantas, 500);
    QCOMPARE(result.ocorrencias.front().lugares.size(), importa::lugaresGuardados);
    QCOMPARE(result.ocorrencias.front().lugares.back().linha, 20);
}

void tst_importa::unknownTablesAndColumnsAreListed()
{
    import_->table(u"Agenda"_s, u"Nome.Text;30"_s, {{{u"A"_s}}});
    import_->table(u"Combos"_s, u"Codigo.Integer,Cor.Text;9,Texto.Text;250"_s, {{{qint16{1}, u"AZUL"_s, u"A"_s}}});
    const auto result = import_->run();
    QVERIFY(!result.tudoVeio());
    QCOMPARE(importado::tableOf(result, u"Agenda"_s).prometidas, 1);
    QVERIFY(importado::tableOf(result, u"Agenda"_s).fora == importa::Motivo::Desconhecida);
    QCOMPARE(importado::tableOf(result, u"Combos"_s).colunasFora.front().coluna, u"Cor"_s);
    QCOMPARE(import_->rows(u"SELECT * FROM Combos"_s), QStringList{u"1 | A"_s});
}

void tst_importa::unknownTablesAndColumnsComeWhenAllIsAskedFor()
{
    const QString memo(9000, u'm');
    import_->request.tudo = true;
    import_->table(u"Agenda de Clientes"_s, u"Número.Counter,Nota.Memo,Preço.Currency,Dobro.Double,Byte.Byte"_s,
                   {{{qint32{12}, memo, 922337203685477.5, 0.1, qint16{255}}}});
    import_->table(u"Combos"_s, u"Codigo.Integer,Cor.Text;9,Texto.Text;250"_s, {{{qint16{1}, u"AZUL"_s, u"A"_s}}});
    const auto result = import_->run();
    QVERIFY(result.tudoVeio());
    QCOMPARE(import_->rows(u"SELECT * FROM Combos"_s), QStringList{u"1 | A | AZUL"_s});
    QCOMPARE(import_->rows(u"SELECT [Número], [Dobro], [Byte] FROM [Agenda de Clientes]"_s),
             QStringList{u"12 | 0.1 | 255"_s});
    QCOMPARE(import_->rows(u"SELECT Nota FROM [Agenda de Clientes]"_s), QStringList{memo});
    QCOMPARE(importado::tableOf(result, u"Agenda de Clientes"_s).somas.front().destino, 922337203685477.5);
}

void tst_importa::theOriginBookComesOver()
{
    import_->table(u"LivroOrigem"_s,
                   u"Codigo.Counter,Data.Date,Origem.text;100,Dinheiro.Single,Avista.Single,Aprazo.single,"
                   "Duplicata.Single"_s,
                   {{{qint32{1}, Date{40000}, u"OFICINA"_s, 1.0F, 2.0F, 3.0F, 4.5F}}});
    QVERIFY(import_->run().tudoVeio());
    QCOMPARE(import_->rows(u"SELECT Origem, Duplicata FROM LivroOrigem"_s), QStringList{u"OFICINA | 4.5"_s});
}

void tst_importa::theSumsOfBothSidesAreTold()
{
    import_->table(u"Clientes"_s, u"Codigo.Counter,LimiteCredito.Single"_s,
                   {{{qint32{1}, 0.1F}}, {{qint32{2}, Null()}}, {{qint32{3}, 0.2F}}});
    import_->table(u"Pecas"_s, u"Codigo.Counter,ValorCusto.Double,ValorVenda.Text;20"_s,
                   {{{qint32{1}, 123456.789, u"1.234,50"_s}}});
    const auto result = import_->run();
    const auto &limit = importado::sumOf(result, u"Clientes"_s, u"LimiteCredito"_s);
    QCOMPARE(limit.origem.value(), 0.0 + double{0.1F} + double{0.2F});
    QCOMPARE(limit.destino, limit.origem.value());
    const auto &cost = importado::sumOf(result, u"Pecas"_s, u"ValorCusto"_s);
    QCOMPARE(cost.origem.value(), 123456.789);
    QCOMPARE(cost.destino, double{123456.789F});
    const auto &price = importado::sumOf(result, u"Pecas"_s, u"ValorVenda"_s);
    QVERIFY(!price.origem);
    QCOMPARE(price.destino, 1234.5);
    const auto &minimum = importado::sumOf(result, u"Pecas"_s, u"EstoqueMinimo"_s);
    QVERIFY(!minimum.origem);
    QCOMPARE(minimum.destino, 0.0);
}

void tst_importa::theLastBalancesOfTheLedgersAreTold()
{
    import_->table(u"Caixa"_s, boxes, {posting(9, 90), posting(2, 20)});
    import_->table(u"Banco1"_s, boxes, {});
    import_->table(u"Estoque"_s, u"Codigo.Counter,CodPeca.Long,Estoque.Single"_s,
                   {{{qint32{1}, qint32{7}, 5.0F}}, {{qint32{3}, qint32{7}, 4.0F}}, {{qint32{2}, qint32{8}, 2.5F}}});
    const auto result = import_->run();
    QCOMPARE(importado::balances(result),
             (QStringList{u"Estoque por dono 2: 6.5 6.5 (0)"_s, u"Caixa 1: 90 90 (0)"_s, u"Banco1 0: 0 0 (0)"_s}));
}

void tst_importa::aBalanceThatChangesOnTheWayIsTold()
{
    import_->table(u"Caixa"_s, u"Codigo.Counter,Saldo.Double"_s, {{{qint32{1}, 123456.789}}});
    const auto result = import_->run();
    QVERIFY(!result.tudoVeio());
    QCOMPARE(result.saldos.front().diferentes, 1);
    QCOMPARE(result.saldos.front().origem, 123456.789);
    QCOMPARE(result.saldos.front().destino, double{123456.789F});
}

void tst_importa::postalCodesComeOver()
{
    import_->table(u"CEPS"_s, u"CEP.Text;8,Tipo.Text;36,Rua.Text;150,Bairro.Text;80,Cidade.Text;80,Estado.Text;2"_s,
                   {{{u"01001000"_s, u"PRAÇA"_s, u"DA SÉ"_s, u"SÉ"_s, u"SÃO PAULO"_s, u"SP"_s}},
                    {{u"01001001"_s, Null(), u"RUA"_s, Null(), u"SÃO PAULO"_s, u"SP"_s}}});
    const auto result = import_->run();
    QVERIFY(result.tudoVeio());
    QVERIFY(result.postais);
    QCOMPARE(import_->rows(u"SELECT Tipo, Rua, Bairro, Cidade, Estado FROM CEPS WHERE CEP = '01001000'"_s),
             QStringList{u"PRAÇA | DA SÉ | SÉ | SÃO PAULO | SP"_s});
    QCOMPARE(import_->rows(u"SELECT * FROM CEPS"_s).size(), 2);
    QCOMPARE(dao::DBEngine::OpenDatabase(import_->target())->TableDefs().size(), size_t{1});
}

void tst_importa::postalCodesThatWereNumbersGetTheirZerosBack()
{
    import_->table(u"CEPS"_s, u"CEP.Long,Rua.Text;150"_s, {{{qint32{1001000}, u"DA SÉ"_s}}});
    QVERIFY(import_->run().tudoVeio());
    QCOMPARE(import_->rows(u"SELECT CEP, Rua FROM CEPS"_s), QStringList{u"01001000 | DA SÉ"_s});
}

void tst_importa::theSourceIsNotTouched()
{
    import_->table(u"Caixa"_s, boxes, {posting(1, 1)});
    import_->write();
    const QByteArray before = support::contentsOf(import_->source());
    QVERIFY(QFile::setPermissions(import_->source(), QFile::ReadOwner));
    const auto when = QFileInfo(import_->source()).lastModified();
    import_->import();
    QCOMPARE(support::contentsOf(import_->source()), before);
    QCOMPARE(QFileInfo(import_->source()).lastModified(), when);
    QCOMPARE(import_->files(), (QStringList{u"novo/DADOS.MDB"_s, u"velho.mdb"_s}));
}

void tst_importa::theWorkIsToldAsItGoesOn()
{
    std::vector<jet4::Row> rows;
    for (qint32 i = 0; i < 2500; ++i) {
        rows.push_back(posting(i, 1));
    }
    import_->table(u"Caixa"_s, boxes, rows);
    import_->table(u"Combos"_s, u"Codigo.Integer,Texto.Text;250"_s, {{{qint16{1}, u"A"_s}}});
    QStringList steps;
    import_->run([&steps](const importa::Passo &step) {
        steps.append(
            u"%1 %2 %3/%4"_s.arg(static_cast<int>(step.fase)).arg(step.tabela).arg(step.linhas).arg(step.total));
        return true;
    });
    QCOMPARE(steps.mid(0, 6), (QStringList{u"0 Combos 0/2501"_s, u"1 Combos 1/2501"_s, u"0 Caixa 1/2501"_s,
                                           u"0 Caixa 1000/2501"_s, u"0 Caixa 2000/2501"_s, u"1 Caixa 2501/2501"_s}));
    QVERIFY(steps.last().startsWith(u"2 "));
}

void tst_importa::twoHundredThousandRowsKeepTheirOrder()
{
    constexpr qint32 count = 200'000;
    std::vector<jet4::Row> rows;
    rows.reserve(count);
    double sum = 0;
    for (qint32 i = 0; i < count; ++i) {
        const auto value = static_cast<float>(i % 997) / 7;
        rows.push_back({{qint32{count - i}, u"CLIENTE %1"_s.arg(i % 5003), value}});
        sum += double{value};
    }
    import_->table(u"Clientes"_s, u"Codigo.Counter,Nome.Text;200,LimiteCredito.Single"_s, rows);
    const auto result = import_->run();
    QVERIFY(result.tudoVeio());
    QCOMPARE(importado::tableOf(result, u"Clientes"_s).gravadas, count);
    const auto &limit = importado::sumOf(result, u"Clientes"_s, u"LimiteCredito"_s);
    QVERIFY(limit.origem == sum);
    QVERIFY(limit.destino == sum);
    const auto database = dao::DBEngine::OpenDatabase(import_->target());
    auto row = database->OpenRecordset(u"SELECT Codigo, Nome FROM Clientes"_s);
    qint32 i = 0;
    for (; !row.Eof() && row.value(0) == Value(count - i) && row.value(1) == Value(u"CLIENTE %1"_s.arg(i % 5003));
         ++i) {
        row.MoveNext();
    }
    QCOMPARE(i, count);
}

} // namespace

QTEST_GUILESS_MAIN(tst_importa)

#include "tst_importa.moc"
