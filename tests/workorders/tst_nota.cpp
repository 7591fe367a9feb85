#include "workorders/nota.h"
#include "workorders/notaimpressa.h"

#include "core/config.h"
#include "support/sheets.h"
#include "tests/workorders/notas.h"

#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using namespace workorders;
using support::Sheets;

namespace
{

/// An item as one text, in the order of the parts' columns.
QString described(const ItemDaNota &item)
{
    return QStringList{item.codigo,     item.descricao, item.classFiscal, item.sitTrib, item.unidade,
                       item.quantidade, item.valorUnit, item.valorTotal,  item.icms}
        .join(u'|');
}

QStringList described(const std::vector<ItemDaNota> &items)
{
    QStringList all;
    for (const ItemDaNota &item : items) {
        all << described(item);
    }
    return all;
}

std::vector<ItemDaNota> items(int count)
{
    std::vector<ItemDaNota> all;
    for (int number = 1; number <= count; ++number) {
        all.push_back({.codigo = u"0007"_s,
                       .descricao = u"ITEM %1"_s.arg(number),
                       .unidade = u"UNIDADE"_s,
                       .quantidade = u"01"_s,
                       .valorUnit = u"1,50"_s,
                       .valorTotal = u"1,50"_s});
    }
    return all;
}

ClienteDaNota maria()
{
    return {.codigo = u"0001"_s,
            .nome = u"MARIA DA SILVA"_s,
            .cpf = u"123.456.789-09"_s,
            .rg = u"12.345.678-9"_s,
            .endereco = u"RUA DAS PALMEIRAS"_s,
            .numero = u"120"_s,
            .bairro = u"CENTRO"_s,
            .cep = u"15080-130"_s,
            .cidade = u"RIO PRETO"_s,
            .estado = u"SÃO PAULO"_s,
            .fone1 = u"(17)3232-1010"_s};
}

} // namespace

/// The rules of a note and its page, without the window.
class TstNota : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { program_.reset(); }

    void anOrderBringsItsCustomerAndPlate();
    void anOrderWithoutVehicleHasNoPlate();
    void theCustomersDataAreRead();
    void aCustomerOfFewDataIsEmptyWhereNothingStands();
    void aCustomerThatIsGoneIsNone();
    void everyLetterGoesToItsNote();
    void unitsAndTaxesComeFromThePart();
    void aPartThatWasDeletedCountsInUnits();

    void theNumberGoesOn_data();
    void theNumberGoesOn();
    void theTwoNotesCountApart();
    void theDefaultIsScrambledAndCountsAsZero();

    void theNoteOfParts();
    void theNoteOfServices();
    void aFullNoteIsOneSheet_data();
    void aFullNoteIsOneSheet();
    void aLongHeaderLosesNoItem();
    void anEmptyNotePrints_data();
    void anEmptyNotePrints();
    void largeAmountsAreWhole();

private:
    QStringList printed(const NotaImpressa &note);

    std::unique_ptr<support::Program> program_;
    Sheets sheets_;
};

void TstNota::init()
{
    program_ = std::make_unique<support::Program>();
    program_->config(u"Endereco"_s, u"AV. BADY BASSITT, 3000"_s);
    program_->config(u"Bairro"_s, u"CENTRO"_s);
    program_->config(u"Telefone"_s, u"(17)3233-4455"_s);
}

// --- what goes on a note

void TstNota::anOrderBringsItsCustomerAndPlate()
{
    const qint32 customer = program_->customer(u"MARIA"_s);
    const qint32 vehicle = program_->vehicle(customer, u"ABC1D23"_s);
    const qint32 number = notas::order(customer, vehicle, {});
    const auto order = ProcuraOrdemDaNota(number);
    QVERIFY(order);
    QCOMPARE(order->codigo, u"0001"_s);
    QCOMPARE(order->codCliente, u"1"_s);
    QCOMPARE(order->placa, u"ABC1D23"_s);
    QVERIFY(!ProcuraOrdemDaNota(number + 1));
}

