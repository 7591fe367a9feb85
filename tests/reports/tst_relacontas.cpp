#include "core/andamento.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "papel.h"
#include "platform/dao/unit.h"
#include "reports/reports.h"
#include "support/boxes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using cadastro::columnOf;
using cadastro::rowsOf;
using papel::impresso;
using support::click;
using support::text;
using support::type;

namespace
{

const QString selecao = u"frmRelaSelecaoContasPR"_s;
const QString nada;

/// Behind a number of rows of one digit.
const QString ateExibindo(14 + 13, u' ');

/// The entries of the window's combos.
constexpr int pagar = 0;
constexpr int receber = 1;
constexpr int pagas = 0;
constexpr int abertas = 1;

QStringList entradas(ui::Form *form, const QString &nome)
{
    const auto *combo = support::control<QComboBox>(form, nome);
    QStringList textos;
    for (int entrada = 0; entrada < combo->count(); ++entrada) {
        textos << combo->itemText(entrada);
    }
    return textos;
}

/// Opens the report and leaves its reading at the first look for Esc, at the 16th step.
ui::Form *preencheAteEsc(ui::Form *form)
{
    core::defineMostrador({.mostra = [](const QString &, int, int) {},
                           .termina = [] {},
                           .deixa = [] { return true; },
                           .demora = std::chrono::milliseconds(0)});
    click(form, u"btnPreenche"_s);
    core::defineMostrador({});
    return papel::relatorio();
}

} // namespace

/// The report of accounts and the window that asks what it is to show.
class TestRelaContas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { reports::registerForms(); }
    void init() { programa_ = std::make_unique<support::Program>(); }
    void cleanup() { programa_.reset(); }

    void theSelectionOpensWithItsPeriodAndChoices();
    void showsTheAccountsDueInThePeriod();
    void showsTheAccountsReceivable();
    void showsOneSituation_data();
    void showsOneSituation();
    void isInTheOrderThatIsAskedFor_data();
    void isInTheOrderThatIsAskedFor();
    void nothingFoundIsARow();
    void aChequeIsShownByItsCustomer();
    void withoutTheCheckEachDescriptionStands();
    void theNameIsThatOfTheFilling();
    void printsThem_data();
    void printsThem();
    void fiftyRowsAreASheet();
    void previewsWhatItPrints();
    void theSelectionIsReadAgainForEveryPrint();
    void aHeaderClickMovesTheTotals();
    void aRowOpensNothing();
    void aLongReadingIsLeftByEsc();
    void theLookUpOfNamesIsLeftByEsc();

private:
    void conta(const QString &tabela, const QString &colunas, const QString &valores);
    void tresContas();
    ui::Form *abre(int contas = pagar);
    ui::Form *preenche(int contas = pagar);
    void cheques();

    std::unique_ptr<support::Program> programa_;
};

void TestRelaContas::conta(const QString &tabela, const QString &colunas, const QString &valores)
{
    programa_->sql(
        u"INSERT INTO %1 (Data, Descricao, Vencimento, Pago, %2) VALUES (%3)"_s.arg(tabela, colunas, valores));
}

/// Two to pay, of which one is paid; beside them one that falls due later, and one to receive.
void TestRelaContas::tresContas()
{
    const QString aPagar = u"ContasPagar"_s;
    conta(aPagar, u"Valor, DataPagto"_s,
          u"#5/1/2024#, 'ALUGUEL DA OFICINA COM TEXTO COMPRIDO DEMAIS', #5/20/2024#, True, 1500, #5/9/2024#"_s);
    conta(aPagar, u"Valor"_s, u"#5/2/2024#, 'ENERGIA', #4/30/2024#, False, 80.25"_s);
    conta(aPagar, u"Valor"_s, u"#5/3/2024#, 'DEPOIS', #5/31/2024#, False, 7"_s);
    conta(u"ContasReceber"_s, u"Valor"_s, u"#5/4/2024#, 'CARNÊ Nº 0001-01', #5/30/2024#, False, 33.33"_s);
}

ui::Form *TestRelaContas::abre(int contas)
{
    tresContas();
    ui::Form *form = support::show(selecao);
    cadastro::choose(form, u"cboContas"_s, contas);
    return form;
}

ui::Form *TestRelaContas::preenche(int contas)
{
    click(abre(contas), u"btnPreenche"_s);
    return papel::relatorio();
}

