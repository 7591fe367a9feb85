#include "core/andamento.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "papel.h"
#include "platform/dao/unit.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "stock/stock.h"
#include "support/boxes.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace core;
using cadastro::Rows;
using cadastro::rowsOf;
using papel::impresso;
using support::click;

namespace
{

const QString pergunta = u"Imprimir Valor Custo"_s;
const QString nada;

} // namespace

/// The reports of the price list.
class TestRelaPecas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { programa_.reset(); }

    void listsTheStockOfAllPartsUnderControl();
    void theStockIsTheNewestRowOfTheLedger();
    void theStockIsThatOfTheFilling();
    void printsTheStock();
    void fiftyRowsAreASheet_data();
    void fiftyRowsAreASheet();
    void aDoubleClickOpensTheLedger();
    void nothingUnderControlIsARow();
    void readingTheStockIsLeftByEsc();

    void listsPartsAndServicesInTheirOrder();
    void printsThePricesWithTheirCostsOrWithout_data();
    void printsThePricesWithTheirCostsOrWithout();
    void thePreviewAsksAndSoDoesItsPaper();
    void anEmptyPriceListIsARow();
    void aLongNameIsCutOnPaper();

    void listsWhatIsBelowItsMinimum();
    void whatIsAtItsMinimumOrHasNoLedgerIsNotBought();
    void theLastRowStoredCounts();
    void printsABlankForTheQuantity();
    void nothingToBuyIsARow();
    void aHeaderClickSortsWhatIsBought();
    void severalReportsInOneRun();

private:
    void peca(const QString &nome, const QString &colunas, const QString &valores);
    void saldo(int peca, const QString &valor);
    void tresPecas();

    std::unique_ptr<support::Program> programa_;
};

void TestRelaPecas::initTestCase()
{
    reports::registerForms();
    stock::registerForms();
    registers::registerForms();
}

void TestRelaPecas::init()
{
    programa_ = std::make_unique<support::Program>();
}

void TestRelaPecas::peca(const QString &nome, const QString &colunas, const QString &valores)
{
    programa_->sql(u"INSERT INTO Pecas (Nome, %1) VALUES ('%2', %3)"_s.arg(colunas, nome, valores));
}

void TestRelaPecas::saldo(int peca, const QString &valor)
{
    programa_->sql(
        u"INSERT INTO Estoque (CodPeca, Data, Descricao, Estoque) VALUES (%1, #5/1/2024#, 'X', %2)"_s.arg(peca).arg(
            valor));
}

/// 1 is counted in pieces and below its minimum, 2 in litres and above it; 3 is a service.
void TestRelaPecas::tresPecas()
{
    const QString colunas = u"MarcaModelo, PS, UM, ValorCusto, ValorVenda, EstoqueMinimo, ControlaEstoque"_s;
    peca(u"VELA"_s, colunas, u"'GOL 1.0', 'P', 0, 8.5, 15.9, 4, True"_s);
    peca(u"OLEO 20W50"_s, colunas, u"Null, 'P', 2, 12, 21.35, 1.5, True"_s);
    peca(u"ALINHAMENTO"_s, colunas, u"Null, 'S', 0, 0, 1045.5, Null, False"_s);
    saldo(1, u"3"_s);
    saldo(2, u"1234.5"_s);
}

// --- the stock

void TestRelaPecas::listsTheStockOfAllPartsUnderControl()
{
    tresPecas();
    ui::Form *form = papel::abre(modoRelaEstoqueGeral);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Estoque Geral de Peças]"_s);
    QCOMPARE(cadastro::titlesOf(form), (QStringList{u"Código"_s, u"Descrição"_s, u"Aplicação"_s, u"Unid. Medida"_s,
                                                    u"Estoque Mínimo"_s, u"Estoque Atual"_s}));
    QCOMPARE(rowsOf(form), (Rows{
                               {u"0002"_s, u"OLEO 20W50"_s, nada, u"LITROS"_s, u"1,500"_s, u"1.234,500"_s},
                               {u"0001"_s, u"VELA"_s, u"GOL 1.0"_s, u"UNIDADE"_s, u"04"_s, u"03"_s},
                           }));
}