void TstNota::anOrderWithoutVehicleHasNoPlate()
{
    const qint32 number = notas::order(program_->customer(u"MARIA"_s), 99, {});
    QCOMPARE(ProcuraOrdemDaNota(number)->placa, QString());
    program_->sql(u"UPDATE OrdemServico SET CodVeiculo = Null, CodCliente = Null"_s);
    QCOMPARE(ProcuraOrdemDaNota(number)->placa, QString());
    QCOMPARE(ProcuraOrdemDaNota(number)->codCliente, QString());
}

void TstNota::theCustomersDataAreRead()
{
    const qint32 code = notas::fullCustomer(*program_);
    const auto customer = ProcuraClienteDaNota(QString::number(code));
    QVERIFY(customer);
    const ClienteDaNota expected = maria();
    QCOMPARE(customer->codigo, expected.codigo);
    QCOMPARE(customer->nome, expected.nome);
    QCOMPARE(customer->cpf, expected.cpf);
    QCOMPARE(customer->rg, expected.rg);
    QCOMPARE(customer->endereco, expected.endereco);
    QCOMPARE(customer->numero, expected.numero);
    QCOMPARE(customer->bairro, expected.bairro);
    QCOMPARE(customer->cep, expected.cep);
    QCOMPARE(customer->cidade, expected.cidade);
    QCOMPARE(customer->estado, expected.estado);
    QCOMPARE(customer->fone1, expected.fone1);
}

void TstNota::aCustomerOfFewDataIsEmptyWhereNothingStands()
{
    const QString code = QString::number(program_->customer(u"JOSÉ"_s));
    QCOMPARE(ProcuraClienteDaNota(code)->cpf, QString());
    QCOMPARE(ProcuraClienteDaNota(code)->numero, QString());
    QCOMPARE(ProcuraClienteDaNota(code)->endereco, QString());
    program_->sql(u"UPDATE Clientes SET CPF = '123'"_s); // neither a person's document nor a company's
    QCOMPARE(ProcuraClienteDaNota(code)->cpf, u"123"_s);
    program_->sql(u"UPDATE Clientes SET CPF = '12345678000195'"_s);
    QCOMPARE(ProcuraClienteDaNota(code)->cpf, u"12.345.678/0001-95"_s);
}

void TstNota::aCustomerThatIsGoneIsNone()
{
    QVERIFY(!ProcuraClienteDaNota(u"99"_s));
    QVERIFY(!ProcuraClienteDaNota(QString()));
}

void TstNota::everyLetterGoesToItsNote()
{
    const qint32 customer = program_->customer(u"MARIA"_s);
    std::vector<documents::LinhaItem> lines;
    for (const QString &letter : {u"P"_s, u"A"_s, u"S"_s, u"Z"_s, u"X"_s, u"K"_s, QString()}) {
        lines.push_back(notas::line(0, letter, u"02"_s, u"ITEM "_s + letter, u"10,00"_s));
    }
    const qint32 number = notas::order(customer, 0, lines);
    notas::order(customer, 0, {notas::line(0, u"P"_s, u"01"_s, u"DE OUTRA ORDEM"_s, u"1,00"_s)});

    const ItensDaNota items = LeItensDaNota(number);
    QCOMPARE(described(items.pecas),
             (QStringList{u"0000|ITEM P|||UNIDADE|02|10,00|20,00|"_s, u"0000|ITEM A|||UNIDADE|02|10,00|20,00|"_s}));
    QCOMPARE(described(items.servicos),
             (QStringList{u"0000|ITEM S|||UNIDADE|02|10,00|20,00|"_s, u"0000|ITEM Z|||UNIDADE|02|10,00|20,00|"_s}));
}