/// What the customer's name stands for, and what it does not.
void TestRelaContas::cheques()
{
    const qint32 cliente = programa_->customer(u"JOSÉ DA SILVA"_s);
    programa_->sql(u"INSERT INTO OrdemServico (CodCliente) VALUES (%1)"_s.arg(cliente));
    for (const auto *descricao :
         {u"CHEQUE CÓD 0005/0001-01", u"CHEQUE CÓD 0006/1", u"CHEQUE CÓD 0007/0099-00", u"CHEQUE CÓD SEM ORDEM",
          u"CHEQUE CÓD 0008/1,5-00", u"CHEQUE CÓD 0009/1e3", u"CHEQUE: JOSÉ - CÓD 0005/0001-01", u"CARNÊ Nº 0001-01",
          u"cheque cód 0005/0001-01"}) {
        conta(u"ContasReceber"_s, u"Valor"_s,
              u"#5/1/2024#, '%1', #5/20/2024#, False, 10"_s.arg(QStringView(descricao)));
    }
    conta(u"ContasReceber"_s, u"Valor"_s, u"#5/1/2024#, Null, #5/20/2024#, False, 10"_s);
}

void TestRelaContas::theSelectionOpensWithItsPeriodAndChoices()
{
    ui::Form *form = support::show(selecao);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Contas a Pagar/Receber]"_s);
    QCOMPARE(text(form, u"txtDataInicio"_s), u"30/04/2024"_s);
    QCOMPARE(text(form, u"txtDataFim"_s), u"30/05/2024"_s);
    QCOMPARE(entradas(form, u"cboContas"_s), (QStringList{u"Pagar"_s, u"Receber"_s}));
    QCOMPARE(entradas(form, u"cboExibir"_s),
             (QStringList{u"Contas Pagas/Recebidas"_s, u"Contas Não Pagas/Recebidas"_s, u"Todas as Contas"_s}));
    QCOMPARE(entradas(form, u"cboOrdem"_s),
             (QStringList{u"Data Cadastro"_s, u"Data Vencimento"_s, u"Valor"_s, u"Pago"_s}));
    QCOMPARE(text(form, u"cboContas"_s), u"Pagar"_s);
    QCOMPARE(text(form, u"cboExibir"_s), u"Todas as Contas"_s);
    QCOMPARE(text(form, u"cboOrdem"_s), u"Data Cadastro"_s);
    const auto *nome = support::control<QCheckBox>(form, u"chkNome"_s);
    QVERIFY(!nome->isChecked());
    QCOMPARE(nome->text().remove(u'&'), u"Trocar Cód. Cheque por Nome do Cliente"_s);
    QCOMPARE(cadastro::tabOrder(form, u"txtDataInicio"_s, 8),
             (QStringList{u"txtDataInicio"_s, u"txtDataFim"_s, u"cboContas"_s, u"cboExibir"_s, u"cboOrdem"_s,
                          u"chkNome"_s, u"btnPreenche"_s, u"btnVoltar"_s}));
    click(form, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(selecao));
}

void TestRelaContas::showsTheAccountsDueInThePeriod()
{
    ui::Form *form = preenche();
    QCOMPARE(core::ModoChamada, qint16{core::modoRelaContas});
    QVERIFY(cadastro::isOpen(selecao));
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Contas a Pagar de: 30/04/2024 à 30/05/2024]"_s);
    QCOMPARE(cadastro::titlesOf(form),
             (QStringList{u"Data"_s, u"Descricao"_s, u"Valor"_s, u"Vencimento"_s, u"Pago"_s, u"Data Pagto."_s}));
    QCOMPARE(rowsOf(form), (cadastro::Rows{
                               {u"01/05/2024"_s, u"ALUGUEL DA OFICINA COM TEXTO COMPRIDO DEMAIS"_s, u"1.500,00"_s,
                                u"20/05/2024"_s, u"Sim"_s, u"09/05/2024"_s},
                               {u"02/05/2024"_s, u"ENERGIA"_s, u"80,25"_s, u"30/04/2024"_s, u"Não"_s, nada},
                               {nada, u"Total de Contas:"_s, u"1.580,25"_s, nada, nada, nada},
                               {nada, u"Total de Contas Pagas:"_s, u"1.500,00"_s, nada, nada, nada},
                               {nada, u"Total de Contas à Pagar:"_s, u"80,25"_s, nada, nada, nada},
                           }));
}

void TestRelaContas::showsTheAccountsReceivable()
{
    ui::Form *form = preenche(receber);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Contas a Receber de: 30/04/2024 à 30/05/2024]"_s);
    QCOMPARE(columnOf(form, 1), (QStringList{u"CARNÊ Nº 0001-01"_s, u"Total de Contas:"_s,
                                             u"Total de Contas Recebidas:"_s, u"Total de Contas à Receber:"_s}));
    QCOMPARE(columnOf(form, 2), (QStringList{u"33,33"_s, u"33,33"_s, u"0,00"_s, u"33,33"_s}));
}

