#include "tests/stock/notas.h"

#include "core/modulo.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;
using cadastro::clickRow;
using cadastro::columnOf;
using cadastro::focusOf;
using cadastro::Rows;
using cadastro::rowsOf;
using notas::nulo;
using support::click;
using support::control;
using support::key;
using support::text;
using support::type;

namespace
{

const QString janela = u"frmMoviEntradaPecaConsulta"_s;

/// The entries of `cboOS`.
constexpr int pagas = 0;
constexpr int naoPagas = 1;
constexpr int todas = 2;

} // namespace

/// The list of all suppliers' notes, what it shows of one, and what its buttons do with it.
class TstFrmMoviEntradaPecaConsulta : public notas::Case
{
    Q_OBJECT

private slots:
    void init() { prepara(); }
    void cleanup() { termina(); }

    void opensWithTheLastMonth();
    void showsEachRow();
    void showsTheSituationThatIsChosen_data();
    void showsTheSituationThatIsChosen();
    void aDateRefillsTheList();
    void aTimeOfTheLastDayLiesOutside();
    void allRecordsRefillsTheList();
    void aNoteOfADeletedSupplierIsNotListed();
    void tabGoesControlByControl();
    void aColumnHeaderSorts();
    void backCloses();

    void aClickShowsTheLines();
    void theArrowsShowTheLines();
    void aQuantityShowsByTheUnitOfItsPart();
    void aLineOfADeletedPartCountsInUnits();
    void aNoteWithoutLinesEmptiesTheirList();
    void aRefillEmptiesTheLines();

    void deletesTheNoteAndItsLines();
    void aRefusedDeletionLeavesTheNote();
    void deletesOneNoteBehindTheOther();
    void aNoteDeletedElsewhereIsDeletedInSilence();
    void buttonsWaitForANote();

    void observationsAreWrittenInCapitals();
    void emptyObservationsChangeNothing();
    void longObservationsAreCut();
    void observationsOfANoteThatIsGoneAreNotWritten();

    void aNewNoteOpensTheReceipt();

private:
    void abre() { janela_ = cadastro::open(janela); }
    void escolheSituacao(int situacao) { cadastro::choose(janela_, u"cboOS"_s, situacao); }
    bool aberto(const QString &botao) const { return control<QAbstractButton>(janela_, botao)->isEnabled(); }
};

// --- the list

void TstFrmMoviEntradaPecaConsulta::opensWithTheLastMonth()
{
    const qint32 ana = fornecedor(u"AUTO PEÇAS ANA"_s);
    nota(ana, u"04/14/2024"_s, u"1"_s);
    nota(ana, u"04/15/2024"_s, u"2"_s);
    nota(ana, u"05/15/2024"_s, u"3"_s);
    nota(ana, u"05/16/2024"_s, u"4"_s);
    abre();
    QCOMPARE(janela_->windowTitle(), u"Tarvelo - [Consulta Notas de Entrada]"_s);
    QCOMPARE(cadastro::titlesOf(janela_), (QStringList{u"Código"_s, u"Fornecedor"_s, u"Data"_s, u"Valor"_s, u"Pago"_s,
                                                       u"Data Pagto."_s, u"Observações"_s}));
    const auto *lstPecas = cadastro::list(janela_, u"lstPecas"_s);
    QStringList titulos;
    for (int coluna = 0; coluna < lstPecas->columnCount(); ++coluna) {
        titulos << lstPecas->model()->headerData(coluna, Qt::Horizontal).toString();
    }
    QCOMPARE(titulos,
             (QStringList{u"Código"_s, u"Tipo"_s, u"Quantidade"_s, u"Descrição"_s, u"V. Unit."_s, u"V. Total"_s}));
    QCOMPARE(text(janela_, u"txtDataInicio"_s), u"15/04/2024"_s);
    QCOMPARE(text(janela_, u"txtDataFim"_s), u"15/05/2024"_s);
    QCOMPARE(text(janela_, u"cboOS"_s), u"Todas"_s);
    QCOMPARE(columnOf(janela_), (QStringList{u"0002"_s, u"0003"_s}));
    QCOMPARE(lstPecas->count(), 0);
    QCOMPARE(focusOf(janela_), u"Lista"_s);
}