void TestRelaPecas::theStockIsTheNewestRowOfTheLedger()
{
    tresPecas();
    programa_->sql(u"INSERT INTO Estoque (Codigo, CodPeca, Estoque) VALUES (900, 1, 7)"_s);
    saldo(1, u"-2"_s); // newer than the one of 900, though stored behind it
    programa_->sql(u"INSERT INTO Estoque (Codigo, CodPeca, Estoque) VALUES (-1, 1, 55)"_s);
    programa_->sql(u"DELETE * FROM Estoque WHERE CodPeca = 2"_s);
    QCOMPARE(cadastro::columnOf(papel::abre(modoRelaEstoqueGeral), 5), (QStringList{nada, u"-02"_s}));
    QCOMPARE(programa_->rows(u"SELECT Max(Codigo) FROM Estoque"_s).front(), QStringList{u"901"_s});
}

void TestRelaPecas::theStockIsThatOfTheFilling()
{
    tresPecas();
    ui::Form *form = papel::abre(modoRelaEstoqueGeral);
    saldo(1, u"99"_s);
    programa_->sql(u"DELETE * FROM Pecas"_s);
    click(form, u"btnPrint"_s);
    QCOMPARE(cadastro::columnOf(form, 5), (QStringList{u"1.234,500"_s, u"03"_s}));
    QVERIFY(impresso().front().last().endsWith(u" 03"_s));
}

void TestRelaPecas::printsTheStock()
{
    tresPecas();
    ui::Form *form = papel::abre(modoRelaEstoqueGeral);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso(),
             (std::vector<QStringList>{{
                 QString(9, u' ') + u"LISTA DE ESTOQUE GERAL"_s,
                 QString(45, u' ') + u"Tarvelo"_s,
                 u"Data.............: 15/05/2024"_s,
                 u"Nº de Registros..: 2"_s,
                 u"Exibindo.....: de: 1 à 2"_s,
                 u"CÓDIGO - DESCRIÇÃO                 - APLICAÇÃO            - UNID.MEDI. - E.MÍNIMO   - E. ATUAL"_s,
                 u"0002     OLEO 20W50                                         LITROS            1,500    1.234,500"_s,
                 u"0001     VELA                        GOL 1.0                UNIDADE              04           03"_s,
             }}));
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(papel::previsto(), impresso());
}

void TestRelaPecas::fiftyRowsAreASheet_data()
{
    QTest::addColumn<int>("pecas");
    QTest::addColumn<QStringList>("exibindo");
    QTest::newRow("exactly one") << 50 << QStringList{u"1 à 50"_s};
    QTest::newRow("one more") << 51 << QStringList{u"1 à 50"_s, u"51 à 51"_s};
    QTest::newRow("three") << 120 << QStringList{u"1 à 50"_s, u"51 à 100"_s, u"101 à 120"_s};
}

void TestRelaPecas::fiftyRowsAreASheet()
{
    QFETCH(int, pecas);
    QFETCH(QStringList, exibindo);
    {
        const dao::Unit umaVez;
        for (int numero = 1; numero <= pecas; ++numero) {
            peca(u"PECA %1"_s.arg(numero, 3, 10, QChar(u'0')), u"PS, UM, ControlaEstoque"_s, u"'P', 0, True"_s);
            saldo(numero, QString::number(numero));
        }
    }
    click(papel::abre(modoRelaEstoqueGeral), u"btnPrint"_s);
    const auto folhas = impresso();
    QCOMPARE(folhas.size(), std::size_t(exibindo.size()));
    int numero = 0;
    for (std::size_t folha = 0; folha < folhas.size(); ++folha) {
        QCOMPARE(folhas[folha].at(3), u"Nº de Registros..: %1"_s.arg(pecas));
        QCOMPARE(folhas[folha].at(4), u"Exibindo.....: de: "_s + exibindo.at(qsizetype(folha)));
        for (const QString &linha : folhas[folha].mid(6)) {
            ++numero;
            QVERIFY2(
                linha.startsWith(u"%1     PECA %2"_s.arg(numero, 4, 10, QChar(u'0')).arg(numero, 3, 10, QChar(u'0'))),
                qPrintable(linha));
        }
    }
    QCOMPARE(numero, pecas);
}

