#include "core/modos.h"
#include "core/modulo.h"
#include "reports/reports.h"
#include "stock/stock.h"
#include "support/boxes.h"
#include "tests/reports/papel.h"

using namespace Qt::StringLiterals;
using cadastro::columnOf;
using cadastro::rowsOf;
using papel::impresso;
using support::click;
using support::type;

namespace
{

const QString selecao = u"frmRelaSelecaoNotasEntradas"_s;
const QString consulta = u"frmMoviEntradaPecaConsulta"_s;
const QString colunas = u"CÓDIGO - DATA       - VALOR      - PAGO - OBSERVAÇÕES"_s;

} // namespace

/// The report of a supplier's notes: on the screen, on paper, and the note that opens from it.
class TestRelaNotas : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void showsTheNotesOfTheSupplier();
    void showsOneSituation_data();
    void showsOneSituation();
    void thePeriodHolds();
    void nothingFoundIsABox();
    void theSumIs32BitsWide();
    void printsThem();
    void fiftyRowsAreAPage();
    void previewsWhatItPrints();
    void aHeaderClickMovesTheTotal();
    void theSelectionIsReadAgainForEveryPrint();
    void preencherFillsTheReportAnew();
    void theReportOfAnotherSupplierComesBehindTheFirst();
    void aDoubleClickOpensTheNote();
    void theTotalOpensNothing();

private:
    qint32 nota(const QString &data, const QString &valor, bool paga = false, const QString &obs = {},
                int fornecedor = 1);
    ui::Form *preenche(const QString &codigo = u"1"_s);

    std::unique_ptr<support::Program> programa_;
    std::unique_ptr<support::Boxes> caixas_;
};

void TestRelaNotas::init()
{
    reports::registerForms();
    stock::registerForms();
    programa_ = std::make_unique<support::Program>();
    caixas_ = std::make_unique<support::Boxes>();
    caixas_->title(u"Tarvelo"_s);
    programa_->sql(u"INSERT INTO Fornecedores (Nome) VALUES ('AUTO PEÇAS ANA')"_s);
    programa_->sql(u"INSERT INTO Fornecedores (Nome) VALUES ('BRUNO')"_s);
}

void TestRelaNotas::cleanup()
{
    caixas_.reset();
    programa_.reset();
}

qint32 TestRelaNotas::nota(const QString &data, const QString &valor, bool paga, const QString &obs, int fornecedor)
{
    programa_->sql(u"INSERT INTO NotasEntradas (CodForn, Data, Valor, Pago, Observacoes) VALUES (%1, #%2#, %3, %4, "
                   "%5)"_s.arg(QString::number(fornecedor), data, valor, paga ? u"True"_s : u"False"_s,
                               obs.isEmpty() ? u"Null"_s : u'\'' + obs + u'\''));
    return programa_->rows(u"SELECT MAX(Codigo) FROM NotasEntradas"_s).front().front().toInt();
}

ui::Form *TestRelaNotas::preenche(const QString &codigo)
{
    core::ModoChamada = core::modoNormal;
    ui::Form *escolha = support::show(selecao);
    type(escolha, u"txtCodForn"_s, codigo);
    click(escolha, u"btnPreenche"_s);
    return support::show(u"frmRelatorio"_s);
}

// --- the list

void TestRelaNotas::showsTheNotesOfTheSupplier()
{
    nota(u"05/10/2024"_s, u"1150.255"_s, true, u"NF 123"_s);
    nota(u"05/10/2024"_s, u"7"_s, false, {}, 2);
    nota(u"05/09/2024"_s, u"10"_s);
    ui::Form *form = preenche();
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Notas de Entrada do Fornecedor: AUTO PEÇAS ANA]"_s);
    QCOMPARE(cadastro::titlesOf(form), (QStringList{u"Código"_s, u"Data"_s, u"Valor"_s, u"Observações"_s, u"Pago"_s}));
    QCOMPARE(rowsOf(form), (cadastro::Rows{{u"0001"_s, u"10/05/2024"_s, u"1.150,26"_s, u"NF 123"_s, u"Sim"_s},
                                           {u"0003"_s, u"09/05/2024"_s, u"10,00"_s, u""_s, u"Não"_s},
                                           {u""_s, u"Total: "_s, u"1.160,26"_s, u""_s, u""_s}}));
    QCOMPARE(cadastro::list(form)->item(0).smallIcon(), 1);
    QCOMPARE(cadastro::list(form)->item(2).smallIcon(), 0);
    QCOMPARE(core::ModoChamada, qint16{core::modoRelaNotasFornecedor});
    QVERIFY(cadastro::isOpen(selecao));
}