void TestRelaContas::showsOneSituation_data()
{
    QTest::addColumn<int>("situacao");
    QTest::addColumn<QStringList>("valores");
    QTest::newRow("paid") << pagas << QStringList{u"1.500,00"_s, u"1.500,00"_s, u"1.500,00"_s, u"0,00"_s};
    QTest::newRow("open") << abertas << QStringList{u"80,25"_s, u"80,25"_s, u"0,00"_s, u"80,25"_s};
}

void TestRelaContas::showsOneSituation()
{
    QFETCH(int, situacao);
    QFETCH(QStringList, valores);
    ui::Form *form = abre();
    cadastro::choose(form, u"cboExibir"_s, situacao);
    click(form, u"btnPreenche"_s);
    QCOMPARE(columnOf(papel::relatorio(), 2), valores);
}

void TestRelaContas::isInTheOrderThatIsAskedFor_data()
{
    QTest::addColumn<int>("ordem");
    QTest::addColumn<QStringList>("descricoes");
    QTest::newRow("entry") << 0 << QStringList{u"A"_s, u"B"_s, u"C"_s};
    QTest::newRow("due date") << 1 << QStringList{u"C"_s, u"A"_s, u"B"_s};
    QTest::newRow("value") << 2 << QStringList{u"B"_s, u"C"_s, u"A"_s};
    QTest::newRow("paid first") << 3 << QStringList{u"B"_s, u"A"_s, u"C"_s};
}

void TestRelaContas::isInTheOrderThatIsAskedFor()
{
    QFETCH(int, ordem);
    QFETCH(QStringList, descricoes);
    conta(u"ContasReceber"_s, u"Valor"_s, u"#5/9/2024#, 'A', #5/20/2024#, False, 100"_s);
    conta(u"ContasReceber"_s, u"Valor"_s, u"#5/8/2024#, 'B', #5/21/2024#, True, 9"_s);
    conta(u"ContasReceber"_s, u"Valor"_s, u"#5/7/2024#, 'C', #5/19/2024#, False, 50"_s);
    ui::Form *form = support::show(selecao);
    cadastro::choose(form, u"cboContas"_s, receber);
    cadastro::choose(form, u"cboOrdem"_s, ordem);
    click(form, u"btnPreenche"_s);
    QCOMPARE(columnOf(papel::relatorio(), 1).mid(0, 3), descricoes);
}

void TestRelaContas::nothingFoundIsARow()
{
    click(support::show(selecao), u"btnPreenche"_s);
    QCOMPARE(rowsOf(papel::relatorio()),
             (cadastro::Rows{{nada, u"Registro Não Localizado"_s, nada, nada, nada, nada}}));
    click(papel::relatorio(), u"btnPrint"_s);
    QCOMPARE(impresso().size(), 1U);
    QCOMPARE(impresso().front().at(4), u"Nº de Registros..: 1%1Exibindo....: Todas as Contas"_s.arg(ateExibindo));
}

/// An order that there is not has no customer; a text that names no order is left alone.
void TestRelaContas::aChequeIsShownByItsCustomer()
{
    cheques();
    ui::Form *form = support::show(selecao);
    cadastro::choose(form, u"cboContas"_s, receber);
    support::key(form, u"chkNome"_s, Qt::Key_Space);
    click(form, u"btnPreenche"_s);
    const QStringList esperadas{u"CHEQUE CLIENTE: JOSÉ DA SILVA"_s,
                                u"CHEQUE CLIENTE: JOSÉ DA SILVA"_s,
                                u"CHEQUE CLIENTE: "_s,
                                u"CHEQUE CÓD SEM ORDEM"_s,
                                u"CHEQUE CÓD 0008/1,5-00"_s,
                                u"CHEQUE CLIENTE: "_s,
                                u"CHEQUE: JOSÉ - CÓD 0005/0001-01"_s,
                                u"CARNÊ Nº 0001-01"_s,
                                u"cheque cód 0005/0001-01"_s,
                                nada};
    QCOMPARE(columnOf(papel::relatorio(), 1).mid(0, 10), esperadas);
    QCOMPARE(columnOf(papel::relatorio(), 2).mid(10), (QStringList{u"100,00"_s, u"0,00"_s, u"100,00"_s}));
    click(papel::relatorio(), u"btnPrint"_s);
    QCOMPARE(impresso().front().at(7),
             u"01/05/2024   CHEQUE CLIENTE: JOSÉ DA SILVA                10,00   20/05/2024   Não"_s);
}