void TestRelaPecas::aDoubleClickOpensTheLedger()
{
    tresPecas();
    ui::Form *form = papel::abre(modoRelaEstoqueGeral);
    papel::clicaDuasVezes(form, 1);
    QTRY_VERIFY(cadastro::isOpen(u"frmMoviEstoque"_s));
    QCOMPARE(ModoChamada, qint16{modoEstoqueDeUmaPeca});
    ui::Form *estoque = support::show(u"frmMoviEstoque"_s);
    QCOMPARE(support::text(estoque, u"txtCodPeca"_s), u"0001"_s);
    QCOMPARE(support::text(estoque, u"lblNome"_s), u"VELA"_s);
    QVERIFY(!support::controlOf(estoque, u"txtCodPeca"_s)->isEnabled());
    click(estoque, u"btnVoltar"_s);

    papel::clicaDuasVezes(support::show(u"frmRelatorio"_s), 0);
    QTRY_VERIFY(cadastro::isOpen(u"frmMoviEstoque"_s));
    QCOMPARE(support::text(support::show(u"frmMoviEstoque"_s), u"txtCodPeca"_s), u"0002"_s);
}

void TestRelaPecas::nothingUnderControlIsARow()
{
    peca(u"SOLTA"_s, u"PS, ControlaEstoque"_s, u"'P', False"_s);
    ui::Form *form = papel::abre(modoRelaEstoqueGeral);
    QCOMPARE(rowsOf(form), (Rows{{nada, u"Registro não Localizado"_s, nada, nada, nada, nada}}));
    papel::clicaDuasVezes(form, 0);
    QCoreApplication::processEvents();
    QVERIFY(!cadastro::isOpen(u"frmMoviEstoque"_s));
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().size(), 1U);
    QCOMPARE(impresso().front().last().trimmed(), u"Registro não Localizado"_s);
}

void TestRelaPecas::readingTheStockIsLeftByEsc()
{
    {
        const dao::Unit umaVez;
        for (int numero = 1; numero <= 100; ++numero) {
            peca(u"PECA"_s, u"PS, UM, ControlaEstoque"_s, u"'P', 0, True"_s);
        }
    }
    defineMostrador({.mostra = [](const QString &, int, int) {},
                     .termina = [] {},
                     .deixa = [] { return true; },
                     .demora = std::chrono::milliseconds(0)});
    ui::Form *form = papel::abre(modoRelaEstoqueGeral);
    defineMostrador({});
    const int lidas = cadastro::list(form)->count();
    QVERIFY2(lidas > 0 && lidas < 100, qPrintable(QString::number(lidas)));
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Estoque Geral de Peças] - Leitura interrompida"_s);
}

// --- the prices

void TestRelaPecas::listsPartsAndServicesInTheirOrder()
{
    tresPecas();
    peca(u"VELA"_s, u"MarcaModelo, PS, UM, ValorCusto, ValorVenda, EstoqueMinimo, ControlaEstoque"_s,
         u"'FUSCA', 'P', 1, 7, 9, 0.25, False"_s);
    ui::Form *form = papel::abre(modoRelaPecas);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Peças]"_s);
    QCOMPARE(cadastro::titlesOf(form),
             (QStringList{u"Código"_s, u"Descrição"_s, u"Aplicação"_s, u"Peça/Serviço"_s, u"Valor de Custo"_s,
                          u"Valor de Venda"_s, u"Estoque Mínimo"_s, u"Cont. Estoque"_s}));
    QCOMPARE(rowsOf(form), (Rows{
                               {u"0002"_s, u"OLEO 20W50"_s, nada, u"P"_s, u"12,00"_s, u"21,35"_s, u"1,500"_s, u"Sim"_s},
                               {u"0004"_s, u"VELA"_s, u"FUSCA"_s, u"P"_s, u"7,00"_s, u"9,00"_s, u"0,250"_s, u"Não"_s},
                               {u"0001"_s, u"VELA"_s, u"GOL 1.0"_s, u"P"_s, u"8,50"_s, u"15,90"_s, u"04"_s, u"Sim"_s},
                               {u"0003"_s, u"ALINHAMENTO"_s, nada, u"S"_s, u"0,00"_s, u"1.045,50"_s, nada, u"Não"_s},
                           }));
}