void TstFrmMoviEntradaPecaConsulta::showsEachRow()
{
    const qint32 ana = fornecedor(u"AUTO PEÇAS ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1150.255"_s, true, u"05/12/2024"_s, u"NF 123"_s);
    nota(ana, u"05/11/2024"_s, u"10"_s);
    abre();
    QCOMPARE(
        rowsOf(janela_),
        (Rows{{u"0001"_s, u"AUTO PEÇAS ANA"_s, u"10/05/2024"_s, u"1.150,26"_s, u"Sim"_s, u"12/05/2024"_s, u"NF 123"_s},
              {u"0002"_s, u"AUTO PEÇAS ANA"_s, u"11/05/2024"_s, u"10,00"_s, u"Não"_s, u""_s, u""_s}}));
}

void TstFrmMoviEntradaPecaConsulta::showsTheSituationThatIsChosen_data()
{
    QTest::addColumn<int>("situacao");
    QTest::addColumn<QStringList>("codigos");
    QTest::newRow("Pagas") << pagas << QStringList{u"0002"_s};
    QTest::newRow("Não Pagas") << naoPagas << QStringList{u"0001"_s, u"0003"_s};
    QTest::newRow("Todas") << todas << QStringList{u"0001"_s, u"0002"_s, u"0003"_s};
}

void TstFrmMoviEntradaPecaConsulta::showsTheSituationThatIsChosen()
{
    QFETCH(const int, situacao);
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/12/2024"_s, u"1"_s);
    nota(fornecedor(u"BRUNO"_s), u"05/11/2024"_s, u"2"_s, true);
    nota(ana, u"05/10/2024"_s, u"3"_s);
    abre();
    escolheSituacao(situacao == todas ? pagas : todas);
    escolheSituacao(situacao);
    QTEST(columnOf(janela_), "codigos");
}

void TstFrmMoviEntradaPecaConsulta::aDateRefillsTheList()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"03/01/2024"_s, u"1"_s);
    nota(ana, u"05/10/2024"_s, u"2"_s);
    abre();
    type(janela_, u"txtDataInicio"_s, u"01032024"_s, false);
    QCOMPARE(columnOf(janela_), (QStringList{u"0001"_s, u"0002"_s}));
    type(janela_, u"txtDataFim"_s, u"31032024"_s, false);
    QCOMPARE(columnOf(janela_), (QStringList{u"0001"_s}));
}

void TstFrmMoviEntradaPecaConsulta::aTimeOfTheLastDayLiesOutside()
{
    nota(fornecedor(u"ANA"_s), u"05/15/2024 08:00:00"_s, u"1"_s);
    abre();
    QCOMPARE(cadastro::list(janela_)->count(), 0);
}

void TstFrmMoviEntradaPecaConsulta::allRecordsRefillsTheList()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    abre();
    nota(ana, u"05/10/2024"_s, u"2"_s);
    QCOMPARE(columnOf(janela_), (QStringList{u"0001"_s}));
    click(janela_, u"btnTodos"_s);
    QCOMPARE(columnOf(janela_), (QStringList{u"0001"_s, u"0002"_s}));
}

void TstFrmMoviEntradaPecaConsulta::aNoteOfADeletedSupplierIsNotListed()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    nota(fornecedor(u"BRUNO"_s), u"05/10/2024"_s, u"2"_s);
    program_->sql(u"DELETE * FROM Fornecedores WHERE Codigo = 1"_s);
    abre();
    QCOMPARE(columnOf(janela_), (QStringList{u"0002"_s}));
}

void TstFrmMoviEntradaPecaConsulta::tabGoesControlByControl()
{
    cadastro::standIn(u"frmMoviEntradaPeca"_s, {u"txtCodFornecedor"_s});
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    abre();
    clickRow(janela_, 0);
    const QStringList ordem{u"Lista"_s,     u"lstPecas"_s, u"btnNovo"_s,       u"btnExcluir"_s, u"btnOBS"_s,
                            u"btnVoltar"_s, u"cboOS"_s,    u"txtDataInicio"_s, u"txtDataFim"_s, u"btnTodos"_s};
    QCOMPARE(cadastro::tabOrder(janela_, u"Lista"_s, ordem.size()), ordem);
}