void TestRelaContas::withoutTheCheckEachDescriptionStands()
{
    cheques();
    ui::Form *form = support::show(selecao);
    cadastro::choose(form, u"cboContas"_s, receber);
    click(form, u"btnPreenche"_s);
    QCOMPARE(columnOf(papel::relatorio(), 1).mid(0, 2),
             (QStringList{u"CHEQUE CÓD 0005/0001-01"_s, u"CHEQUE CÓD 0006/1"_s}));
}

void TestRelaContas::theNameIsThatOfTheFilling()
{
    cheques();
    ui::Form *form = support::show(selecao);
    cadastro::choose(form, u"cboContas"_s, receber);
    support::key(form, u"chkNome"_s, Qt::Key_Space);
    click(form, u"btnPreenche"_s);
    programa_->sql(u"UPDATE Clientes SET Nome = 'OUTRO'"_s);
    cadastro::clickHeader(papel::relatorio(), 1);
    QVERIFY(columnOf(papel::relatorio(), 1).contains(u"CHEQUE CLIENTE: JOSÉ DA SILVA"_s));
    click(papel::relatorio(), u"btnPrint"_s);
    QCOMPARE(impresso().front().filter(u"JOSÉ DA SILVA"_s).size(), 2);
}

void TestRelaContas::printsThem_data()
{
    QTest::addColumn<int>("contas");
    QTest::addColumn<QStringList>("esperado");
    const QString titulos =
        u"DATA       - DESCRIÇÃO                             - VALOR      - VENCIM.    - PAGO - DATA PGTO."_s;
    QTest::newRow("payable")
        << pagar
        << QStringList{
               QString(13, u' ') + u"CONTAS À PAGAR"_s,
               u"Nº de Registros..: 5%1Exibindo....: Todas as Contas"_s.arg(ateExibindo),
               u"Exibindo.....: de: 1 à 5"_s,
               titulos,
               u"01/05/2024   ALUGUEL DA OFICINA COM TEXTO COMPRIDO     1.500,00   20/05/2024   Sim    09/05/2024"_s,
               u"02/05/2024   ENERGIA                                      80,25   30/04/2024   Não"_s,
               u"             Total de Contas:                          1.580,25"_s,
               u"             Total de Contas Pagas:                    1.500,00"_s,
               u"             Total de Contas à Pagar:                     80,25"_s,
           };
    QTest::newRow("receivable")
        << receber
        << QStringList{
               QString(12, u' ') + u"CONTAS À RECEBER"_s,
               u"Nº de Registros..: 4%1Exibindo....: Todas as Contas"_s.arg(ateExibindo),
               u"Exibindo.....: de: 1 à 4"_s,
               titulos,
               u"04/05/2024   CARNÊ Nº 0001-01                             33,33   30/05/2024   Não"_s,
               u"             Total de Contas:                             33,33"_s,
               u"             Total de Contas Recebidas:                    0,00"_s,
               u"             Total de Contas à Receber:                   33,33"_s,
           };
}

void TestRelaContas::printsThem()
{
    QFETCH(int, contas);
    QFETCH(QStringList, esperado);
    click(preenche(contas), u"btnPrint"_s);
    QCOMPARE(impresso().size(), 1U);
    QStringList folha = impresso().front();
    QCOMPARE(folha.mid(1, 3), (QStringList{QString(45, u' ') + u"Tarvelo"_s, u"Data.............: 15/05/2024"_s,
                                           u"Contas Entre.....: 30/04/2024 à 30/05/2024"_s}));
    folha.remove(1, 3);
    QCOMPARE(folha, esperado);
}

void TestRelaContas::fiftyRowsAreASheet()
{
    {
        const dao::Unit umaVez;
        for (int numero = 1; numero <= 98; ++numero) {
            conta(u"ContasPagar"_s, u"Valor"_s,
                  u"#5/1/2024#, 'CONTA %1', #5/20/2024#, False, 1"_s.arg(numero, 2, 10, QChar(u'0')));
        }
    }
    click(support::show(selecao), u"btnPreenche"_s);
    click(papel::relatorio(), u"btnPrint"_s);
    const auto folhas = impresso();
    QCOMPARE(folhas.size(), 3U);
    constexpr int acimaDasLinhas = 7;
    QCOMPARE(folhas[0].size(), acimaDasLinhas + 50);
    QVERIFY(folhas[0].at(acimaDasLinhas).contains(u"CONTA 01"_s));
    QCOMPARE(folhas[1].size(), acimaDasLinhas + 50);
    QCOMPARE(folhas[1].at(5), u"Exibindo.....: de: 51 à 100"_s);
    QVERIFY(folhas[1].at(acimaDasLinhas).contains(u"CONTA 51"_s));
    QCOMPARE(folhas[1].last().simplified(), u"Total de Contas Pagas: 0,00"_s);
    QCOMPARE(folhas[2].at(5), u"Exibindo.....: de: 101 à 101"_s);
    QCOMPARE(folhas[2].last().simplified(), u"Total de Contas à Pagar: 98,00"_s);
}