void TestRelaPecas::printsThePricesWithTheirCostsOrWithout_data()
{
    QTest::addColumn<bool>("custo");
    QTest::addColumn<QStringList>("linhas");
    QTest::newRow("with")
        << true
        << QStringList{
               u"CÓDIGO - DESCRIÇÃO              - APLICAÇÃO         - V. CUSTO   - V. VENDA   - EST. MIN.  - C.E"_s,
               u"0002     OLEO 20W50                                        12,00        21,35        1,500   Sim"_s,
               u"0001     VELA                     GOL 1.0                   8,50        15,90           04   Sim"_s,
               u"0003     ALINHAMENTO                                        0,00     1.045,50                Não"_s};
    QTest::newRow("without")
        << false
        << QStringList{
               u"CÓDIGO - DESCRIÇÃO              - APLICAÇÃO                      - V. VENDA   - EST. MIN.  - C.E"_s,
               u"0002     OLEO 20W50                                                     21,35        1,500   Sim"_s,
               u"0001     VELA                     GOL 1.0                               15,90           04   Sim"_s,
               u"0003     ALINHAMENTO                                                 1.045,50                Não"_s};
}

void TestRelaPecas::printsThePricesWithTheirCostsOrWithout()
{
    QFETCH(bool, custo);
    QFETCH(QStringList, linhas);
    tresPecas();
    ui::Form *form = papel::abre(modoRelaPecas);
    support::Boxes boxes;
    boxes.title(u"Tarvelo"_s);
    boxes.question(pergunta, custo);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso(), (std::vector<QStringList>{QStringList{
                                                       QString(7, u' ') + u"RELATÓRIO DE PEÇAS/SERVIÇOS"_s,
                                                       QString(45, u' ') + u"Tarvelo"_s,
                                                       u"Data.............: 15/05/2024"_s,
                                                       u"Nº de Registros..: 3"_s,
                                                       u"Exibindo.....: de: 1 à 3"_s,
                                                   } +
                                                   linhas}));
}

void TestRelaPecas::thePreviewAsksAndSoDoesItsPaper()
{
    tresPecas();
    ui::Form *form = papel::abre(modoRelaPecas);
    support::Boxes boxes;
    boxes.question(pergunta, false);
    click(form, u"btnPrevisualizar"_s);
    QVERIFY(!papel::previsto().front().join(u'\n').contains(u"CUSTO"_s));
    boxes.question(pergunta, true);
    click(support::show(u"frmRelaPreVisualiza"_s), u"btnPrint"_s);
    QVERIFY(impresso().front().join(u'\n').contains(u"V. CUSTO"_s));
    QVERIFY(!papel::previsto().front().join(u'\n').contains(u"CUSTO"_s));
}

void TestRelaPecas::anEmptyPriceListIsARow()
{
    ui::Form *form = papel::abre(modoRelaPecas);
    QCOMPARE(cadastro::columnOf(form, 1), QStringList{u"Registro não Localizado"_s});
    support::Boxes boxes;
    boxes.question(pergunta, true);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().size(), 1U);
}

void TestRelaPecas::aLongNameIsCutOnPaper()
{
    peca(QString(200, u'N'), u"MarcaModelo, PS, UM, ValorCusto, ValorVenda, ControlaEstoque"_s,
         u"'%1', 'P', 0, 1, 2, False"_s.arg(QString(200, u'A')));
    ui::Form *form = papel::abre(modoRelaPecas);
    support::Boxes boxes;
    boxes.question(pergunta, false);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().front().last(),
             u"0001     "_s + QString(22, u'N') + u"   "_s + QString(30, u'A') + u"         2,00                Não"_s);
}

// --- what is to be bought

void TestRelaPecas::listsWhatIsBelowItsMinimum()
{
    tresPecas();
    ui::Form *form = papel::abre(modoRelaCompras);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Lista de Compras]"_s);
    QCOMPARE(cadastro::titlesOf(form),
             (QStringList{u"Código Peça"_s, u"Nome Peça"_s, u"Estoque Mínimo"_s, u"Estoque Atual"_s}));
    QCOMPARE(rowsOf(form), (Rows{{u"0001"_s, u"VELA"_s, u"04"_s, u"03"_s}}));
    saldo(2, u"1.4"_s);
    QCOMPARE(cadastro::list(form)->count(), 1);
    form->Unload();
    QCOMPARE(rowsOf(papel::abre(modoRelaCompras)), (Rows{
                                                       {u"0001"_s, u"VELA"_s, u"04"_s, u"03"_s},
                                                       {u"0002"_s, u"OLEO 20W50"_s, u"1,500"_s, u"1,400"_s},
                                                   }));
}