void TestRelaNotas::showsOneSituation_data()
{
    QTest::addColumn<int>("situacao");
    QTest::addColumn<QStringList>("codigos");
    QTest::newRow("Pagos") << 0 << QStringList{u"0001"_s, u""_s};
    QTest::newRow("Não Pagos") << 1 << QStringList{u"0002"_s, u"0003"_s, u""_s};
    QTest::newRow("Todos") << 2 << QStringList{u"0001"_s, u"0002"_s, u"0003"_s, u""_s};
}

void TestRelaNotas::showsOneSituation()
{
    QFETCH(const int, situacao);
    nota(u"05/12/2024"_s, u"1"_s, true);
    nota(u"05/11/2024"_s, u"2"_s);
    nota(u"05/10/2024"_s, u"3"_s);
    cadastro::choose(support::show(selecao), u"cboPago"_s, situacao);
    QTEST(columnOf(preenche()), "codigos");
}

void TestRelaNotas::thePeriodHolds()
{
    for (const QString &dia : {u"04/14/2024"_s, u"04/15/2024"_s, u"05/15/2024"_s, u"05/16/2024"_s}) {
        nota(dia, u"1"_s);
    }
    QCOMPARE(columnOf(preenche()), (QStringList{u"0002"_s, u"0003"_s, u""_s}));
}

void TestRelaNotas::nothingFoundIsABox()
{
    caixas_->exclamation(u"Nenhum Registro Localizado com sua pesquisa"_s);
    ui::Form *form = preenche();
    QCOMPARE(cadastro::list(form)->count(), 0);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().size(), 1U);
    QCOMPARE(impresso().front().mid(6),
             (QStringList{u"Nº de Registros..: 0"_s, u"Exibindo.....: de: 1 à 0"_s, colunas}));
}

void TestRelaNotas::theSumIs32BitsWide()
{
    nota(u"05/10/2024"_s, u"1000000"_s);
    for (int vez = 0; vez < 10; ++vez) {
        nota(u"05/10/2024"_s, u"0.03"_s);
    }
    QCOMPARE(columnOf(preenche(), 2).last(), u"1.000.000,00"_s);
}

// --- paper

void TestRelaNotas::printsThem()
{
    nota(u"05/10/2024"_s, u"1234.5"_s, true, QString(60, u'X'));
    nota(u"05/11/2024"_s, u"10"_s);
    click(preenche(), u"btnPrint"_s);
    QCOMPARE(impresso(), (std::vector<QStringList>{{
                             u"     NOTAS DE ENTRADA DE FORNECEDOR"_s,
                             QString(45, u' ') + u"Tarvelo"_s,
                             u"Data.......: 15/05/2024"_s,
                             u"Fornecedor.: AUTO PEÇAS ANA"_s,
                             u"Período....: de 15/04/2024 até 15/05/2024"_s,
                             u"Situação...: Todos"_s,
                             u"Nº de Registros..: 3"_s,
                             u"Exibindo.....: de: 1 à 3"_s,
                             colunas,
                             u"0001     10/05/2024     1.234,50   Sim    "_s + QString(54, u'X'),
                             u"0002     11/05/2024        10,00   Não"_s,
                             u"         Total:         1.244,50"_s,
                         }}));
}