void TstFrmMoviEntradaPecaConsulta::aColumnHeaderSorts()
{
    nota(fornecedor(u"CARLA"_s), u"05/10/2024"_s, u"1"_s);
    nota(fornecedor(u"BRUNO"_s), u"05/10/2024"_s, u"2"_s);
    abre();
    cadastro::clickHeader(janela_, 1);
    QCOMPARE(columnOf(janela_, 1), (QStringList{u"BRUNO"_s, u"CARLA"_s}));
    cadastro::clickHeader(janela_, 1);
    QCOMPARE(columnOf(janela_, 1), (QStringList{u"CARLA"_s, u"BRUNO"_s}));
}

void TstFrmMoviEntradaPecaConsulta::backCloses()
{
    abre();
    click(janela_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(janela));
}

// --- the lines of a note

void TstFrmMoviEntradaPecaConsulta::aClickShowsTheLines()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    const qint32 filtro = program_->part(u"FILTRO"_s, u"P"_s, u"30"_s);
    linha(nota(ana, u"05/10/2024"_s, u"1"_s), filtro, u"2"_s, u"FILTRO DE ÓLEO"_s, u"15.5"_s);
    const qint32 segunda = nota(ana, u"05/11/2024"_s, u"2"_s);
    linha(segunda, 0, u"3"_s, u"FRETE"_s, u"7"_s, u"A"_s);
    linha(segunda, filtro, u"1200"_s, u"FILTRO"_s, u"10.25"_s);
    abre();
    clickRow(janela_, 0);
    QCOMPARE(linhas(), (Rows{{u"0001"_s, u"P"_s, u"02"_s, u"FILTRO DE ÓLEO"_s, u"15,50"_s, u"31,00"_s}}));
    clickRow(janela_, 1);
    QCOMPARE(linhas(), (Rows{{u"0000"_s, u"A"_s, u"03"_s, u"FRETE"_s, u"7,00"_s, u"21,00"_s},
                             {u"0001"_s, u"P"_s, u"1200"_s, u"FILTRO"_s, u"10,25"_s, u"12.300,00"_s}}));
}

void TstFrmMoviEntradaPecaConsulta::theArrowsShowTheLines()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    linha(nota(ana, u"05/10/2024"_s, u"1"_s), 0, u"1"_s, u"UM"_s, u"1"_s, u"A"_s);
    linha(nota(ana, u"05/11/2024"_s, u"2"_s), 0, u"1"_s, u"DOIS"_s, u"1"_s, u"A"_s);
    abre();
    key(janela_, u"Lista"_s, Qt::Key_Down);
    key(janela_, u"Lista"_s, Qt::Key_End);
    QCOMPARE(linhas().size(), 1U);
    QCOMPARE(linhas().front().at(3), u"DOIS"_s);
}

void TstFrmMoviEntradaPecaConsulta::aQuantityShowsByTheUnitOfItsPart()
{
    constexpr int litros = 2;
    const qint32 numero = nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    linha(numero, program_->part(u"ÓLEO"_s, u"P"_s, u"30"_s, false, litros), u"2.5"_s, u"ÓLEO"_s, u"10"_s);
    linha(numero, program_->part(u"FILTRO"_s, u"P"_s, u"30"_s), u"2.5"_s, u"FILTRO"_s, u"10"_s);
    abre();
    clickRow(janela_, 0);
    QCOMPARE(linhas().at(0).at(2), u"2,500"_s);
    QCOMPARE(linhas().at(1).at(2), u"2,500"_s);
    QCOMPARE(linhas().at(0).at(5), u"25,00"_s);
    program_->sql(u"UPDATE NotasPecas SET Quantidade = 2"_s);
    clickRow(janela_, 0);
    QCOMPARE(linhas().at(0).at(2), u"2,000"_s);
    QCOMPARE(linhas().at(1).at(2), u"02"_s);
}

void TstFrmMoviEntradaPecaConsulta::aLineOfADeletedPartCountsInUnits()
{
    linha(nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s), 99, u"2"_s, u"SUMIU"_s, u"10"_s);
    abre();
    clickRow(janela_, 0);
    QCOMPARE(linhas(), (Rows{{u"0099"_s, u"P"_s, u"02"_s, u"SUMIU"_s, u"10,00"_s, u"20,00"_s}}));
}

void TstFrmMoviEntradaPecaConsulta::aNoteWithoutLinesEmptiesTheirList()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    linha(nota(ana, u"05/10/2024"_s, u"1"_s), 0, u"1"_s, u"UM"_s, u"1"_s, u"A"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s);
    abre();
    clickRow(janela_, 0);
    QCOMPARE(linhas().size(), 1U);
    clickRow(janela_, 1);
    QVERIFY(linhas().empty());
}