void TestRelaPecas::whatIsAtItsMinimumOrHasNoLedgerIsNotBought()
{
    tresPecas();
    saldo(1, u"4"_s);
    peca(u"NOVA"_s, u"PS, UM, EstoqueMinimo, ControlaEstoque"_s, u"'P', 0, 10, True"_s);
    peca(u"SEM CONTROLE"_s, u"PS, UM, EstoqueMinimo, ControlaEstoque"_s, u"'P', 0, 10, False"_s);
    saldo(5, u"1"_s);
    QCOMPARE(cadastro::columnOf(papel::abre(modoRelaCompras), 1), QStringList{u"Registro não Localizado"_s});
}

/// Unlike the stock of all parts, which goes by the ledger's codes.
void TestRelaPecas::theLastRowStoredCounts()
{
    tresPecas();
    saldo(1, u"9"_s);
    programa_->sql(u"INSERT INTO Estoque (Codigo, CodPeca, Estoque) VALUES (-1, 1, 2)"_s);
    QCOMPARE(rowsOf(papel::abre(modoRelaCompras)), (Rows{{u"0001"_s, u"VELA"_s, u"04"_s, u"02"_s}}));
    ui::Forms::instance().find(u"frmRelatorio"_s)->Unload();
    QCOMPARE(cadastro::columnOf(papel::abre(modoRelaEstoqueGeral), 5), (QStringList{u"1.234,500"_s, u"09"_s}));
}

void TestRelaPecas::printsABlankForTheQuantity()
{
    tresPecas();
    ui::Form *form = papel::abre(modoRelaCompras);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso(),
             (std::vector<QStringList>{{
                 QString(12, u' ') + u"LISTA DE COMPRAS"_s,
                 QString(45, u' ') + u"Tarvelo"_s,
                 u"Data.............: 15/05/2024"_s,
                 u"Nº de Registros..: 1"_s,
                 u"Exibindo.....: de: 1 à 1"_s,
                 u"COD.PEÇ - NOME PEÇA                                - EST.MÍNIMO - EST. ATUAL - COMPRAR:"_s,
                 u"0001      VELA                                               04           03   __________"_s,
             }}));
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(papel::previsto(), impresso());
}

void TestRelaPecas::nothingToBuyIsARow()
{
    ui::Form *form = papel::abre(modoRelaCompras);
    QCOMPARE(rowsOf(form), (Rows{{nada, u"Registro não Localizado"_s, nada, nada}}));
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().size(), 1U);
}

void TestRelaPecas::aHeaderClickSortsWhatIsBought()
{
    tresPecas();
    saldo(2, u"1"_s);
    ui::Form *form = papel::abre(modoRelaCompras);
    cadastro::clickHeader(form, 1);
    QCOMPARE(cadastro::columnOf(form, 1), (QStringList{u"OLEO 20W50"_s, u"VELA"_s}));
    cadastro::clickHeader(form, 1);
    click(form, u"btnPrint"_s);
    QVERIFY(impresso().front().last().startsWith(u"0002      OLEO 20W50"_s));
}

/// Each in the window of the one before, which is loaded anew, and each preview in place of the one before.
void TestRelaPecas::severalReportsInOneRun()
{
    tresPecas();
    for (const auto &[modo, titulo] : {std::pair{modoRelaEstoqueGeral, u"LISTA DE ESTOQUE GERAL"_s},
                                       {modoRelaCompras, u"LISTA DE COMPRAS"_s},
                                       {modoRelaEstoqueGeral, u"LISTA DE ESTOQUE GERAL"_s}}) {
        ModoChamada = modo;
        ui::Forms::instance().ShowAfresh(u"frmRelatorio"_s);
        click(support::show(u"frmRelatorio"_s), u"btnPrevisualizar"_s);
        QCOMPARE(papel::previsto().front().front().trimmed(), titulo);
        click(support::show(u"frmRelaPreVisualiza"_s), u"btnPrint"_s);
        QCOMPARE(impresso(), papel::previsto());
    }
}

TARVELO_TEST_MAIN(TestRelaPecas)
#include "tst_relapecas.moc"