void TestRelaContas::previewsWhatItPrints()
{
    ui::Form *form = preenche(receber);
    click(form, u"btnPrint"_s);
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(papel::previsto(), impresso());
    click(ui::Forms::instance().find(u"frmRelaPreVisualiza"_s), u"btnPrint"_s);
    QCOMPARE(papel::previsto(), impresso());
}

/// The title on paper goes with the boxes, though the list stays as it was filled.
void TestRelaContas::theSelectionIsReadAgainForEveryPrint()
{
    ui::Form *form = preenche();
    ui::Form *escolha = support::show(selecao);
    cadastro::choose(escolha, u"cboContas"_s, receber);
    cadastro::choose(escolha, u"cboExibir"_s, abertas);
    type(escolha, u"txtDataFim"_s, u"29052024"_s);
    click(form, u"btnPrint"_s);
    const QStringList folha = impresso().front();
    QCOMPARE(folha.at(0).trimmed(), u"CONTAS À RECEBER"_s);
    QCOMPARE(folha.at(3), u"Contas Entre.....: 30/04/2024 à 29/05/2024"_s);
    QCOMPARE(folha.at(4), u"Nº de Registros..: 5%1Exibindo....: Contas Não Pagas/Recebidas"_s.arg(ateExibindo));
    QVERIFY(folha.at(7).contains(u"ALUGUEL"_s));
}

void TestRelaContas::aHeaderClickMovesTheTotals()
{
    ui::Form *form = preenche();
    cadastro::clickHeader(form, 0);
    QCOMPARE(columnOf(form, 1).mid(0, 3),
             (QStringList{u"Total de Contas:"_s, u"Total de Contas Pagas:"_s, u"Total de Contas à Pagar:"_s}));
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().front().at(7).simplified(), u"Total de Contas: 1.580,25"_s);
    QVERIFY(impresso().front().last().contains(u"ENERGIA"_s));
}

void TestRelaContas::aRowOpensNothing()
{
    papel::clicaDuasVezes(preenche(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(core::ModoChamada, qint16{core::modoRelaContas});
}

void TestRelaContas::aLongReadingIsLeftByEsc()
{
    for (int numero = 0; numero < 40; ++numero) {
        conta(u"ContasPagar"_s, u"Valor"_s, u"#5/1/2024#, 'CONTA', #5/20/2024#, False, 1"_s);
    }
    ui::Form *form = preencheAteEsc(support::show(selecao));
    QCOMPARE(form->windowTitle(),
             u"Tarvelo - [Relatório de Contas a Pagar de: 30/04/2024 à 30/05/2024] - Leitura interrompida"_s);
    QCOMPARE(cadastro::list(form)->count(), 16 + 3);
    QCOMPARE(columnOf(form, 2).mid(16), (QStringList{u"16,00"_s, u"0,00"_s, u"16,00"_s}));
}

/// The rows are all there then, with their totals; those whose turn did not come keep their own texts.
void TestRelaContas::theLookUpOfNamesIsLeftByEsc()
{
    programa_->sql(u"INSERT INTO OrdemServico (CodCliente) VALUES (%1)"_s.arg(programa_->customer(u"JOSÉ"_s)));
    for (int numero = 0; numero < 10; ++numero) {
        conta(u"ContasPagar"_s, u"Valor"_s, u"#5/1/2024#, 'CHEQUE CÓD 0005/0001-01', #5/20/2024#, False, 1"_s);
    }
    ui::Form *form = support::show(selecao);
    support::key(form, u"chkNome"_s, Qt::Key_Space);
    ui::Form *relatorio = preencheAteEsc(form);
    QVERIFY(relatorio->windowTitle().endsWith(u"] - Leitura interrompida"_s));
    QCOMPARE(columnOf(relatorio, 1).mid(5, 2), (QStringList{u"CHEQUE CLIENTE: JOSÉ"_s, u"CHEQUE CÓD 0005/0001-01"_s}));
    QCOMPARE(columnOf(relatorio, 2).mid(10), (QStringList{u"10,00"_s, u"0,00"_s, u"10,00"_s}));
}

TARVELO_TEST_MAIN(TestRelaContas)
#include "tst_relacontas.moc"