void TstFrmMoviEntradaPecaConsulta::aRefillEmptiesTheLines()
{
    linha(nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s), 0, u"1"_s, u"UM"_s, u"1"_s, u"A"_s);
    abre();
    for (const QString &caminho : {u"cboOS"_s, u"txtDataInicio"_s, u"txtDataFim"_s, u"btnTodos"_s}) {
        clickRow(janela_, 0);
        QCOMPARE(linhas().size(), 1U);
        if (caminho == u"btnTodos") {
            click(janela_, caminho);
        } else if (caminho == u"cboOS") {
            escolheSituacao(naoPagas);
        } else {
            type(janela_, caminho, caminho == u"txtDataFim" ? u"16052024"_s : u"01042024"_s);
        }
        QVERIFY2(linhas().empty(), qPrintable(caminho));
    }
}

// --- deleting

void TstFrmMoviEntradaPecaConsulta::deletesTheNoteAndItsLines()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    const qint32 peca = program_->part(u"FILTRO"_s, u"P"_s, u"30"_s, true);
    linha(nota(ana, u"05/10/2024"_s, u"1"_s), peca, u"2"_s, u"FILTRO"_s, u"5"_s);
    linha(nota(ana, u"05/11/2024"_s, u"2"_s), peca, u"3"_s, u"FILTRO"_s, u"5"_s);
    program_->sql(u"INSERT INTO Estoque (CodPeca, Data, Descricao, Entrada, Estoque) VALUES (1, #05/10/2024#, "
                  "'ENTRADA NOTA: 0001', 2, 2)"_s);
    program_->sql(u"UPDATE Pecas SET ValorCusto = 5"_s);
    const Rows estoque = program_->rows(u"SELECT * FROM Estoque ORDER BY Codigo"_s);
    const Rows pecas = program_->rows(u"SELECT * FROM Pecas"_s);
    abre();
    clickRow(janela_, 0);
    boxes_->question(u"Excluir o Registro Selecionado"_s, true);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM NotasEntradas"_s), (Rows{{u"2"_s}}));
    QCOMPARE(program_->rows(u"SELECT CodNota FROM NotasPecas"_s), (Rows{{u"2"_s}}));
    QCOMPARE(columnOf(janela_), (QStringList{u"0002"_s}));
    QVERIFY(linhas().empty());
    QCOMPARE(program_->rows(u"SELECT * FROM Estoque ORDER BY Codigo"_s), estoque);
    QCOMPARE(program_->rows(u"SELECT * FROM Pecas"_s), pecas);
}

void TstFrmMoviEntradaPecaConsulta::aRefusedDeletionLeavesTheNote()
{
    linha(nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s), 0, u"1"_s, u"UM"_s, u"1"_s, u"A"_s);
    abre();
    clickRow(janela_, 0);
    boxes_->question(u"Excluir o Registro Selecionado"_s, false);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM NotasEntradas"_s), (Rows{{u"1"_s}}));
    QCOMPARE(linhas().size(), 1U);
}

/// No other note slips below the button behind a deletion.
void TstFrmMoviEntradaPecaConsulta::deletesOneNoteBehindTheOther()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s);
    abre();
    for (int vez = 0; vez < 2; ++vez) {
        clickRow(janela_, 0);
        boxes_->question(u"Excluir o Registro Selecionado"_s, true);
        click(janela_, u"btnExcluir"_s);
        QCOMPARE(cadastro::list(janela_)->selectedRow(), -1);
        QVERIFY(!aberto(u"btnExcluir"_s));
    }
    QVERIFY(program_->rows(u"SELECT Codigo FROM NotasEntradas"_s).empty());
    QCOMPARE(focusOf(janela_), u"Lista"_s);
}

void TstFrmMoviEntradaPecaConsulta::aNoteDeletedElsewhereIsDeletedInSilence()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s);
    abre();
    clickRow(janela_, 0);
    program_->sql(u"DELETE * FROM NotasEntradas WHERE Codigo = 1"_s);
    boxes_->question(u"Excluir o Registro Selecionado"_s, true);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(columnOf(janela_), (QStringList{u"0002"_s}));
    QCOMPARE(program_->rows(u"SELECT Codigo FROM NotasEntradas"_s), (Rows{{u"2"_s}}));
}