void TstNota::unitsAndTaxesComeFromThePart()
{
    constexpr int litres = 2;
    const qint32 oil = program_->part(u"ÓLEO"_s, u"P"_s, u"30,00"_s, false, litres);
    const qint32 filter = program_->part(u"FILTRO"_s, u"P"_s, u"25,50"_s);
    const qint32 service = program_->part(u"TROCA"_s, u"S"_s, u"40,00"_s);
    program_->sql(u"UPDATE Pecas SET ICMS = 18, ClassFiscal = '8708.93.00' WHERE Codigo = %1"_s.arg(oil));
    program_->sql(u"UPDATE Pecas SET UM = Null WHERE Codigo = %1"_s.arg(filter));
    const qint32 number = notas::order(program_->customer(u"MARIA"_s), 0,
                                       {notas::line(oil, u"P"_s, u"3,5"_s, u"ÓLEO"_s, u"30,00"_s),
                                        notas::line(filter, u"P"_s, u"01"_s, u"FILTRO"_s, u"25,50"_s),
                                        notas::line(service, u"S"_s, u"01"_s, u"TROCA"_s, u"40,00"_s)});
    const ItensDaNota items = LeItensDaNota(number);
    QCOMPARE(described(items.pecas), (QStringList{u"0001|ÓLEO|8708.93.00||LITROS|3,500|30,00|105,00|18"_s,
                                                  u"0002|FILTRO|||UNIDADE|01|25,50|25,50|"_s}));
    QCOMPARE(described(items.servicos), QStringList(u"0003|TROCA|||UNIDADE|01|40,00|40,00|"_s));
}

void TstNota::aPartThatWasDeletedCountsInUnits()
{
    constexpr int litres = 2;
    const qint32 oil = program_->part(u"ÓLEO"_s, u"P"_s, u"30,00"_s, false, litres);
    program_->sql(u"UPDATE Pecas SET ICMS = 18, ClassFiscal = '8708.93.00'"_s);
    const qint32 number =
        notas::order(program_->customer(u"MARIA"_s), 0, {notas::line(oil, u"P"_s, u"03"_s, u"ÓLEO"_s, u"30,00"_s)});
    program_->sql(u"DELETE * FROM Pecas"_s);
    QCOMPARE(described(LeItensDaNota(number).pecas), QStringList(u"0001|ÓLEO|||UNIDADE|03|30,00|90,00|"_s));
}

// --- the numbers

void TstNota::theNumberGoesOn_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("next");
    QTest::newRow("first") << u"000000"_s << u"000001"_s;
    QTest::newRow("carry") << u"000009"_s << u"000010"_s;
    QTest::newRow("short") << u"7"_s << u"000008"_s;
    QTest::newRow("a seventh digit") << u"999999"_s << u"1000000"_s;
    QTest::newRow("absent") << QString() << u"000001"_s;
}

void TstNota::theNumberGoesOn()
{
    QFETCH(QString, stored);
    QFETCH(QString, next);
    program_->config(u"NotaPeca"_s, stored);
    QCOMPARE(ProximaNota(TipoNota::Pecas), next);
    QCOMPARE(ProximaNota(TipoNota::Pecas), next);
    AvancaNota(TipoNota::Pecas);
    QCOMPARE(core::LeINI(u"CONFIG"_s, u"NotaPeca"_s, false), next);
}

void TstNota::theTwoNotesCountApart()
{
    program_->config(u"NotaPeca"_s, u"000005"_s);
    program_->config(u"NotaServico"_s, u"000070"_s);
    AvancaNota(TipoNota::Servicos);
    QCOMPARE(core::LeINI(u"CONFIG"_s, u"NotaPeca"_s, false), u"000005"_s);
    QCOMPARE(core::LeINI(u"CONFIG"_s, u"NotaServico"_s, false), u"000071"_s);
    QCOMPARE(ProximaNota(TipoNota::Pecas), u"000006"_s);
}

void TstNota::theDefaultIsScrambledAndCountsAsZero()
{
    core::CarregaConfig();
    QCOMPARE(core::LeINI(u"CONFIG"_s, u"NotaPeca"_s, false), u"MzMzMzMz"_s);
    QCOMPARE(ProximaNota(TipoNota::Pecas), u"000001"_s);
    QCOMPARE(ProximaNota(TipoNota::Servicos), u"000001"_s);
}

// --- the page

QStringList TstNota::printed(const NotaImpressa &note)
{
    ImprimeNota(note, sheets_);
    QStringList lines;
    for (const printer::Page &page : sheets_.document) {
        lines << page.lines();
    }
    return lines;
}