void TestRelaNotas::fiftyRowsAreAPage()
{
    for (int vez = 0; vez < 101; ++vez) {
        nota(u"05/10/2024"_s, u"1"_s);
    }
    click(preenche(), u"btnPrint"_s);
    const auto folhas = impresso();
    QCOMPARE(folhas.size(), 3U);
    const QStringList mostra{u"1 à 50"_s, u"51 à 100"_s, u"101 à 102"_s};
    const QStringList primeira{u"0001"_s, u"0051"_s, u"0101"_s};
    for (qsizetype i = 0; i < mostra.size(); ++i) {
        const QStringList &folha = folhas.at(std::size_t(i));
        QCOMPARE(folha.at(6), u"Nº de Registros..: 102"_s);
        QCOMPARE(folha.at(7), u"Exibindo.....: de: "_s + mostra.at(i));
        QCOMPARE(folha.at(9).left(4), primeira.at(i));
    }
    QCOMPARE(folhas.at(1).size(), 59);
    QCOMPARE(folhas.at(2).last(), u"         Total:           101,00"_s);
}

void TestRelaNotas::previewsWhatItPrints()
{
    nota(u"05/10/2024"_s, u"1234.5"_s, true);
    ui::Form *form = preenche();
    click(form, u"btnPrint"_s);
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(papel::previsto(), impresso());
}

void TestRelaNotas::aHeaderClickMovesTheTotal()
{
    nota(u"05/10/2024"_s, u"1"_s);
    nota(u"05/11/2024"_s, u"2"_s);
    ui::Form *form = preenche();
    cadastro::clickHeader(form, 0);
    QCOMPARE(columnOf(form), (QStringList{u""_s, u"0001"_s, u"0002"_s}));
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().front().at(9), u"         Total:             3,00"_s);
}

void TestRelaNotas::theSelectionIsReadAgainForEveryPrint()
{
    nota(u"05/10/2024"_s, u"1"_s);
    ui::Form *form = preenche();
    cadastro::choose(support::show(selecao), u"cboPago"_s, 0);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().front().at(5), u"Situação...: Pagos"_s);
    QCOMPARE(impresso().front().size(), 11);
}

void TestRelaNotas::preencherFillsTheReportAnew()
{
    nota(u"03/10/2024"_s, u"1"_s);
    nota(u"05/10/2024"_s, u"2"_s);
    QCOMPARE(columnOf(preenche()), (QStringList{u"0002"_s, u""_s}));
    type(support::show(selecao), u"txtDataInicio"_s, u"01032024"_s);
    QCOMPARE(columnOf(preenche()), (QStringList{u"0001"_s, u"0002"_s, u""_s}));
}

void TestRelaNotas::theReportOfAnotherSupplierComesBehindTheFirst()
{
    nota(u"05/10/2024"_s, u"1"_s);
    nota(u"05/10/2024"_s, u"2"_s, false, {}, 2);
    preenche();
    ui::Form *form = preenche(u"2"_s);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Notas de Entrada do Fornecedor: BRUNO]"_s);
    QCOMPARE(columnOf(form), (QStringList{u"0002"_s, u""_s}));
}

// --- the note

void TestRelaNotas::aDoubleClickOpensTheNote()
{
    nota(u"02/10/2024"_s, u"1"_s);
    nota(u"02/11/2024"_s, u"2"_s);
    programa_->sql(u"INSERT INTO NotasPecas (CodNota, CodPeca, Quantidade, Descricao, ValorUnit, PSA) VALUES "
                   "(2, 0, 1, 'FRETE', 2, 'A')"_s);
    type(support::show(selecao), u"txtDataInicio"_s, u"01022024"_s);
    ui::Form *form = preenche();
    papel::clicaDuasVezes(form, 1);
    QTRY_VERIFY(cadastro::isOpen(consulta));
    ui::Form *nota = support::show(consulta);
    QCOMPARE(cadastro::list(nota)->selectedRow(), 1);
    QCOMPARE(columnOf(nota), (QStringList{u"0001"_s, u"0002"_s}));
    QCOMPARE(cadastro::list(nota, u"lstPecas"_s)->item(0).subItem(3), u"FRETE"_s);
    QVERIFY(!support::controlOf(nota, u"btnExcluir"_s)->isEnabled());
    QVERIFY(cadastro::isOpen(selecao));
}

void TestRelaNotas::theTotalOpensNothing()
{
    nota(u"05/10/2024"_s, u"1"_s);
    ui::Form *form = preenche();
    papel::clicaDuasVezes(form, 1);
    QCoreApplication::processEvents();
    QVERIFY(!cadastro::isOpen(consulta));
}

TARVELO_TEST_MAIN(TestRelaNotas)
#include "tst_relanotas.moc"