void TstFrmMoviEntradaPecaConsulta::buttonsWaitForANote()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    abre();
    for (const QString &botao : {u"btnExcluir"_s, u"btnOBS"_s}) {
        QVERIFY(!aberto(botao));
        QVERIFY(control<QAbstractButton>(janela_, botao)->toolTip().endsWith(u"\nEscolha uma nota na lista"_s));
    }
    clickRow(janela_, 0);
    QVERIFY(aberto(u"btnExcluir"_s) && aberto(u"btnOBS"_s));
    QCOMPARE(control<QAbstractButton>(janela_, u"btnExcluir"_s)->toolTip(), u"Excluir Nota de Entrada"_s);
    QCOMPARE(control<QAbstractButton>(janela_, u"btnOBS"_s)->toolTip(), u"Alterar Observações"_s);
}

// --- observations

void TstFrmMoviEntradaPecaConsulta::observationsAreWrittenInCapitals()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s, false, u"Null"_s, u"NF 123"_s);
    abre();
    clickRow(janela_, 0);
    boxes_->input(u"Digite Observações"_s, u"copo d'água, ação"_s);
    click(janela_, u"btnOBS"_s);
    QCOMPARE(program_->rows(u"SELECT Observacoes FROM NotasEntradas"_s), (Rows{{u"COPO D'ÁGUA, AÇÃO"_s}}));
    QCOMPARE(columnOf(janela_, 6), (QStringList{u"COPO D'ÁGUA, AÇÃO"_s}));
    boxes_->inputKeep(u"Digite Observações"_s, u"COPO D'ÁGUA, AÇÃO"_s);
    click(janela_, u"btnOBS"_s);
    QCOMPARE(columnOf(janela_, 6), (QStringList{u"COPO D'ÁGUA, AÇÃO"_s}));
}

void TstFrmMoviEntradaPecaConsulta::emptyObservationsChangeNothing()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s, false, u"Null"_s, u"NF 123"_s);
    abre();
    clickRow(janela_, 0);
    boxes_->inputCancel(u"Digite Observações"_s).input(u"Digite Observações"_s, QString());
    click(janela_, u"btnOBS"_s);
    click(janela_, u"btnOBS"_s);
    QCOMPARE(program_->rows(u"SELECT Observacoes FROM NotasEntradas"_s), (Rows{{u"NF 123"_s}}));
    QCOMPARE(columnOf(janela_, 6), (QStringList{u"NF 123"_s}));
}

void TstFrmMoviEntradaPecaConsulta::longObservationsAreCut()
{
    nota(fornecedor(u"ANA"_s), u"05/10/2024"_s, u"1"_s);
    abre();
    clickRow(janela_, 0);
    boxes_->input(u"Digite Observações"_s, QString(201, u'a'));
    click(janela_, u"btnOBS"_s);
    QCOMPARE(program_->rows(u"SELECT Observacoes FROM NotasEntradas"_s), (Rows{{QString(200, u'A')}}));
    QCOMPARE(columnOf(janela_, 6), (QStringList{QString(200, u'A')}));
}

void TstFrmMoviEntradaPecaConsulta::observationsOfANoteThatIsGoneAreNotWritten()
{
    const qint32 ana = fornecedor(u"ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1"_s);
    nota(ana, u"05/11/2024"_s, u"2"_s);
    abre();
    clickRow(janela_, 0);
    program_->sql(u"DELETE * FROM NotasEntradas WHERE Codigo = 1"_s);
    boxes_->input(u"Digite Observações"_s, u"A"_s);
    click(janela_, u"btnOBS"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Observacoes FROM NotasEntradas"_s), (Rows{{u"2"_s, nulo}}));
    QCOMPARE(columnOf(janela_), (QStringList{u"0002"_s}));
}

// --- a new note

void TstFrmMoviEntradaPecaConsulta::aNewNoteOpensTheReceipt()
{
    cadastro::standIn(u"frmMoviEntradaPeca"_s, {u"txtCodFornecedor"_s});
    abre();
    core::ModoChamada = 16;
    click(janela_, u"btnNovo"_s);
    QVERIFY(!cadastro::isOpen(janela));
    QVERIFY(cadastro::isOpen(u"frmMoviEntradaPeca"_s));
    QCOMPARE(cadastro::StandIn::modeAtLoad, qint16(0));
}

TARVELO_TEST_MAIN(TstFrmMoviEntradaPecaConsulta)
#include "tst_frmMoviEntradaPecaConsulta.moc"