void TstNota::theNoteOfParts()
{
    const ItemDaNota item{.codigo = u"0001"_s,
                          .descricao = u"AMORTECEDOR DIANTEIRO ESQUERDO PRESSURIZADO"_s,
                          .classFiscal = u"8708.80.00"_s,
                          .unidade = u"UNIDADE"_s,
                          .quantidade = u"02"_s,
                          .valorUnit = u"1.250,00"_s,
                          .valorTotal = u"2.500,00"_s,
                          .icms = u"18"_s};
    const QStringList lines = printed({.tipo = TipoNota::Pecas,
                                       .numero = u"000010"_s,
                                       .cliente = maria(),
                                       .ordens = {u"0001/ABC1D23"_s, u"0002/XYZ-9876"_s},
                                       .itens = {item},
                                       .total = u"2.500,00"_s});
    QCOMPARE(lines.at(0).trimmed(), u"NOTA DE PEÇAS Nº 000010"_s);
    const QStringList body = lines.mid(1, lines.size() - 3);
    const QStringList expected{
        u"NATUREZA DA OPERAÇÃO: VENDAS                              DATA.........: 15/05/2024"_s,
        u"CFOP................: 5102"_s,
        u"CÓD. / NOME CLIENTE.: 0001 - MARIA DA SILVA"_s,
        u"CPF / CNPJ..........: 123.456.789-09                      RG / I.E.....: 12.345.678-9"_s,
        u"ENDEREÇO............: RUA DAS PALMEIRAS, 120"_s,
        u"BAIRRO..............: CENTRO                              CEP..........: 15080-130"_s,
        u"CIDADE..............: RIO PRETO                           ESTADO.......: SÃO PAULO"_s,
        u"FONE 1..............: (17)3232-1010"_s,
        u"O.S. / PLACAS.......: 0001/ABC1D23, 0002/XYZ-9876"_s,
        u""_s,
        u"CÓDIGO DESCRIÇÃO                            CLASS. FISCAL        S.T. UNIDADE QUANTIDADE     V. UNIT.     V. TOTAL  ICMS"_s,
        u"0001   AMORTECEDOR DIANTEIRO ESQUERDO PRESS 8708.80.00                UNIDADE         02     1.250,00     2.500,00    18"_s,
        QString(120, u'_'),
        u"       VALOR TOTAL DAS PEÇAS                                                                              2.500,00"_s,
    };
    QCOMPARE(body.join(u'\n'), expected.join(u'\n'));
    QCOMPARE(lines.at(lines.size() - 2), QString(96, u'_'));
    QCOMPARE(lines.last().trimmed(), u"AV. BADY BASSITT, 3000 - CENTRO - (17)3233-4455"_s);
}

void TstNota::theNoteOfServices()
{
    const ItemDaNota item{.codigo = u"0003"_s,
                          .descricao = u"ALINHAMENTO"_s,
                          .unidade = u"UNIDADE"_s,
                          .quantidade = u"01"_s,
                          .valorUnit = u"80,00"_s,
                          .valorTotal = u"80,00"_s};
    const QStringList lines = printed({.tipo = TipoNota::Servicos,
                                       .numero = u"000001"_s,
                                       .cliente = maria(),
                                       .ordens = {u"0001/ABC1D23"_s},
                                       .itens = {item},
                                       .total = u"80,00"_s});
    QCOMPARE(lines.at(0).trimmed(), u"NOTA DE SERVIÇOS Nº 000001"_s);
    const QStringList expected{
        u"NATUREZA DA OPERAÇÃO: SERVIÇOS                            DATA.........: 15/05/2024"_s,
        u"CÓD. / NOME CLIENTE.: 0001 - MARIA DA SILVA"_s,
        u"CPF / CNPJ..........: 123.456.789-09                      RG / I.E.....: 12.345.678-9"_s,
        u"ENDEREÇO............: RUA DAS PALMEIRAS, 120"_s,
        u"BAIRRO..............: CENTRO                              CEP..........: 15080-130"_s,
        u"CIDADE..............: RIO PRETO                           ESTADO.......: SÃO PAULO"_s,
        u"FONE 1..............: (17)3232-1010"_s,
        u"O.S. / PLACAS.......: 0001/ABC1D23"_s,
        u""_s,
        u"QUANTIDADE UNIDADE ESPECIFICAÇÃO                                           V. UNIT.     V. TOTAL"_s,
        u"        01 UNIDADE ALINHAMENTO                                                80,00        80,00"_s,
        QString(96, u'_'),
        u"                   VALOR TOTAL DOS SERVIÇOS                                                80,00"_s,
    };
    QCOMPARE(lines.mid(1, lines.size() - 3).join(u'\n'), expected.join(u'\n'));
    QVERIFY(!lines.join(u'\n').contains(u"5102"_s));
}

void TstNota::aFullNoteIsOneSheet_data()
{
    QTest::addColumn<TipoNota>("kind");
    QTest::addColumn<int>("rows");
    QTest::newRow("parts") << TipoNota::Pecas << 23;
    QTest::newRow("services") << TipoNota::Servicos << 39;
}

void TstNota::aFullNoteIsOneSheet()
{
    QFETCH(TipoNota, kind);
    QFETCH(int, rows);
    QStringList orders;
    for (int order = 1; order <= rows; ++order) { // an order for each item
        orders << u"%1/ABC1D23"_s.arg(order, 4, 10, QChar(u'0'));
    }
    const QStringList lines = printed({.tipo = kind,
                                       .numero = u"000001"_s,
                                       .cliente = maria(),
                                       .ordens = kind == TipoNota::Pecas ? orders : orders.first(20),
                                       .itens = items(rows),
                                       .total = u"1,00"_s});
    QCOMPARE(sheets_.document.size(), 1U);
    QCOMPARE(lines.filter(u"ITEM "_s).size(), rows);
    QCOMPARE(lines.filter(u"VALOR TOTAL"_s).size(), 1);
}

void TstNota::aLongHeaderLosesNoItem()
{
    QStringList orders;
    for (int order = 1; order <= 90; ++order) {
        orders << u"%1/ABC1D23"_s.arg(order, 4, 10, QChar(u'0'));
    }
    const QStringList lines = printed({.tipo = TipoNota::Servicos,
                                       .numero = u"000001"_s,
                                       .cliente = maria(),
                                       .ordens = orders,
                                       .itens = items(39),
                                       .total = u"1,00"_s});
    QCOMPARE(sheets_.document.size(), 2U);
    QCOMPARE(lines.filter(u"ITEM "_s).size(), 39);
    QCOMPARE(lines.filter(u"VALOR TOTAL"_s).size(), 1);
    QCOMPARE(lines.filter(u"0090/ABC1D23"_s).size(), 2); // each sheet has the header
    for (const printer::Page &page : sheets_.document) {
        QCOMPARE(page.lines().filter(u"ESPECIFICAÇÃO"_s).size(), 1);
        QCOMPARE(page.lines().filter(u"(17)3233-4455"_s).size(), 1);
    }
}

void TstNota::anEmptyNotePrints_data()
{
    QTest::addColumn<TipoNota>("kind");
    QTest::newRow("parts") << TipoNota::Pecas;
    QTest::newRow("services") << TipoNota::Servicos;
}

void TstNota::anEmptyNotePrints()
{
    QFETCH(TipoNota, kind);
    const QStringList lines =
        printed({.tipo = kind, .numero = u"000001"_s, .cliente = {}, .ordens = {}, .itens = {}, .total = u"0,00"_s});
    QCOMPARE(sheets_.document.size(), 1U);
    QCOMPARE(lines.filter(u"O.S. / PLACAS"_s).size(), 0);
    const QStringList total = lines.filter(u"VALOR TOTAL"_s);
    QCOMPARE(total.size(), 1);
    QVERIFY(total.first().contains(u"0,00"_s));
}

void TstNota::largeAmountsAreWhole()
{
    std::vector<ItemDaNota> one = items(1);
    one.front().valorUnit = one.front().valorTotal = u"1.234.568,00"_s;
    for (const TipoNota kind : {TipoNota::Pecas, TipoNota::Servicos}) {
        const QStringList lines = printed({.tipo = kind,
                                           .numero = u"000001"_s,
                                           .cliente = {},
                                           .ordens = {},
                                           .itens = one,
                                           .total = u"1.234.568,00"_s});
        QCOMPARE(lines.join(u'\n').count(u"1.234.568,00"_s), 3);
    }
}

TARVELO_TEST_MAIN(TstNota)
#include "tst_nota.moc"
